#include "parameters/setters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

TEST(Setters, AValueIsLimitedInPlaceAndStored) {
    Instrument i;
    struct Case {
        std::int16_t Given, Vol, Pan, Hz;
    };
    for (const Case& c : std::vector<Case>{{-1, 0, 0, 1},
                                           {0, 0, 0, 1},
                                           {1, 1, 1, 1},
                                           {500, 500, 500, 500},
                                           {501, 500, 501, 501},
                                           {1001, 500, 1000, 1001},
                                           {4001, 500, 1000, 4000},
                                           {-32000, 0, 0, 1},
                                           {32000, 500, 1000, 4000}}) {
        SCOPED_TRACE(c.Given);
        std::int16_t vol = c.Given, pan = c.Given, hz = c.Given;
        LoopVolChange(i.s, 2, vol, TakeHold::Yes, UpdateDisplay::Yes);
        LoopPanChange(i.s, 2, pan, TakeHold::Yes);
        LoopHzChange(i.s, 2, hz, TakeHold::Yes);
        EXPECT_EQ(vol, c.Vol);
        EXPECT_EQ(pan, c.Pan);
        EXPECT_EQ(hz, c.Hz);
        EXPECT_EQ(i.s.Set[2].Vol, c.Vol);
        EXPECT_EQ(i.s.Set[2].Pan, c.Pan);
        EXPECT_EQ(i.s.Set[2].Hz, c.Hz);
    }
}

TEST(Setters, ALoopTrackWithNoSampleKeepsTheValueAndNothingIsSent) {
    Instrument i;
    std::int16_t vol = 123, pan = 321, hz = 777;
    LoopVolChange(i.s, 1, vol, TakeHold::Yes, UpdateDisplay::Yes);
    LoopPanChange(i.s, 1, pan, TakeHold::Yes);
    LoopHzChange(i.s, 1, hz, TakeHold::Yes);
    EXPECT_EQ(i.s.Set[1].Vol, 123);
    EXPECT_EQ(i.s.Set[1].Pan, 321);
    EXPECT_EQ(i.s.Set[1].Hz, 777);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(Setters, WithTakeHoldTheSoundFollowsAtOnceWithoutItOnlyTheKnobDoes) {
    Instrument i;
    i.Fill(0);
    std::int16_t vol = 498, pan = 501, hz = 500;
    LoopVolChange(i.s, 0, vol, TakeHold::No, UpdateDisplay::No);
    LoopPanChange(i.s, 0, pan, TakeHold::No);
    LoopHzChange(i.s, 0, hz, TakeHold::No);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_THAT(i.Screen.Log,
                UnorderedElementsAre("ShowKnob 0 Vol", "ShowSoundDisplay 0", "ShowKnob 0 Pan", "ShowKnob 0 Hz"));
    LoopVolChange(i.s, 0, vol, TakeHold::Yes, UpdateDisplay::No);
    LoopPanChange(i.s, 0, pan, TakeHold::Yes);
    LoopHzChange(i.s, 0, hz, TakeHold::Yes);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetVolume b0 -6", "SetPan b0 12", "SetFrequency b0 22050"));
}

TEST(Setters, TheMasterIsHeardOnAllRowsAndHasNoSoundDisplay) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    std::int16_t vol = 250;
    LoopVolChange(i.s, kMasterRow, vol, TakeHold::Yes, UpdateDisplay::Yes);
    EXPECT_THAT(i.Sound.Log,
                ElementsAre("SetVolume b0 -1494", "SetVolume b1 -1494", "SetVolume b2 -1494", "SetVolume b3 -1494"));
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowKnob 5 Vol"));
}

TEST(Setters, TheLineOfTheSoundDisplayMovesOnlyWithUpdateDisplay) {
    Instrument i;
    std::int16_t vol = 100;
    LoopVolChange(i.s, 3, vol, TakeHold::Yes, UpdateDisplay::No);
    EXPECT_EQ(i.s.SndDisp[3].Level, 100);
    EXPECT_EQ(i.s.SndDisp[3].Line, 500);
    LoopVolChange(i.s, 3, vol, TakeHold::Yes, UpdateDisplay::Yes);
    EXPECT_EQ(i.s.SndDisp[3].Line, 100);
    EXPECT_EQ(i.Screen.Count("ShowSoundDisplay 3"), 2);
}

TEST(Setters, AFailedCallKeepsTheSetting) {
    Instrument i;
    i.Fill(0);
    i.Sound.Failures["SetVolume"] = sound_error::kGeneric;
    std::int16_t vol = 42;
    LoopVolChange(i.s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes);
    EXPECT_EQ(i.s.Set[0].Vol, 42);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
}

/// What each of the three gang setters does.
struct Gang {
    std::string Name;
    void (*Change)(Session&, Row, std::int16_t);
    std::int16_t (*Value)(const Session&, Row);
};

const std::vector<Gang> kGangs{
    {"Vol", [](Session& s, Row row, std::int16_t v) { LoopVolChangeGang(s, row, v, UpdateDisplay::Yes); },
     [](const Session& s, Row row) { return s.Set[row].Vol; }},
    {"Pan", LoopPanChangeGang, [](const Session& s, Row row) { return s.Set[row].Pan; }},
    {"Hz", LoopHzChangeGang, [](const Session& s, Row row) { return s.Set[row].Hz; }},
};

std::vector<Row> RowsAt(const Instrument& i, const Gang& gang, std::int16_t value) {
    std::vector<Row> rows;
    for (Row row = 0; row < kRows; ++row) {
        if (gang.Value(i.s, row) == value) rows.push_back(row);
    }
    return rows;
}

TEST(GangSetters, RowFourReachesTheControlledRowsAndThenItself) {
    for (const Gang& gang : kGangs) {
        SCOPED_TRACE(gang.Name);
        Instrument i;
        i.Select(1);
        i.Select(3);
        gang.Change(i.s, kSelectionRow, 111);
        EXPECT_THAT(RowsAt(i, gang, 111), ElementsAre(1, 3, 4));
        std::vector<std::string> knobs;
        for (const std::string& entry : i.Screen.Log) {
            if (entry.starts_with("ShowKnob")) knobs.push_back(entry);
        }
        EXPECT_THAT(knobs,
                    ElementsAre("ShowKnob 1 " + gang.Name, "ShowKnob 3 " + gang.Name, "ShowKnob 4 " + gang.Name));
    }
}

TEST(GangSetters, DuringStartUpRowFourReachesOnlyItself) {
    for (const Gang& gang : kGangs) {
        SCOPED_TRACE(gang.Name);
        Instrument i;
        i.s.GangReady = false;
        i.Select(1);
        gang.Change(i.s, kSelectionRow, 111);
        EXPECT_THAT(RowsAt(i, gang, 111), ElementsAre(4));
    }
}

TEST(GangSetters, ARowInABandReachesTheWholeBand) {
    for (const Gang& gang : kGangs) {
        SCOPED_TRACE(gang.Name);
        Instrument i;
        i.MakeBand(2, 1, 3);
        gang.Change(i.s, 2, 111);
        EXPECT_THAT(RowsAt(i, gang, 111), ElementsAre(1, 2, 3));
    }
}

TEST(GangSetters, ARowOfAnEmptyBandReachesNoRowNotEvenItself) {
    for (const Gang& gang : kGangs) {
        SCOPED_TRACE(gang.Name);
        Instrument i;
        i.s.Run[0].InBand = True;
        i.s.Run[0].Band = 3;  // an empty band
        gang.Change(i.s, 0, 111);
        EXPECT_TRUE(RowsAt(i, gang, 111).empty());
    }
}

TEST(GangSetters, AnyOtherRowReachesOnlyItselfEvenWhenSelected) {
    for (const Gang& gang : kGangs) {
        SCOPED_TRACE(gang.Name);
        Instrument i;
        for (Row row = 0; row < kLoopTracks; ++row) i.Select(row);
        gang.Change(i.s, 2, 111);
        EXPECT_THAT(RowsAt(i, gang, 111), ElementsAre(2));
    }
}

TEST(GangSetters, AllMembersTakeTheSameAbsoluteValueAndAreHeard) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    i.s.Set[0].Hz = 200;
    i.s.Set[1].Hz = 3000;
    i.MakeBand(1, 0, 1);
    LoopHzChangeGang(i.s, 1, 500);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetFrequency b0 22050", "SetFrequency b1 22050"));
}

TEST(GangSetters, WithThreeDimensionsAPanChangesNothingNotEvenTheStoredOne) {
    Instrument i;
    i.s.Use3D = true;
    i.Select(0);
    LoopPanChangeGang(i.s, kSelectionRow, 100);
    LoopPanChangeGang(i.s, 1, 100);
    for (Row row = 0; row < kRows; ++row) EXPECT_EQ(i.s.Set[row].Pan, 500);
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(Readouts, ShowTheValueInThePlayersUnits) {
    EXPECT_EQ(Vol2Text(500), "Vol: 500");
    EXPECT_EQ(Vol2Text(0), "Vol: 0");
    EXPECT_EQ(Hz2Text(1000), "Freq: 100%");
    EXPECT_EQ(Hz2Text(995), "Freq: 99.5%");
    EXPECT_EQ(Hz2Text(1), "Freq: 0.1%");
    EXPECT_EQ(Hz2Text(4000), "Freq: 400%");
    EXPECT_EQ(Pan2Text(1000), "Pan: Full Right (+500)");
    EXPECT_EQ(Pan2Text(999), "Pan: Right (+499)");
    EXPECT_EQ(Pan2Text(501), "Pan: Right (+1)");
    EXPECT_EQ(Pan2Text(500), "Pan: Centre (0)");
    EXPECT_EQ(Pan2Text(499), "Pan: Left (-1)");
    EXPECT_EQ(Pan2Text(1), "Pan: Left (-499)");
    EXPECT_EQ(Pan2Text(0), "Pan: Full Left (-500)");
}

TEST(KnobFrame, DividesTheScaleIntoSixtyFourPicturesFromTheSecondSixtyFourthOn) {
    for (int vol = 0; vol <= 500; ++vol) {
        const int wanted = std::min(std::max(vol * 64 / 500, 1), 64) - 1;
        ASSERT_EQ(KnobFrame(vol, 500, 0), wanted) << vol;
    }
    for (int hz = 1; hz <= 4000; ++hz) {
        const int wanted = std::min(std::max(hz * 64 / 3999, 1), 64) - 1;
        // Where the fraction is a whole number, a quotient of doubles may be slightly less.
        if (hz * 64 % 3999 == 0) continue;
        ASSERT_EQ(KnobFrame(hz, 4000, 1), wanted) << hz;
    }
    EXPECT_EQ(KnobFrame(0, 500, 0), 0);
    EXPECT_EQ(KnobFrame(500, 500, 0), 63);
    EXPECT_EQ(KnobFrame(500, 1000, 0), 31);
    EXPECT_EQ(KnobFrame(1000, 1000, 0), 63);
}

}  // namespace
}  // namespace marvolin
