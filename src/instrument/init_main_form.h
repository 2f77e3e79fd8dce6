#pragma once

#include <functional>

#include "core/session.h"

namespace marvolin {

/// Sets every control and the model to their defaults and makes the timers; part of `Form_Load`. `initPadGeometry` is
/// `PadGeometryInit` with the sizes of the laid out window; it may be empty.
/// False when the system has no timers: the player has read so in a box, and the program has been ended.
bool InitMainForm(Session& s, const std::function<void(Session&)>& initPadGeometry);

}  // namespace marvolin
