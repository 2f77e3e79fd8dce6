#pragma once
/// \file
/// The views of `CurrentLoop` on the pattern tab: graphs, step marker, timing read-outs. They are part of the core
/// because nearly every change of a LoopTrack refreshes them. Two of them limit the record while they show it:
/// `ShowStepDuration` and `ShowSwing`.

#include <string>

#include "core/session.h"

namespace marvolin {

/// Lays out the graph of `patternRow` for `columns` step columns.
void PatternSetSteps(Session& s, int patternRow, int columns);
/// Shows the pattern `patternRow` of `CurrentLoop` in its graph.
void PatternRefresh(Session& s, int patternRow);
/// Shows all of the pattern tab again, if it is open: steps, graphs, marker, timing, large play mode picture.
void PatternsRefresh(Session& s);
/// Moves the step marker, if `row` is `CurrentLoop` and the pattern tab is open.
void ShowStep(Session& s, Row row);

/// Digits of a group of the timing read-outs: hundredths to hundreds of seconds.
inline constexpr int kDigitsAGroup = 5;
/// Groups of the timing read-outs.
enum TimeGroup : int { kStepDurationGroup = 0, kSwingGroup = 1, kBeatStartGroup = 2 };
inline constexpr int kTimeGroups = 3;

/// `seconds` as the six characters "000.00" that a group of digits shows; it has none for thousands.
std::string TimeDigitsText(double seconds);
/// Character that digit `k` of a group shows: 0 hundredths, 1 tenths, 2 units, 3 tens, 4 hundreds of seconds.
char TimeDigitChar(const std::string& text, int digit);

/// Limits `StepDuration` of `CurrentLoop` to 1..99999 and shows it, its percentage a share of the sample.
void ShowStepDuration(Session& s);
/// Limits `Swing` of `CurrentLoop` to 0..99999 and shows it, its percentage a share of the step.
void ShowSwing(Session& s);
/// Shows `BeatStart` of `CurrentLoop`, its percentage a share of the sample.
void ShowBeatStart(Session& s);
/// Runs the three above, in that order, if the pattern tab is open.
void TimingRefresh(Session& s);

}  // namespace marvolin
