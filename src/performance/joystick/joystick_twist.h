#pragma once

#include <cstdint>
#include <limits>

#include "core/session.h"

namespace marvolin {

/// What a poll has read of the twist.
struct JoyTwistRead {
    std::int32_t Axis = 0;  ///< raw value 0..10000, centre 5000
    bool Centre = false;    ///< the button "Twist Centre" is down
    bool Toggled = false;   ///< the button "ToggleTwist" has been released
};

/// `JoystickState::LastTwist` before the axis has been read: the first reading only tells where it rests, as a trigger
/// rests at its end.
inline constexpr std::int32_t kTwistUnread = std::numeric_limits<std::int32_t>::min();

/// The part of a poll that moves `TwistBall`, on the tab of the mix pad. The axis acts when it has moved; it ignores
/// the inner tenth and is full at 95 percent, as X and Y are, times the factor "Twist:". "Twist Centre" holds the ball
/// at 0 while it is down. "ToggleTwist" lets the ball go, so that the stick no longer moves it, and at its next release
/// takes it again: it then goes to where the stick is. An axis that this joystick lacks does nothing.
void JoyTwist(Session& s, const JoyTwistRead& read);

}  // namespace marvolin
