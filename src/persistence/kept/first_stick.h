#pragma once
/// \file
/// What the first joystick of a run changes by itself, so that plugging it in does not count as work.

#include <cstdint>

#include "core/session.h"

namespace marvolin {

/// The assignable axes and the boxes "Relative" as they are kept at one moment, and what the first joystick makes of
/// them when nothing else happens. Nothing, when a joystick has come before that moment.
class FirstStick {
public:
    FirstStick() = default;
    /// Remembers what is kept now.
    explicit FirstStick(const Session& s);

    /// Looks whether the first joystick has come. Must be called again before a second one can come.
    void Follow(const Session& s);

private:
    friend class AsBeforeStick;

    struct Values {
        Table<std::int16_t, 2> Axis;
        Table<Boolean, 2> Relative;
    };
    Values before_;
    Values after_;
    Table<bool, 2> startDecides_;  // the axis: nothing else has named one
    bool awaited_ = false;         // no joystick has come so far
};

/// While it is there, the values that the first joystick has set and those that it has replaced stand for each other:
/// a session that it alone has changed is as it was before, and what was worked on differs as it did before.
class AsBeforeStick {
public:
    AsBeforeStick(Session& s, const FirstStick& stick);
    ~AsBeforeStick();
    AsBeforeStick(const AsBeforeStick&) = delete;
    AsBeforeStick& operator=(const AsBeforeStick&) = delete;

private:
    Session& s_;
    WaitingAssignments waiting_;
    Table<Boolean, 2> relative_;
};

}  // namespace marvolin
