#pragma once

#include "core/session.h"

namespace marvolin {

/// The pointer on the ball of the pad. `x`, `y` in twips from the ball's own left and top. The left and right button do
/// the same, others nothing. The first release ends the drag, a second one does nothing.
void PadBallGesture(Session& s, Phase phase, std::int16_t button, double x, double y);

}  // namespace marvolin
