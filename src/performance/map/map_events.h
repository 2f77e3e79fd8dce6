#pragma once
/// \file
/// What the script hears of the sound map. A failing script is reported as "OnPosScroll", and hears no more of the
/// event that failed.

#include "core/session.h"
#include "parameters/scroll_events.h"

namespace marvolin {

/// Tells the script that a ball moves to `x`, `y` map units: every so many calls of the counter (`kMapScroll`,
/// `kJoystickScroll`), or now with `Force::Yes`. Nothing while the script does not want it or another of its events
/// runs.
void PosScrollEvent(Session& s, int ball, double x, double y, Force force, int counter);

/// Tells the script that a ball was let go at `x`, `y` map units.
void PosChangeEvent(Session& s, int ball, double x, double y);

}  // namespace marvolin
