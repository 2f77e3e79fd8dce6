#include "window/descriptions/mix_pad.h"

namespace marvolin {

namespace {

std::string PadBallHint(const Situation& at) { return at.Held ? "" : "drg Mix Channels; dblclk Centre"; }

std::string RelativeTip(const Situation& at) { return at.State.JoyEnabled ? "" : "No joystick was found at the start"; }

constexpr Description kMixPadTable[] = {
    {.Name = "MixPadPage", .Topic = 10040, .Role = QAccessible::Pane},
    {.Name = "Pad", .Topic = 10041, .Role = QAccessible::Graphic},
    {.Name = "PadBall",
     .Label = "Ball of the mix pad",
     .Tip = kLabelAsTip,
     .Hint = PadBallHint,
     .Topic = 10042,
     .Role = QAccessible::Indicator,
     .Taken = Keys::Press | Keys::Move | Keys::Turn},
    {.Name = "PadType",
     .Label = "Pad type: what the ball moves",
     .Tip = kLabelAsTip,
     .Hint = "slct What the Ball Moves",
     .Topic = 10043,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "PadFunction",
     .Label = "Fade function: where the ball begins to work",
     .Tip = kLabelAsTip,
     .Hint = "slct Where the Fade Begins",
     .Topic = 10044,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "SetChannel",
     .Label = "Wire sets: wires all LoopTracks at once",
     .Tip = kLabelAsTip,
     .Hint = "slct Wires of all LoopTracks",
     .Topic = 10045,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "ChannelLevels", .Label = "Levels of the channels", .Topic = 10046, .Role = QAccessible::Chart},
    {.Name = "TwistIndicator", .Label = "Twist", .Topic = 10047, .Role = QAccessible::Indicator},
    {.Name = "JoyRelative",
     .Range = {0, 0},
     .Caption = "Relative JStick Movement (Pad)",
     .Tip = RelativeTip,
     .Topic = 10048,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "JoyRelative",
     .Range = {1, 1},
     .Caption = "Relative JStick Movement (Map)",
     .Tip = RelativeTip,
     .Topic = 10048,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
};

}  // namespace

std::span<const Description> MixPadDescriptions() { return kMixPadTable; }

}  // namespace marvolin
