#include "window/toolkit/qt_alarm.h"

#include <algorithm>

#include "core/errors.h"

#ifdef __linux__
#include <sys/timerfd.h>
#include <unistd.h>
#else
#include <limits>
#endif

namespace marvolin {

#ifdef __linux__

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;  // nanoseconds

// 0 stops the timer.
void SetTimer(int timer, std::int64_t nanoseconds) {
    itimerspec when{};
    when.it_value.tv_sec = static_cast<time_t>(nanoseconds / kSecond);
    when.it_value.tv_nsec = static_cast<long>(nanoseconds % kSecond);
    timerfd_settime(timer, 0, &when, nullptr);
}

}  // namespace

QtAlarm::QtAlarm() : timer_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (timer_ < 0) throw RuntimeError(7, "Out of memory");
    notifier_ = std::make_unique<QSocketNotifier>(timer_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Ring(); });
}

QtAlarm::~QtAlarm() {
    notifier_.reset();
    close(timer_);
}

void QtAlarm::Set(std::int64_t nanoseconds) { SetTimer(timer_, std::max<std::int64_t>(nanoseconds, 1)); }

void QtAlarm::Cancel() { SetTimer(timer_, 0); }

void QtAlarm::Ring() {
    std::uint64_t rings = 0;
    // Nothing to read: it was set anew since the event loop has noticed.
    if (read(timer_, &rings, sizeof rings) == sizeof rings && onRing_) onRing_();
}

#else

namespace {

constexpr std::int64_t kNanosecondsAMillisecond = 1'000'000;

}  // namespace

QtAlarm::QtAlarm() {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(true);
    timer_.callOnTimeout([this] {
        if (onRing_) onRing_();
    });
}

QtAlarm::~QtAlarm() = default;

void QtAlarm::Set(std::int64_t nanoseconds) {
    const std::int64_t milliseconds = (nanoseconds + kNanosecondsAMillisecond - 1) / kNanosecondsAMillisecond;
    timer_.start(static_cast<int>(std::min<std::int64_t>(milliseconds, std::numeric_limits<int>::max())));
}

void QtAlarm::Cancel() { timer_.stop(); }

#endif

}  // namespace marvolin
