#pragma once
/// \file
/// The timing service: ticks that stand on a grid of the card's clock.

#include <memory>

#include "core/alarm.h"
#include "core/card_time.h"
#include "core/timer.h"

namespace marvolin {

/// Timers with ticks at their start + k * interval on the card's clock, exactly. Each tick passes on the milliseconds
/// since the one before, so the sum of all is the card's time, and its calls of the sound service belong to its own
/// place, however late the event loop comes round.
///
/// Up to `kLatenessBudget` late, each tick is delivered, in the order of the places and, at the same place, in that of
/// creation. Beyond it, one tick stands for all that have passed: at the last one's place, with the milliseconds of
/// all.
///
/// A timer starts at the place of the tick in which it is enabled, else where the clock stands. A new interval counts
/// from the last tick on: the next one comes at its end, or at once if that has passed, so however often the interval
/// changes the ticks go on. Timers may be made, changed and dropped within ticks. A tick that waits for events is
/// ticked inside.
class GridTimers final : public TimerFactory {
public:
    /// Both must outlive it. `alarm` is used by nothing else.
    GridTimers(CardTime& time, Alarm& alarm);
    ~GridTimers() override;
    GridTimers(const GridTimers&) = delete;
    GridTimers& operator=(const GridTimers&) = delete;

    /// The timers must not outlive this service. An interval below 1 ms is 1 ms.
    [[nodiscard]] std::unique_ptr<PeriodicTimer> Create(Tick tick) override;

private:
    class Grid;
    class Timer;
    std::unique_ptr<Grid> grid_;
};

}  // namespace marvolin
