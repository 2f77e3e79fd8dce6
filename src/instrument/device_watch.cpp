#include "instrument/device_watch.h"

#include "core/errors.h"

namespace marvolin {

namespace {

/// Sets a flag while it lives, also when an error ends what it is for.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

}  // namespace

DeviceWatch::DeviceWatch(Session& s) : timer_(s.World.Timers.Create([this, &s](std::int32_t) { Look(s); })) {
    timer_->SetInterval(kInterval);
    timer_->SetEnabled(true);
}

void DeviceWatch::Look(Session& s) {
    if (looking_) return;
    // A box that a look has opened may end the program.
    const std::shared_ptr<DeviceWatch> alive = s.Devices;
    const Raised looking(looking_);
    outputs_.Look(s);
    joystick_.Look(s);
}

void WatchDevices(Session& s) {
    try {
        s.Devices = std::make_shared<DeviceWatch>(s);
    } catch (const RuntimeError&) {
        s.Devices.reset();
    }
}

}  // namespace marvolin
