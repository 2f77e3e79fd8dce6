#pragma once
/// \file
/// The tick that drives all sequencing.

#include <string>

#include "core/session.h"

namespace marvolin {

/// The tick: ends of one-shots, step timing, steps, the selection's indicator, the running clock. `milliseconds` is the
/// measured time since the previous tick.
///
/// A tick inside another shows "Timer collision!" in the clock panel and returns; its time is lost. Errors of the sound
/// service rise to the caller and end the program; the guard then stays set.
void LoopTimer_Timer(Session& s, std::int32_t milliseconds);
/// Marks a One shot row whose sample has ended as not playing. Errors of the service rise.
void LoopPollEnd(Session& s, Row row);
/// Counts towards the next step of one LoopTrack in a clocked mode, and sets `StepDue` when it is reached.
void StepTiming(Session& s, Row row, std::int32_t milliseconds);
/// Carries out a step that is due. Errors of the service in restarting a Drum sample rise.
void LoopStep(Session& s, Row row);
/// Sets the five clock counters to 0.
void ClockReset(Session& s);
/// Sets the tick interval from `ResSlider`, limited to 1..100 ms, and shows it in the status line.
void ResSlider_Change(Session& s, std::int16_t milliseconds);
/// Sets the tick interval from a file, without a word in the status line; a value outside 1..100 is ignored. Without a
/// timer the value is only stored.
void SetTimingRes(Session& s, std::int16_t milliseconds);
/// "Timer Resolution: 10 ms": what `ResReadout` shows, and the hint of `ResSlider`.
std::string TimingResText(const Session& s);

}  // namespace marvolin
