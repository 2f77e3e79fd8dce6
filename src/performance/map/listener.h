#pragma once

#include "core/session.h"

namespace marvolin {

/// Sets the listener's heading, reduced to 0..359 degrees. With `Apply::Yes` and `Use3D` it is sent to the service. The
/// number of degrees is used as radians there, so what is heard is not the angle shown. Errors: "turning listener"; the
/// heading is then unchanged.
void RotateListener(Session& s, std::int32_t angle, Apply apply);

/// Picture 0..70 of the listener for an angle of 0..359: one for each five degrees, the last of the 72 is never shown.
int ListenerFrame(std::int16_t angle);

}  // namespace marvolin
