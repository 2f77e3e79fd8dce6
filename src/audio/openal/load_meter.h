#pragma once
/// \file
/// The load of the sound engine.

#include <algorithm>
#include <atomic>

namespace marvolin {

/// Share of real time that rendering takes, smoothed. Written by the thread that renders, read by any.
class LoadMeter {
public:
    /// Adds one rendering of `period` seconds of sound, more than 0, that took `seconds`.
    void Add_rt(double seconds, double period) noexcept {
        const double old = percent_.load(std::memory_order_relaxed);
        const double weight = std::min(1.0, period / kSmoothing);
        percent_.store(old + weight * (100 * seconds / period - old), std::memory_order_relaxed);
    }
    void Reset() noexcept { percent_.store(0, std::memory_order_relaxed); }
    /// Percent: 0 idle, 100 all of the time.
    double Percent() const noexcept { return percent_.load(std::memory_order_relaxed); }

private:
    static constexpr double kSmoothing = 0.37;  ///< seconds
    std::atomic<double> percent_{0};
};

}  // namespace marvolin
