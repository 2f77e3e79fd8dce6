#pragma once
/// \file
/// A card's clock for tests of the window, and the timing service on it.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>

#include "core/card_time.h"
#include "sequencing/grid_timers.h"
#include "window/toolkit/qt_alarm.h"

namespace marvolin::test {

/// A clock without a card, which counts the groups of calls.
class EventTime final : public CardTime {
public:
    int Begun = 0;
    int Open = 0;
    double Now() override {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count() * kFramesASecond;
    }
    std::int64_t Until(double place) override {
        return std::max<std::int64_t>(std::llround(std::ceil((place - Now()) * 1e9 / kFramesASecond)), 0);
    }
    void Begin(std::optional<Instant>) override {
        ++Begun;
        ++Open;
    }
    void End() override { --Open; }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// The clock of the test program's application.
EventTime& TimeOfTheApplication();

/// The timing service on the event loop, as the program has it.
class LoopTimers final : public TimerFactory {
public:
    EventTime Time;
    QtAlarm Bell;
    std::unique_ptr<PeriodicTimer> Create(Tick tick) override { return timers_.Create(std::move(tick)); }

private:
    GridTimers timers_{Time, Bell};
};

}  // namespace marvolin::test
