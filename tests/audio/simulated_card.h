#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>

#include "audio/openal/card_clock.h"

namespace marvolin::test {

/// A card and a steady clock that run when a test lets them, and the card's clock that looks at both.
struct SimulatedCard {
    static constexpr std::int64_t kMillisecond = 1'000'000;
    static constexpr std::int64_t kSecond = 1000 * kMillisecond;

    std::int64_t Steady = 5 * kSecond;  ///< ns
    CardClock Clock{[this] { return Steady; }};
    int Period = 128;
    double Pace = 1;          ///< of the card's quartz, 1 is 44100 frames a second
    std::int64_t Given = 0;   ///< frames of the open device
    std::int64_t Begun = 0;   ///< when the card would have asked for frame 0
    double Told = 0;          ///< where the clock stood last
    std::int64_t ToldAt = 0;  ///< on the steady clock
    double Bend = 0.5;        ///< how much faster or slower than the card the clock may run
    double Least = 0;         ///< frames: the clock at a callback less what was given before it
    double Most = 0;          ///< frames: the clock less the true place of the card
    bool IsMeasured = false;  ///< `Least` and `Most` are of what has happened since

    void Open(int period) {
        Period = period;
        Given = 0;
        Begun = Steady;
        Clock.Open(period);
        IsMeasured = false;
    }
    void StartMeasuring() {
        IsMeasured = true;
        Least = 1e9;
        Most = -1e9;
    }
    /// Frames that the device has really played.
    double Place() const { return static_cast<double>(Steady - Begun) / kSecond * kFramesASecond * Pace; }
    std::int64_t TimeOf(std::int64_t frame) const {
        return Begun + std::llround(static_cast<double>(frame) / (kFramesASecond * Pace) * kSecond);
    }

    /// Looks at the clock, which must not have gone back or jumped.
    void Look() {
        const double now = Clock.Now();
        const double passed = static_cast<double>(Steady - ToldAt) / kSecond * kFramesASecond;
        if (ToldAt != 0) {
            ASSERT_GE(now, Told + passed * std::min(1.0, Pace) * (1 - Bend) * 0.97 - 1e-3) << "after " << passed;
            ASSERT_LE(now, Told + passed * std::max(1.0, Pace) * (1 + Bend) * 1.03 + 1e-3) << "after " << passed;
        }
        Told = now;
        ToldAt = Steady;
        if (IsMeasured) Most = std::max(Most, OnDevice(now) - Place());
    }
    /// The device's frame at a place of the clock.
    double OnDevice(double place) const {
        const double whole = std::floor(place);
        return static_cast<double>(Clock.FrameOf(static_cast<Instant>(whole))) + place - whole;
    }
    void Ask() {
        Clock.Called_rt(Steady, Given);
        if (IsMeasured) Least = std::min(Least, OnDevice(Clock.Now()) - static_cast<double>(Given));
        Given += Period;
    }

    /// For `Run`: late by up to `milliseconds`, the same in each run.
    std::function<double()> Jitter(double milliseconds, unsigned seed = 1) const {
        return [most = milliseconds * kFramesASecond / 1000 / Period, random = std::mt19937(seed)]() mutable {
            return std::uniform_real_distribution<double>(0, most)(random);
        };
    }
    /// For `Run`: the card asks for `count` periods at once, the last of them in advance by all the others.
    static std::function<double()> Bursts(int count) {
        return [count, i = 0]() mutable { return -static_cast<double>(i++ % count); };
    }
    /// Lets `milliseconds` pass. Each callback comes `late` periods after its time, but never before the previous one;
    /// the clock is looked at every 0.7 ms.
    void Run(
        double milliseconds, const std::function<double()>& late = [] { return 0.0; }) {
        const auto end = Steady + static_cast<std::int64_t>(milliseconds * kMillisecond);
        const auto next = [&] {
            const double delay = late() * Period / kFramesASecond * kSecond;
            return std::max(Steady, TimeOf(Given) + static_cast<std::int64_t>(delay));
        };
        std::int64_t ask = next();
        while (Steady < end && !testing::Test::HasFatalFailure()) {
            const std::int64_t look = Steady + 700'000;
            if (ask <= look) {
                Steady = ask;
                Ask();
                ask = next();
            } else {
                Steady = look;
                Look();
            }
        }
    }
    /// Lets time pass in which the card does not ask.
    void Stand(double milliseconds) {
        for (double passed = 0; passed < milliseconds; passed += 0.5) {
            Steady += kMillisecond / 2;
            Look();
        }
    }
};

}  // namespace marvolin::test
