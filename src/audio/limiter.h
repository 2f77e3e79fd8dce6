#pragma once

#include "core/session.h"

namespace marvolin {

/// Twips of a drag on `Limiter` that make one step of the limit.
inline constexpr double kTwipsALimit = 20;

/// A gesture on `Limiter`: a drag sets the limit 1..4, upwards more; its end thins. `y` in twips within the control.
void Limiter_Gesture(Session& s, Phase phase, double y);
/// A notch of the wheel or an arrow key: the limit `units` higher, within 1..4, and thins. Nothing during a drag.
void Limiter_Step(Session& s, int units);
/// Sets the limit, 1..4, and thins.
void SetLimit(Session& s, std::int16_t limit);

}  // namespace marvolin
