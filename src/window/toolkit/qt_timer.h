#pragma once

#include <memory>

#include "core/timer.h"

namespace marvolin {

/// Timers on the event loop, with a monotonic clock. Every tick hands over the whole milliseconds really elapsed; the
/// fraction is carried to the next one.
class QtTimers : public TimerFactory {
public:
    std::unique_ptr<PeriodicTimer> Create(Tick tick) override;
};

/// Turns a stream of elapsed nanoseconds into whole milliseconds, carrying the fraction.
class MillisecondCarry {
public:
    std::int32_t Take(std::int64_t nanoseconds);
    void Reset() { rest_ = 0; }

private:
    std::int64_t rest_ = 0;
};

}  // namespace marvolin
