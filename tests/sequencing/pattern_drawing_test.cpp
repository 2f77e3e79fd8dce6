#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "fakes/instrument.h"
#include "sequencing/loop_clock.h"
#include "sequencing/patterns.h"

namespace marvolin {
namespace {

using test::Instrument;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class PatternDrawing : public testing::Test {
protected:
    static constexpr double kWidth = 2000;  // random column 0..100, steps 100..2000
    static constexpr double kHeight = 1000;
    Instrument i;
    void SetUp() override {
        InitPatternTables(i.s);
        i.s.ActiveTab = kPatternTab;
        PatternsRefresh(i.s);
        i.Screen.Log.clear();
    }
    void SetSteps(int steps) {
        i.s.Set[i.s.CurrentLoop].NSteps = static_cast<std::int16_t>(steps - 1);
        PatternsRefresh(i.s);
        i.Screen.Log.clear();
    }
    void Gesture(int row, Phase phase, double x, double y, std::int16_t button = kLeftButton) {
        PatternGraph_Gesture(i.s, row, {phase, button, {x, y}, from_, {kWidth, kHeight}});
        from_ = {x, y};
    }
    PatternBlock& Block(int row) { return i.s.Set[i.s.CurrentLoop].Pattern[row]; }
    /// Middle of step column `column` (from 1) of `steps`.
    static double Middle(int column, int steps) { return 100 + 1900 * (column - 0.5) / steps; }

private:
    GraphPlace from_;
};

TEST_F(PatternDrawing, APressDrawsNothingYet) {
    const LoopTrackSet before = i.s.Set[0];
    Gesture(kVolPattern, Phase::Down, 500, 500);
    EXPECT_EQ(i.s.Set[0], before);
    EXPECT_EQ(i.s.PatternDrawRow, kVolPattern);
    EXPECT_EQ(i.s.PatternRandomRow, -1);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST_F(PatternDrawing, APressWithinTheFirst5PercentTakesTheRandomColumn) {
    Gesture(kPanPattern, Phase::Down, 100, 500);
    EXPECT_EQ(i.s.PatternRandomRow, kPanPattern);
    EXPECT_EQ(i.s.PatternDrawRow, -1);
    Gesture(kPanPattern, Phase::Up, 100, 500);
    EXPECT_EQ(i.s.PatternRandomRow, -1);
    Gesture(kPanPattern, Phase::Down, 101, 500);
    EXPECT_EQ(i.s.PatternDrawRow, kPanPattern);
}

TEST_F(PatternDrawing, ARightPressDrawsNothing) {
    Gesture(kVolPattern, Phase::Down, 500, 500, kRightButton);
    EXPECT_EQ(i.s.PatternDrawRow, -1);
    Gesture(kVolPattern, Phase::Move, 500, 100, kRightButton);
    EXPECT_EQ(Block(kVolPattern)[0], 500);
}

TEST_F(PatternDrawing, AMoveWithoutAPressDrawsNothing) {
    Gesture(kVolPattern, Phase::Move, 500, 500, kNoButton);
    EXPECT_EQ(i.s.ReadoutText, "");
    EXPECT_EQ(Block(kVolPattern)[0], 500);
}

TEST_F(PatternDrawing, AClickDrawsAtItsRelease) {
    Gesture(kVolPattern, Phase::Down, 600, 800);
    Gesture(kVolPattern, Phase::Up, 600, 800);
    EXPECT_EQ(Block(kVolPattern)[1], 100);
    EXPECT_EQ(i.s.PatternDrawRow, -1);
    Gesture(kVolPattern, Phase::Move, 600, 100);
    EXPECT_EQ(Block(kVolPattern)[1], 100) << "the drag is over";
}

TEST_F(PatternDrawing, ADragPaintsEachColumnThatItPassesWithThePointersHeight) {
    Gesture(kVolPattern, Phase::Down, 110, 900);
    for (const auto& [x, y] : {std::pair{110., 900.}, {600., 600.}, {1100., 300.}, {1999., 0.}}) {
        Gesture(kVolPattern, Phase::Move, x, y);
    }
    EXPECT_EQ(Block(kVolPattern)[0], 50);
    EXPECT_EQ(Block(kVolPattern)[1], 200);
    EXPECT_EQ(Block(kVolPattern)[2], 350);
    EXPECT_EQ(Block(kVolPattern)[3], 500);
    EXPECT_THAT(i.Screen.Log, Contains("ShowPatternColumn 0 3"));
}

TEST_F(PatternDrawing, ColumnsDivideTheWidthBehindTheRandomColumnEvenly) {
    for (const int steps : {1, 2, 4, 5, 8, 32}) {
        SCOPED_TRACE(steps);
        SetSteps(steps);
        for (int step = 1; step <= steps; ++step) {
            const double middle = 100 + 1900 * (step - 0.5) / steps;
            Gesture(kPanPattern, Phase::Down, middle, 0);
            Gesture(kPanPattern, Phase::Move, middle, 1000 - step);
            EXPECT_EQ(Block(kPanPattern)[step - 1], step);
            Gesture(kPanPattern, Phase::Up, middle, 1000 - step);
        }
    }
}

TEST_F(PatternDrawing, AOneStepPatternHasASingleColumnOf95PercentOfTheWidth) {
    SetSteps(1);
    Gesture(kVolPattern, Phase::Down, 101, 500);
    Gesture(kVolPattern, Phase::Move, 101, 500);
    EXPECT_EQ(Block(kVolPattern)[0], 250);
    Gesture(kVolPattern, Phase::Move, 1999, 1000);
    EXPECT_EQ(Block(kVolPattern)[0], 0);
    EXPECT_EQ(Block(kVolPattern)[1], 500);
}

TEST_F(PatternDrawing, PastTheRightEdgeByLessThanAColumnTheValueGoesToTheSlotAfterTheLastStep) {
    Gesture(kVolPattern, Phase::Down, 1900, 500);
    Gesture(kVolPattern, Phase::Move, 2100, 500);
    EXPECT_EQ(Block(kVolPattern)[3], 250);
    EXPECT_EQ(Block(kVolPattern)[4], 250);
    EXPECT_EQ(i.s.ReadoutText, "Step: 5 Vol: 250");
    EXPECT_EQ(i.Screen.Count("ShowPatternColumn 0 5"), 0) << "the graph has no such column";
}

TEST_F(PatternDrawing, BesideItsColumnsTheReadoutStillShowsTheStepAndTheHeightAndNothingIsDrawn) {
    const LoopTrackSet before = i.s.Set[0];
    struct Case {
        double X;
        std::string Readout;
    };
    for (const Case& c : {Case{2000 + 475, "Step: 6 Vol: 450"}, Case{99, "Step: 0 Vol: 450"},
                          Case{-5000, "Step: -10 Vol: 450"}, Case{1e9, "Step: 9999 Vol: 450"}}) {
        Gesture(kVolPattern, Phase::Down, 2000 + 475, 100);
        Gesture(kVolPattern, Phase::Down, 2000 + 475, 100);
        i.Screen.Log.clear();
        PatternEdit(i.s, kVolPattern, kLeftButton, {c.X, 100}, {kWidth, kHeight});
        EXPECT_EQ(i.s.ReadoutText, c.Readout);
        EXPECT_THAT(i.Screen.Log, ElementsAre("ShowReadout"));
    }
    EXPECT_EQ(i.s.Set[0], before);
}

TEST_F(PatternDrawing, ColumnsThatThePointerJumpsOverAreDrawnOnTheStraightLine) {
    SetSteps(16);
    Gesture(kVolPattern, Phase::Down, Middle(1, 16), 1000);
    Gesture(kVolPattern, Phase::Move, Middle(9, 16), 200);
    for (int column = 1; column <= 9; ++column) EXPECT_EQ(Block(kVolPattern)[column - 1], 50 * (column - 1)) << column;
    EXPECT_EQ(Block(kVolPattern)[9], 500);
    EXPECT_EQ(i.s.ReadoutText, "Step: 9 Vol: 400");
    for (int column = 1; column <= 9; ++column) {
        EXPECT_THAT(i.Screen.Log, Contains("ShowPatternColumn 0 " + std::to_string(column)));
    }
    // Back again, and the release is a jump too.
    Gesture(kVolPattern, Phase::Up, Middle(5, 16), 1000);
    EXPECT_EQ(Block(kVolPattern)[8], 400);
    EXPECT_EQ(Block(kVolPattern)[7], 300);
    EXPECT_EQ(Block(kVolPattern)[6], 200);
    EXPECT_EQ(Block(kVolPattern)[5], 100);
    EXPECT_EQ(Block(kVolPattern)[4], 0);
    EXPECT_EQ(Block(kVolPattern)[3], 150);
}

TEST_F(PatternDrawing, AJumpOutOfTheGraphDrawsItsColumnsOnTheWayAndNoOther) {
    const std::int16_t spread = Block(kVolPattern)[kPatternOffset];
    Gesture(kVolPattern, Phase::Down, Middle(2, 4), 500);
    Gesture(kVolPattern, Phase::Move, 4000, 500);
    Gesture(kVolPattern, Phase::Move, -4000, 500);
    for (int step = 0; step < 4; ++step) EXPECT_EQ(Block(kVolPattern)[step], 250) << step;
    EXPECT_EQ(Block(kVolPattern)[4], 500);
    EXPECT_EQ(Block(kVolPattern)[kPatternOffset], spread);
}

TEST_F(PatternDrawing, AJumpInTheRandomColumnDrawsNoStep) {
    Gesture(kVolPattern, Phase::Down, 50, 500);
    Gesture(kVolPattern, Phase::Move, 1990, 500);
    EXPECT_EQ(Block(kVolPattern)[kPatternOffset], 250);
    for (int step = 0; step < 4; ++step) EXPECT_EQ(Block(kVolPattern)[step], 500) << step;
}

TEST_F(PatternDrawing, ASecondButtonEndsIt) {
    for (const std::int16_t second : {kRightButton, kMiddleButton}) {
        for (const double x : {50.0, 600.0}) {
            SCOPED_TRACE(testing::Message() << second << " at " << x);
            Gesture(kVolPattern, Phase::Down, x, 500);
            Gesture(kVolPattern, Phase::Down, x, 500, second);
            EXPECT_EQ(i.s.PatternDrawRow, -1);
            EXPECT_EQ(i.s.PatternRandomRow, -1);
            const LoopTrackSet before = i.s.Set[0];
            Gesture(kVolPattern, Phase::Move, 1500, 100, static_cast<std::int16_t>(kLeftButton | second));
            Gesture(kVolPattern, Phase::Up, 1500, 100, second);
            Gesture(kVolPattern, Phase::Move, 1500, 100);
            Gesture(kVolPattern, Phase::Up, 1500, 100);
            EXPECT_EQ(i.s.Set[0], before);
        }
    }
}

TEST_F(PatternDrawing, AfterALostReleaseTheNextPressAloneDecidesWhatIsDrawn) {
    Gesture(kVolPattern, Phase::Down, 600, 500);
    Gesture(kVolPattern, Phase::Down, 50, 400);
    EXPECT_EQ(i.s.PatternDrawRow, -1);
    EXPECT_EQ(i.s.PatternRandomRow, kVolPattern);
    Gesture(kVolPattern, Phase::Up, 50, 400);
    EXPECT_EQ(Block(kVolPattern)[kPatternOffset], 300);
    EXPECT_EQ(i.s.PatternRandomRow, -1);
}

TEST_F(PatternDrawing, AMoveWithoutAButtonEndsADrawingWhoseReleaseWasLost) {
    for (const double x : {50.0, 600.0}) {
        Gesture(kHzPattern, Phase::Down, x, 500);
        const LoopTrackSet before = i.s.Set[0];
        Gesture(kHzPattern, Phase::Move, x, 100, kNoButton);
        EXPECT_EQ(i.s.Set[0], before);
        EXPECT_EQ(i.s.PatternDrawRow, -1);
        EXPECT_EQ(i.s.PatternRandomRow, -1);
    }
}

TEST_F(PatternDrawing, AValueIsStoredAsTheNearestWholeNumberAHalfAsTheEvenOne) {
    for (const auto& [value, stored] :
         {std::pair{100.4, 100}, {100.5, 100}, {100.6, 101}, {101.5, 102}, {102.5, 102}, {103.5, 104}}) {
        PatternStore(i.s, kVolPattern, 2, value);
        EXPECT_EQ(Block(kVolPattern)[1], stored) << value;
        PatternStore(i.s, kVolPattern, 0, value);
        EXPECT_EQ(Block(kVolPattern)[kPatternOffset], stored) << value;
    }
}

TEST_F(PatternDrawing, With32StepsThatSlotIsTheSpreadOfTheRow) {
    SetSteps(32);
    Gesture(kVolPattern, Phase::Down, 1990, 500);
    Gesture(kVolPattern, Phase::Move, 2010, 500);
    EXPECT_EQ(Block(kVolPattern)[31], 250);
    EXPECT_EQ(Block(kVolPattern)[kPatternOffset], 250);
    EXPECT_THAT(i.Screen.Log, Contains("ShowPatternColumn 0 0"));
}

TEST_F(PatternDrawing, LeftOfTheStepsAStepDragIsIgnored) {
    Gesture(kVolPattern, Phase::Down, 99.5, 500);
    i.s.PatternRandomRow = -1;
    i.s.PatternDrawRow = kVolPattern;
    const LoopTrackSet before = i.s.Set[0];
    Gesture(kVolPattern, Phase::Move, 99, 500);
    Gesture(kVolPattern, Phase::Move, -5000, 500);
    EXPECT_EQ(i.s.Set[0], before);
}

TEST_F(PatternDrawing, TheHeightIsAShareOfTheRangeLimitedToIt) {
    struct Case {
        int Row;
        double Y;
        std::int16_t Value;
    };
    for (const Case c : {Case{kVolPattern, 0, 500}, Case{kVolPattern, 1000, 0}, Case{kVolPattern, -400, 500},
                         Case{kVolPattern, 1400, 0}, Case{kHzPattern, 1000, 1}, Case{kHzPattern, 0, 3999},
                         Case{kHzPattern, -1, 4000}, Case{kHzPattern, 500, 2000}, Case{kPanPattern, 500, 500},
                         Case{kPanPattern, 0, 1000}, Case{kPanPattern, 1000, 0}}) {
        SCOPED_TRACE(testing::Message() << c.Row << " at " << c.Y);
        Gesture(c.Row, Phase::Down, 600, c.Y);
        Gesture(c.Row, Phase::Up, 600, c.Y);
        EXPECT_EQ(Block(c.Row)[1], c.Value);
    }
}

TEST_F(PatternDrawing, TheReadoutNamesStepAndValue) {
    struct Case {
        int Row;
        std::string Step, Random;
    };
    for (const Case& c : {Case{kVolPattern, "Step: 3 Vol: 250", "Random: Vol: 250"},
                          Case{kHzPattern, "Step: 3 Freq: 200%", "Random: Freq: 200%"},
                          Case{kPanPattern, "Step: 3 Pan: Centre (0)", "Random: Pan: Centre (0)"}}) {
        Gesture(c.Row, Phase::Down, 1100, 500);
        Gesture(c.Row, Phase::Up, 1100, 500);
        EXPECT_EQ(i.s.ReadoutText, c.Step);
        Gesture(c.Row, Phase::Down, 50, 500);
        Gesture(c.Row, Phase::Up, 50, 500);
        EXPECT_EQ(i.s.ReadoutText, c.Random);
    }
}

TEST_F(PatternDrawing, TheRandomColumnTakesTheValueWhateverTheButtonAndThePlace) {
    Gesture(kHzPattern, Phase::Down, 50, 500);
    Gesture(kHzPattern, Phase::Move, 1500, 500, kRightButton);
    EXPECT_EQ(Block(kHzPattern)[kPatternOffset], 2000);
    EXPECT_EQ(Block(kHzPattern)[2], 1000);
    EXPECT_THAT(i.Screen.Log, Contains("ShowPatternColumn 1 0"));
}

TEST_F(PatternDrawing, AStepDragDrawsWithTheLeftButtonOnly) {
    Gesture(kVolPattern, Phase::Down, 600, 500);
    Gesture(kVolPattern, Phase::Move, 600, 100, kLeftButton | kRightButton);
    EXPECT_EQ(Block(kVolPattern)[1], 500);
}

TEST_F(PatternDrawing, AReleaseEndsTheStepsFirstAndTheRandomColumnOnlyWithoutThem) {
    i.s.PatternDrawRow = i.s.PatternRandomRow = kVolPattern;
    Gesture(kVolPattern, Phase::Up, 600, 500);
    EXPECT_EQ(i.s.PatternDrawRow, -1);
    EXPECT_EQ(i.s.PatternRandomRow, kVolPattern);
    Gesture(kVolPattern, Phase::Up, 600, 500);
    EXPECT_EQ(i.s.PatternRandomRow, -1);
}

TEST_F(PatternDrawing, AnotherGraphIsNotDrawnOn) {
    Gesture(kVolPattern, Phase::Down, 600, 500);
    Gesture(kPanPattern, Phase::Move, 600, 100);
    EXPECT_EQ(Block(kPanPattern)[1], 500);
}

TEST_F(PatternDrawing, TheRecordOfTheCurrentLoopTakesTheValueAndNoMapRoutineRuns) {
    i.Fill(2);
    i.s.Set[2].PlayMode = kTrack;
    i.s.Run[2].Playing = True;
    i.s.CurrentLoop = 2;
    Gesture(kVolPattern, Phase::Down, 200, 900);
    Gesture(kVolPattern, Phase::Up, 200, 900);
    EXPECT_EQ(i.s.Set[2].Pattern[kVolPattern][0], 50);
    EXPECT_EQ(i.s.Set[0].Pattern[kVolPattern][0], 500);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST_F(PatternDrawing, AGraphThatWasNotLaidOutAgainKeepsItsColumns) {
    SetSteps(8);
    i.s.Set[0].NSteps = 3;
    Gesture(kVolPattern, Phase::Down, 1990, 500);
    Gesture(kVolPattern, Phase::Up, 1990, 500);
    EXPECT_EQ(Block(kVolPattern)[7], 250);
}

TEST_F(PatternDrawing, StepsBeyondTheSlotsOfAPatternAreIgnored) {
    i.s.Set[0].NSteps = 32000;  // a file may hold it
    for (int row = 0; row < kPatternRows; ++row) PatternRefresh(i.s, row);
    const LoopTrackSet before = i.s.Set[0];
    Gesture(kVolPattern, Phase::Down, 1990, 500);
    EXPECT_NO_THROW(Gesture(kVolPattern, Phase::Move, 1990, 500));
    EXPECT_NO_THROW(PatternStore(i.s, kVolPattern, 34, 250));
    EXPECT_NO_THROW(PatternStore(i.s, kVolPattern, -1, 250));
    EXPECT_EQ(i.s.Set[0], before);
    PatternStore(i.s, kVolPattern, 33, 250);
    EXPECT_EQ(Block(kVolPattern)[kPatternOffset], 250);
}

TEST_F(PatternDrawing, AGraphWithoutSizeOrColumnsIsNotDrawnOn) {
    const LoopTrackSet before = i.s.Set[0];
    Gesture(kVolPattern, Phase::Down, 600, 500);
    PatternGraph_Gesture(i.s, kVolPattern, {Phase::Move, kLeftButton, {600, 500}, {100, 500}, {0, 0}});
    i.s.GraphColumns = {};
    Gesture(kVolPattern, Phase::Move, 600, 500);
    EXPECT_EQ(i.s.Set[0], before);
}

}  // namespace
}  // namespace marvolin
