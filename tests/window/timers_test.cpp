#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>

#include "window/toolkit/mersenne_random.h"
#include "window/toolkit/qt_timer.h"

namespace marvolin {
namespace {

TEST(MillisecondCarry, ReturnsWholeMillisecondsAndKeepsTheFraction) {
    MillisecondCarry carry;
    EXPECT_EQ(carry.Take(1'600'000), 1);
    EXPECT_EQ(carry.Take(1'600'000), 2);
    EXPECT_EQ(carry.Take(700'000), 0);
    EXPECT_EQ(carry.Take(100'000), 1);
    std::int64_t sum = 0;
    for (int tick = 0; tick < 1000; ++tick) sum += carry.Take(10'333'333);
    EXPECT_EQ(sum, 10'333);
}

TEST(QtTimers, TheSumOfTheTicksIsTheElapsedTime) {
    QtTimers timers;
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

TEST(QtTimers, DoNotTickBeforeTheyAreEnabledOrAfterTheyAreDisabled) {
    QtTimers timers;
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

TEST(QtTimers, ATimerMayBeDroppedByItsOwnTick) {
    QtTimers timers;
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
