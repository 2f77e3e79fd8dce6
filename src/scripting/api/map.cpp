#include "scripting/api/map.h"

#include "audio/headphones.h"
#include "core/routines.h"
#include "parameters/position.h"
#include "performance/map/listener.h"
#include "performance/map/sound_map.h"

namespace marvolin {

namespace {

/// Places a ball, within the map.
void Place(Session& s, int ball, double x, double y) {
    const double top = s.Geometry.PadHalfX > 0 ? s.MapRange * s.Geometry.PadHalfY / s.Geometry.PadHalfX : s.MapRange;
    ClampR8(x, -s.MapRange, s.MapRange);
    ClampR8(y, -top, top);
    TryPositionSet(s, ball, static_cast<float>(x), static_cast<float>(y), {.StoreBall = true});
}

void ReturnPlace(ApiCall& call, int ball) {
    const BallPoint place = MapUnits(call.s, ball);
    call.Return(place.X);
    call.Return(place.Y);
}

constexpr ApiParameter Coordinate(std::string_view name) { return Number(name, -5, 5, "map units"); }

constexpr ApiFunction kMapFunctions[] = {
    {.Name = "use_3d",
     .Returns = "true or false",
     .Text = "Whether 3D sound is in use. Without it places are kept, and not heard.",
     .Example = "assert(marvolin.use_3d() == false)",
     .Act = [](ApiCall& call) { call.ReturnFlag(call.s.Use3D); }},
    {.Name = "headphones",
     .Returns = "true or false",
     .Text = "Whether 3D sound is made for headphones.",
     .Example = "marvolin.set_headphones(false)  assert(marvolin.headphones() == false)",
     .Act = [](ApiCall& call) { call.ReturnFlag(call.s.Headphones); }},
    {.Name = "set_headphones",
     .Parameters = {Flag("on")},
     .Text = "Makes it for headphones, or for speakers. What plays goes on. Without 3D sound it is only remembered.",
     .Example = "marvolin.set_headphones(true)  assert(marvolin.headphones())",
     .Act = [](ApiCall& call) { Headphones_Click(call.s, call.FlagAt(0)); }},
    {.Name = "place",
     .Parameters = {LoopTrackArgument()},
     .Returns = "x and y in map units",
     .Text = "The place of a LoopTrack on the sound map: x from left to right, y from top to bottom, 0 in the centre.",
     .Example = "marvolin.set_place('A', 1, -0.5)  local x, y = marvolin.place('A')  assert(x == 1 and y == -0.5)",
     .Act = [](ApiCall& call) { ReturnPlace(call, call.RowAt(0)); }},
    {.Name = "set_place",
     .Parameters = {LoopTrackArgument(), Coordinate("x"), Coordinate("y")},
     .Text = "Moves it there, or to the edge of the map. It is heard at once.",
     .Example = "marvolin.set_place('B', 5, 0)  assert(marvolin.place('B') == marvolin.map_size() / 2)",
     .Act = [](ApiCall& call) { Place(call.s, call.RowAt(0), call.NumberAt(1), call.NumberAt(2)); }},
    {.Name = "listener",
     .Returns = "x and y in map units",
     .Text = "The place of the listener.",
     .Example = "marvolin.set_listener(-1, 0.5)  local x, y = marvolin.listener()  assert(x == -1 and y == 0.5)",
     .Act = [](ApiCall& call) { ReturnPlace(call, kListenerBall); }},
    {.Name = "set_listener",
     .Parameters = {Coordinate("x"), Coordinate("y")},
     .Text = "Moves the listener there, or to the edge of the map.",
     .Example = "marvolin.set_listener(0, 0)  assert(marvolin.listener() == 0)",
     .Act = [](ApiCall& call) { Place(call.s, kListenerBall, call.NumberAt(0), call.NumberAt(1)); }},
    {.Name = "heading",
     .Returns = "degrees, 0 to 359",
     .Text = "The heading of the listener, as it is shown.",
     .Example = "marvolin.set_heading(-10)  assert(marvolin.heading() == 350)",
     .Act = [](ApiCall& call) { call.Return(call.s.ListenerAngle); }},
    {.Name = "set_heading",
     .Parameters = {Whole("heading", -32000, 32000, "degrees")},
     .Text = "Turns the listener; whole circles do not count.",
     .Example = "marvolin.set_heading(720)  assert(marvolin.heading() == 0)",
     .Act = [](ApiCall& call) { RotateListener(call.s, call.ShortAt(0), Apply::Yes); }},
    {.Name = "roll_off",
     .Returns = "0 to 10",
     .Text = "How fast sounds fade with distance; 1 as in nature.",
     .Example = "assert(type(marvolin.roll_off()) == 'number')",
     .Act = [](ApiCall& call) { call.Return(GetRoll(call.s)); }},
    {.Name = "set_roll_off",
     .Parameters = {Number("factor", 0, 10)},
     .Text = "Sets it. Does nothing unless 3D sound is in use.",
     .Example = "local before = marvolin.roll_off()  marvolin.set_roll_off(2)  assert(marvolin.roll_off() == before)",
     .Act = [](ApiCall& call) { SetRollOff(call.s, static_cast<float>(call.NumberAt(0))); }},
    {.Name = "map_size",
     .Returns = "map units, 0.5 to 10",
     .Text = "The length of the map's side.",
     .Example = "marvolin.set_map_size(4.5)  assert(marvolin.map_size() == 4.5)",
     .Act = [](ApiCall& call) { call.Return(call.s.MapRange * 2); }},
    {.Name = "set_map_size",
     .Parameters = {Number("size", 0.5, 10, "map units")},
     .Text = "Sets it, to a tenth. The sounds stay where they are, so their balls move.",
     .Example = "marvolin.set_map_size(10)  assert(marvolin.map_size() == 10)",
     .Act = [](ApiCall& call) { SetMapSize(call.s, call.NumberAt(0)); }},
};

}  // namespace

std::span<const ApiFunction> MapFunctions() { return kMapFunctions; }

}  // namespace marvolin
