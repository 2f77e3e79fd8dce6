#include "audio/openal/card_clock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "audio/simulated_card.h"

namespace marvolin {
namespace {

using test::SimulatedCard;

constexpr double kMillisecond = 44.1;           // frames
constexpr double kGuard = 0.25 * kMillisecond;  // that the clock is ahead of what it has found out
constexpr double kSlack = 4;                    // frames

/// What `SimulatedCard::Run` asks: periods late, the same numbers in each run.
auto UpTo(double periods, unsigned seed = 1) {
    return [periods, random = std::mt19937(seed)]() mutable {
        return std::uniform_real_distribution<double>(0, periods)(random);
    };
}

TEST(CardClock, WithoutADeviceItIsTheSteadyClock) {
    SimulatedCard card;
    EXPECT_EQ(card.Clock.Now(), 0);
    card.Steady += SimulatedCard::kSecond;
    EXPECT_DOUBLE_EQ(card.Clock.Now(), 44100);
    card.Steady += 3600 * SimulatedCard::kSecond;
    EXPECT_DOUBLE_EQ(card.Clock.Now(), 3601 * 44100.0);
}

TEST(CardClock, AFollowedCardSetsThePaceAndIsNeverAheadOfTheClock) {
    for (const double pace : {1.0, 1.0003, 0.9997, 1.01, 0.99}) {
        SimulatedCard card;
        card.Pace = pace;
        card.Open(128);
        card.Run(8000);
        card.Bend = 0.001;
        card.StartMeasuring();
        card.Run(8000);
        EXPECT_GT(card.Least, -kSlack) << pace;
        EXPECT_LT(card.Most, kGuard + kSlack) << pace;
    }
}

TEST(CardClock, LateCallbacksDoNotDelayTheClock) {
    SimulatedCard card;
    card.Open(128);
    card.Run(8000, UpTo(3));
    card.Bend = 0.02;
    card.StartMeasuring();
    card.Run(60000, UpTo(3));
    EXPECT_GT(card.Least, -kSlack);
    EXPECT_LT(card.Most, kGuard + 0.3 * 128);
}

TEST(CardClock, BurstsAreFollowedByTheirLastCallback) {
    // Every fourth period the server asks for four at once: for the last of them three periods before its time.
    SimulatedCard card;
    card.Open(128);
    int count = 0;
    const auto bursts = [&] { return -static_cast<double>(count++ % 4); };
    card.Run(5000, bursts);
    card.StartMeasuring();
    card.Run(20000, bursts);
    EXPECT_GT(card.Least, -kSlack);
    EXPECT_LT(card.Most, 3 * 128 + kGuard + 3 * kSlack);
}

TEST(CardClock, AnyPeriodIsFollowed) {
    for (const int period : {32, 256, 1024, 2048, 4096}) {
        SimulatedCard card;
        card.Open(period);
        card.Run(8000, UpTo(0.5));
        card.StartMeasuring();
        card.Run(30000, UpTo(0.5));
        EXPECT_GT(card.Least, -0.1 * period - kSlack) << period;
        EXPECT_LT(card.Most, 0.5 * period + kGuard + kSlack) << period;
        EXPECT_EQ(card.Clock.Lead(), period + 176);
    }
}

TEST(CardClock, ACardThatStopsForASecondAndMakesUpForItIsWhereItWas) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000, UpTo(0.3));
    const std::int64_t zero = card.Clock.FrameOf(0);
    card.Stand(1000);
    // All that was missed is asked for within 10 ms.
    const std::int64_t missed = static_cast<std::int64_t>(card.Place()) - card.Given;
    for (std::int64_t frame = 0; frame < missed; frame += card.Period) {
        card.Ask();
        card.Steady += 10 * SimulatedCard::kMillisecond * card.Period / missed;
        card.Look();
    }
    card.Run(500, UpTo(0.3));
    card.StartMeasuring();
    card.Run(3000, UpTo(0.3));
    EXPECT_EQ(card.Clock.FrameOf(0), zero);
    EXPECT_GT(card.Least, -kSlack);
}

TEST(CardClock, ACardThatHasLostASecondIsFollowedFromItsNewPlaceWithoutAJump) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000, UpTo(0.3));
    const std::int64_t zero = card.Clock.FrameOf(0);
    card.Stand(1000);
    card.Begun += SimulatedCard::kSecond;
    card.Run(1000, UpTo(0.3));
    EXPECT_NEAR(static_cast<double>(card.Clock.FrameOf(0) - zero), -44100, kMillisecond * 5);
    card.StartMeasuring();
    card.Run(3000, UpTo(0.3));
    EXPECT_GT(card.Least, -kSlack);
    EXPECT_LT(card.Most, kMillisecond * 5);
}

TEST(CardClock, ACardThatLosesAFewMillisecondsNowAndThenIsFollowedWithoutMovingFrames) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000, UpTo(0.3));
    const std::int64_t zero = card.Clock.FrameOf(0);
    for (const int lost : {7, 50, 30, 120, 10, 9}) {
        card.Stand(lost);
        card.Begun += lost * SimulatedCard::kMillisecond;
        card.Run(700, UpTo(0.3));
    }
    EXPECT_EQ(card.Clock.FrameOf(0), zero);
    card.Run(8000, UpTo(0.3));
    card.StartMeasuring();
    card.Run(3000, UpTo(0.3));
    EXPECT_GT(card.Least, -kSlack);
    EXPECT_LT(card.Most, kMillisecond * 5);
}

TEST(CardClock, WhileTheCardStandsStillNothingIsPlacedFarAheadOfIt) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000);
    card.Stand(100);
    const auto now = static_cast<Instant>(card.Clock.Now());
    EXPECT_NEAR(static_cast<double>(card.Clock.FrameOf(now)), card.Place(), 2 * kMillisecond);
    card.Stand(3000);
    const std::int64_t later = card.Clock.FrameOf(static_cast<Instant>(card.Clock.Now()));
    EXPECT_EQ(later, card.Given + card.Clock.Lead() + 3 * 128 + 11025);
}

TEST(CardClock, ASuspendedMachineMovesTheClockOnAndTheCardFollows) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000, UpTo(0.3));
    const double before = card.Clock.Now();
    card.Steady += 10 * SimulatedCard::kSecond;
    card.Begun += 10 * SimulatedCard::kSecond;
    EXPECT_NEAR(card.Clock.Now() - before, 441000, 441);
    card.Told = card.Clock.Now();
    card.ToldAt = card.Steady;
    card.Run(1000, UpTo(0.3));
    card.StartMeasuring();
    card.Run(3000, UpTo(0.3));
    EXPECT_GT(card.Least, -kSlack);
    EXPECT_LT(card.Most, kMillisecond * 5);
}

TEST(CardClock, ASteadyClockThatWentBackLetsTheClockStand) {
    SimulatedCard card;
    const double before = card.Clock.Now();
    card.Steady -= SimulatedCard::kSecond;
    EXPECT_EQ(card.Clock.Now(), before);
}

TEST(CardClock, AServerThatAsksForMoreInAdvanceIsCaughtUpWith) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000);
    // Its buffer grows by a tenth of a second, then by more than can be caught up with.
    const std::int64_t zero = card.Clock.FrameOf(0);
    for (int i = 0; i < 34; ++i) card.Ask();
    card.Begun -= SimulatedCard::kSecond * 34 * 128 / 44100;
    card.Run(3000);
    EXPECT_EQ(card.Clock.FrameOf(0), zero);
    for (int i = 0; i < 172; ++i) card.Ask();
    card.Begun -= SimulatedCard::kSecond / 2;
    card.Run(3000);
    EXPECT_GT(card.Clock.FrameOf(0), zero + 10000);
    card.StartMeasuring();
    card.Run(3000);
    EXPECT_GT(card.Least, -kSlack);
    EXPECT_LT(card.Most, kMillisecond * 5);
}

TEST(CardClock, DevicesOpenAndCloseWithoutAJump) {
    SimulatedCard card;
    card.Look();
    for (const int period : {128, 2048, 256}) {
        card.Stand(50);
        card.Open(period);
        EXPECT_EQ(card.Clock.Lead(), period + 176);
        EXPECT_EQ(card.Clock.FrameOf(static_cast<Instant>(card.Clock.Now())), 0);
        // SDL takes a moment before it asks.
        card.Stand(80);
        card.Begun = card.Steady;
        card.Run(8000, UpTo(1));
        card.StartMeasuring();
        card.Run(3000, UpTo(1));
        EXPECT_GT(card.Least, -kSlack - 0.1 * period) << period;
        card.Look();
        card.Clock.Close();
        card.Look();
        EXPECT_EQ(card.Clock.Lead(), 176);
    }
}

TEST(CardClock, OpeningReturnsTheInstantOfFrameZero) {
    SimulatedCard card;
    card.Steady += SimulatedCard::kSecond;
    const Instant zero = card.Clock.Open(128);
    EXPECT_EQ(zero, 44100);
    EXPECT_EQ(card.Clock.FrameOf(zero + 7), 7);
}

TEST(CardClock, ADeviceThatHasGoneDoesNotSetThePaceAnyMore) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000);
    card.Clock.Lose();
    const double then = card.Clock.Now();
    const std::int64_t at = card.Steady;
    card.Bend = 0;
    // SDL goes on asking after pauses of whole milliseconds, a third too fast.
    for (int i = 0; i < 5000; ++i) {
        card.Steady += 2'100'000;
        card.Ask();
        card.Look();
        const std::int64_t frame = card.Clock.FrameOf(static_cast<Instant>(card.Clock.Now()));
        EXPECT_NEAR(static_cast<double>(frame), static_cast<double>(card.Given), 0.2 * 44100) << i;
    }
    EXPECT_NEAR(card.Clock.Now() - then, static_cast<double>(card.Steady - at) * 44100 / 1e9, 1);
    card.Clock.Close();
    card.Stand(10);
}

TEST(CardClock, UntilItsLossIsNoticedADeviceThatHasGoneMakesNoJump) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000);
    card.Pace = 1.4;
    for (int i = 0; i < 1000; ++i) {
        card.Steady += 2'100'000;
        card.Ask();
        card.Look();
    }
    card.Clock.Lose();
    card.Look();
    card.Stand(10);
}

TEST(CardClock, EveryThreadOfTheTwoRunsAtFullSpeed) {
    std::atomic<std::int64_t> steady{1};
    CardClock clock([&] { return steady.load(std::memory_order_relaxed); });
    clock.Open(128);
    std::atomic<bool> ended{false};
    std::thread card([&] {
        for (std::int64_t given = 0; given < 200'000 * 128; given += 128) {
            const std::int64_t now = given * 1'000'000'000 / 44100;
            steady.store(now, std::memory_order_relaxed);
            clock.Called_rt(now, given);
        }
        ended = true;
    });
    double before = 0;
    bool monotone = true;
    bool onTheLine = true;
    while (!ended) {
        const double now = clock.Now();
        monotone = monotone && now >= before;
        before = now;
        // A torn line would be far off: what it says of 'At' is what was given before.
        const auto frame = clock.FrameOf(static_cast<Instant>(now));
        onTheLine = onTheLine && frame > -44100 && frame <= 200'000 * 128 + 44100;
    }
    card.join();
    EXPECT_TRUE(monotone);
    EXPECT_TRUE(onTheLine);
    clock.Close();
}

TEST(CardLine, ALineThatIsReadIsWhole) {
    CardLineFilter filter;
    filter.Start(128);
    std::atomic<bool> ended{false};
    std::thread card([&] {
        for (std::int64_t i = 0; i < 300'000; ++i) filter.Called_rt(i * 128 * 1'000'000'000 / 44100, i * 128);
        ended = true;
    });
    std::int64_t read = 0;
    std::int64_t torn = 0;
    while (!ended) {
        const auto line = filter.Read();
        if (!line || line->Pace == 0) continue;
        ++read;
        const auto before = static_cast<double>(line->Given - 128);
        const bool isWhole = std::abs(line->Frames - kGuard - before) < 2 &&
                             std::abs(static_cast<double>(line->At) * 44100 / 1e9 - before) < 2;
        if (!isWhole) ++torn;
    }
    card.join();
    EXPECT_GT(read, 0);
    EXPECT_EQ(torn, 0);
}

TEST(CallGroups, AllCallsOfAGestureHaveTheMomentOfItsFirst) {
    SimulatedCard card;
    card.Steady += SimulatedCard::kSecond;
    {
        const CallGroup gesture(card.Clock);
        EXPECT_TRUE(card.Clock.InGroup());
        card.Steady += SimulatedCard::kSecond;
        EXPECT_EQ(card.Clock.TimeOfCall().At, 88200);
        card.Steady += SimulatedCard::kSecond;
        EXPECT_EQ(card.Clock.TimeOfCall().At, 88200);
        EXPECT_FALSE(card.Clock.TimeOfCall().InTick);
    }
    EXPECT_FALSE(card.Clock.InGroup());
    EXPECT_EQ(card.Clock.TimeOfCall().At, 132300);
}

TEST(CallGroups, CallsOfATickHaveItsInstant) {
    SimulatedCard card;
    card.Steady += SimulatedCard::kSecond;
    const CallGroup tick(card.Clock, Instant{43210});
    EXPECT_EQ(card.Clock.TimeOfCall().At, 43210);
    EXPECT_TRUE(card.Clock.TimeOfCall().InTick);
}

TEST(CallGroups, AnInnerGroupCompletesTheOuterOneAndWhatFollowsIsAGroupOfItsOwn) {
    SimulatedCard card;
    int flushes = 0;
    card.Clock.SetFlush([&] { ++flushes; });
    {
        const CallGroup tick(card.Clock, Instant{5});
        EXPECT_EQ(flushes, 0);
        {
            const CallGroup gesture(card.Clock);
            EXPECT_EQ(flushes, 1);
            EXPECT_FALSE(card.Clock.TimeOfCall().InTick);
        }
        EXPECT_EQ(flushes, 2);
        card.Steady += SimulatedCard::kSecond;
        EXPECT_EQ(card.Clock.TimeOfCall().At, 44100);
        EXPECT_FALSE(card.Clock.TimeOfCall().InTick);
    }
    EXPECT_EQ(flushes, 3);
    card.Clock.SetFlush(nullptr);
    const CallGroup unheard(card.Clock);
}

}  // namespace
}  // namespace marvolin
