#include "performance/joystick/joystick_twist.h"

#include <cmath>

#include "core/routines.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_twist.h"

namespace marvolin {

namespace {

constexpr std::int32_t kTwistMiddle = 5000;
constexpr double kTwistRest = 500;   // from the middle, of the raw value: the inner tenth
constexpr double kTwistFull = 4750;  // ... and 95 percent
constexpr double kTwistEnd = 4000;   // the end of the line, in the unit of the stick

/// Deflection -4000..4000 of a raw value. So an axis that rests near its middle is at rest.
std::int32_t Deflection(std::int32_t raw) {
    const double from = raw - kTwistMiddle;
    double share = (std::abs(from) - kTwistRest) / (kTwistFull - kTwistRest);
    ClampR8(share, 0.0, 1.0);
    return ToI4(std::copysign(share * kTwistEnd, from));
}

bool HasTwist(const Session& s) {
    const std::int16_t axis = s.Joy.Axis[kTwistAxis];
    return axis != kAxisNone && s.Joy.AxisPresent[axis];
}

void Follow(Session& s, std::int32_t deflection) {
    PadTwist(s, deflection * (s.Joy.Factor[2] / 1000.0), kTwistEnd, {.Absolute = true, .Apply = true});
}

}  // namespace

void JoyTwist(Session& s, const JoyTwistRead& read) {
    JoystickState& joy = s.Joy;
    if (s.ActiveTab != kMixPadTab) return;
    const bool axis = HasTwist(s);
    const std::int32_t deflection = axis ? Deflection(read.Axis) : 0;
    const bool moved = axis && joy.LastTwist != kTwistUnread && deflection != joy.LastTwist;
    joy.LastTwist = axis ? deflection : kTwistUnread;
    if (read.Toggled && axis) {
        joy.TwistLetGo = !joy.TwistLetGo;
        if (joy.TwistLetGo) ShowStatus(s, "Twist: the joystick has let go");
    }
    if (read.Centre) return PadTwistCentre(s);
    if (axis && !joy.TwistLetGo && (moved || read.Toggled)) Follow(s, deflection);
}

}  // namespace marvolin
