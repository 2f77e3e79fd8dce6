#pragma once
/// \file
/// The timing service. Behind it stands the grid of the card's clock (`sequencing/grid_timers.cpp`), or ticks by hand in
/// tests. Nothing to do there: `SetResolution`, because the grid is always exact.

#include <cstdint>
#include <functional>
#include <memory>

namespace marvolin {

/// A periodic tick on the user-interface thread. Disabled when made; destroying it ends the ticks.
///
/// Each tick passes on the whole milliseconds since the previous one, or since the timer was enabled, on the clock of the
/// card. Their sum never drifts.
class PeriodicTimer {
public:
    virtual ~PeriodicTimer() = default;
    /// Time between ticks.
    virtual void SetInterval(std::int32_t milliseconds) = 0;
    /// Fineness in milliseconds that the service should aim at.
    virtual void SetResolution(std::int32_t milliseconds) = 0;
    virtual void SetEnabled(bool enabled) = 0;
};

/// Makes timers.
class TimerFactory {
public:
    using Tick = std::function<void(std::int32_t milliseconds)>;
    virtual ~TimerFactory() = default;
    /// Makes a timer that calls `tick`. Raises `RuntimeError` when the system has none left.
    [[nodiscard]] virtual std::unique_ptr<PeriodicTimer> Create(Tick tick) = 0;
};

}  // namespace marvolin
