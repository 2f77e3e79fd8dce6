#pragma once
/// \file
/// One wake-up of the user-interface thread. Behind it stands the event loop of the window's toolkit
/// (`window/toolkit/qt_alarm.cpp`).

#include <cstdint>
#include <functional>

namespace marvolin {

/// Rings once after a given time, on the user-interface thread, also while an event waits for other events.
class Alarm {
public:
    virtual ~Alarm() = default;
    /// What is called when it rings; null for nothing. It may set the alarm again.
    virtual void SetOnRing(std::function<void()> onRing) = 0;
    /// Rings once in `nanoseconds`, 0 or more, never earlier; the event loop may make it later. Replaces what was set
    /// before.
    virtual void Set(std::int64_t nanoseconds) = 0;
    /// Does not ring any more until it is set again.
    virtual void Cancel() = 0;
};

}  // namespace marvolin
