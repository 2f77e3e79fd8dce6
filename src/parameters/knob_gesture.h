#pragma once
/// \file
/// The hand on a knob.

#include "core/session.h"

namespace marvolin {

/// A press, move or release on a knob of `row` (0..4; `Knob::Vol` also 5). `x`, `y` in twips.
void KnobGesture(Session& s, Knob knob, Row row, Phase phase, std::int16_t button, double x, double y);
/// Mute, centre or 100%, for the whole gang.
void Knob_DblClick(Session& s, Knob knob, Row row);
/// A fine step by wheel or arrow key: `units` up or down through the gang setter, with the events of a short drag.
void KnobStep(Session& s, Knob knob, Row row, int units);
/// Picture 0..63 of a row's knob.
int KnobFrameOf(const Session& s, Knob knob, Row row);

}  // namespace marvolin
