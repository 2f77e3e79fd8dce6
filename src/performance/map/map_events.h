#pragma once
/// \file
/// The sound map's events for the script. A failure is reported as "OnPosScroll", and the event that failed stays off.

#include "core/session.h"
#include "parameters/scroll_events.h"

namespace marvolin {

/// Sends `OnPositionScroll`: a ball moves to `x`, `y` map units. Only every so many calls are sent, as the counter
/// (`kMapScroll`, `kJoystickScroll`) decides, and each with `Force::Yes`. Nothing happens, not even counting, while the
/// event is off or another event of the script runs.
void PosScrollEvent(Session& s, int ball, double x, double y, Force force, int counter);

/// Sends `OnPositionChange`: a ball was released at `x`, `y` map units. Nothing happens while the event is off or
/// another event of the script runs.
void PosChangeEvent(Session& s, int ball, double x, double y);

}  // namespace marvolin
