#pragma once

#include <QTimer>

#include "core/alarm.h"

namespace marvolin {

/// An alarm on the event loop, to the millisecond.
class QtAlarm final : public Alarm {
public:
    QtAlarm();
    void SetOnRing(std::function<void()> onRing) override { onRing_ = std::move(onRing); }
    void Set(std::int64_t nanoseconds) override;
    void Cancel() override { timer_.stop(); }

private:
    // A single shot: a timer that repeats would rest while its own tick waits for events.
    QTimer timer_;
    std::function<void()> onRing_;
};

}  // namespace marvolin
