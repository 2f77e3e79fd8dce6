#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/alarm.h"
#include "core/card_time.h"
#include "sequencing/grid_timers.h"

namespace marvolin::test {

/// A card's clock that stands where a test puts it, and keeps the instants of the open groups.
class HandTime final : public CardTime {
public:
    double Place = 0;
    std::vector<std::optional<Instant>> Groups;
    double Pace = 1;  ///< of the clock, 1 is a frame of 44100 a second
    double Now() override { return Place; }
    std::int64_t Until(double place) override {
        return std::max<std::int64_t>(std::llround((place - Place) / (44.1e-6 * Pace)), 0);
    }
    void Begin(std::optional<Instant> at) override { Groups.push_back(at); }
    void End() override { Groups.pop_back(); }
};

/// An alarm that keeps what it is set for, and rings by hand.
class HandAlarm final : public Alarm {
public:
    explicit HandAlarm(const HandTime& time) : time_(time) {}
    std::optional<std::int64_t> SetFor;  ///< ns
    double Due = 0;                      ///< place on the clock
    int Sets = 0;                        ///< how often it was set
    std::function<void()> OnRing;
    void SetOnRing(std::function<void()> onRing) override { OnRing = std::move(onRing); }
    void Set(std::int64_t nanoseconds) override {
        SetFor = nanoseconds;
        ++Sets;
        Due = time_.Place + static_cast<double>(nanoseconds) * 44.1e-6 * time_.Pace;
    }
    void Cancel() override { SetFor.reset(); }
    void Ring() {
        SetFor.reset();
        OnRing();
    }

private:
    const HandTime& time_;
};

/// Timers on a grid, an event loop by hand, and what was ticked.
struct GridRig {
    struct Ticked {
        std::string Name;
        std::int32_t Milliseconds;
        Instant At;
        friend bool operator==(const Ticked&, const Ticked&) = default;
    };
    HandTime Time;
    HandAlarm Bell{Time};
    GridTimers Timers{Time, Bell};
    std::vector<Ticked> Log;

    /// A timer that logs its ticks under `name` and then does `also`.
    std::unique_ptr<PeriodicTimer> Make(const std::string& name, std::int32_t milliseconds,
                                        std::function<void()> also = {}) {
        auto timer = Timers.Create([this, name, also](std::int32_t passed) {
            Log.push_back({name, passed, Time.Groups.back().value_or(-1)});
            if (also) also();
        });
        timer->SetInterval(milliseconds);
        return timer;
    }
    /// The event loop comes round when the clock stands at `milliseconds`, if the alarm is due by then.
    void RoundAt(double milliseconds) {
        Time.Place = milliseconds * 44.1;
        if (Bell.SetFor && Bell.Due <= Time.Place + 1e-3) Bell.Ring();
    }
    std::vector<Ticked> Take() { return std::exchange(Log, {}); }
};

}  // namespace marvolin::test
