#include "scripting/api/pad.h"

#include "parameters/wires.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "performance/pad/pad_twist.h"
#include "performance/pad/wire_sets.h"

namespace marvolin {

namespace {

constexpr std::string_view kTypes = "300 Pitch|400 Pitch|Vol|Pan";  // in the order of the list
constexpr std::string_view kLevels = "volume|frequency|pan";

void PadBallOf(ApiCall& call) {
    const PadRecord& pad = call.s.PadTable[call.s.PadTypeIndex];
    const PadGeometry& g = call.s.Geometry;
    call.Return(g.PadHalfX > 0 ? pad.X / g.PadHalfX : 0);
    call.Return(g.PadHalfY > 0 ? pad.Y / g.PadHalfY : 0);
}

void SetPadBall(ApiCall& call) {
    Session& s = call.s;
    double x = call.NumberAt(0) * s.Geometry.PadHalfX;
    double y = call.NumberAt(1) * s.Geometry.PadHalfY;
    // Without the readout of the levels, which would wipe the hints off the status line.
    PadMix(s, x, y, s.PadTypeIndex, {.Absolute = true, .Apply = true, .ReadOut = false});
    s.World.Screen.ShowPadBall();
}

void Level(ApiCall& call) {
    const int channel = call.ShortAt(0);
    switch (call.ShortAt(1)) {
        case 0:
            return call.Return(kVolFull - call.s.ChannelVol[channel]);
        case 1:
            return call.Return(call.s.ChannelHz[channel] / 10.0);
        default:
            return call.Return(call.s.ChannelPan[channel] - kPanCentre);
    }
}

constexpr ApiFunction kPadFunctions[] = {
    {.Name = "pad_ball",
     .Returns = "two numbers, -1 to 1",
     .Text = "The place of the ball on the mix pad: from left to right, and from top to bottom.",
     .Example = "marvolin.set_pad_ball(0.5, -1)  local x, y = marvolin.pad_ball()  assert(x == 0.5 and y == -1)",
     .Act = PadBallOf},
    {.Name = "set_pad_ball",
     .Parameters = {Number("x", -1, 1), Number("y", -1, 1)},
     .Text = "Moves the ball there; the channels follow.",
     .Example = "marvolin.set_pad_ball(0, 0)  local x, y = marvolin.pad_ball()  assert(x == 0 and y == 0)",
     .Act = SetPadBall},
    {.Name = "pad_type",
     .Returns = "\"300 Pitch\", \"400 Pitch\", \"Vol\" or \"Pan\"",
     .Text = "The type of the mix pad.",
     .Example = "marvolin.set_pad_type('Pan')  assert(marvolin.pad_type() == 'Pan')",
     .Act = [](ApiCall& call) { call.ReturnText(kPadTypeTexts.at(static_cast<std::size_t>(call.s.PadTypeIndex))); }},
    {.Name = "set_pad_type",
     .Parameters = {Choice("type", kTypes)},
     .Text = "Chooses it. The ball of the old type goes to the centre first.",
     .Example = "marvolin.set_pad_type('Vol')  assert(marvolin.pad_type() == 'Vol')",
     .Act = [](ApiCall& call) { PadType_Click(call.s, call.ShortAt(0)); }},
    {.Name = "pad_curve",
     .Returns = "1 to 3",
     .Text = "The curve of the pad's type: 1 fades along the diagonal, 2 after the centre, 3 after the middle of a "
             "side.",
     .Example = "marvolin.set_pad_curve(3)  assert(marvolin.pad_curve() == 3)",
     .Act = [](ApiCall& call) { call.Return(call.s.PadTable[call.s.PadTypeIndex].Function); }},
    {.Name = "set_pad_curve",
     .Parameters = {Whole("curve", 1, 3)},
     .Text = "Chooses it. The ball goes to the centre.",
     .Example = "marvolin.set_pad_curve(2)  assert(marvolin.pad_curve() == 2)",
     .Act = [](ApiCall& call) { PadFunction_Click(call.s, call.ShortAt(0)); }},
    {.Name = "twist",
     .Returns = "-1 to 1",
     .Text = "The place of the twist under the mix pad, from left to right.",
     .Example = "marvolin.set_twist(0.5)  assert(math.abs(marvolin.twist() - 0.5) < 0.001)",
     .Act =
         [](ApiCall& call) {
             const double half = call.s.Geometry.PadHalfX;
             call.Return(half > 0 ? call.s.TwistPosition / half : 0);
         }},
    {.Name = "set_twist",
     .Parameters = {Number("x", -1, 1)},
     .Text = "Moves it there: channels 1 and 4 come to the front on the left, 2 and 3 on the right. It moves pan under "
             "\"Vol\", volume under \"400 Pitch\", pitch under \"Pan\" and \"300 Pitch\".",
     .Example = "marvolin.set_pad_type('Vol')  marvolin.set_twist(1)  assert(marvolin.channel_level(1, 'pan') == 500)",
     .Act =
         [](ApiCall& call) {
             PadTwist(call.s, call.NumberAt(0), 1, {.Absolute = true, .Apply = true, .Quiet = true});
         }},
    {.Name = "channel_level",
     .Parameters = {Whole("channel", 1, 4), Choice("level", kLevels)},
     .Returns = "volume 0 to 500, frequency in percent, pan -500 to 500",
     .Text = "What the mix pad or the joystick has set for a channel.",
     .Example = "marvolin.set_pad_ball(0, 0)  assert(marvolin.channel_level(1, 'volume') == 500)",
     .Act = Level},
    {.Name = "wire",
     .Parameters = {LoopTrackArgument()},
     .Returns = "1 to 8",
     .Text = "The wire of a LoopTrack: 1 to 4 connect it to the channel of that number, 5 to 8 to none.",
     .Example = "marvolin.set_wire('A', 4)  assert(marvolin.wire('A') == 4)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].Channel); }},
    {.Name = "set_wire",
     .Parameters = {PlayRowArgument(), Whole("wire", 1, 8)},
     .Text = "Sets it on a row, its band, or with row \"Z\" on the controlled rows.",
     .Example = "marvolin.set_wire('B', 7)  assert(marvolin.wire('B') == 7)",
     .Act = [](ApiCall& call) { LoopSetChannelGang(call.s, call.RowAt(0), call.ShortAt(1), Apply::Yes); }},
    {.Name = "set_wires",
     .Parameters = {Choice("set",
                           "Groups of 4|Groups of 3|Groups of 2|Alternate by 4|Alternate by 3|Alternate by 2|"
                           "Groups of 8|All to 1|All to 0")},
     .Text = "Wires A to D by an entry of the list \"Wire sets:\".",
     .Example = "marvolin.set_wires('All to 1')  assert(marvolin.wire('D') == 1)",
     .Act = [](ApiCall& call) { WireSet(call.s, call.TextAt(0)); },
     .TakesBack = UndoScope::Rows},
};

}  // namespace

std::span<const ApiFunction> PadFunctions() { return kPadFunctions; }

}  // namespace marvolin
