#include "persistence/kept/first_stick.h"

#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_waiting.h"

namespace marvolin {

namespace {

template <typename Value>
Value Exchanged(const Value& value, const Value& one, const Value& other) {
    if (value == one) return other;
    return value == other ? one : value;
}

}  // namespace

FirstStick::FirstStick(const Session& s) : awaited_(s.Joy.Refreshing) {
    for (int use = 0; use < 2; ++use) {
        before_.Axis[use] = JoyAxisToKeep(s, use);
        startDecides_[use] = JoyIsOpen(s) || !s.Joy.Waiting.Axis[use];
    }
    before_.Relative = s.Joy.Relative;
    after_ = before_;
    after_.Relative = JoyRelativeOfNext(s);
}

void FirstStick::Follow(const Session& s) {
    if (!awaited_ || s.Joy.Refreshing) return;
    awaited_ = false;
    for (int use = 0; use < 2; ++use) {
        if (startDecides_[use]) after_.Axis[use] = JoyStartAxis(s, use);
    }
}

AsBeforeStick::AsBeforeStick(Session& s, const FirstStick& stick)
    : s_(s), waiting_(s.Joy.Waiting), relative_(s.Joy.Relative) {
    if (s.Joy.Refreshing) return;
    for (int use = 0; use < 2; ++use) {
        s.Joy.Waiting.Axis[use] = Exchanged(JoyAxisToKeep(s, use), stick.before_.Axis[use], stick.after_.Axis[use]);
    }
    s.Joy.Relative = Exchanged(relative_, stick.before_.Relative, stick.after_.Relative);
}

AsBeforeStick::~AsBeforeStick() {
    s_.Joy.Waiting = waiting_;
    s_.Joy.Relative = relative_;
}

}  // namespace marvolin
