#pragma once
/// \file
/// The timing elements under the hand: digits, percentages, copies.

#include <array>

#include "core/session.h"

namespace marvolin {

/// Weight of each `TimeDigit` in hundredths of a second.
inline constexpr std::array<double, 20> kDigitWeight{1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000,
                                                     1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000};

/// A press, move or release on `TimeDigit` 0..14. `y` in twips.
void TimeDigit_Gesture(Session& s, int digit, Phase phase, double y);
/// Double click on `PercentReadOut` 0..2.
void PercentReadOut_DblClick(Session& s, int element);
/// Copies `what` (0 `StepDuration`, 1 `BeatStart`, 2 `Swing`, 4 all) to the controlled rows (`to` 4), the band of `to`,
/// or `to`.
void TimingCopy(Session& s, Row from, Row to, int what);

}  // namespace marvolin
