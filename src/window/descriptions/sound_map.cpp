#include "window/descriptions/sound_map.h"

#include "core/drag_source.h"
#include "core/routines.h"
#include "parameters/position.h"
#include "performance/map/sound_map.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

std::string MapSizeHint(const Situation& at) { return MapSizeText(at.State); }
// During a drag the gauge itself shows where the hand is, also at the default.
std::string RollOffHint(const Situation& at) { return at.Held ? "" : RollOffText(at.State); }
std::string MapSizeValue(const Situation& at) { return NumberText(at.State.MapSize / 10.0); }
std::string RollOffValue(const Situation& at) { return NumberText(at.State.RollOff / 10.0); }

ControlScale MapSizeScale(const Situation& at) {
    return {at.State.MapSize / 10.0, kMapSizeLow / 10.0, kMapSizeHigh / 10.0, 0.1};
}
ControlScale RollOffScale(const Situation& at) {
    return {at.State.RollOff / 10.0, kRollOffLow / 10.0, kRollOffHigh / 10.0, 0.1};
}

std::string PlaceValue(const Situation& at) {
    const BallPoint place = ShownPlace(at.State, at.Index);
    const std::string text = NumberText(place.X) + ", " + NumberText(place.Y);
    return at.Index == kListenerBall ? text + ", " + std::to_string(at.State.ListenerAngle) + " degrees" : text;
}

constexpr const char* kNo3d = "off until 3D Sound is on";
constexpr const char* kMapHint = "drg Letters to where LoopTracks sound, L to where they are heard";
constexpr const char* kMapPageHint = "off until 3D Sound is on: clk the Box above";

std::string MapHint(const Situation& at) {
    if (at.State.MapEnabled) return kMapHint;
    return std::string(kNo3d).append(": ").append(kMapHint);
}
std::string MapPageHint(const Situation& at) { return at.State.MapEnabled ? "" : kMapPageHint; }

constexpr std::array<const char*, 6> kPosMacrosHints{"slct Scatter or Wander",
                                                     "Off: the LoopTracks stay where they are",
                                                     "Scatter Abs: all LoopTracks jump to somewhere, once",
                                                     "Scatter Rel: all LoopTracks take a small Step, once",
                                                     "Wander: one LoopTrack after the other takes small Steps",
                                                     "Wander Jump: one LoopTrack after the other jumps"};
std::string PosMacrosHint(const Situation& at) { return OfEntry(kPosMacrosHints, at.Part); }

std::string NoHeadphones(const Situation& at) {
    return at.State.Use3D ? "off: OpenAL has no Data of a Head here" : kNo3d;
}

constexpr Description kSoundMapTable[] = {
    {.Name = "MapPage", .Hint = {MapPageHint, kMapPageHint}, .Topic = 10070, .Role = QAccessible::Pane},
    {.Name = "Map",
     .Hint = {MapHint, kMapHint},
     .Off = "off until the start is done",
     .Topic = 10071,
     .Role = QAccessible::Graphic},
    {.Name = drags::kPosBall,
     .Range = {0, kLoopTracks - 1},
     .Label = "Place of {row}",
     .Tip = kLabelAsTip,
     .Hint = "drg to Location; dblclk Centre; rtclk Fade",
     .Off = kNo3d,
     .Topic = 10072,
     .Role = QAccessible::Indicator,
     .Taken = Keys::Press | Keys::Move | Keys::Carry,
     .Value = PlaceValue},
    {.Name = drags::kPosBall,
     .Range = {kListenerBall, kListenerBall},
     .Label = "The listener",
     .Tip = kLabelAsTip,
     .Hint = "drag to Location; rtdrg Rotate; dblclk Centre",
     .Off = kNo3d,
     .Topic = 10072,
     .Role = QAccessible::Indicator,
     .Taken = Keys::Press | Keys::Move,
     .Value = PlaceValue},
    {.Name = "Enable3d",
     .Caption = "3D sound",
     .Tip = "Places sounds around the listener; pan rests while it is on",
     .Hint = "clk Toggle 3D Sound",
     .Topic = 10073,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "Headphones",
     .Caption = "Headphones",
     .Label = "3D sound for headphones",
     .Tip = "Places sounds around the head of whoever wears headphones",
     .Hint = "clk On: 3D Sound is made for Headphones; Off: for Speakers",
     .Off = {NoHeadphones, kNo3d},
     .Topic = 10079,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "MapSize",
     .Label = "Map size",
     .Tip = kLabelAsTip,
     .Hint = {MapSizeHint, "3. x 3."},
     .Off = kNo3d,
     .Topic = 10074,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn,
     .Value = MapSizeValue,
     .Scale = MapSizeScale},
    {.Name = "RollOff",
     .Label = "Roll off: how fast sounds fade with their distance",
     .Tip = "Roll off: how fast sounds fade with their distance; a right click sets it to 1",
     .Hint = {RollOffHint, "RollOff =1"},
     .Off = kNo3d,
     .Topic = 10075,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn,
     .Value = RollOffValue,
     .Scale = RollOffScale},
    {.Name = "PosMacros",
     .Label = "Positions: scatter the sounds, or let them wander",
     .Tip = kLabelAsTip,
     .Hint = {PosMacrosHint, kPosMacrosHints[0]},
     .Topic = 10076,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "CentreAll",
     .Caption = "Centre all",
     .Label = "All balls to the centre",
     .Tip = kLabelAsTip,
     .Hint = "clk Center All",
     .Off = kNo3d,
     .Topic = 10077,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "PosPop",
     .Caption = "Find listener",
     .Label = "Brings the listener back onto the map and to the front",
     .Tip = kLabelAsTip,
     .Hint = "clk Bring Listner to Front",
     .Topic = 10078,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
};

}  // namespace

std::span<const Description> SoundMapDescriptions() { return kSoundMapTable; }

}  // namespace marvolin
