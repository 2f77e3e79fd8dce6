#include "window/descriptions/options.h"

#include "core/routines.h"
#include "parameters/scroll_events.h"
#include "performance/joystick/joystick_setup.h"
#include "sequencing/loop_clock.h"

namespace marvolin {

namespace {

constexpr std::array<const char*, 4> kSubTabs{"Joystick", "Mouse", "Scripting", "Timing"};

std::string SubTabCaption(const Situation& at) { return kSubTabs[static_cast<std::size_t>(at.Index)]; }

bool SubTabOn(const Situation& at) { return at.State.ActiveSubTab == at.Index; }

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

std::string SubTabHint(const Situation& at) {
    constexpr std::array<const char*, 4> kHints{
        "clk Open Options of the Joystick", "clk Open Options of the Mouse: Knobs, 3d Position",
        "clk Open Options of Scripting: Moves an Event", "clk Open Options of Timing: Interval of the Step Clock"};
    return kHints[static_cast<std::size_t>(at.Index)];
}

std::string ButtonHint(const Situation& at) {
    constexpr std::array<const char*, 5> kHints{
        "slct Joystick Button: while it is held, the Hat is ignored",
        "slct Joystick Button that puts Ball or Listener on the Centre",
        "slct Joystick Button that puts the Twist on the Centre", "slct Joystick Button that flips Relative Movement",
        "slct Joystick Button by which the Stick lets the Twist go, or takes it"};
    return kHints[static_cast<std::size_t>(at.Index)];
}

std::string AxisHint(const Situation& at) {
    return at.Index == kMasterAxis ? "slct Joystick Axis that turns the Master Volume"
                                   : "slct Joystick Axis that moves the Twist";
}

std::string FactorHint(const Situation& at) {
    constexpr std::array<const char*, 3> kHints{
        "drg Reach of a Relative Movement: ", "drg Reach of the whole Stick: ", "drg Reach of the Twist: "};
    return kHints[static_cast<std::size_t>(at.Index)] + NumberText(at.State.Joy.Factor[at.Index] / 1000.0) + " x";
}

// The same for the pages of Help, of all members of an array.
constexpr const char* kSubTabHints =
    "clk Open Options of the Joystick; clk Open Options of the Mouse: Knobs, 3d Position; "
    "clk Open Options of Scripting: Moves an Event; clk Open Options of Timing: Interval of the Step Clock";
constexpr const char* kButtonHints =
    "slct Joystick Button: while it is held, the Hat is ignored; "
    "slct Joystick Button that puts Ball or Listener on the Centre; "
    "slct Joystick Button that puts the Twist on the Centre; "
    "slct Joystick Button that flips Relative Movement; "
    "slct Joystick Button by which the Stick lets the Twist go, or takes it";
constexpr const char* kAxisHints =
    "slct Joystick Axis that turns the Master Volume; slct Joystick Axis that moves the Twist";
constexpr const char* kFactorHints =
    "drg Reach of a Relative Movement: 0.5 x; drg Reach of the whole Stick: 1.5 x; drg Reach of the Twist: 1 x";
constexpr const char* kResolutionHint = "Timer Resolution: 10 ms";
constexpr const char* kNoStick = "off without a Joystick";
constexpr const char* kResetHint =
    "clk On: a Sample that loads puts Vol to full, Pan to Centre, Freq to 100%, Patterns & Timing to Plain";
constexpr const char* kPositionUpdateHint = "clk On: Sound follows the Drag; Off: Sound follows when the Drag ends";
constexpr const char* kPositionUpdateTip = "On: the sound follows the drag. Off: it follows when the drag ends.";

constexpr Description kOptionTable[] = {
    {.Name = "OptionPage", .Topic = 10100, .Role = QAccessible::Pane},
    {.Name = "cboDrivers",
     .Label = "Sound driver",
     .Tip = kLabelAsTip,
     .Hint = "slct Sound Driver; the LoopTracks play on there",
     .Topic = 10101,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "ResetVars",
     .Caption = "Reset on Load",
     .Label = "Loading a sample resets the settings of its LoopTrack",
     .Tip = kLabelAsTip,
     .Hint = kResetHint,
     .Topic = 10102,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "PlayOnLoad",
     .Caption = "Play after a drop",
     .Label = "A sample that is dropped on a LoopTrack plays at once",
     .Tip = kLabelAsTip,
     .Hint = "clk On: a Sample that is dropped on a LoopTrack plays at once",
     .Topic = 10115,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "ProgramSize",
     .Label = "Size of all windows",
     .Tip = kLabelAsTip,
     .Hint = "slct Size of all Windows; what is grey does not fit on the Screen",
     .Off = "off: this Release of Qt cannot change it while it runs",
     .Topic = 10230,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "OptionHelp",
     .Caption = "Help",
     .Label = "Help on the options",
     .Tip = kLabelAsTip,
     .Hint = "clk Open Help on the Options",
     .Topic = 10103,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "OptionSubTab",
     .Range = {0, 3},
     .Caption = SubTabCaption,
     .Hint = {SubTabHint, kSubTabHints},
     .Topic = 10104,
     .Role = QAccessible::PageTab,
     .Taken = Keys::Press | Keys::Move,
     .On = SubTabOn},
    {.Name = "OptionSubPage", .Range = {0, 3}, .Topic = 10105, .Role = QAccessible::Pane},
    {.Name = "JoystickPage", .Topic = 10106, .Role = QAccessible::Pane},
    {.Name = "JButton",
     .Range = {0, 4},
     .Label = ButtonLabel,
     .Tip = kLabelAsTip,
     .Hint = {ButtonHint, kButtonHints},
     .Off = kNoStick,
     .Topic = 10107,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "JAxis",
     .Range = {0, 1},
     .Label = AxisLabel,
     .Tip = kLabelAsTip,
     .Hint = {AxisHint, kAxisHints},
     .Off = kNoStick,
     .Topic = 10108,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "JoyFactor",
     .Range = {0, 2},
     .Label = FactorLabel,
     .Tip = FactorTip,
     .Hint = {FactorHint, kFactorHints},
     .Topic = 10109,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn},
    {.Name = "DragAxisSelect",
     .Label = "Direction in which knobs are dragged",
     .Tip = kLabelAsTip,
     .Hint = "slct Direction in which Knobs are dragged",
     .Topic = 10110,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "PositionUpdate",
     .Range = {0, 0},
     .Caption = "Listener",
     .Tip = kPositionUpdateTip,
     .Hint = kPositionUpdateHint,
     .Topic = 10111,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "PositionUpdate",
     .Range = {1, 1},
     .Caption = "Loop",
     .Tip = kPositionUpdateTip,
     .Hint = kPositionUpdateHint,
     .Topic = 10111,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "PositionUpdate",
     .Range = {2, 2},
     .Caption = "Listener Rotation",
     .Tip = kPositionUpdateTip,
     .Hint = kPositionUpdateHint,
     .Topic = 10111,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "ScrollSensitivity",
     .Range = {0, 1},
     .Label = SensitivityLabel,
     .Tip = kLabelAsTip,
     .Hint = {SensitivityHint, "Send scroll event every 1 moves"},
     .Topic = 10112,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn},
    {.Name = "ResSlider",
     .Label = "Interval of the step clock in milliseconds",
     .Tip = kLabelAsTip,
     .Hint = {ResolutionHint, kResolutionHint},
     .Topic = 10113,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn},
    {.Name = "ResReadout",
     .Label = "Interval of the step clock",
     .Tip = kLabelAsTip,
     .Hint = {ResolutionHint, kResolutionHint},
     .Topic = 10114,
     .Role = QAccessible::StaticText},
};

}  // namespace

std::span<const Description> OptionDescriptions() { return kOptionTable; }

}  // namespace marvolin
