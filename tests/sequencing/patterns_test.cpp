#include "sequencing/patterns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/loops/loop_resets.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "fakes/instrument.h"
#include "parameters/mapping.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

using test::Instrument;
using testing::ElementsAre;

TEST(InitPatternTables, ResetsTheLoopTracksAndEndsAnyDrawing) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) {
        i.s.Set[row].NSteps = 9;
        for (int p = 0; p < kPatternRows; ++p) i.s.Set[row].Pattern[p][3] = 7;
    }
    i.s.PatternDrawRow = i.s.PatternRandomRow = 1;
    i.s.CurrentLoop = 2;
    InitPatternTables(i.s);
    for (Row row = 0; row < kLoopTracks; ++row) {
        EXPECT_EQ(i.s.Set[row].NSteps, 3);
        for (int p = 0; p < kPatternRows; ++p) {
            EXPECT_EQ(i.s.Set[row].Pattern[p][3], kPatternRange[static_cast<std::size_t>(p)].Default);
        }
    }
    EXPECT_EQ(i.s.PatternDrawRow, -1);
    EXPECT_EQ(i.s.PatternRandomRow, -1);
    EXPECT_EQ(i.s.CurrentLoop, 0);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(4, 4, 4));
    EXPECT_EQ(i.s.StepReadOutTop, 4);
    for (int p = 0; p < kPatternRows; ++p) EXPECT_EQ(i.Screen.Count("ShowPattern " + std::to_string(p)), 1);
}

TEST(InitPatternTables, ShowsTheLabelEvenWhenTheMarkersScaleIsAlreadySet) {
    Instrument i;
    i.s.StepsShown = 9;
    i.s.StepReadOutTop = 4;
    InitPatternTables(i.s);
    EXPECT_EQ(i.s.StepsShown, 4);
    EXPECT_EQ(i.Screen.Count("ShowSteps"), 1);
}

class NSteps : public testing::Test {
protected:
    Instrument i;
    void SetUp() override {
        i.s.ActiveTab = kPatternTab;
        i.s.Set[0].NSteps = 9;
        PatternsRefresh(i.s);
        i.Screen.Log.clear();
    }
};

TEST_F(NSteps, AboutOneStepForEach20TwipsUpwardsAndTheRecordWaitsForTheRelease) {
    NSteps_Gesture(i.s, Phase::Down, 500);
    struct Case {
        double Y;
        int Steps;
    };
    for (const Case c :
         {Case{500, 10}, {499, 10}, {480, 11}, {461, 11}, {460, 12}, {501, 9}, {520, 9}, {521, 8}, {540, 8}}) {
        SCOPED_TRACE(c.Y);
        NSteps_Gesture(i.s, Phase::Move, c.Y);
        EXPECT_EQ(i.s.StepsShown, c.Steps);
        EXPECT_EQ(i.s.Set[0].NSteps, 9);
    }
    EXPECT_EQ(i.s.StepReadOutTop, 10);
    NSteps_Gesture(i.s, Phase::Up, 540);
    EXPECT_EQ(i.s.Set[0].NSteps, 7);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(8, 8, 8));
    EXPECT_EQ(i.s.StepReadOutTop, 8);
}

TEST_F(NSteps, AStepIsStoredAtOnceWithin1To32AndRefusedDuringADrag) {
    NSteps_Step(i.s, 2);
    EXPECT_EQ(i.s.StepsShown, 12);
    EXPECT_EQ(i.s.Set[0].NSteps, 11);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(12, 12, 12));
    NSteps_Step(i.s, 100);
    EXPECT_EQ(i.s.Set[0].NSteps, 31);
    NSteps_Step(i.s, -100);
    EXPECT_EQ(i.s.Set[0].NSteps, 0);
    NSteps_Gesture(i.s, Phase::Down, 500);
    NSteps_Step(i.s, 1);
    EXPECT_EQ(i.s.Set[0].NSteps, 0);
    EXPECT_EQ(i.s.Drag.Dragging, True);
    EXPECT_EQ(i.s.Drag.DragOrigin, 500);
}

TEST_F(NSteps, APartOfATwipDownwardsDoesNotCount) {
    NSteps_Gesture(i.s, Phase::Down, 500);
    NSteps_Gesture(i.s, Phase::Move, 520.5);
    EXPECT_EQ(i.s.StepsShown, 9);
    NSteps_Gesture(i.s, Phase::Move, 479.5);
    EXPECT_EQ(i.s.StepsShown, 11);
}

TEST_F(NSteps, StayWithin1And32) {
    NSteps_Gesture(i.s, Phase::Down, 0);
    NSteps_Gesture(i.s, Phase::Move, 10000);
    EXPECT_EQ(i.s.StepsShown, 1);
    NSteps_Gesture(i.s, Phase::Move, -10000);
    EXPECT_EQ(i.s.StepsShown, 32);
    NSteps_Gesture(i.s, Phase::Up, -10000);
    EXPECT_EQ(i.s.Set[0].NSteps, 31);
}

TEST_F(NSteps, AMoveWithoutAPressChangesNothing) {
    NSteps_Gesture(i.s, Phase::Move, 100);
    EXPECT_EQ(i.s.StepsShown, 10);
    NSteps_Gesture(i.s, Phase::Up, 100);
    EXPECT_EQ(i.Screen.Count("ShowPattern 0"), 0);
}

TEST_F(NSteps, EachMoveShowsTheLabel) {
    NSteps_Gesture(i.s, Phase::Down, 0);
    for (int move = 1; move <= 3; ++move) {
        NSteps_Gesture(i.s, Phase::Move, -20 * move);
        EXPECT_EQ(i.Screen.Count("ShowSteps"), move);
    }
}

TEST_F(NSteps, ADragCountsFromTheNumberShownEvenWhenAnEraserMadeItOutOfDate) {
    EraserDrop(i.s, kVolPattern);
    ASSERT_EQ(i.s.Set[0].NSteps, 3);
    NSteps_Gesture(i.s, Phase::Down, 0);
    NSteps_Gesture(i.s, Phase::Move, -20);
    EXPECT_EQ(i.s.StepsShown, 11);
}

TEST_F(NSteps, TheCurrentStepIsNotChanged) {
    i.s.Run[0].Step = 9;
    NSteps_Gesture(i.s, Phase::Down, 0);
    NSteps_Gesture(i.s, Phase::Move, 140);
    NSteps_Gesture(i.s, Phase::Up, 140);
    EXPECT_EQ(i.s.Set[0].NSteps, 2);
    EXPECT_EQ(i.s.Run[0].Step, 9);
}

TEST_F(NSteps, ReducingTheCountAndRaisingItAgainBringsBackTheOldValues) {
    i.s.Set[0].Pattern[kVolPattern][9] = 123;
    NSteps_Gesture(i.s, Phase::Down, 0);
    NSteps_Gesture(i.s, Phase::Move, 160);
    NSteps_Gesture(i.s, Phase::Up, 160);
    ASSERT_EQ(i.s.Set[0].NSteps, 1);
    NSteps_Gesture(i.s, Phase::Down, 0);
    NSteps_Gesture(i.s, Phase::Move, -160);
    NSteps_Gesture(i.s, Phase::Up, -160);
    EXPECT_EQ(i.s.Set[0].NSteps, 9);
    EXPECT_EQ(i.s.Set[0].Pattern[kVolPattern][9], 123);
}

TEST(Eraser, ResetsOneRowAndRedrawsOnlyItsGraph) {
    Instrument i;
    i.s.ActiveTab = kPatternTab;
    i.s.Set[0].NSteps = 15;
    i.s.Set[0].Pattern[kVolPattern][2] = i.s.Set[0].Pattern[kPanPattern][2] = 77;
    PatternsRefresh(i.s);
    i.Screen.Log.clear();
    EraserDrop(i.s, kVolPattern);
    EXPECT_EQ(i.s.Set[0].Pattern[kVolPattern][2], 500);
    EXPECT_EQ(i.s.Set[0].Pattern[kPanPattern][2], 77);
    EXPECT_EQ(i.s.Set[0].NSteps, 3);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(4, 16, 16));
    EXPECT_EQ(i.s.StepsShown, 16);
    EXPECT_EQ(i.Screen.Count("ShowPattern 0"), 1);
    EXPECT_EQ(i.Screen.Count("ShowPattern 1") + i.Screen.Count("ShowPattern 2"), 0);
    PatternsRefresh(i.s);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(4, 4, 4));
}

/// A row in Track mode that sounds, with one volume value a step.
class PatternSound : public testing::Test {
protected:
    Instrument i;
    void SetUp() override {
        i.Fill(0);
        i.s.Set[0].PlayMode = kTrack;
        i.s.Set[0].StepDuration = 10;
        i.s.Run[0].Playing = True;
    }
    void NextStep() {
        i.Sound.Log.clear();
        LoopTimer_Timer(i.s, 100);
    }
};

TEST_F(PatternSound, DroppingTheEraserChangesTheSoundAtTheNextStep) {
    for (int step = 0; step < 4; ++step) i.s.Set[0].Pattern[kVolPattern][step] = 0;
    NextStep();
    EXPECT_EQ(i.Buffer(0).Volume, -10000);
    EraserDrop(i.s, kVolPattern);
    EXPECT_EQ(i.Buffer(0).Volume, -10000);
    NextStep();
    EXPECT_EQ(i.Buffer(0).Volume, 0);
}

TEST_F(PatternSound, AVolumeOf0AtOneStepIsSilenceForThatStepAndTheSampleKeepsRunning) {
    i.s.Set[0].Pattern[kVolPattern][1] = 0;
    NextStep();
    EXPECT_EQ(i.Buffer(0).Volume, -10000);
    EXPECT_EQ(i.Sound.Count("Stop") + i.Sound.Count("Play") + i.Sound.Count("SetCurrentPosition"), 0);
    NextStep();
    EXPECT_EQ(i.Buffer(0).Volume, 0);
}

TEST_F(PatternSound, AMaxPanValueShiftsBy500FromTheKnobAndReachesTheLimits) {
    i.s.Set[0].Pattern[kPanPattern][1] = 1000;
    i.s.Set[0].Pattern[kPanPattern][2] = 1000;
    NextStep();
    EXPECT_EQ(i.Buffer(0).Pan, 10000);
    i.s.Set[0].Pan = 200;
    NextStep();
    EXPECT_EQ(i.Buffer(0).Pan, (700 - 500) * 12);
    i.s.Set[0].Pan = 900;
    MapPan(i.s, 0);
    EXPECT_EQ(i.Buffer(0).Pan, 10000);
}

TEST_F(PatternSound, AfterAResetATrackSoundsAsALoopButForAWobbleOfUpToOneThousandth) {
    for (int row = 0; row < kPatternRows; ++row) PatternReset(i.s, 0, row);
    i.s.Set[0].Vol = 321;
    i.s.Set[0].Pan = 400;
    i.s.Set[0].PlayMode = kLoop;
    MapVol(i.s, 0);
    MapPan(i.s, 0);
    MapHZ(i.s, 0);
    const auto [volume, pan, frequency] = std::tuple{i.Buffer(0).Volume, i.Buffer(0).Pan, i.Buffer(0).Frequency};
    i.s.Set[0].PlayMode = kTrack;
    i.Chance.Rest = 0.49;
    NextStep();
    EXPECT_EQ(i.Buffer(0).Volume, volume);
    EXPECT_EQ(i.Buffer(0).Pan, pan);
    EXPECT_EQ(i.Buffer(0).Frequency, frequency);
    i.Chance.Rest = 0.5;
    NextStep();
    EXPECT_EQ(i.Buffer(0).Volume, volume);
    EXPECT_EQ(i.Buffer(0).Pan, pan);
    EXPECT_EQ(i.Buffer(0).Frequency, ToI4(frequency * 1.001));
}

TEST(PatternRandom, IsOneSided) {
    struct Case {
        std::int16_t Offset;
        double Rnd;
        std::int16_t Result;
    };
    for (const Case c : {Case{0, 0.9, 0},
                         {1, 0.49, 0},
                         {1, 0.5, 1},
                         {10, 0, 0},
                         {10, 0.9999, 10},
                         {500, 0.5, 250},
                         {-10, 0, -10},
                         {-10, 0.9999, 0},
                         {-1, 0.49, -1}}) {
        SCOPED_TRACE(testing::Message() << c.Offset << " " << c.Rnd);
        test::FakeRandom chance;
        chance.Rest = c.Rnd;
        EXPECT_EQ(PatternRandom(chance, c.Offset), c.Result);
    }
}

class PatternCopying : public testing::Test {
protected:
    Instrument i;
    void SetUp() override {
        for (Row row = 0; row < kRows; ++row) {
            for (int p = 0; p < kPatternRows; ++p) {
                for (std::int16_t& value : i.s.Set[row].Pattern[p]) value = Mark(row, p);
            }
            i.s.Set[row].NSteps = row;
        }
    }
    static std::int16_t Mark(Row row, int patternRow) { return static_cast<std::int16_t>(row * 10 + patternRow); }
    /// For rows 0..4, the row whose block of `patternRow` each now holds, by its first value and its spread.
    std::vector<int> Owners(int patternRow) {
        std::vector<int> owners;
        for (Row row = 0; row <= kSelectionRow; ++row) {
            const PatternBlock& block = i.s.Set[row].Pattern[patternRow];
            owners.push_back(block[0] == block[kPatternOffset] ? block[0] / 10 : -1);
        }
        return owners;
    }
    std::vector<int> Steps() {
        std::vector<int> steps;
        for (Row row = 0; row <= kSelectionRow; ++row) steps.push_back(i.s.Set[row].NSteps);
        return steps;
    }
};

TEST_F(PatternCopying, MovesTheWholeBlockWithItsSpreadToOneRow) {
    PatternCopy(i.s, 0, 2, kHzPattern);
    EXPECT_THAT(Owners(kHzPattern), ElementsAre(0, 1, 0, 3, 4));
    EXPECT_THAT(Owners(kVolPattern), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(Steps(), ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(PatternCopying, ToItselfDoesNothingEvenInABand) {
    i.MakeBand(1, 1, 3);
    PatternCopy(i.s, 2, 2, kVolPattern);
    EXPECT_THAT(Owners(kVolPattern), ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(PatternCopying, ToAMemberOfABandReachesTheWholeBand) {
    i.MakeBand(2, 1, 3);
    PatternCopy(i.s, 0, 2, kPanPattern);
    EXPECT_THAT(Owners(kPanPattern), ElementsAre(0, 0, 0, 0, 4));
}

TEST_F(PatternCopying, FromTheSelectionRowTheTargetIsIgnoredAndAllControlledRowsGetTheBlock) {
    i.Select(1);
    i.Select(3);
    PatternCopy(i.s, kSelectionRow, 0, kVolPattern);
    EXPECT_THAT(Owners(kVolPattern), ElementsAre(0, 4, 2, 4, 4));
}

TEST_F(PatternCopying, ToTheSelectionRowReachesTheControlledRowsAndNotItsOwnRecord) {
    i.Select(1);
    i.Select(3);
    PatternCopy(i.s, 0, kSelectionRow, kHzPattern);
    EXPECT_THAT(Owners(kHzPattern), ElementsAre(0, 0, 2, 0, 4));
}

TEST_F(PatternCopying, AllPatternsToTheSelectionRowLeaveTheControlledRowsTheirSteps) {
    i.Select(2);
    PatternCopyAll(i.s, 0, kSelectionRow);
    for (int p = 0; p < kPatternRows; ++p) EXPECT_THAT(Owners(p), ElementsAre(0, 1, 0, 3, 4));
    EXPECT_THAT(Steps(), ElementsAre(0, 1, 2, 3, 0));
}

TEST_F(PatternCopying, AllPatternsTakeTheStepsToTheTargetAlone) {
    i.MakeBand(2, 1, 2);
    PatternCopyAll(i.s, 3, 1);
    for (int p = 0; p < kPatternRows; ++p) EXPECT_THAT(Owners(p), ElementsAre(0, 3, 3, 3, 4));
    EXPECT_THAT(Steps(), ElementsAre(0, 3, 2, 3, 4));
}

TEST_F(PatternCopying, AllPatternsOfTheSelectionRowGiveTheirStepsToTheTargetAlone) {
    i.Select(1);
    PatternCopyAll(i.s, kSelectionRow, 0);
    for (int p = 0; p < kPatternRows; ++p) EXPECT_THAT(Owners(p), ElementsAre(0, 4, 2, 3, 4));
    EXPECT_THAT(Steps(), ElementsAre(4, 1, 2, 3, 4));
}

}  // namespace
}  // namespace marvolin
