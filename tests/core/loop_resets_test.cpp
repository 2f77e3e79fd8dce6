#include "core/loops/loop_resets.h"

#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(PatternReset, FillsThePatternRowSetsItsSpreadToTheMinimumAndTheLoopTrackToFourSteps) {
    for (int row = 0; row < kPatternRows; ++row) {
        SCOPED_TRACE(row);
        Instrument i;
        LoopTrackSet& set = i.s.Set[2];
        for (PatternBlock& block : set.Pattern) {
            for (std::int16_t& value : block) value = 77;
        }
        set.NSteps = 20;
        PatternReset(i.s, 2, row);
        const PatternLimits range = kPatternRange[static_cast<std::size_t>(row)];
        for (int step = 0; step < kPatternSteps; ++step) EXPECT_EQ(set.Pattern[row][step], range.Default);
        EXPECT_EQ(set.Pattern[row][kPatternOffset], row == kHzPattern ? 1 : 0);
        EXPECT_EQ(set.NSteps, 3);
        EXPECT_EQ(set.Pattern[(row + 1) % 3][5], 77);
        EXPECT_EQ(set.Pattern[(row + 2) % 3][kPatternOffset], 77);
    }
}

TEST(ResetLoopClock, ClearsFadeRequestAndStepsLeavesThePauseAndShowsTheStep) {
    Instrument i;
    i.s.ActiveTab = kPatternTab;
    LoopTrackRun& run = i.s.Run[0];
    run.FadeState = kRising;
    run.PlayRequest = True;
    run.Step = 5;
    run.StepElapsed = 40;
    run.StepDue = True;
    run.Paused = True;
    ResetLoopClock(i.s, 0);
    EXPECT_EQ(run.FadeState, kNoFade);
    EXPECT_EQ(run.PlayRequest, 0);
    EXPECT_EQ(run.Step, 0);
    EXPECT_EQ(run.StepElapsed, 0);
    EXPECT_EQ(run.StepDue, False);
    EXPECT_EQ(run.Paused, True);
    EXPECT_EQ(i.Screen.Count("ShowStepMarker"), 1);
}

}  // namespace
}  // namespace marvolin
