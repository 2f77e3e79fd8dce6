#pragma once
/// \file
/// Time of a soak: a card with a quartz of its own, and an event loop that is sometimes late, both run by hand.

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "core/alarm.h"
#include "core/card_time.h"

namespace marvolin::soak {

inline constexpr std::int64_t kNanosecondsAMillisecond = 1'000'000;
inline constexpr std::int64_t kNanosecondsASecond = 1000 * kNanosecondsAMillisecond;

/// The alarm of the event loop. It rings when its time has come and somebody lets it.
class HandAlarm final : public Alarm {
public:
    explicit HandAlarm(const std::int64_t& steady) : steady_(steady) {}
    void SetOnRing(std::function<void()> onRing) override { onRing_ = std::move(onRing); }
    void Set(std::int64_t nanoseconds) override { due_ = steady_ + std::max<std::int64_t>(nanoseconds, 1); }
    void Cancel() override { due_.reset(); }
    /// When it is to ring, on the steady clock; nothing when it is not set.
    std::optional<std::int64_t> Due() const { return due_; }
    void Ring() {
        due_.reset();
        if (onRing_) onRing_();
    }

private:
    const std::int64_t& steady_;
    std::optional<std::int64_t> due_;
    std::function<void()> onRing_;
};

/// The steady clock, and a card beside it that asks for a period at a time.
struct SimulatedCard {
    static constexpr int kPeriod = 128;       ///< frames
    static constexpr double kPace = 1.00003;  ///< of its quartz against the steady clock

    std::int64_t Steady = 5 * kNanosecondsASecond;
    std::int64_t Begun = Steady;  ///< when it asked for its first period
    std::int64_t Given = 0;       ///< frames

    /// When it asks for its next period.
    std::int64_t NextAsk() const {
        return Begun +
               static_cast<std::int64_t>(static_cast<double>(Given) * kNanosecondsASecond / (kFramesASecond * kPace));
    }
    /// Milliseconds that it has played at a time of the steady clock.
    double Played(std::int64_t steady) const {
        return static_cast<double>(steady - Begun) / kNanosecondsAMillisecond * kPace;
    }
};

}  // namespace marvolin::soak
