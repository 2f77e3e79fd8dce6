#pragma once
/// \file
/// The timing elements under the hand: digits, percentages, copies.

#include <array>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Weight of each `TimeDigit` in hundredths of a second.
inline constexpr std::array<double, 20> kDigitWeight{1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000,
                                                     1, 10, 100, 1000, 10000, 1, 10, 100, 1000, 10000};

/// Hints of the digits, of the labels and the frame that are dragged off to copy, and of the tab that copies all.
inline constexpr std::string_view kTimeDigitHint = "drg Digits -/+";
inline constexpr std::string_view kCloneTimeHint = "rtdrg Copy Timing Element";
inline constexpr std::string_view kAllTimingHint = "rtdrg Copy All Timing Elements";
inline constexpr std::string_view kAllSequenceHint = "rtdrg Copy All Patterns & Timing Elements";

/// What `TimingCopy` copies: the numbers of the labels `CloneTime`, which stand in another order than the digits.
enum CloneTime : int { kCloneStepDuration = 0, kCloneBeatStart = 1, kCloneSwing = 2, kAllTiming = 4 };

/// A press, move or release on `TimeDigit` 0..19. `y` in twips: 50 upwards add one unit of the digit to the value of
/// its group, the record of `CurrentLoop`. Digits 15 and above belong to no group and change nothing.
void TimeDigit_Gesture(Session& s, int digit, Phase phase, double y);
/// Double click on `PercentReadOut`: 0 a step as long as the sample, 1 no swing, 2 the start at the sample's beginning.
void PercentReadOut_DblClick(Session& s, int element);
/// Copies `what` (0 `StepDuration`, 1 `BeatStart`, 2 `Swing`, 4 all) to the controlled rows (`to` 4), the band of `to`,
/// or `to`. With 4 the rows reached take up their play mode again. Any other `what` copies nothing.
void TimingCopy(Session& s, Row from, Row to, int what);

}  // namespace marvolin
