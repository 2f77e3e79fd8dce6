#include "performance/joystick/joystick_plug.h"

#include <string>
#include <vector>

#include "core/errors.h"
#include "core/routines.h"
#include "performance/joystick/joystick_setup.h"

namespace marvolin {

namespace {

bool IsAway(DirectInputDevice& stick) {
    try {
        stick.Acquire();
        return false;
    } catch (const RuntimeError&) {
        return true;
    }
}

std::vector<std::string> Sticks(Session& s) {
    try {
        return s.DI->GetDIEnumDevices(kJoystickClass, kAttachedOnly);
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace

void JoystickWatch::Look(Session& s) {
    if (!s.DI) return;
    if (s.JoyDevice) {
        // After an error of the poll the program ends.
        if (!s.JoyEnabled) return;
        away_ = IsAway(*s.JoyDevice) ? away_ + 1 : 0;
        if (away_ < kAwayLooks) return;
        JoyUnplug(s);
        ShowStatus(s, "The joystick is gone.");
    }
    away_ = 0;
    const std::vector<std::string> sticks = Sticks(s);
    if (!sticks.empty() && JoyPlugIn(s, sticks.front())) ShowStatus(s, "A joystick is there.");
}

}  // namespace marvolin
