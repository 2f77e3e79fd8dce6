#pragma once

#include "core/session.h"

namespace marvolin {

/// Looks after the joystick while the program runs: one that is plugged in works at once, one that is pulled out is let
/// go. What its buttons and axes are assigned to stays; before anything was assigned it is the default.
class JoystickWatch {
public:
    static constexpr int kAwayLooks = 2;  ///< looks at which the stick must be away: the poll may find it again

    /// Looks once. Does nothing before `InitDirectInput`. A service that fails has no stick.
    void Look(Session& s);

private:
    int away_ = 0;  // looks at which the open stick has been away
};

}  // namespace marvolin
