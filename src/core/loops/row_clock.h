#pragma once
/// \file
/// Where the fade and the step clock of a LoopTrack are, for who brings a row back as it was.

#include "core/session.h"

namespace marvolin {

/// Those fields of `LoopTrackRun`.
struct RowClock {
    std::int16_t FadeState = kNoFade;
    double FadeValue = 0;
    std::int16_t FadeTarget = 0;
    Boolean FadeToMark = False;
    std::int16_t Step = 0;
    std::int32_t StepElapsed = 0;
    std::int16_t PlayRequest = 0;
    Boolean StepDue = False;
};

inline RowClock ClockOf(const LoopTrackRun& run) {
    return {run.FadeState, run.FadeValue,   run.FadeTarget,  run.FadeToMark,
            run.Step,      run.StepElapsed, run.PlayRequest, run.StepDue};
}

inline void SetClock(LoopTrackRun& run, const RowClock& clock) {
    run.FadeState = clock.FadeState;
    run.FadeValue = clock.FadeValue;
    run.FadeTarget = clock.FadeTarget;
    run.FadeToMark = clock.FadeToMark;
    run.Step = clock.Step;
    run.StepElapsed = clock.StepElapsed;
    run.PlayRequest = clock.PlayRequest;
    run.StepDue = clock.StepDue;
}

}  // namespace marvolin
