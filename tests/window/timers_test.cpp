#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "sequencing/allocation_counter.h"
#include "sequencing/loop_clock.h"
#include "window/event_time.h"
#include "window/stage.h"
#include "window/toolkit/mersenne_random.h"

namespace marvolin {
namespace {

using test::LoopTimers;
using test::Stage;

TEST(TimersOfTheEventLoop, TheSumOfTheTicksIsTheElapsedTime) {
    LoopTimers timers;
    std::int64_t sum = 0;
    int ticks = 0;
    auto timer = timers.Create([&](std::int32_t milliseconds) {
        sum += milliseconds;
        ++ticks;
    });
    timer->SetInterval(5);
    QElapsedTimer clock;
    clock.start();
    timer->SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks >= 10; }, 5000));
    EXPECT_GE(sum, 45);
    EXPECT_LE(sum, clock.elapsed());
}

TEST(TimersOfTheEventLoop, DoNotTickBeforeTheyAreEnabledOrAfterTheyAreDisabled) {
    LoopTimers timers;
    int ticks = 0;
    auto timer = timers.Create([&](std::int32_t) { ++ticks; });
    timer->SetInterval(1);
    int others = 0;
    auto other = timers.Create([&](std::int32_t) { ++others; });
    other->SetInterval(1);
    other->SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return others >= 5; }, 5000));
    EXPECT_EQ(ticks, 0);
    timer->SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }, 5000));
    timer->SetEnabled(false);
    const int then = ticks;
    others = 0;
    ASSERT_TRUE(QTest::qWaitFor([&] { return others >= 5; }, 5000));
    EXPECT_EQ(ticks, then);
}

TEST(TimersOfTheEventLoop, AnAlarmRingsAfterPartsOfAMillisecond) {
    using Clock = std::chrono::steady_clock;
    QtAlarm alarm;
    Clock::time_point set;
    std::vector<double> waits;
    const auto setAlarm = [&] {
        set = Clock::now();
        alarm.Set(1'050'000);
    };
    alarm.SetOnRing([&] {
        waits.push_back(std::chrono::duration<double, std::milli>(Clock::now() - set).count());
        setAlarm();
    });
    setAlarm();
    while (waits.size() < 300) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    alarm.Cancel();
    const double least = *std::ranges::min_element(waits);
    EXPECT_GE(least, 1.05);
    EXPECT_LT(least, 1.9) << "in whole milliseconds it would be two";
}

TEST(TimersOfTheEventLoop, TheTicksAllocateNothing) {
    LoopTimers timers;
    int ticks = 0;
    auto timer = timers.Create([&](std::int32_t) { ++ticks; });
    timer->SetInterval(1);
    timer->SetEnabled(true);
    const auto tick = [&](int count) {
        const int end = ticks + count;
        while (ticks < end) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    tick(20);
    // What else the event loop delivers may allocate, now and then.
    long least = std::numeric_limits<long>::max();
    for (int attempt = 0; attempt < 10; ++attempt) {
        const long before = test::Allocations();
        tick(20);
        least = std::min(least, test::Allocations() - before);
    }
    EXPECT_EQ(least, 0);
}

TEST(TimersOfTheEventLoop, ATimerMayBeDroppedByItsOwnTick) {
    LoopTimers timers;
    std::unique_ptr<PeriodicTimer> timer;
    int ticks = 0;
    timer = timers.Create([&](std::int32_t) {
        ++ticks;
        timer.reset();
    });
    timer->SetInterval(1);
    timer->SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return timer == nullptr; }, 5000));
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, 1);
}

TEST(TimersOfTheEventLoop, ATickThatWaitsForEventsIsTickedInsideOnceAndTheTimeIsCountedOnce) {
    LoopTimers timers;
    int depth = 0;
    int deepest = 0;
    int inside = 0;
    std::int64_t sum = 0;
    bool waited = false;
    QElapsedTimer clock;
    auto timer = timers.Create([&](std::int32_t milliseconds) {
        sum += milliseconds;
        deepest = std::max(deepest, ++depth);
        if (depth > 1) ++inside;
        if (depth == 1 && !waited) {
            waited = true;
            EXPECT_TRUE(QTest::qWaitFor([&] { return inside >= 5; }, 5000));
        }
        --depth;
    });
    timer->SetInterval(2);
    clock.start();
    timer->SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return waited && depth == 0 && sum >= 40; }, 5000));
    EXPECT_EQ(deepest, 2);
    EXPECT_LE(sum, clock.elapsed());
    const int then = inside;
    const std::int64_t before = sum;
    ASSERT_TRUE(QTest::qWaitFor([&] { return sum >= before + 10; }, 5000));
    EXPECT_EQ(inside, then);
}

TEST(TimersOfTheEventLoop, ATimerMayBeDroppedInsideItsWaitingTick) {
    LoopTimers timers;
    std::unique_ptr<PeriodicTimer> timer;
    int ticks = 0;
    timer = timers.Create([&](std::int32_t) {
        if (++ticks == 1) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return timer == nullptr; }, 5000));
        } else {
            timer.reset();
        }
    });
    timer->SetInterval(1);
    timer->SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return timer == nullptr; }, 5000));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, 2);
}

TEST(LoopClockInTheWindow, AWaitWithinATickIsACollisionAndItsTimeIsLost) {
    Stage stage;
    Session& s = stage.s;
    LoopTimers timers;
    bool waited = false;
    std::string inside;
    stage.Desk.WhenReported = [&] {
        if (waited) return;
        waited = true;
        EXPECT_TRUE(QTest::qWaitFor([&] { return s.Clock.Panel == "Timer collision!"; }, 5000));
        inside = s.Clock.Panel;
    };
    s.LoopTimer = timers.Create([&](std::int32_t milliseconds) { LoopTimer_Timer(s, milliseconds); });
    stage.Fill(0);
    s.Set[0].PlayMode = kTrack;
    s.Set[0].StepDuration = 1;
    s.Run[0].Playing = True;
    stage.Sound.Failures["SetVolume"] = sound_error::kGeneric;
    s.LoopTimer->SetInterval(5);
    s.LoopTimer->SetEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return waited && !s.LoopTimerBusy; }, 5000));
    EXPECT_EQ(inside, "Timer collision!");
    const std::int32_t after = s.Clock.ClockMs;
    ASSERT_TRUE(QTest::qWaitFor([&] { return s.Clock.ClockMs > after; }, 5000));
    s.LoopTimer.reset();
}

TEST(LoopClockInTheWindow, AFailureOfTheSoundServiceInATickEndsTheProgram) {
    // A process of its own: a fork of one with threads may hang.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto run = [] {
        Stage stage;
        stage.Fill(0);
        stage.s.Set[0].PlayMode = kOneShot;
        stage.s.Run[0].Playing = True;
        stage.Sound.Failures["GetStatus"] = sound_error::kBufferLost;
        LoopTimers timers;
        auto timer = timers.Create([&](std::int32_t milliseconds) { LoopTimer_Timer(stage.s, milliseconds); });
        timer->SetInterval(1);
        timer->SetEnabled(true);
        QTest::qWait(5000);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_FAILURE), "sound service error .*; the program ends");
}

TEST(MersenneRandom, ReturnsNumbersBelowOneAndIsSeededFromTheClock) {
    MersenneRandom chance;
    double sum = 0;
    for (int draw = 0; draw < 10000; ++draw) {
        const double u = chance.Rnd();
        ASSERT_GE(u, 0);
        ASSERT_LT(u, 1);
        sum += u;
    }
    EXPECT_NEAR(sum / 10000, 0.5, 0.02);
    MersenneRandom fixed;
    MersenneRandom seeded;
    seeded.SeedFromClock();
    EXPECT_NE(fixed.Rnd(), seeded.Rnd());
}

}  // namespace
}  // namespace marvolin
