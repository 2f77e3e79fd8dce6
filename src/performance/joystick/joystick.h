#pragma once

#include "core/session.h"

namespace marvolin {

/// The poll of the joystick, every 30 ms. On the mix pad's tab X and Y move its ball, on the map's tab the listener
/// while 3D sound is in use. The hat chooses the pad type or the next tab; an axis can be the master volume. A device
/// that is lost or not acquired is acquired again, and the poll ends. Any other error is shown with " in joystick
/// handler " and its signed number, and ends the program.
///
/// An assigned axis that this joystick lacks does nothing, and stays assigned for the next save. A place that the sound
/// service refuses is shown once; stick and centre button then do nothing on the map until both rest.
void JoyTimer_Timer(Session& s);

/// Where stick, axes, hat and buttons of the device are now counts as read: they act when they move from there.
void JoyTakeAsRead(Session& s);

}  // namespace marvolin
