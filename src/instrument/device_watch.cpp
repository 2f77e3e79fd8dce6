#include "instrument/device_watch.h"

#include "core/errors.h"

namespace marvolin {

DeviceWatch::DeviceWatch(Session& s) : timer_(s.World.Timers.Create([this, &s](std::int32_t) { Look(s); })) {
    timer_->SetInterval(kInterval);
    timer_->SetEnabled(true);
}

void DeviceWatch::Look(Session& s) {
    if (looking_) return;
    // A box that a look has opened may end the program.
    const std::shared_ptr<DeviceWatch> alive = s.Devices;
    looking_ = true;
    outputs_.Look(s);
    joystick_.Look(s);
    looking_ = false;
}

void WatchDevices(Session& s) {
    try {
        s.Devices = std::make_shared<DeviceWatch>(s);
    } catch (const RuntimeError&) {
        s.Devices.reset();
    }
}

}  // namespace marvolin
