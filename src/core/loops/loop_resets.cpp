#include "core/loops/loop_resets.h"

#include "core/loops/loop_views.h"

namespace marvolin {

void PatternReset(Session& s, Row row, int patternRow) {
    const PatternLimits& range = kPatternRange[static_cast<std::size_t>(patternRow)];
    PatternBlock& block = s.Set[row].Pattern[patternRow];
    for (int step = 0; step < kPatternSteps; ++step) block[step] = range.Default;
    block[kPatternOffset] = range.Min;
    s.Set[row].NSteps = 3;
}

void ResetLoopClock(Session& s, Row row) {
    LoopTrackRun& run = s.Run[row];
    run.FadeState = kNoFade;
    run.Step = 0;
    run.StepElapsed = 0;
    run.PlayRequest = 0;
    run.StepDue = False;
    run.MapError = {};
    ShowStep(s, row);
}

}  // namespace marvolin
