#pragma once

#include "core/session.h"

namespace marvolin {

/// A gesture on `Limiter`: a drag sets the limit 1..4, one step for each 20 twips, upwards more; its end thins. `y` in
/// twips within the control.
void Limiter_Gesture(Session& s, Phase phase, double y);

}  // namespace marvolin
