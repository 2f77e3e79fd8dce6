#pragma once

#include "core/session.h"

namespace marvolin {

/// The poll of the joystick, each 30 ms. Its X and Y move the ball of the pad, or with 3D sound the listener, by the
/// tab that is open; the hat chooses the pad type or the next tab; an axis can be the master volume. A device that is
/// lost or not acquired is acquired again, and the poll ends. Another error is shown with " in joystick handler " and
/// its number, and ends the program.
void JoyTimer_Timer(Session& s);

}  // namespace marvolin
