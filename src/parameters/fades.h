#pragma once
/// \file
/// Fades: straight lines of `Vol` at one global speed.

#include "core/session.h"

namespace marvolin {

/// Commands to a fade.
enum class FadeCommand : std::uint8_t { Cancel = 0, Up = 1, Toggle = 2, Down = 3 };

/// A command for one row; rows above 4 are ignored.
void LoopSetFade(Session& s, Row row, FadeCommand mode);
/// The same for a band (`band` >= 0, or the row's own when `band` is -1), for the controlled rows (row 4), or for the
/// row.
void LoopSetFadeGang(Session& s, Row row, FadeCommand mode, std::int16_t band);
/// Starts a fade to `target`, 0..500, with the same grouping. On a single row the mark on the sound display stays where
/// it is until the fade ends.
void LoopFadeTo(Session& s, Row row, std::int16_t target, std::int16_t band);

/// Ends of the gauge `FadeFactor`; 500 of its units are one `Vol` unit per 10 ms.
inline constexpr std::int16_t kFadeFactorLow = 20;
inline constexpr std::int16_t kFadeFactorHigh = 2000;

/// `band` of a fade command that uses the row's own grouping; every gesture passes it.
inline constexpr std::int16_t kOwnBand = -1;

/// Sets the speed in `Vol` units per 10 ms, through the gauge `FadeFactor`.
void SetFadeFactor(Session& s, double fadeStep);
/// The gauge `FadeFactor` has changed to `value`, limited to 20..2000.
void FadeFactor_Change(Session& s, std::int16_t value);
/// Value of the gauge `FadeFactor`, 20..2000.
std::int16_t FadeFactorGauge(const Session& s);

/// The fade part of the tick: moves every running fade by the elapsed milliseconds.
void StepFades(Session& s, std::int32_t milliseconds);

}  // namespace marvolin
