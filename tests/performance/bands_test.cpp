#include "performance/selection/bands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/loops/grouping.h"
#include "fakes/instrument.h"
#include "parameters/setters.h"

namespace marvolin {
namespace {

using test::Instrument;

class Bands : public testing::Test {
protected:
    Instrument i;
    /// Presses at the first column, passes the others and releases.
    void Drag(Row lane, std::initializer_list<int> columns) {
        Bands_Gesture(i.s, lane, *columns.begin(), Phase::Down);
        for (const int column : columns) Bands_Gesture(i.s, lane, column, Phase::Move);
        Bands_Gesture(i.s, lane, *(columns.end() - 1), Phase::Up);
        ExpectRowsTrueToTheTable();
    }
    void Click(Row lane, int column) {
        Bands_Gesture(i.s, lane, column, Phase::Down);
        Bands_Gesture(i.s, lane, column, Phase::Up);
        ExpectRowsTrueToTheTable();
    }
    /// Letters of the drawn members, "" when the lane is empty.
    std::string Members(Row lane) const {
        std::string letters;
        const BandRun run = DrawnBand(i.s, lane);
        for (Row row = run.First; row <= run.Last; ++row) letters += RowLetter(row);
        return letters;
    }
    void ExpectRowsTrueToTheTable() const {
        for (Row row = 0; row < kLoopTracks; ++row) {
            SCOPED_TRACE(row);
            int memberships = 0;
            for (Row band = 0; band < kBands; ++band) {
                const BandRun run = DrawnBand(i.s, band);
                if (row < run.First || row > run.Last) continue;
                ++memberships;
                EXPECT_EQ(i.s.Run[row].InBand, True);
                EXPECT_EQ(i.s.Run[row].Band, band);
            }
            EXPECT_LE(memberships, 1);
            if (memberships > 0) continue;
            EXPECT_EQ(i.s.Run[row].InBand, False);
            EXPECT_EQ(i.s.Run[row].Band, 0);
        }
    }
};

TEST_F(Bands, NoLaneHoldsABandUntilThePlayerDraws) {
    for (Row lane = 0; lane < kBands; ++lane) EXPECT_EQ(Members(lane), "");
    EXPECT_EQ(i.s.BandTable[0].First, 0);
    EXPECT_EQ(i.s.BandTable[0].Last, 3);
    ExpectRowsTrueToTheTable();
}

TEST_F(Bands, ADragMakesTheBandTheRunThatItPassesInEitherDirection) {
    Drag(2, {1, 2});
    EXPECT_EQ(Members(2), "BC");
    EXPECT_EQ(i.s.BandTable[2].First, 1);
    EXPECT_EQ(i.s.BandTable[2].Last, 2);
    Drag(4, {3, 2});
    EXPECT_EQ(Members(4), "CD");
    EXPECT_EQ(Members(2), "B");
}

TEST_F(Bands, TheBandGrowsWhileTheDragIsUnderWayAndKeepsWhatItHasPassed) {
    Bands_Gesture(i.s, 1, 1, Phase::Down);
    EXPECT_EQ(Members(1), "");
    Bands_Gesture(i.s, 1, 2, Phase::Move);
    EXPECT_EQ(Members(1), "BC");
    Bands_Gesture(i.s, 1, 3, Phase::Move);
    EXPECT_EQ(Members(1), "BCD");
    Bands_Gesture(i.s, 1, 0, Phase::Move);
    EXPECT_EQ(Members(1), "ABCD");
    Bands_Gesture(i.s, 1, 1, Phase::Move);
    Bands_Gesture(i.s, 1, 1, Phase::Up);
    EXPECT_EQ(Members(1), "ABCD");
}

TEST_F(Bands, ADragReplacesTheRunThatTheLaneHad) {
    Drag(0, {0, 1});
    Drag(0, {2, 3});
    EXPECT_EQ(Members(0), "CD");
}

TEST_F(Bands, ADragBeyondTheEdgesCountsAsTheOuterColumns) {
    Drag(0, {1, -4});
    EXPECT_EQ(Members(0), "AB");
    Drag(0, {2, 17});
    EXPECT_EQ(Members(0), "CD");
}

TEST_F(Bands, AClickInAnEmptyLaneMakesABandOfOne) {
    for (Row lane = 0; lane < kBands; ++lane) {
        Instrument one;
        Bands_Gesture(one.s, lane, 2, Phase::Down);
        Bands_Gesture(one.s, lane, 2, Phase::Up);
        EXPECT_EQ(DrawnBand(one.s, lane), (BandRun{2, 2})) << lane;
        EXPECT_EQ(one.s.Run[2].InBand, True);
    }
}

TEST_F(Bands, AClickOnAnEndTakesThatLoopTrackOut) {
    Drag(3, {0, 3});
    Click(3, 0);
    EXPECT_EQ(Members(3), "BCD");
    Click(3, 3);
    EXPECT_EQ(Members(3), "BC");
}

TEST_F(Bands, AClickBetweenTheEndsDoesNothing) {
    Drag(3, {0, 3});
    i.Screen.Log.clear();
    Click(3, 1);
    Click(3, 2);
    EXPECT_EQ(Members(3), "ABCD");
    EXPECT_EQ(i.Screen.Count("ShowBands"), 0);
}

TEST_F(Bands, AClickOnTheOnlyMemberEmptiesTheLane) {
    Click(5, 1);
    Click(5, 1);
    EXPECT_EQ(Members(5), "");
    EXPECT_EQ(i.s.BandTable[5].First, 5);
    EXPECT_EQ(i.s.BandTable[5].Last, 3);
}

TEST_F(Bands, AClickOutsideTheRunExtendsTheBandToThere) {
    Click(2, 1);
    Click(2, 3);
    EXPECT_EQ(Members(2), "BCD");
    Click(2, 0);
    EXPECT_EQ(Members(2), "ABCD");
}

TEST_F(Bands, ADoubleClickEmptiesTheLane) {
    Drag(2, {1, 3});
    // As the pointer sends it: a click, the double click, and its release.
    Click(2, 2);
    Bands_DblClick(i.s, 2);
    Bands_Gesture(i.s, 2, 2, Phase::Up);
    EXPECT_EQ(Members(2), "");
    ExpectRowsTrueToTheTable();
    Bands_DblClick(i.s, 0);
    EXPECT_EQ(i.s.BandTable[0].First, 5);
}

TEST_F(Bands, AfterADoubleClickTheHeldPointerDrawsNoMore) {
    Bands_Gesture(i.s, 2, 1, Phase::Down);
    Bands_DblClick(i.s, 2);
    Bands_Gesture(i.s, 2, 3, Phase::Move);
    Bands_Gesture(i.s, 2, 3, Phase::Up);
    EXPECT_EQ(Members(2), "");
}

TEST_F(Bands, TheLatestLaneTakesALoopTrackAndTheBandThatItLeavesKeepsTheLongerRest) {
    struct Case {
        BandRun Old, New;
        std::string Rest;
    };
    const Case cases[] = {
        {{0, 3}, {0, 0}, "BCD"}, {{0, 3}, {3, 3}, "ABC"}, {{0, 3}, {1, 1}, "CD"}, {{0, 3}, {2, 2}, "AB"},
        {{0, 2}, {1, 1}, "A"},   {{1, 3}, {2, 2}, "B"},   {{0, 3}, {1, 2}, "A"},  {{0, 3}, {0, 3}, ""},
        {{1, 2}, {0, 3}, ""},    {{1, 2}, {1, 2}, ""},    {{0, 1}, {2, 3}, "AB"}, {{2, 3}, {0, 2}, "D"},
        {{0, 1}, {1, 3}, "A"},   {{3, 3}, {3, 3}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.Old.First << ".." << c.Old.Last << " loses " << c.New.First << ".."
                                        << c.New.Last);
        for (Row lane = 0; lane < kBands; ++lane) Bands_DblClick(i.s, lane);
        SetBand(i.s, 1, c.Old);
        SetBand(i.s, 4, c.New);
        EXPECT_EQ(Members(1), c.Rest);
        EXPECT_EQ(DrawnBand(i.s, 4), c.New);
        ExpectRowsTrueToTheTable();
    }
}

TEST_F(Bands, OneDragCanCutSeveralBands) {
    Click(1, 0);
    Drag(2, {1, 2});
    Click(3, 3);
    Drag(5, {0, 1});
    EXPECT_EQ(Members(1), "");
    EXPECT_EQ(Members(2), "C");
    EXPECT_EQ(Members(3), "D");
    EXPECT_EQ(Members(5), "AB");
}

TEST_F(Bands, AKnobOfAMemberReachesTheWholeDrawnBandAndNoOther) {
    Drag(2, {1, 2});
    LoopHzChangeGang(i.s, 1, 2000);
    EXPECT_EQ(i.s.Set[0].Hz, 1000);
    EXPECT_EQ(i.s.Set[1].Hz, 2000);
    EXPECT_EQ(i.s.Set[2].Hz, 2000);
    EXPECT_EQ(i.s.Set[3].Hz, 1000);
    Bands_DblClick(i.s, 2);
    LoopHzChangeGang(i.s, 1, 500);
    EXPECT_EQ(i.s.Set[2].Hz, 2000);
}

TEST_F(Bands, TheSelectorOfABandStaysAsItWasWhenTheBandChanges) {
    i.s.BandTable[2].Controlled = True;
    Drag(2, {1, 2});
    EXPECT_TRUE(IsControlled(i.s, 1));
    EXPECT_FALSE(IsControlled(i.s, 3));
    Bands_DblClick(i.s, 2);
    EXPECT_FALSE(IsControlled(i.s, 1));
    EXPECT_EQ(i.s.BandTable[2].Controlled, True);
}

TEST_F(Bands, AMoveWithoutAPressChangesNothing) {
    Bands_Gesture(i.s, 2, 1, Phase::Move);
    EXPECT_EQ(Members(2), "");
}

TEST_F(Bands, ADragStaysInTheLaneInWhichItBegan) {
    Bands_Gesture(i.s, 2, 0, Phase::Down);
    Bands_Gesture(i.s, 4, 1, Phase::Move);
    Bands_Gesture(i.s, 4, 1, Phase::Up);
    EXPECT_EQ(Members(2), "AB");
    EXPECT_EQ(Members(4), "");
}

TEST_F(Bands, EachChangeIsShown) {
    Drag(2, {1, 2, 3});
    EXPECT_EQ(i.Screen.Count("ShowBands"), 2);
}

TEST_F(Bands, APressThatLosesThePointerIsNoClickAndADragStaysAsItIs) {
    Bands_Gesture(i.s, 2, 1, Phase::Down);
    Bands_PointerLost(i.s);
    EXPECT_EQ(i.s.BandDrag.Lane, -1);
    EXPECT_EQ(Members(2), "");
    Bands_Gesture(i.s, 2, 1, Phase::Down);
    Bands_Gesture(i.s, 2, 2, Phase::Move);
    Bands_PointerLost(i.s);
    Bands_Gesture(i.s, 2, 3, Phase::Move);
    EXPECT_EQ(Members(2), "BC");
}

}  // namespace
}  // namespace marvolin
