#include "performance/drops/dropper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(DropperManager, ReadsAndWritesItsTags) {
    const clsDropperManager dropper;
    EXPECT_EQ(dropper.DropTo(3), "Dropper~~3");
    EXPECT_TRUE(dropper.IsDropping({"Letr", 0, "Dropper~~3"}));
    EXPECT_FALSE(dropper.IsDropping({"Letr", 0, "4"}));
    EXPECT_FALSE(dropper.IsDropping({"Letr", 0, "Dropper~"}));
    EXPECT_EQ(dropper.DroppingTo({"Letr", 0, "Dropper~~2"}), 2);
    EXPECT_EQ(dropper.DroppingTo({"Letr", 0, "Dropper~~"}), -1);
    EXPECT_EQ(dropper.DroppingTo({"Letr", 0, "4"}), -1);
}

TEST(Letr, LeftStartsTheDropperAndRightTheFadeDrag) {
    EXPECT_EQ(Letr_MouseDown(2, kLeftButton), (DragSource{"Letr", 2, "Dropper~~2"}));
    EXPECT_EQ(Letr_MouseDown(4, kRightButton), (DragSource{"Letr", 4, "4"}));
    EXPECT_FALSE(Letr_MouseDown(2, kMiddleButton));
}

TEST(Dropper, TakesVolumePanFrequencyAndPlayModeInThisOrder) {
    Instrument d;
    d.Fill(0);
    d.Fill(1);
    d.s.Set[1].Vol = 100;
    d.s.Set[1].Pan = 200;
    d.s.Set[1].Hz = 3000;
    d.s.Set[1].PlayMode = kDrum;
    d.s.Set[0].PlayMode = kOneShot;
    d.s.Run[0].Playing = True;
    d.Sound.Log.clear();
    d.Screen.Log.clear();
    EXPECT_TRUE(DropDropperOnLetter(d.s, 1, {"Letr", 0, "Dropper~~0"}));
    std::vector<std::string> shown;
    for (const std::string& entry : d.Screen.Log) {
        if (entry.starts_with("ShowKnob 0") || entry == "ShowPlayMode 0") shown.push_back(entry);
    }
    EXPECT_THAT(shown, testing::ElementsAre("ShowKnob 0 Vol", "ShowKnob 0 Pan", "ShowKnob 0 Hz", "ShowPlayMode 0"));
}

TEST(Dropper, TheBandOfTheLoopTrackThatStartedTheDragTakesAllFourSettings) {
    Instrument d;
    d.MakeBand(2, 2, 3);
    d.s.Set[1].Vol = 100;
    d.s.Set[1].Pan = 200;
    d.s.Set[1].Hz = 3000;
    d.s.Set[1].PlayMode = kDrum;
    EXPECT_TRUE(DropDropperOnLetter(d.s, 1, {"Letr", 2, "Dropper~~2"}));
    for (const Row row : {Row{2}, Row{3}}) {
        EXPECT_EQ(d.s.Set[row].Vol, 100);
        EXPECT_EQ(d.s.Set[row].Pan, 200);
        EXPECT_EQ(d.s.Set[row].Hz, 3000);
        EXPECT_EQ(d.s.Set[row].PlayMode, kDrum);
    }
    EXPECT_EQ(d.s.Set[0].Pan, 500);
}

TEST(Dropper, FromALoopTrackToItselfItChangesNothingInItsBandEither) {
    Instrument d;
    d.MakeBand(1, 0, 2);
    for (Row row = 0; row < kLoopTracks; ++row) {
        d.s.Set[row].Vol = static_cast<std::int16_t>(100 + row);
        d.s.Set[row].Pan = static_cast<std::int16_t>(200 + row);
        d.s.Set[row].Hz = static_cast<std::int16_t>(300 + row);
        d.s.Set[row].PlayMode = static_cast<std::int16_t>(row);
    }
    const Table<LoopTrackSet, kRows> before = d.s.Set;
    EXPECT_TRUE(DropDropperOnLetter(d.s, 1, {"Letr", 1, "Dropper~~1"}));
    EXPECT_TRUE(DropDropperOnDisplay(d.s, 1, {"Letr", 1, "Dropper~~1"}));
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(d.s.Set[row], before[row]) << row;
    EXPECT_TRUE(d.Screen.Log.empty());
}

TEST(Letr, ADoubleClickTogglesThinnableButNotOnRowFour) {
    Instrument d;
    Letr_DblClick(d.s, 1);
    EXPECT_EQ(d.s.Set[1].Thinnable, False);
    EXPECT_GE(d.Screen.Count("ShowCaption 1"), 1);
    Letr_DblClick(d.s, 1);
    EXPECT_EQ(d.s.Set[1].Thinnable, True);
    Letr_DblClick(d.s, 4);
    EXPECT_EQ(d.s.Set[4].Thinnable, True);
}

}  // namespace
}  // namespace marvolin
