#pragma once
/// \file
/// The wire from a LoopTrack to a channel.

#include "core/session.h"

namespace marvolin {

/// Wires one row; `value` is limited in place to 1..8. With `Apply::Yes` volume, pan and frequency are sent.
void LoopSetChannel(Session& s, Row row, std::int16_t& value, Apply apply);
/// The same for the controlled rows and row 4, for the row's band, or for the row.
void LoopSetChannelGang(Session& s, Row row, std::int16_t value, Apply apply);
/// A wire value with `bit` (1 right colour, 2 left colour, 4 disconnected) flipped.
std::int16_t WireFlip(std::int16_t value, std::int16_t bit);
/// A dragged wire value kept in the row's present connection state.
std::int16_t WireClamp(const Session& s, Row row, std::int16_t value);

/// `ChannelFlag`: right press toggles the connection, a drag steps through the channels, a click flips a colour.
/// `x`, `y` in twips within the flag, `width` its width.
void ChannelFlag_Gesture(Session& s, Row row, Phase phase, std::int16_t button, double x, double y, double width);

}  // namespace marvolin
