#include "core/loops/loop_views.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/routines.h"

namespace marvolin {

namespace {

constexpr std::int32_t kLongestTime = 99999;  // 1/100 s
constexpr int kTimeCharacters = 6;            // "000.00"

/// A share as a percentage with one decimal, halves away from zero: 3.0 reads "300.0%".
std::string PercentText(double share) {
    std::array<char, 400> text{};
    // With the fifteen digits that a share holds for sure: 0.5025, times 1000, is a little less than 502.5.
    std::snprintf(text.data(), text.size(), "%.14e", share * 1000);
    const double tenths = std::round(std::strtod(text.data(), nullptr));
    std::snprintf(text.data(), text.size(), "%.1f%%", tenths / 10);
    return text.data();
}

void ShowTime(Session& s, TimeGroup group, double seconds, const std::string& percent) {
    s.TimeText[static_cast<std::size_t>(group)] = TimeDigitsText(seconds);
    s.PercentText[static_cast<std::size_t>(group)] = percent;
    s.World.Screen.ShowTime(group);
}

std::string ShareOfSample(const LoopTrackSet& loop, std::int32_t hundredths) {
    return loop.Length == 0 ? "<Empty>" : PercentText(hundredths / loop.Length / 100);
}

}  // namespace

void PatternSetSteps(Session& s, int patternRow, int columns) {
    s.GraphColumns[static_cast<std::size_t>(patternRow)] = static_cast<std::int16_t>(columns);
}

void PatternRefresh(Session& s, int patternRow) {
    const int columns = s.Set[s.CurrentLoop].NSteps + 1;
    if (s.GraphColumns[static_cast<std::size_t>(patternRow)] != columns) PatternSetSteps(s, patternRow, columns);
    if (s.StepReadOutTop != columns) {
        s.StepReadOutTop = static_cast<std::int16_t>(columns);
        s.World.Screen.ShowSteps();
    }
    s.World.Screen.ShowPattern(patternRow);
}

void PatternsRefresh(Session& s) {
    if (s.ActiveTab != kPatternTab) return;
    s.StepsShown = static_cast<std::int16_t>(s.Set[s.CurrentLoop].NSteps + 1);
    s.World.Screen.ShowSteps();
    for (int row = 0; row < kPatternRows; ++row) PatternRefresh(s, row);
    ShowStep(s, s.CurrentLoop);
    TimingRefresh(s);
    s.World.Screen.ShowPlayMode(kMasterRow);
}

void ShowStep(Session& s, Row row) {
    if (row == s.CurrentLoop && s.ActiveTab == kPatternTab) s.World.Screen.ShowStepMarker();
}

std::string TimeDigitsText(double seconds) {
    std::array<char, 400> text{};
    const int length = std::snprintf(text.data(), text.size(), "%06.2f", seconds);
    // The last six characters: a group has no digits for thousands.
    return text.data() + (length - kTimeCharacters);
}

char TimeDigitChar(const std::string& text, int digit) {
    const int place = (digit < 2 ? 6 - digit : 5 - digit) - 1;
    return text[static_cast<std::size_t>(place)];
}

void ShowStepDuration(Session& s) {
    LoopTrackSet& loop = s.Set[s.CurrentLoop];
    ClampI4(loop.StepDuration, 1, kLongestTime);
    ShowTime(s, kStepDurationGroup, loop.StepDuration / 100.0, ShareOfSample(loop, loop.StepDuration));
}

void ShowSwing(Session& s) {
    LoopTrackSet& loop = s.Set[s.CurrentLoop];
    ClampI4(loop.Swing, 0, kLongestTime);
    // A step of no length, as from a file, counts as the shortest one, to which `ShowStepDuration` limits it.
    const std::int32_t step = std::max(loop.StepDuration, std::int32_t{1});
    ShowTime(s, kSwingGroup, loop.Swing / 100.0, PercentText(static_cast<double>(loop.Swing) / step));
}

void ShowBeatStart(Session& s) {
    const LoopTrackSet& loop = s.Set[s.CurrentLoop];
    ShowTime(s, kBeatStartGroup, loop.BeatStart / 100.0, ShareOfSample(loop, loop.BeatStart));
}

void TimingRefresh(Session& s) {
    if (s.ActiveTab != kPatternTab) return;
    ShowStepDuration(s);
    ShowSwing(s);
    ShowBeatStart(s);
}

}  // namespace marvolin
