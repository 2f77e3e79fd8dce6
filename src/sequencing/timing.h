#pragma once
/// \file
/// The timing elements under the hand: digits, percentages, copies.

#include <array>

#include "core/session.h"

namespace marvolin {

/// Weight of each `TimeDigit` in hundredths of a second.
inline constexpr std::array<double, 20> kDigitWeight{1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000,
                                                     1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000};

/// What `TimingCopy` copies, by the numbers of the labels `CloneTime`. Their order differs from that of the digits.
enum CloneTime : int { kCloneStepDuration = 0, kCloneBeatStart = 1, kCloneSwing = 2, kAllTiming = 4 };

/// A press, move or release on `TimeDigit` 0..19. `y` in twips: each 50 upwards add one unit of the digit to the time
/// of its group, stored for `CurrentLoop`. Digits 15 and above belong to no group and change nothing.
void TimeDigit_Gesture(Session& s, int digit, Phase phase, double y);
/// A notch of the wheel or an arrow key on `TimeDigit` 0..19: `units` units of the digit more. Nothing during a drag.
void TimeDigit_Step(Session& s, int digit, int units);
/// Double click on `PercentReadOut`: 0 makes the step as long as the sample, 1 sets the swing to 0, 2 the sample start
/// to 0.
void PercentReadOut_DblClick(Session& s, int element);
/// Copies `what` (0 `StepDuration`, 1 `BeatStart`, 2 `Swing`, 4 all) to the controlled rows (`to` 4), the band of `to`,
/// or `to`. With 4 the play mode of each row reached is set again. Any other `what` copies nothing.
void TimingCopy(Session& s, Row from, Row to, int what);

}  // namespace marvolin
