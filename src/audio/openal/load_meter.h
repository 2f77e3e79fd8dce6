#pragma once
/// \file
/// How much of its time the sound engine needs.

#include <atomic>

namespace marvolin {

/// The share of the real time that rendering takes, smoothed. Written by the thread that renders, read by any.
class LoadMeter {
public:
    /// Takes in one rendering that took `seconds` for `period` seconds of sound.
    void Add_rt(double seconds, double period) noexcept {
        const double old = percent_.load(std::memory_order_relaxed);
        percent_.store(old + kWeight * (100 * seconds / period - old), std::memory_order_relaxed);
    }
    void Reset() noexcept { percent_.store(0, std::memory_order_relaxed); }
    /// 0 idle, 100 all of the time.
    double Percent() const noexcept { return percent_.load(std::memory_order_relaxed); }

private:
    /// About a third of a second of periods counts.
    static constexpr double kWeight = 1.0 / 64;
    std::atomic<double> percent_{0};
};

}  // namespace marvolin
