#include "window/descriptions/mix_pad.h"

#include <cmath>

#include "core/routines.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_twist.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

std::string PadBallHint(const Situation& at) { return at.Held ? "" : "drg Mix Channels; dblclk Centre"; }

std::string PadHint(const Situation& at) {
    const bool pitch = at.State.PadTypeIndex == kPitch300Pad || at.State.PadTypeIndex == kPitch400Pad;
    const char* what = pitch ? "Freq" : at.State.PadTypeIndex == kPanPad ? "Pan" : "Vol";
    return std::string("drg Ball to mix ") + what + " of the Channels: each Corner is one, Flags wire LoopTracks to it";
}

/// What the twist moves, by the pad type in hand.
const char* Twisted(const Session& s) {
    const std::int16_t target = PadTwistTarget(s);
    return target == kVolPad ? "Vol" : target == kPanPad ? "Pan" : "Freq";
}

std::string TwistHint(const Situation& at) {
    return std::string("drg Ball to fade ") + Twisted(at.State) +
           " of the Channels: W & B at the left, WB & BW at the right";
}

std::string TwistBallHint(const Situation& at) {
    return at.Held ? "" : std::string("drg Fade ") + Twisted(at.State) + " of the Channels; dblclk Centre";
}

// What the page of Help shows.
constexpr const char* kTwistHints =
    "drg Ball to fade Pan of the Channels: W & B at the left, WB & BW at the right; "
    "drg Ball to fade Freq of the Channels: W & B at the left, WB & BW at the right; "
    "drg Ball to fade Vol of the Channels: W & B at the left, WB & BW at the right";
constexpr const char* kTwistBallHints =
    "drg Fade Pan of the Channels; drg Fade Freq of the Channels; drg Fade Vol of the Channels; dblclk Centre";

// Of a list the first text is that of the list itself, the others are those of its entries while it is open.
constexpr std::array<const char*, 5> kPadTypeHints{
    "slct What the Ball Moves", "300 Pitch: Freq of the Channels, up to 3 times",
    "400 Pitch: Freq of the Channels, up to 4 times", "Vol: Volume of the Channels", "Pan: Pan of the Channels"};
constexpr std::array<const char*, 4> kPadFunctionHints{
    "slct Where the Fade Begins", "Fde Dgnl: a Channel fades all the way from its Corner to the opposite one",
    "Fde aftr Centr: a Channel fades only beyond the Centre",
    "Fde aftr Side Centr: a Channel fades only beyond the Middles of the Sides"};
constexpr std::array<const char*, 10> kSetChannelHints{"slct Wires of all LoopTracks",
                                                       "Groups of 4: A, B, C & D on Channel 1",
                                                       "Groups of 3: A, B & C on Channel 1, D on Channel 2",
                                                       "Groups of 2: A & B on Channel 1, C & D on Channel 2",
                                                       "Alternate by 4: A, B, C, D on Channels 1, 2, 3, 4",
                                                       "Alternate by 3: A, B, C, D on Channels 1, 2, 3, 1",
                                                       "Alternate by 2: A, B, C, D on Channels 1, 2, 1, 2",
                                                       "Groups of 8: A, B, C & D on Channel 1",
                                                       "All to 1: A, B, C & D on Channel 1",
                                                       "All to 0: A, B, C & D on Channel 1"};

std::string PadTypeHint(const Situation& at) { return OfEntry(kPadTypeHints, at.Part); }
std::string PadFunctionHint(const Situation& at) { return OfEntry(kPadFunctionHints, at.Part); }
std::string SetChannelHint(const Situation& at) { return OfEntry(kSetChannelHints, at.Part); }
/// The share of the way from left to right, or from top to bottom.
std::string Share(double place, double half) {
    return std::to_string(half > 0 ? static_cast<int>(std::lround(place * 50 / half)) : 0) + " %";
}

std::string PadBallValue(const Situation& at) {
    const BallPoint place = PadBallPlace(at.State);
    return Share(place.X, at.State.Geometry.PadHalfX) + " to the right, " + Share(place.Y, at.State.Geometry.PadHalfY) +
           " down";
}

int TwistPercent(const Session& s) {
    const double half = s.Geometry.PadHalfX;
    return half > 0 ? static_cast<int>(std::lround(s.TwistPosition * 100 / half)) : 0;
}

std::string TwistBallValue(const Situation& at) {
    const int percent = TwistPercent(at.State);
    if (percent == 0) return "in the middle";
    return std::to_string(std::abs(percent)) + (percent < 0 ? " % to the left" : " % to the right");
}

std::string LevelsValue(const Situation& at) {
    constexpr std::array<const char*, kChannels + 1> kLevelLabels{"", "W ", ", WB ", ", BW ", ", B "};
    std::string levels;
    for (int channel = 1; channel <= kChannels; ++channel) {
        const Session& s = at.State;
        const bool pan = s.PadTypeIndex == kPanPad;
        const std::string level = s.PadTypeIndex == kVolPad ? std::to_string(kVolFull - s.ChannelVol[channel])
                                  : pan                     ? std::to_string(s.ChannelPan[channel] - kPanCentre)
                                                            : NumberText(s.ChannelHz[channel] / 10.0) + " %";
        levels += kLevelLabels[static_cast<std::size_t>(channel)] + level;
    }
    return levels;
}

std::string RelativeTip(const Situation& at) { return at.State.JoyEnabled ? "" : "There is no joystick"; }

constexpr const char* kRelativeHint =
    "clk On: Joystick moves on from where the Ball is; Off: Ball is where the Stick is";

constexpr Description kMixPadTable[] = {
    {.Name = "MixPadPage", .Topic = 10040, .Role = QAccessible::Pane},
    {.Name = "Pad",
     .Hint = {PadHint, "drg Ball to mix Vol of the Channels: each Corner is one, Flags wire LoopTracks to it"},
     .Off = "off until the start is done",
     .Topic = 10041,
     .Role = QAccessible::Graphic},
    {.Name = "PadBall",
     .Label = "Ball of the mix pad",
     .Tip = kLabelAsTip,
     .Hint = {PadBallHint, "drg Mix Channels; dblclk Centre"},
     .Off = "off until the start is done",
     .Topic = 10042,
     .Role = QAccessible::Indicator,
     .Taken = Keys::Press | Keys::Move | Keys::Turn,
     .Value = PadBallValue},
    {.Name = "PadType",
     .Label = "Pad type: what the ball moves",
     .Tip = kLabelAsTip,
     .Hint = {PadTypeHint, kPadTypeHints[0]},
     .Topic = 10043,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "PadFunction",
     .Label = "Fade function: where the ball begins to work",
     .Tip = kLabelAsTip,
     .Hint = {PadFunctionHint, kPadFunctionHints[0]},
     .Topic = 10044,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "SetChannel",
     .Label = "Wire sets: wires all LoopTracks at once",
     .Tip = kLabelAsTip,
     .Hint = {SetChannelHint, kSetChannelHints[0]},
     .Topic = 10045,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "ChannelLevels",
     .Label = "Levels of the channels",
     .Hint = "Channels by their Flags: 1 W both white, 2 WB white & black, 3 BW black & white, 4 B both black",
     .Topic = 10046,
     .Role = QAccessible::Chart,
     .Value = LevelsValue},
    {.Name = "TwistIndicator",
     .Label = "Twist",
     .Hint = {TwistHint, kTwistHints},
     .Off = "off until the start is done",
     .Topic = 10047,
     .Role = QAccessible::Graphic},
    {.Name = "TwistBall",
     .Label = "Ball of the twist",
     .Tip = kLabelAsTip,
     .Hint = {TwistBallHint, kTwistBallHints},
     .Off = "off until the start is done",
     .Topic = 10049,
     .Role = QAccessible::Indicator,
     .Taken = Keys::Press | Keys::Move | Keys::Turn,
     .Value = TwistBallValue},
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
