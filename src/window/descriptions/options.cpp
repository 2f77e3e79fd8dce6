#include "window/descriptions/options.h"

#include "parameters/scroll_events.h"
#include "performance/joystick/joystick_setup.h"
#include "sequencing/loop_clock.h"

namespace marvolin {

namespace {

constexpr std::array<const char*, 4> kSubTabs{"Joystick", "Mouse", "Scripting", "Timing"};

std::string SubTabCaption(const Situation& at) { return kSubTabs[static_cast<std::size_t>(at.Index)]; }

std::string ButtonLabel(const Situation& at) {
    return "Button of \"" + std::string(kJoyActions[static_cast<std::size_t>(at.Index)]) + "\"";
}

std::string AxisLabel(const Situation& at) {
    return "Axis of \"" + std::string(kJoyAssignments[static_cast<std::size_t>(at.Index)]) + "\"";
}

std::string FactorLabel(const Situation& at) { return std::string(kJoyFactors[static_cast<std::size_t>(at.Index)]); }
std::string FactorTip(const Situation& at) { return "How far the stick reaches: " + FactorLabel(at); }

std::string SensitivityLabel(const Situation& at) {
    return at.Index == 0 ? "Moves an event of the Knobs" : "Moves an event of the Sound map";
}

std::string SensitivityHint(const Situation& at) { return ScrollSensitivityText(at.State, at.Index); }

std::string ResolutionHint(const Situation& at) { return TimingResText(at.State); }

constexpr const char* kPositionUpdateTip = "On: the sound follows the drag. Off: it follows when the drag ends.";

constexpr Description kOptionTable[] = {
    {.Name = "OptionPage", .Topic = 10100, .Role = QAccessible::Pane},
    {.Name = "cboDrivers",
     .Label = "Sound driver",
     .Tip = kLabelAsTip,
     .Topic = 10101,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "ResetVars",
     .Caption = "Reset on Load",
     .Label = "Loading a sample resets the settings of its LoopTrack",
     .Tip = kLabelAsTip,
     .Topic = 10102,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "PlayOnLoad",
     .Caption = "Play after a drop",
     .Label = "A sample that is dropped on a LoopTrack plays at once",
     .Tip = kLabelAsTip,
     .Topic = 10115,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "OptionHelp",
     .Caption = "Help",
     .Label = "Help on the options",
     .Tip = "Help on the options (not available yet)",
     .Topic = 10103,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "OptionSubTab",
     .Range = {0, 3},
     .Caption = SubTabCaption,
     .Topic = 10104,
     .Role = QAccessible::PageTab,
     .Taken = Keys::Press},
    {.Name = "OptionSubPage", .Range = {0, 3}, .Topic = 10105, .Role = QAccessible::Pane},
    {.Name = "JoystickPage", .Topic = 10106, .Role = QAccessible::Pane},
    {.Name = "JButton",
     .Range = {0, 4},
     .Label = ButtonLabel,
     .Tip = kLabelAsTip,
     .Topic = 10107,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "JAxis",
     .Range = {0, 1},
     .Label = AxisLabel,
     .Tip = kLabelAsTip,
     .Topic = 10108,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "JoyFactor",
     .Range = {0, 2},
     .Label = FactorLabel,
     .Tip = FactorTip,
     .Topic = 10109,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn},
    {.Name = "DragAxisSelect",
     .Label = "Direction in which knobs are dragged",
     .Tip = kLabelAsTip,
     .Topic = 10110,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "PositionUpdate",
     .Range = {0, 0},
     .Caption = "Listener",
     .Tip = kPositionUpdateTip,
     .Topic = 10111,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "PositionUpdate",
     .Range = {1, 1},
     .Caption = "Loop",
     .Tip = kPositionUpdateTip,
     .Topic = 10111,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "PositionUpdate",
     .Range = {2, 2},
     .Caption = "Listener Rotation",
     .Tip = kPositionUpdateTip,
     .Topic = 10111,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "ScrollSensitivity",
     .Range = {0, 1},
     .Label = SensitivityLabel,
     .Tip = kLabelAsTip,
     .Hint = SensitivityHint,
     .Topic = 10112,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn},
    {.Name = "ResSlider",
     .Label = "Interval of the step clock in milliseconds",
     .Tip = kLabelAsTip,
     .Hint = ResolutionHint,
     .Topic = 10113,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn},
    {.Name = "ResReadout",
     .Label = "Interval of the step clock",
     .Tip = kLabelAsTip,
     .Topic = 10114,
     .Role = QAccessible::StaticText},
};

}  // namespace

std::span<const Description> OptionDescriptions() { return kOptionTable; }

}  // namespace marvolin
