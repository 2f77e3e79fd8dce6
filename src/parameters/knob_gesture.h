#pragma once
/// \file
/// The hand on a knob.

#include <array>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// A press, move or release on a knob of `row` (0..4; `Knob::Vol` also 5). `x`, `y` in twips. The right button drags
/// finely, any other coarsely; moves and the release pass the held button too. A press on a volume knob cancels a fade
/// of the row. The release sends the change event to the script. The master knob ignores the press while a joystick
/// axis is assigned to it.
void KnobGesture(Session& s, Knob knob, Row row, Phase phase, std::int16_t button, double x, double y);
/// The pointer was lost while the knob was held: a drag ends with what it has reached, and its events are sent; a press
/// that has not moved does nothing.
void KnobPointerLost(Session& s, Knob knob, Row row);
/// Double click: mute or full volume, pan to the centre, frequency to 100%, for the whole gang.
void Knob_DblClick(Session& s, Knob knob, Row row);
/// A fine step by wheel or arrow key: `units` up or down through the gang setter. It acts as a short drag: it cancels
/// a fade and sends the change event and the last scroll event. False, and nothing happens, while a drag is open or the
/// joystick holds the knob.
bool KnobStep(Session& s, Knob knob, Row row, int units);
/// Entries of `DragAxisSelect`, by `DragAxis`.
inline constexpr std::array<std::string_view, 2> kDragAxes{"Vertical Drag", "Horizontal Drag"};
/// The player (or a file) chose an entry of `DragAxisSelect`: 0 vertical, anything else horizontal.
void DragAxisSelect_Click(Session& s, std::int16_t entry);
/// Picture 0..63 of a row's knob.
int KnobFrameOf(const Session& s, Knob knob, Row row);

}  // namespace marvolin
