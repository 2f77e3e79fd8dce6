#pragma once

#include "core/session.h"

namespace marvolin {

/// Sets the listener's heading, brought to 0..359 degrees. With `Apply::Yes` and `Use3D` the service hears of it; the
/// number of degrees goes into sine and cosine as it stands, so the heading that is heard is not the angle that is
/// shown. Errors: "turning listener"; the heading then stays.
void RotateListener(Session& s, std::int32_t angle, Apply apply);

/// Picture 0..70 of the listener for an angle of 0..359: one for each five degrees, the last of the 72 is never shown.
int ListenerFrame(std::int16_t angle);

}  // namespace marvolin
