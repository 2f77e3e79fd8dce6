#pragma once
/// \file
/// Fades: straight lines of `Vol` at one global speed.

#include "core/session.h"

namespace marvolin {

/// Commands to a fade.
enum class FadeCommand : std::uint8_t { Cancel = 0, Up = 1, Toggle = 2, Down = 3 };

/// A command for one row; rows above 4 are left alone.
void LoopSetFade(Session& s, Row row, FadeCommand mode);
/// The same for a band (`band` >= 0, or the row's own when `band` is -1), for the controlled rows (row 4), or for the
/// row.
void LoopSetFadeGang(Session& s, Row row, FadeCommand mode, std::int16_t band);
/// A fade to `target`, 0..500, with the same grouping; on a single row the mark on the sound display stays.
void LoopFadeTo(Session& s, Row row, std::int16_t target, std::int16_t band);

/// Sets the speed in `Vol` units per 10 ms, through the gauge `FadeFactor`.
void SetFadeFactor(Session& s, double fadeStep);
/// The gauge `FadeFactor` stands at `value`, 20..2000.
void FadeFactor_Change(Session& s, std::int16_t value);
/// Where the gauge `FadeFactor` stands, 20..2000.
std::int16_t FadeFactorGauge(const Session& s);

/// The fade part of the tick: moves every running fade by the elapsed milliseconds.
void StepFades(Session& s, std::int32_t milliseconds);

}  // namespace marvolin
