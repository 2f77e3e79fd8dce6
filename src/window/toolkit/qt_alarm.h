#pragma once

#ifdef __linux__
#include <QSocketNotifier>
#include <memory>
#else
#include <QTimer>
#endif

#include "core/alarm.h"

namespace marvolin {

/// An alarm on the event loop: to the nanosecond on Linux, where setting it allocates nothing, elsewhere to the
/// millisecond.
class QtAlarm final : public Alarm {
public:
    /// `RuntimeError` when the system has no timer left.
    QtAlarm();
    ~QtAlarm() override;
    QtAlarm(const QtAlarm&) = delete;
    QtAlarm& operator=(const QtAlarm&) = delete;

    void SetOnRing(std::function<void()> onRing) override { onRing_ = std::move(onRing); }
    void Set(std::int64_t nanoseconds) override;
    void Cancel() override;

private:
#ifdef __linux__
    void Ring();

    int timer_;
    std::unique_ptr<QSocketNotifier> notifier_;
#else
    // A single shot: a timer that repeats would rest while its own tick waits for events.
    QTimer timer_;
#endif
    std::function<void()> onRing_;
};

}  // namespace marvolin
