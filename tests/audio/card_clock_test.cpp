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
constexpr double kFirstGuard = 5 * kMillisecond;
constexpr double kSlack = 4;  // frames

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

// The clock is measured from so many milliseconds after the opening of a device on. It is never behind a callback: a
// call that is made in time is never late.
constexpr double kOpening = 500;

TEST(CardClock, AFollowedCardSetsThePaceAndIsNeverAheadOfTheClock) {
    for (const double pace : {1.0, 1.0003, 0.9997, 1.01, 0.99}) {
        SimulatedCard card;
        card.Pace = pace;
        card.Open(128);
        card.Run(kOpening);
        card.StartMeasuring();
        card.Run(16000);
        EXPECT_GE(card.Least, 0) << pace;
        card.StartMeasuring();
        card.Run(8000);
        EXPECT_GE(card.Least, 0) << pace;
        EXPECT_LT(card.Most, kGuard + kMillisecond) << pace;
    }
}

TEST(CardClock, LateCallbacksDoNotDelayTheClock) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        SimulatedCard card;
        card.Open(128);
        const auto late = UpTo(3, seed);
        card.Run(kOpening, late);
        card.StartMeasuring();
        card.Run(8000, late);
        EXPECT_GE(card.Least, 0) << seed;
        card.StartMeasuring();
        card.Run(60000, late);
        EXPECT_GE(card.Least, 0) << seed;
        EXPECT_LT(card.Most, kGuard + 2 * 128) << seed;
    }
}

TEST(CardClock, BurstsOfAnySizeAreFollowedByTheirLastCallbackAndMoveNoFrame) {
    struct Bursts {
        int Count;
        int Period;
    };
    for (const auto [count, period] : {Bursts{4, 128}, {24, 128}, {32, 128}, {48, 128}, {16, 256}, {2, 2048}}) {
        SimulatedCard card;
        card.Open(period);
        const auto bursts = SimulatedCard::Bursts(count);
        card.Run(kOpening, bursts);
        const std::int64_t zero = card.Clock.FrameOf(0);
        card.StartMeasuring();
        card.Run(8000, bursts);
        EXPECT_GE(card.Least, 0) << count << " x " << period;
        card.StartMeasuring();
        card.Run(30000, bursts);
        EXPECT_GE(card.Least, 0) << count << " x " << period;
        EXPECT_LT(card.Most, (count - 1) * period + 0.03 * count * period + kGuard + kMillisecond)
            << count << " x " << period;
        EXPECT_EQ(card.Clock.FrameOf(0), zero) << count << " x " << period;
    }
}

TEST(CardClock, BurstsWithJitterAreFollowedByTheirLastCallback) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        SimulatedCard card;
        card.Open(128);
        const auto late = [bursts = SimulatedCard::Bursts(24), jitter = card.Jitter(3, seed)] {
            return bursts() + jitter();
        };
        card.Run(kOpening, late);
        card.StartMeasuring();
        card.Run(30000, late);
        EXPECT_GE(card.Least, 0) << seed;
    }
}

TEST(CardClock, ABurstThatComesNowAndThenIsNotForgotten) {
    // Every twelve seconds the card asks for three periods more at once, then rests until it has played them.
    SimulatedCard card;
    card.Open(128);
    const auto late = [i = 0, jitter = card.Jitter(0.5)]() mutable {
        const int k = i++ % 4134;
        return k > 0 && k < 4 ? -static_cast<double>(k) : jitter();
    };
    card.Run(14000, late);
    card.StartMeasuring();
    card.Run(120'000, late);
    EXPECT_GE(card.Least, 0);
    // Once they do not come any more they are forgotten after all.
    card.Run(100'000);
    card.StartMeasuring();
    card.Run(3000);
    EXPECT_LT(card.Most, kGuard + kMillisecond);
}

TEST(CardClock, AnAdvanceOfManyPeriodsNowAndThenMovesFramesNoSecondTime) {
    SimulatedCard card;
    card.Open(128);
    std::int64_t zero = 0;
    for (int i = 0; i < 6; ++i) {
        card.Run(8000, card.Jitter(0.5));
        if (i == 3) {
            zero = card.Clock.FrameOf(0);
            card.StartMeasuring();
        }
        for (int k = 0; k < 24; ++k) card.Ask();
    }
    EXPECT_GE(card.Least, 0);
    EXPECT_EQ(card.Clock.FrameOf(0), zero);
}

TEST(CardClock, AnyPeriodIsFollowedWhateverTheJitter) {
    for (const int period : {32, 256, 1024, 2048, 4096}) {
        for (const double jitter : {0.0, 0.3, 1.0, 3.0, 6.0}) {
            for (unsigned seed = 1; seed <= 5; ++seed) {
                SimulatedCard card;
                card.Open(period);
                EXPECT_EQ(card.Clock.Lead(), period + 198);
                const auto late = card.Jitter(jitter, seed);
                card.Run(kOpening, late);
                card.StartMeasuring();
                card.Run(10000, late);
                EXPECT_GE(card.Least, 0) << period << ", " << jitter << " ms, " << seed;
                card.StartMeasuring();
                card.Run(30000, late);
                EXPECT_GE(card.Least, 0) << period << ", " << jitter << " ms, " << seed;
                EXPECT_LT(card.Most, kGuard + kSlack + 0.03 * period + jitter * kMillisecond)
                    << period << ", " << jitter;
            }
        }
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
    EXPECT_GE(card.Least, 0);
}

TEST(CardClock, ACardThatHasLostASecondIsFollowedFromItsNewPlaceWithoutAJump) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000, UpTo(0.3));
    const std::int64_t zero = card.Clock.FrameOf(0);
    card.Stand(1000);
    card.Begun += SimulatedCard::kSecond;
    card.Run(1000, UpTo(0.3));
    EXPECT_NEAR(static_cast<double>(card.Clock.FrameOf(0) - zero), -44100, kMillisecond * 8);
    card.StartMeasuring();
    card.Run(3000, UpTo(0.3));
    EXPECT_GE(card.Least, 0);
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
    EXPECT_GE(card.Least, 0);
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
    EXPECT_GE(card.Least, 0);
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
    EXPECT_GE(card.Least, 0);
    EXPECT_LT(card.Most, kMillisecond * 5);
}

TEST(CardClock, DevicesOpenAndCloseWithoutAJump) {
    SimulatedCard card;
    card.Look();
    for (const int period : {128, 2048, 256}) {
        card.Stand(50);
        card.Open(period);
        EXPECT_EQ(card.Clock.Lead(), period + 198);
        EXPECT_EQ(card.Clock.FrameOf(static_cast<Instant>(card.Clock.Now())), 0);
        // SDL takes a moment before it asks.
        card.Stand(80);
        card.Begun = card.Steady;
        card.Run(8000, UpTo(1));
        card.StartMeasuring();
        card.Run(3000, UpTo(1));
        EXPECT_GE(card.Least, 0) << period;
        card.Look();
        card.Clock.Close();
        card.Look();
        EXPECT_EQ(card.Clock.Lead(), 198);
    }
}

TEST(CardClock, OpeningReturnsTheInstantOfFrameZero) {
    SimulatedCard card;
    card.Steady += SimulatedCard::kSecond;
    const Instant zero = card.Clock.Open(128);
    EXPECT_EQ(zero, 44100);
    EXPECT_EQ(card.Clock.FrameOf(zero + 7), 7);
}

TEST(CardClock, ADriverThatAsksTooFastDoesNotSetThePaceForLong) {
    // SDL goes on asking after pauses of whole milliseconds: up to a third too fast. Here nobody says that it has gone.
    struct Pauses {
        int Period;
        double Milliseconds;
        double Most;  ///< seconds that the clock gains until the pace is known to be wrong
    };
    for (const auto [period, milliseconds, most] :
         {Pauses{128, 2.1, 0.32}, {256, 5.1, 0.13}, {512, 11.1, 0.08}, {128, 0, 0.61}, {128, 0.02, 0.61}}) {
        SimulatedCard card;
        card.Open(period);
        card.Run(3000);
        const double told = card.Clock.Now();
        const std::int64_t at = card.Steady;
        double settled = 0;
        std::int64_t settledAt = 0;
        for (std::int64_t i = 0; card.Steady < at + 20 * SimulatedCard::kSecond; ++i) {
            // A driver that never waits at all takes some time to be rendered.
            card.Steady +=
                milliseconds == 0 ? 50'000 : static_cast<std::int64_t>(milliseconds * SimulatedCard::kMillisecond);
            card.Ask();
            card.Look();
            if (card.Steady < at + 2 * SimulatedCard::kSecond) continue;
            if (settledAt == 0) {
                settledAt = card.Steady;
                settled = card.Clock.Now();
                // By now the clock is ahead by no more than the driver was.
                const double gained = (settled - told) / 44100 - static_cast<double>(settledAt - at) / 1e9;
                EXPECT_GE(gained, 0) << period;
                EXPECT_LT(gained, most) << period << ", " << milliseconds;
            }
            // What is called now is applied soon, though unheard.
            const std::int64_t frame = card.Clock.FrameOf(static_cast<Instant>(card.Clock.Now()));
            ASSERT_NEAR(static_cast<double>(frame), static_cast<double>(card.Given), 0.2 * 44100) << i;
        }
        EXPECT_NEAR(card.Clock.Now() - settled, static_cast<double>(card.Steady - settledAt) * 44100 / 1e9, 1)
            << period;
        card.Clock.Close();
        card.Stand(10);
    }
}

TEST(CardClock, ADeviceThatIsKnownToHaveGoneDoesNotSetThePaceFromTheFirstCallbackOn) {
    // Too fast, too slow, and just right.
    for (const double milliseconds : {2.1, 4.0, 128 / 44.1, 0.02}) {
        SCOPED_TRACE(milliseconds);
        SimulatedCard card;
        card.Open(128);
        card.Run(3000, UpTo(0.3));
        const double told = card.Clock.Now();
        const std::int64_t at = card.Steady;
        for (int i = 0; i < 5000; ++i) {
            card.Steady += static_cast<std::int64_t>(milliseconds * SimulatedCard::kMillisecond);
            card.Clock.Called_rt(card.Steady, card.Given, true);
            card.Given += 128;
            ASSERT_NEAR(card.Clock.Now(), told + static_cast<double>(card.Steady - at) * 44100 / 1e9, 1) << i;
            // What is called now is applied soon, though unheard.
            const std::int64_t frame = card.Clock.FrameOf(static_cast<Instant>(card.Clock.Now()));
            ASSERT_NEAR(static_cast<double>(frame), static_cast<double>(card.Given), 10 * kMillisecond) << i;
        }
        card.Look();
        card.Clock.Close();
        card.Open(256);
        card.Run(2000);
        card.StartMeasuring();
        card.Run(3000);
        EXPECT_GE(card.Least, 0);
        EXPECT_LT(card.Most, kMillisecond * 5) << "the next device is not followed";
    }
}

TEST(CardClock, ACardThatKeepsTimeAgainIsFollowedAgain) {
    SimulatedCard card;
    card.Open(128);
    card.Run(3000);
    for (int i = 0; i < 2000; ++i) {
        card.Steady += 2'100'000;
        card.Ask();
        card.Look();
    }
    card.Begun = card.Steady - SimulatedCard::kSecond * card.Given / 44100;
    card.Run(2000, UpTo(0.3));
    const std::int64_t zero = card.Clock.FrameOf(0);
    card.StartMeasuring();
    card.Run(8000, UpTo(0.3));
    EXPECT_GE(card.Least, 0);
    EXPECT_EQ(card.Clock.FrameOf(0), zero);
}

TEST(CardClock, ItKnowsHowLongItTakesToAPlaceRatherTooShortThanTooLong) {
    for (const double pace : {1.0, 1.01, 0.99}) {
        for (const int settling : {100, 600, 8000}) {
            SimulatedCard card;
            EXPECT_EQ(card.Clock.Until(44.1), 1'000'000);
            EXPECT_EQ(card.Clock.Until(0), 0);
            card.Pace = pace;
            card.Open(2048);
            card.Run(settling, card.Jitter(3));
            for (const double milliseconds : {0.1, 1.0, 10.0, 40.0}) {
                const double place = card.Clock.Now() + milliseconds * kMillisecond;
                const std::int64_t at = card.Steady;
                const std::int64_t until = card.Clock.Until(place);
                card.Steady += until;
                EXPECT_LT(card.Clock.Now(), place + 0.01) << pace << ", " << settling << ", " << milliseconds;
                card.Steady = at;
                EXPECT_GT(static_cast<double>(until), milliseconds * SimulatedCard::kMillisecond / 1.55);
            }
        }
    }
    SimulatedCard card;
    card.Pace = 1.01;
    card.Open(2048);
    card.Run(60000, card.Jitter(0.1));
    EXPECT_NEAR(static_cast<double>(card.Clock.Until(card.Clock.Now() + 441)), 1e7 / 1.01, 10'000);
}

TEST(CardClock, EveryThreadOfTheTwoRunsAtFullSpeed) {
    constexpr std::int64_t kLeast = 50'000 * 128;
    std::atomic<std::int64_t> seen{0};
    std::atomic<std::int64_t> steady{1};
    std::atomic<std::int64_t> given{0};
    CardClock clock([&] { return steady.load(std::memory_order_relaxed); });
    clock.Open(128);
    std::atomic<bool> ended{false};
    std::thread card([&] {
        for (std::int64_t frames = 0; frames < kLeast; frames += 128) {
            // A thread that is put to sleep must not find the other one hours ahead.
            while (frames > seen + 8 * 128) std::this_thread::yield();
            const std::int64_t now = frames * 1'000'000'000 / 44100;
            given.store(frames);
            steady.store(now);
            clock.Called_rt(now, frames);
        }
        ended = true;
    });
    double before = 0;
    bool monotone = true;
    double behind = 0;
    double ahead = 0;
    while (!ended) {
        const auto least = static_cast<double>(given.load());
        const double now = clock.Now();
        const auto frame = static_cast<double>(clock.FrameOf(static_cast<Instant>(now)));
        const auto most = static_cast<double>(given.load());
        monotone = monotone && now >= before;
        before = now;
        seen = static_cast<std::int64_t>(least);
        behind = std::max(behind, least - frame);
        ahead = std::max(ahead, frame - most);
    }
    card.join();
    EXPECT_TRUE(monotone);
    // What the line says is true of what was given between two looks, to some periods.
    EXPECT_LE(behind, 20 * 128);
    EXPECT_LE(ahead, 20 * 128);
    clock.Close();
}

TEST(CardLine, ALineThatIsReadIsWhole) {
    CardLineFilter filter;
    filter.Start(128);
    std::atomic<bool> ended{false};
    std::atomic<std::int64_t> read{0};
    std::thread card([&] {
        for (std::int64_t i = 0; i < 300'000 || read < 1000; ++i)
            filter.Called_rt(i * 128 * 1'000'000'000 / 44100, i * 128);
        ended = true;
    });
    std::int64_t torn = 0;
    while (!ended) {
        const auto line = filter.Read();
        if (!line || line->Pace == 0) continue;
        ++read;
        const auto before = static_cast<double>(line->Given - 128);
        const double ahead = line->Frames - before;
        const bool isWhole = ahead > kGuard - 2 && ahead < kFirstGuard + kGuard + 0.1 * 128 + 2 &&
                             std::abs(static_cast<double>(line->At) * 44100 / 1e9 - before) < 2;
        if (!isWhole) ++torn;
    }
    card.join();
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
