#include "window/toolkit/qt_alarm.h"

#include <algorithm>
#include <limits>

namespace marvolin {

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

void QtAlarm::Set(std::int64_t nanoseconds) {
    const std::int64_t milliseconds = (nanoseconds + kNanosecondsAMillisecond - 1) / kNanosecondsAMillisecond;
    timer_.start(static_cast<int>(std::min<std::int64_t>(milliseconds, std::numeric_limits<int>::max())));
}

}  // namespace marvolin
