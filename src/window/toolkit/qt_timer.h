#pragma once

#include <memory>

#include "core/timer.h"

namespace marvolin {

/// Timers on the event loop, measured by a monotonic clock. Each tick passes the whole milliseconds that have elapsed;
/// the fraction is carried over to the next tick.
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
