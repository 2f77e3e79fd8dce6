#include "parameters/wires.h"

#include <cmath>

#include "core/loops/grouping.h"
#include "core/routines.h"
#include "parameters/mapping.h"

namespace marvolin {

namespace {

constexpr std::int16_t kWires = 8;
constexpr double kClickTwips = 5;  // a press that moved less is a click

float Moved(const Session& s, double y) { return static_cast<float>(y) - s.Drag.DragOrigin; }

/// Value of a drag that is now at `y`: one step for each 100 twips, upwards more.
std::int16_t DraggedValue(const Session& s, double y) {
    constexpr double kStepsATwip = 0.01;
    return ToI2(ClampVar(Int(s.Drag.DragStartValue - Int(Moved(s, y)) * kStepsATwip), -32000, 32000));
}

void DragWire(Session& s, Row row, double y, Apply apply) {
    LoopSetChannelGang(s, row, WireClamp(s, row, DraggedValue(s, y)), apply);
}

void ClickWire(Session& s, Row row, double x, double width) {
    // The value at the press: a drag that came back may have changed the flag since.
    const auto pressed = static_cast<std::int16_t>(s.Drag.DragStartValue);
    if (x <= width / 3) {
        LoopSetChannelGang(s, row, WireFlip(pressed, kLeftColour), Apply::Yes);
    } else if (x >= 2 * width / 3) {
        LoopSetChannelGang(s, row, WireFlip(pressed, kRightColour), Apply::Yes);
    } else if (s.Drag.Moved) {
        LoopSetChannelGang(s, row, pressed, Apply::Yes);  // a drag that came back: what the flag shows is heard
    }
}

void PressFlag(Session& s, Row row, std::int16_t button, double y) {
    if (button == kRightButton) {
        LoopSetChannelGang(s, row, WireFlip(s.Set[row].Channel, kDisconnected), Apply::Yes);
        return;
    }
    s.Drag.Dragging = True;
    s.Drag.DragStartValue = s.Set[row].Channel;
    s.Drag.DragOrigin = static_cast<float>(y);
    s.Drag.Moved = false;
}

bool IsClick(const Session& s, double y) { return std::abs(Moved(s, y)) < kClickTwips; }

void MoveFlag(Session& s, Row row, double y) {
    if (s.Drag.Dragging == False) return;
    // A click that trembles is no drag: its release would leave a flag that is not heard.
    if (!s.Drag.Moved && IsClick(s, y)) return;
    s.Drag.Moved = true;
    DragWire(s, row, y, Apply::No);
}

void ReleaseFlag(Session& s, Row row, double x, double y, double width) {
    if (s.Drag.Dragging == False) return;
    s.Drag.Dragging = False;
    if (IsClick(s, y)) {
        ClickWire(s, row, x, width);
    } else {
        DragWire(s, row, y, Apply::Yes);
    }
}

}  // namespace

void LoopSetChannel(Session& s, Row row, std::int16_t& value, Apply apply) {
    ClampI2(value, 1, kWires);
    s.Set[row].Channel = static_cast<std::uint8_t>(value);
    s.World.Screen.ShowWire(row);
    s.World.Screen.ShowCaption(row);
    if (apply == Apply::No) return;
    MapVol(s, row);
    MapPan(s, row);
    MapHZ(s, row);
}

void LoopSetChannelGang(Session& s, Row row, std::int16_t value, Apply apply) {
    ForGang(s, row, [&](Row member) { LoopSetChannel(s, member, value, apply); });
}

std::int16_t WireFlip(std::int16_t value, WireBit bit) {
    const int bits = value - 1;
    const int flipped = (bits & bit) == bit ? bits & ~bit : bits | bit;
    return static_cast<std::int16_t>(flipped + 1);
}

std::int16_t WireClamp(const Session& s, Row row, std::int16_t value) {
    if (s.Set[row].Channel > kChannels) {
        ClampI2(value, kChannels + 1, kWires);
    } else {
        ClampI2(value, 1, kChannels);
    }
    return value;
}

void ChannelFlag_Gesture(Session& s, Row row, Phase phase, std::int16_t button, double x, double y, double width) {
    switch (phase) {
        case Phase::Down:
            return PressFlag(s, row, button, y);
        case Phase::Move:
            return MoveFlag(s, row, y);
        case Phase::Up:
            return ReleaseFlag(s, row, x, y, width);
    }
}

void ChannelFlag_PointerLost(Session& s, Row row) {
    if (s.Drag.Dragging == False) return;
    s.Drag.Dragging = False;
    if (s.Drag.Moved) LoopSetChannelGang(s, row, s.Set[row].Channel, Apply::Yes);
}

void ChannelFlag_Step(Session& s, Row row, int units) {
    if (s.Drag.Dragging != False) return;
    const std::int16_t present = s.Set[row].Channel;
    const std::int16_t value = WireClamp(s, row, static_cast<std::int16_t>(present + units));
    if (value != present) LoopSetChannelGang(s, row, value, Apply::Yes);
}

}  // namespace marvolin
