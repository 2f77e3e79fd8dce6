#include "window/descriptions/mix_pad.h"

namespace marvolin {

namespace {

std::string PadBallHint(const Situation& at) { return at.Held ? "" : "drg Mix Channels; dblclk Centre"; }

std::string PadHint(const Situation& at) {
    const bool pitch = at.State.PadTypeIndex == kPitch300Pad || at.State.PadTypeIndex == kPitch400Pad;
    const char* what = pitch ? "Freq" : at.State.PadTypeIndex == kPanPad ? "Pan" : "Vol";
    return std::string("drg Ball to mix ") + what + " of the Channels: each Corner is one, Flags wire LoopTracks to it";
}

std::string RelativeTip(const Situation& at) { return at.State.JoyEnabled ? "" : "No joystick was found at the start"; }

constexpr const char* kRelativeHint =
    "clk On: Joystick moves on from where the Ball is; Off: Ball is where the Stick is";

constexpr Description kMixPadTable[] = {
    {.Name = "MixPadPage", .Topic = 10040, .Role = QAccessible::Pane},
    {.Name = "Pad",
     .Hint = PadHint,
     .Off = "off until the start is done",
     .Topic = 10041,
     .Role = QAccessible::Graphic},
    {.Name = "PadBall",
     .Label = "Ball of the mix pad",
     .Tip = kLabelAsTip,
     .Hint = PadBallHint,
     .Off = "off until the start is done",
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
    {.Name = "ChannelLevels",
     .Label = "Levels of the channels",
     .Hint = "Levels of the Channels: W both Colours white, WB white & black, BW black & white, B both black",
     .Topic = 10046,
     .Role = QAccessible::Chart},
    {.Name = "TwistIndicator",
     .Label = "Twist",
     .Hint = "Twist: a mark for an Axis of the Joystick, which moves no sound",
     .Topic = 10047,
     .Role = QAccessible::Indicator},
    {.Name = "JoyRelative",
     .Range = {0, 0},
     .Caption = "Relative JStick Movement (Pad)",
     .Tip = RelativeTip,
     .Hint = kRelativeHint,
     .Topic = 10048,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "JoyRelative",
     .Range = {1, 1},
     .Caption = "Relative JStick Movement (Map)",
     .Tip = RelativeTip,
     .Hint = kRelativeHint,
     .Topic = 10048,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
};

}  // namespace

std::span<const Description> MixPadDescriptions() { return kMixPadTable; }

}  // namespace marvolin
