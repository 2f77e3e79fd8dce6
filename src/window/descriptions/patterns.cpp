#include "window/descriptions/patterns.h"

#include <algorithm>
#include <cstdio>

#include "core/drag_source.h"
#include "core/loops/loop_views.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

constexpr const char* kDigitHint = "drg Digits -/+";

template <std::size_t N>
std::string OneOf(const std::array<const char*, N>& texts, int index) {
    return texts[static_cast<std::size_t>(index)];
}

std::string GraphLabel(const Situation& at) {
    constexpr std::array<const char*, kPatternRows> kLabels{"Volume pattern", "Frequency pattern", "Pan pattern"};
    return OneOf(kLabels, at.Index);
}

std::string CloneCaption(const Situation& at) {
    constexpr std::array<const char*, kTimeGroups> kCaptions{"Step Duration:", "Sample Start:", "Swing: +/-Rnd:"};
    return OneOf(kCaptions, at.Index);
}

std::string CloneTip(const Situation& at) {
    constexpr std::array<const char*, kTimeGroups> kTips{"Duration of Step, in Seconds (Applies to Track & Drum Mode)",
                                                         "Begin Playing at this Point in Sample (Applies to Drum Mode)",
                                                         "Swing Duration +/- a random number up to this amount"};
    return OneOf(kTips, at.Index);
}

std::string DigitLabel(const Situation& at) {
    constexpr std::array<const char*, kTimeGroups> kTimes{"Step Duration", "Swing", "Sample Start"};
    constexpr std::array<const char*, kDigitsAGroup> kDigits{"hundredths", "tenths", "seconds", "tens of seconds",
                                                             "hundreds of seconds"};
    return OneOf(kTimes, at.Index / kDigitsAGroup) + ", " + OneOf(kDigits, at.Index % kDigitsAGroup);
}

/// Behind the hint of a step's digits the tempo that it makes: four steps are a beat.
std::string DigitHint(const Situation& at) {
    const std::string hint = kDigitHint;
    if (at.Index / kDigitsAGroup != kStepDurationGroup) return hint;
    constexpr double kStepsOfABeatAMinute = 60.0 * 100 / 4;  // steps last hundredths of a second
    const double tempo = kStepsOfABeatAMinute / std::max(1, at.State.Set[at.State.CurrentLoop].StepDuration);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%.1f", tempo);
    return hint + "; 4 Steps a Beat: " + text.data() + " bpm";
}

std::string DigitValue(const Situation& at) {
    const std::string& time = at.State.TimeText[static_cast<std::size_t>(at.Index / kDigitsAGroup)];
    return std::string(1, TimeDigitChar(time, at.Index % kDigitsAGroup));
}

std::string PercentLabel(const Situation& at) {
    constexpr std::array<const char*, kTimeGroups> kLabels{
        "Step Duration as Percentage of Sample Length; dblclk to set to %100",
        "Swing as Percentage of Step Duration; dblclk to set to %0",
        "Sample Start as Percentage of Sample Length; dblclk to set to %0"};
    return OneOf(kLabels, at.Index);
}

std::string PercentHint(const Situation& at) {
    constexpr std::array<const char*, kTimeGroups> kHints{"Step Duration as % of the Sample; dblclk 100%",
                                                          "Swing as % of the Step Duration; dblclk 0%",
                                                          "Sample Start as % of the Sample; dblclk 0%"};
    return OneOf(kHints, at.Index);
}

std::string PercentValue(const Situation& at) { return at.State.PercentText[static_cast<std::size_t>(at.Index)]; }

std::string StepsValue(const Situation& at) { return std::to_string(at.State.StepsShown); }

std::string CurrentValue(const Situation& at) { return std::string(1, RowLetter(at.State.CurrentLoop)); }

std::string StepValue(const Situation& at) { return std::to_string(at.State.Run[at.State.CurrentLoop].Step + 1); }

std::string StepHint(const Situation& at) { return "Step that sounds, of " + StepsValue(at); }

ControlScale StepsScale(const Situation& at) { return {static_cast<double>(at.State.StepsShown), 1, kPatternSteps, 1}; }

ControlScale DigitScale(const Situation& at) { return {DigitValue(at)[0] - static_cast<double>('0'), 0, 9, 1}; }

/// The values of the steps, then how far chance may move them.
std::string GraphValue(const Situation& at) {
    const PatternBlock& block = at.State.Set[at.State.CurrentLoop].Pattern[at.Index];
    std::string values = "steps";
    for (int step = 0; step < at.State.StepsShown; ++step) values += " " + std::to_string(block[step]);
    return values + "; random " + std::to_string(block[kPatternOffset]);
}

constexpr Description kPatternTable[] = {
    {.Name = "PatternPage", .Hint = kSequenceHint, .Topic = 10080, .Role = QAccessible::Pane},
    {.Name = drags::kPatterns,
     .Caption = "Patterns",
     .Hint = "rtdrg Copy All Patterns",
     .Topic = 10081,
     .Role = QAccessible::Grouping,
     .Taken = Keys::Carry},
    {.Name = "CurrentLoop",
     .Label = "LoopTrack shown here",
     .Tip = kLabelAsTip,
     .Hint = "LoopTrack shown here; clk a Thumb to show another; rtdrg Copy All Patterns",
     .Topic = 10082,
     .Role = QAccessible::Indicator,
     .Value = CurrentValue},
    {.Name = "NSteps",
     .Caption = "steps",
     .Label = "Number of steps",
     .Tip = kLabelAsTip,
     .Hint = "drg #Steps -/+",
     .Topic = 10083,
     .Role = QAccessible::SpinBox,
     .Taken = Keys::Turn,
     .Value = StepsValue,
     .Scale = StepsScale},
    {.Name = drags::kEraser,
     .Caption = "eraser",
     .Label = "Eraser: drag it onto a pattern",
     .Tip = kLabelAsTip,
     .Hint = "drg onto Pattern to Reset Pattern",
     .Topic = 10084,
     .Role = QAccessible::Graphic,
     .Taken = Keys::Carry},
    {.Name = "StepReadOut",
     .Label = "Step that sounds",
     .Tip = kLabelAsTip,
     .Hint = {StepHint, "Step that sounds, of all"},
     .Topic = 10085,
     .Role = QAccessible::Indicator,
     .Value = StepValue},
    {.Name = drags::kPatternGraph,
     .Range = {0, kPatternRows - 1},
     .Label = GraphLabel,
     .Hint = "clk, drg Draw Pattern; rtdrg Copy Pattern",
     .Topic = 10086,
     .Role = QAccessible::Chart,
     .Taken = Keys::Move | Keys::Delete | Keys::Carry,
     .Value = GraphValue},
    {.Name = drags::kAllTiming,
     .Caption = "Timing",
     .Hint = "rtdrg Copy All Timing Elements",
     .Topic = 10087,
     .Role = QAccessible::Grouping,
     .Taken = Keys::Carry},
    {.Name = drags::kCloneTime,
     .Range = {0, kTimeGroups - 1},
     .Caption = CloneCaption,
     .Tip = CloneTip,
     .Hint = "rtdrg Copy Timing Element",
     .Topic = 10088,
     .Role = QAccessible::StaticText,
     .Taken = Keys::Carry},
    {.Name = "TimeDigit",
     .Range = {0, kTimeGroups* kDigitsAGroup - 1},
     .Label = DigitLabel,
     .Tip = kLabelAsTip,
     .Hint = {DigitHint, "drg Digits -/+; 4 Steps a Beat: the Tempo in bpm"},
     .Topic = 10089,
     .Role = QAccessible::SpinBox,
     .Taken = Keys::Turn,
     .Value = DigitValue,
     .Scale = DigitScale},
    {.Name = "PercentReadOut",
     .Range = {0, kTimeGroups - 1},
     .Label = PercentLabel,
     .Tip = kLabelAsTip,
     .Hint = {PercentHint,
              "Step Duration as % of the Sample; dblclk 100%; Swing as % of the Step Duration; dblclk 0%; "
              "Sample Start as % of the Sample; dblclk 0%"},
     .Topic = 10090,
     .Role = QAccessible::Button,
     .Taken = Keys::Press,
     .Value = PercentValue},
};

}  // namespace

std::span<const Description> PatternDescriptions() { return kPatternTable; }

}  // namespace marvolin
