#pragma once
/// \file
/// Outputs and joysticks that come and go while the program runs.

#include <memory>

#include "audio/output_watch.h"
#include "core/session.h"
#include "performance/joystick/joystick_plug.h"

namespace marvolin {

/// Looks at the devices every `kInterval` ms while it lives.
class DeviceWatch {
public:
    static constexpr std::int32_t kInterval = 150;  ///< ms

    /// `RuntimeError` when there is no timer. `s` must outlive it.
    explicit DeviceWatch(Session& s);

private:
    void Look(Session& s);

    OutputWatch outputs_;
    JoystickWatch joystick_;
    bool looking_ = false;  // a box that a look has opened lets the timer run on
    std::unique_ptr<PeriodicTimer> timer_;
};

/// Starts to watch, after outputs and joystick have been set up. Without a timer nothing is watched.
void WatchDevices(Session& s);

}  // namespace marvolin
