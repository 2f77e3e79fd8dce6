#pragma once
/// \file
/// The tick that drives all sequencing.

#include "core/session.h"

namespace marvolin {

/// The tick: ends of one-shots, step timing, steps, the selection's indicator, the running clock.
/// Errors of the service in it rise to the caller: they are not survived.
void LoopTimer_Timer(Session& s, std::int32_t milliseconds);
/// Notices that a one-shot has run out.
void LoopPollEnd(Session& s, Row row);
/// Counts towards the next step of one LoopTrack.
void StepTiming(Session& s, Row row, std::int32_t milliseconds);
/// Carries out a step that is due.
void LoopStep(Session& s, Row row);
/// Sets the five clock counters to 0.
void ClockReset(Session& s);
/// Takes a new tick interval, 1..100 ms, from `ResSlider`.
void ResSlider_Change(Session& s, std::int16_t milliseconds);
/// The tick interval from a file; a value outside 1..100 is ignored.
void SetTimingRes(Session& s, std::int16_t milliseconds);

}  // namespace marvolin
