#include "performance/map/listener.h"

#include <cstdlib>

#include "audio/ds_error.h"
#include "core/errors.h"
#include "core/routines.h"
#include "parameters/position.h"

namespace marvolin {

namespace {

constexpr int kCircle = 360;
constexpr int kDegreesAFrame = 5;
constexpr int kLastFrame = 71;

}  // namespace

void RotateListener(Session& s, std::int32_t angle, Apply apply) {
    if (angle < 0) angle += std::abs(ToI4(Int(angle / static_cast<double>(kCircle)) * kCircle));
    angle %= kCircle;
    try {
        if (apply == Apply::Yes) SendHeading(s, angle);
    } catch (const SoundError& e) {
        ShowDSError(s, "turning listener", e.Number());
        return;
    }
    s.ListenerAngle = static_cast<std::int16_t>(angle);
    s.World.Screen.ShowListenerFace();
}

int ListenerFrame(std::int16_t angle) {
    const int frame = angle / kDegreesAFrame;
    return frame >= kLastFrame ? 0 : frame;
}

}  // namespace marvolin
