#include "sequencing/grid_timers.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "allocation_counter.h"
#include "grid_rig.h"

namespace marvolin {
namespace {

using test::GridRig;
using Log = std::vector<GridRig::Ticked>;

TEST(GridTimers, ATickStandsOnTheGridHoweverLateTheEventLoopIs) {
    GridRig rig;
    rig.Time.Place = 1000;
    const auto timer = rig.Make("loop", 10);
    timer->SetEnabled(true);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> late(0, 3.9);
    for (int k = 1; k <= 10000; ++k) {
        rig.RoundAt(1000 / 44.1 + 10 * k + late(random));
        ASSERT_EQ(rig.Take(), (Log{{"loop", 10, 1000 + 441 * k}})) << k;
    }
}

TEST(GridTimers, AMillisecondIsFortyFourFramesAndATenthWithoutDrift) {
    GridRig rig;
    const auto timer = rig.Make("loop", 1);
    timer->SetEnabled(true);
    for (int k = 1; k <= 100'000; ++k) {
        rig.RoundAt(k + 0.3);
        ASSERT_EQ(rig.Log.size(), 1U);
        ASSERT_EQ(rig.Log[0], (GridRig::Ticked{"loop", 1, Instant{k} * 441 / 10}));
        rig.Log.clear();
    }
}

TEST(GridTimers, TheAlarmIsSetForTheNextTickAndRestsWhenNoTimerIsEnabled) {
    GridRig rig;
    const auto slow = rig.Make("slow", 30);
    const auto fast = rig.Make("fast", 20);
    EXPECT_FALSE(rig.Bell.SetFor);
    slow->SetEnabled(true);
    EXPECT_EQ(rig.Bell.SetFor, 30'000'000);
    fast->SetEnabled(true);
    EXPECT_EQ(rig.Bell.SetFor, 20'000'000);
    rig.RoundAt(21);
    EXPECT_EQ(rig.Bell.SetFor, 9'000'000);
    slow->SetEnabled(false);
    EXPECT_EQ(rig.Bell.SetFor, 19'000'000);
    fast->SetEnabled(false);
    EXPECT_FALSE(rig.Bell.SetFor);
    rig.Bell.Ring();
    EXPECT_FALSE(rig.Bell.SetFor);
    EXPECT_EQ(rig.Log.size(), 1U);
}

TEST(GridTimers, AnAlarmThatRingsTooEarlyIsSetAgain) {
    GridRig rig;
    const auto timer = rig.Make("loop", 10);
    timer->SetEnabled(true);
    rig.Time.Place = 400;
    rig.Bell.Ring();
    EXPECT_TRUE(rig.Log.empty());
    EXPECT_NEAR(static_cast<double>(rig.Bell.SetFor.value()), 41 / 44.1 * 1e6, 1);
}

TEST(GridTimers, WithinTheBudgetEachTickThatHasPassedIsDelivered) {
    GridRig rig;
    const auto timer = rig.Make("loop", 1);
    timer->SetEnabled(true);
    rig.RoundAt(4.9);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 1, 44}, {"loop", 1, 88}, {"loop", 1, 132}, {"loop", 1, 176}}));
}

TEST(GridTimers, BeyondTheBudgetOneTickStandsForAllThatHavePassed) {
    GridRig rig;
    const auto timer = rig.Make("loop", 10);
    timer->SetEnabled(true);
    rig.RoundAt(1003.5);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 1000, 44100}}));
    rig.RoundAt(1010.2);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 44541}}));
}

TEST(GridTimers, ATickBeyondTheBudgetIsHeardAsSoonAsCanBeAndTheNextOnesAreOnTheGrid) {
    GridRig rig;
    const auto timer = rig.Make("loop", 10);
    timer->SetEnabled(true);
    rig.RoundAt(16);
    // Six milliseconds late: nearly two more than the budget.
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 705 - 176}}));
    rig.RoundAt(20);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 882}}));
}

TEST(GridTimers, TheSumOfTheMillisecondsIsTheCardsTimeWhateverHappens) {
    GridRig rig;
    std::int64_t sum = 0;
    auto timer = rig.Timers.Create([&](std::int32_t passed) { sum += passed; });
    timer->SetInterval(7);
    timer->SetEnabled(true);
    std::mt19937 random(2);
    std::uniform_real_distribution<double> pause(0.1, 40);
    double now = 0;
    for (int i = 0; i < 20000; ++i) {
        now += pause(random);
        rig.RoundAt(now);
        ASSERT_LE(sum, now);
        ASSERT_GT(sum, now - 7);
    }
}

TEST(GridTimers, TicksOfSeveralTimersComeInTheOrderOfTheirPlacesThenOfCreation) {
    GridRig rig;
    const auto first = rig.Make("first", 4);
    const auto second = rig.Make("second", 2);
    second->SetEnabled(true);
    first->SetEnabled(true);
    rig.RoundAt(4.5);
    EXPECT_EQ(rig.Take(), (Log{{"second", 2, 88}, {"first", 4, 176}, {"second", 2, 176}}));
}

TEST(GridTimers, ANewIntervalCountsFromTheLastTickOn) {
    GridRig rig;
    const auto timer = rig.Make("loop", 10);
    timer->SetEnabled(true);
    rig.RoundAt(10);
    rig.Take();
    rig.Time.Place = 13.4 * 44.1;
    timer->SetInterval(20);
    EXPECT_NEAR(static_cast<double>(rig.Bell.SetFor.value()), 16.6e6, 1e3);
    rig.RoundAt(30);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 20, 1323}}));
    rig.RoundAt(50);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 20, 2205}}));
}

TEST(GridTimers, ANewIntervalWhoseEndHasPassedTicksAtOnce) {
    GridRig rig;
    const auto timer = rig.Make("loop", 100);
    timer->SetEnabled(true);
    rig.Time.Place = 95.5 * 44.1;
    timer->SetInterval(30);
    EXPECT_EQ(rig.Bell.SetFor, 0);
    rig.RoundAt(95.5);
    rig.RoundAt(120);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 90, 4035}, {"loop", 30, 5292}}));
}

TEST(GridTimers, ASliderThatIsDraggedDoesNotStopTheTicks) {
    GridRig rig;
    std::int64_t sum = 0;
    const auto timer = rig.Timers.Create([&](std::int32_t passed) { sum += passed; });
    timer->SetInterval(33);
    timer->SetEnabled(true);
    std::mt19937 random(4);
    std::uniform_int_distribution<std::int32_t> interval(33, 100);
    for (int now = 10; now <= 10'000; now += 10) {
        rig.RoundAt(now);
        timer->SetInterval(interval(random));
        ASSERT_LE(sum, now);
        ASSERT_GE(sum, now - 110);
    }
}

TEST(GridTimers, TheAlarmIsSetOnceForWhatIsDueAlready) {
    GridRig rig;
    const auto timer = rig.Make("loop", 1);
    timer->SetEnabled(true);
    EXPECT_EQ(rig.Bell.Sets, 1);
    rig.RoundAt(3.5);
    EXPECT_EQ(rig.Log.size(), 3U);
    // For the second and the third tick, in case the first one waits for events, and for the fourth.
    EXPECT_EQ(rig.Bell.Sets, 3);
}

TEST(GridTimers, TheAlarmIsSetByThePaceOfTheClock) {
    GridRig rig;
    rig.Time.Pace = 0.98;
    const auto timer = rig.Make("loop", 100);
    timer->SetEnabled(true);
    EXPECT_NEAR(static_cast<double>(rig.Bell.SetFor.value()), 1e8 / 0.98, 1);
}

TEST(GridTimers, TheSameIntervalAgainChangesNothing) {
    GridRig rig;
    const auto timer = rig.Make("loop", 10);
    timer->SetEnabled(true);
    rig.Time.Place = 5 * 44.1;
    timer->SetInterval(10);
    rig.RoundAt(10);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 441}}));
}

TEST(GridTimers, EnablingStartsTheGridAnew) {
    GridRig rig;
    const auto timer = rig.Make("loop", 10);
    timer->SetEnabled(true);
    rig.Time.Place = 300;
    timer->SetEnabled(true);
    rig.RoundAt(10);
    EXPECT_TRUE(rig.Log.empty());
    rig.Time.Place = 741;
    rig.Bell.Ring();
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 741}}));
}

TEST(GridTimers, AnIntervalOfNothingIsAMillisecond) {
    GridRig rig;
    const auto timer = rig.Make("loop", 0);
    timer->SetEnabled(true);
    EXPECT_EQ(rig.Bell.SetFor, 1'000'000);
    rig.RoundAt(1);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 1, 44}}));
}

TEST(GridTimers, ATickMayDropDisableOrChangeItsTimer) {
    GridRig rig;
    std::unique_ptr<PeriodicTimer> dropped;
    std::unique_ptr<PeriodicTimer> disabled;
    std::unique_ptr<PeriodicTimer> changed;
    dropped = rig.Make("dropped", 10, [&] { dropped.reset(); });
    disabled = rig.Make("disabled", 10, [&] { disabled->SetEnabled(false); });
    changed = rig.Make("changed", 10, [&] { changed->SetInterval(25); });
    for (PeriodicTimer* timer : {dropped.get(), disabled.get(), changed.get()}) timer->SetEnabled(true);
    // The grid of a timer changed by its tick goes on from the tick's place.
    for (const double now : {11.0, 20.0, 37.0, 61.0}) rig.RoundAt(now);
    EXPECT_EQ(rig.Take(), (Log{{"dropped", 10, 441},
                               {"disabled", 10, 441},
                               {"changed", 10, 441},
                               {"changed", 25, 1543},
                               {"changed", 25, 2646}}));
}

TEST(GridTimers, ATickMayDropAnotherTimerThatIsDue) {
    GridRig rig;
    std::unique_ptr<PeriodicTimer> other;
    const auto timer = rig.Make("loop", 10, [&] { other.reset(); });
    other = rig.Make("other", 10);
    timer->SetEnabled(true);
    other->SetEnabled(true);
    rig.RoundAt(10);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 441}}));
}

TEST(GridTimers, ATimerEnabledInATickStartsAtTheTicksPlace) {
    GridRig rig;
    const auto other = rig.Make("other", 5);
    const auto timer = rig.Make("loop", 10, [&] { other->SetEnabled(true); });
    timer->SetEnabled(true);
    rig.RoundAt(12);
    rig.RoundAt(16);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 441}, {"other", 5, 661}}));
}

TEST(GridTimers, ATickThatWaitsForEventsIsTickedInside) {
    GridRig rig;
    std::unique_ptr<PeriodicTimer> timer;
    int depth = 0;
    timer = rig.Make("loop", 10, [&] {
        if (++depth > 1) return;
        // A box is open for 25 ms.
        rig.RoundAt(20);
        rig.RoundAt(31);
        rig.Time.Place = 35 * 44.1;
    });
    timer->SetEnabled(true);
    rig.RoundAt(10);
    rig.RoundAt(40);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 441}, {"loop", 10, 882}, {"loop", 10, 1323}, {"loop", 10, 1764}}));
    EXPECT_TRUE(rig.Time.Groups.empty());
}

TEST(GridTimers, AGestureWithinATickThatHasWaitedStartsTimersWhereTheClockStands) {
    GridRig rig;
    const auto other = rig.Make("other", 10);
    const auto timer = rig.Make("loop", 1000, [&] {
        rig.Time.Place = 44100 + 4410;
        other->SetEnabled(true);
    });
    timer->SetEnabled(true);
    rig.RoundAt(1000);
    rig.RoundAt(1110);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 1000, 44100}, {"other", 10, 48951}}));
}

TEST(GridTimers, AFailureInATickRisesAndLeavesTheTimersInOrder) {
    GridRig rig;
    bool fails = true;
    const auto timer = rig.Make("loop", 10, [&] {
        if (fails) throw std::runtime_error("failure");
    });
    timer->SetEnabled(true);
    EXPECT_THROW(rig.RoundAt(10), std::runtime_error);
    fails = false;
    rig.RoundAt(20);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10, 441}, {"loop", 10, 882}}));
    EXPECT_TRUE(rig.Time.Groups.empty());
}

TEST(GridTimers, ASuspendedMachineIsOneTick) {
    GridRig rig;
    const auto loop = rig.Make("loop", 1);
    const auto fade = rig.Make("fade", 40);
    loop->SetEnabled(true);
    fade->SetEnabled(true);
    rig.RoundAt(10'000);
    EXPECT_EQ(rig.Take(), (Log{{"loop", 10'000, 441'000}, {"fade", 10'000, 441'000}}));
}

TEST(GridTimers, TheTicksAllocateNothing) {
    test::HandTime time;
    time.Groups.reserve(4);
    test::HandAlarm bell(time);
    GridTimers timers(time, bell);
    std::int64_t sum = 0;
    const auto timer = timers.Create([&](std::int32_t passed) { sum += passed; });
    timer->SetInterval(1);
    timer->SetEnabled(true);
    const long before = test::Allocations();
    for (int k = 1; k <= 1000; ++k) {
        time.Place = k * 44.1 + 1;
        bell.Ring();
    }
    EXPECT_EQ(test::Allocations(), before);
    EXPECT_EQ(sum, 1000);
}

}  // namespace
}  // namespace marvolin
