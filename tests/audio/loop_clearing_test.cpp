#include "audio/loop_clearing.h"

#include <gtest/gtest.h>

#include "audio/beat_start.h"
#include "audio/loop_controls.h"
#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(LoopUnload, StopsReleasesAndKeepsTheSettings) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    i.s.Set[0].Vol = 77;
    i.s.Run[0].Step = 3;
    LoopUnload(i.s, 0);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[0].Buffer, nullptr);
    EXPECT_EQ(i.s.Run[0].Step, 0);
    EXPECT_EQ(i.s.Set[0].FileName, "");
    EXPECT_EQ(i.s.Set[0].Vol, 77);
    EXPECT_TRUE(i.Sound.Live.empty());
    EXPECT_EQ(i.s.ThinList, "");
}

TEST(LoopClear, PutsTheRowBackToItsEmptyDefaults) {
    Instrument i;
    i.Fill(2);
    LoopPlay(i.s, 2, true);
    LoopTrackSet& set = i.s.Set[2];
    set.PlayMode = kDrum;
    set.Hz = 5;
    set.Vol = 5;
    set.Pan = 5;
    set.Swing = 5;
    set.BeatStart = 5;
    set.Thinnable = False;
    set.NSteps = 12;
    set.Pattern[kPanPattern][0] = 1;
    LoopClear(i.s, 2);
    EXPECT_EQ(i.s.Run[2].Loaded, False);
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_EQ(i.s.Run[2].Buffer, nullptr);
    EXPECT_EQ(set.FileName, "");
    EXPECT_EQ(set.PlayMode, kLoop);
    EXPECT_EQ(set.Hz, 1000);
    EXPECT_EQ(set.Vol, 500);
    EXPECT_EQ(set.Pan, 500);
    EXPECT_EQ(set.Thinnable, True);
    EXPECT_EQ(set.StepDuration, 0);
    EXPECT_EQ(set.Swing, 0);
    EXPECT_EQ(set.BeatStart, 0);
    EXPECT_EQ(set.NSteps, 3);
    EXPECT_EQ(set.Pattern[kPanPattern][0], 500);
    EXPECT_FALSE(PanKnobEnabled(i.s, 2));
    EXPECT_EQ(i.Screen.Log.back(), "ShowCaption 2");
}

TEST(LoopClear, With3DLeavesThePanAlone) {
    Instrument i;
    i.s.Use3D = true;
    i.s.Set[0].Pan = 5;
    LoopClear(i.s, 0);
    EXPECT_EQ(i.s.Set[0].Pan, 5);
    EXPECT_TRUE(PanKnobEnabled(i.s, 0));
}

TEST(LoopClear, LeavesRowFourAlone) {
    Instrument i;
    i.s.Set[kSelectionRow].Vol = 5;
    LoopClear(i.s, kSelectionRow);
    EXPECT_EQ(i.s.Set[kSelectionRow].Vol, 5);
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(LoopClearRows, RowFourClearsTheControlledRows) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    i.Select(0);
    i.Select(2);
    LoopClearRows(i.s, kSelectionRow);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[1].Loaded, True);
    EXPECT_EQ(i.s.Run[2].Loaded, False);
    LoopClearRows(i.s, 1);
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(i.s.Run[3].Loaded, True);
}

TEST(LoopClear, AnEmptiedRowReadsEmptyAndHasNoBeatStart) {
    Instrument i;
    i.Fill(0);
    i.s.ActiveTab = kPatternTab;
    i.s.CurrentLoop = 0;
    LoopClear(i.s, 0);
    EXPECT_EQ(i.s.Set[0].Length, 0);
    EXPECT_EQ(i.s.PercentText[0], "<Empty>");
    EXPECT_EQ(i.s.PercentText[1], "0.0%");
    EXPECT_EQ(i.s.PercentText[2], "<Empty>");
    std::int32_t start = 50;
    LoopSetBeatStart(i.s, 0, start);
    EXPECT_EQ(i.s.Set[0].BeatStart, 0);
    EXPECT_EQ(i.Screen.Count("ShowDestinations"), 1);
}

}  // namespace
}  // namespace marvolin
