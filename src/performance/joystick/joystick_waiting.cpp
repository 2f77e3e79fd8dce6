#include "performance/joystick/joystick_waiting.h"

#include <cstddef>
#include <iterator>

#include "performance/joystick/joystick_setup.h"

namespace marvolin {

void JoyAssignButton(Session& s, int index, std::int16_t button) {
    if (s.JoyEnabled) {
        s.Joy.Button[index] = button;
    } else {
        s.Joy.Waiting.Button[index] = button;
    }
}

void JoyAssignAxis(Session& s, int index, std::int16_t code) {
    if (s.JoyEnabled) {
        s.Joy.Axis[index] = code;
    } else {
        s.Joy.Waiting.Axis[index] = code;
    }
}

std::int16_t JoyButtonToKeep(const Session& s, int index) {
    return s.Joy.Waiting.Button[index].value_or(s.Joy.Button[index]);
}

std::int16_t JoyAxisToKeep(const Session& s, int index) {
    return s.Joy.Waiting.Axis[index].value_or(s.Joy.Axis[index]);
}

bool JoyAnythingWaits(const Session& s) {
    for (int action = 0; action < std::ssize(kJoyActions); ++action) {
        const std::int16_t start = kJoyStartButtons[static_cast<std::size_t>(action)];
        if (s.Joy.Waiting.Button[action].value_or(start) != start) return true;
    }
    for (int use = 0; use < std::ssize(kJoyAssignments); ++use) {
        if (s.Joy.Waiting.Axis[use].value_or(kAxisNone) != kAxisNone) return true;
    }
    return false;
}

bool JoyIsOpen(const Session& s) { return s.Joy.Refreshing && !JoyAnythingWaits(s); }

Table<Boolean, 2> JoyRelativeOfNext(const Session& s) {
    const Table<Boolean, 2>& now = s.Joy.Relative;
    const bool set = now[0] != False || now[1] != False;
    return JoyIsOpen(s) && !set ? Table<Boolean, 2>({True, True}) : now;
}

void JoyLetWait(Session& s) {
    for (int action = 0; action < std::ssize(kJoyActions); ++action) {
        s.Joy.Waiting.Button[action] = s.Joy.Button[action];
    }
    for (int use = 0; use < std::ssize(kJoyAssignments); ++use) s.Joy.Waiting.Axis[use] = s.Joy.Axis[use];
}

void JoyAssignWhatWaits(Session& s) {
    for (int action = 0; action < std::ssize(kJoyActions); ++action) s.Joy.Button[action] = JoyButtonToKeep(s, action);
    for (int use = 0; use < std::ssize(kJoyAssignments); ++use) s.Joy.Axis[use] = JoyAxisToKeep(s, use);
    s.Joy.Waiting = {};
}

}  // namespace marvolin
