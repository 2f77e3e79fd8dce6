#pragma once
/// \file
/// The wire from a LoopTrack to a channel.

#include "core/session.h"

namespace marvolin {

/// The bits of a wire: its value 1..8 less 1.
enum WireBit : std::int16_t {
    kRightColour = 1,   ///< the right part of the flag is black
    kLeftColour = 2,    ///< the left part is
    kDisconnected = 4,  ///< the LoopTrack follows no channel
};

/// Wires one row; `value` is limited in place to 1..8. With `Apply::Yes` volume, pan and frequency are sent.
void LoopSetChannel(Session& s, Row row, std::int16_t& value, Apply apply);
/// The same for the controlled rows and row 4, for the row's band, or for the row.
void LoopSetChannelGang(Session& s, Row row, std::int16_t value, Apply apply);
/// The wire value 1..8 with `bit` flipped.
std::int16_t WireFlip(std::int16_t value, WireBit bit);
/// A dragged wire value, limited to 1..4 while the row is connected and to 5..8 while it is not.
std::int16_t WireClamp(const Session& s, Row row, std::int16_t value);

/// `ChannelFlag`: right press toggles the connection, a drag steps through the channels, a click flips a colour. A
/// press that never moved 5 twips is a click. `x`, `y` in twips within the flag, `width` its width.
void ChannelFlag_Gesture(Session& s, Row row, Phase phase, std::int16_t button, double x, double y, double width);
/// The pointer was lost while the flag of `row` was held: what a drag has reached is heard, and a click does nothing.
void ChannelFlag_PointerLost(Session& s, Row row);
/// A notch of the wheel or an arrow key: the channel `units` further, for the gang of the row, which keeps its
/// connection. Nothing at the end of the channels, and nothing during a drag.
void ChannelFlag_Step(Session& s, Row row, int units);

}  // namespace marvolin
