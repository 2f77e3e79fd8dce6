#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "core/loops/loop_track.h"
#include "steps_rig.h"

namespace marvolin {
namespace {

using test::SteppedInstrument;
using test::Weather;

constexpr std::int64_t kTick = 441;  // frames of 10 ms
// Frames of 4 ms, and of what the clock may run faster.
constexpr std::int64_t kBudgetFrames = 185;
// A tick beyond it is put so far back: the budget.
constexpr std::int64_t kHeldBack = 176;

/// Nanoseconds from 0 to `most`, the same in each run.
std::function<std::int64_t()> UpTo(double most, unsigned seed) {
    return [most, random = std::mt19937(seed)]() mutable {
        return static_cast<std::int64_t>(std::uniform_real_distribution<double>(0, most)(random));
    };
}

constexpr double kThreePeriods = 3 * 128 * 1e9 / 44100;
constexpr double kWithinTheBudget = 3.9 * Weather::kMillisecond;

/// The instrument in bad weather, the clock settled.
std::unique_ptr<SteppedInstrument> Settled() {
    auto i = std::make_unique<SteppedInstrument>();
    i->Outside = {UpTo(kThreePeriods, 1), UpTo(kWithinTheBudget, 2)};
    i->Run(2);
    return i;
}

std::set<std::int64_t> DistancesOf(const std::vector<std::int64_t>& clicks, std::size_t from = 1) {
    std::set<std::int64_t> distances;
    for (std::size_t k = from + 1; k < clicks.size(); ++k) distances.insert(clicks[k] - clicks[k - 1]);
    return distances;
}

TEST(Steps, EveryDistanceIsExactThoughTheCallbacksComeInBurstsAndTheEventLoopIsLate) {
    const auto i = Settled();
    constexpr std::array<std::int32_t, 4> kDurations{3, 4, 5, 7};
    // Two samples end before the next step, two go on.
    constexpr std::array<int, 4> kLengths{400, 20000, 300, 30000};
    for (Row row = 0; row < kLoopTracks; ++row)
        i->Load(row, kDrum, kDurations[static_cast<std::size_t>(row)], kLengths[static_cast<std::size_t>(row)]);
    PlayAll(i->s);
    i->Run(701);
    for (std::size_t row = 0; row < 4; ++row) {
        EXPECT_GE(i->Heard[row].size(), 10'001U);
        EXPECT_EQ(DistancesOf(i->Heard[row]), std::set<std::int64_t>{kDurations[row] * kTick}) << row;
    }
    EXPECT_EQ(i->Counts().Late, 0U) << i->Counts().LongestLate;
}

/// In each of them a Drum LoopTrack is stepped for a minute; its distances and the counts of the adapter are looked at.
void ExpectExactSteps(SteppedInstrument& i, const std::string& weather) {
    i.Run(2);
    i.Load(0, kDrum, 5, 400);
    PlayAll(i.s);
    i.Run(60);
    EXPECT_GE(i.Heard[0].size(), 1150U) << weather;
    EXPECT_EQ(DistancesOf(i.Heard[0]), std::set<std::int64_t>{5 * kTick}) << weather;
    EXPECT_EQ(i.Counts().Late, 0U) << weather << i.Counts().LongestLate;
}

TEST(Steps, EveryDistanceIsExactThoughTheCardAsksForManyPeriodsAtOnce) {
    for (const int count : {4, 24, 32, 48}) {
        SteppedInstrument i;
        const auto early = [count, k = 0]() mutable {
            return -static_cast<std::int64_t>(k++ % count) * 128 * 10'000'000 / 441;
        };
        i.Outside = {early, UpTo(kWithinTheBudget, 5)};
        ExpectExactSteps(i, std::to_string(count) + " at once");
    }
}

TEST(Steps, EveryDistanceIsExactAtALongPeriodAndAtAPaceThatIsOff) {
    for (const int period : {128, 2048}) {
        for (const double pace : {1.0, 1.01, 0.99}) {
            SteppedInstrument i(period, pace);
            i.Outside = {UpTo(3 * Weather::kMillisecond, 6), UpTo(kWithinTheBudget, 7)};
            ExpectExactSteps(i, std::to_string(period) + " at " + std::to_string(pace));
        }
    }
}

TEST(Steps, EveryDistanceIsExactThoughTimePassesWithinATick) {
    SteppedInstrument i;
    // Together with the lateness of the event loop it is within the budget.
    i.Outside = {UpTo(kThreePeriods, 8), UpTo(2 * Weather::kMillisecond, 9), UpTo(1.9 * Weather::kMillisecond, 10)};
    ExpectExactSteps(i, "slow ticks");
}

TEST(Steps, ATickOfOneMillisecondKeepsTheStepsAsExact) {
    const auto i = Settled();
    i->s.LoopTimer->SetInterval(1);
    i->Load(0, kDrum, 3, 400);
    i->Load(2, kDrum, 25, 30000);
    PlayAll(i->s);
    i->Run(60);
    EXPECT_GE(i->Heard[0].size(), 1990U);
    EXPECT_EQ(DistancesOf(i->Heard[0]), std::set<std::int64_t>{3 * kTick});
    EXPECT_EQ(DistancesOf(i->Heard[2]), std::set<std::int64_t>{25 * kTick});
    EXPECT_EQ(i->Counts().Late, 0U);
}

TEST(Steps, ATurnOfTheEventLoopBeyondTheBudgetIsOneLateStepAndTheNextIsOnTheGrid) {
    for (const double late : {5.0, 7.0, 9.5}) {
        const auto i = Settled();
        i->Load(0, kDrum, 25, 400);
        PlayAll(i->s);
        i->Outside.Loop = [] { return 0; };
        i->Run(1.0);
        // Every turn of the next quarter of a second is late; one of them is that of a step.
        i->Outside.Loop = [late] { return static_cast<std::int64_t>(late * Weather::kMillisecond); };
        i->Run(0.25);
        i->Outside.Loop = [] { return 0; };
        i->Run(1.0);
        const auto& clicks = i->Heard[0];
        std::vector<std::int64_t> off;
        for (std::size_t k = 2; k < clicks.size(); ++k)
            if (clicks[k] - clicks[k - 1] != 25 * kTick) off.push_back(clicks[k] - clicks[k - 1] - 25 * kTick);
        ASSERT_EQ(off.size(), 2U) << late;
        EXPECT_NEAR(static_cast<double>(off[0]), late * 44.1 - kHeldBack, 15) << late;
        EXPECT_EQ(off[1], -off[0]) << late;
        EXPECT_EQ(i->Counts().Late, 0U);
    }
}

/// Clicks every quarter of a second or so by ticks of `resolution` ms; each turn of one quarter is `late` ms late.
std::vector<std::int64_t> ClicksAround(std::int32_t resolution, double late) {
    const auto i = Settled();
    i->s.LoopTimer->SetInterval(resolution);
    i->Load(0, kDrum, 25, 400);
    i->Outside.Loop = [] { return 0; };
    PlayAll(i->s);
    i->Run(2.0);
    i->Outside.Loop = [late] { return static_cast<std::int64_t>(late * Weather::kMillisecond); };
    i->Run(0.25);
    i->Outside.Loop = [] { return 0; };
    i->Run(3.0);
    EXPECT_EQ(i->Counts().Late, 0U);
    return i->Heard[0];
}

TEST(Steps, AClockFinerThanTheLatenessMovesTheStepsForGoodByWholeTicks) {
    struct Case {
        std::int32_t Resolution;
        double Late;
    };
    for (const auto [resolution, late] : {Case{1, 6.5}, {1, 7.0}, {1, 9.5}, {3, 6.5}, {3, 7.0}}) {
        SCOPED_TRACE(testing::Message() << resolution << " ms, late by " << late);
        const std::int64_t tenths = resolution * 441;
        // A step lasts until the first tick that is not before its end.
        const std::int64_t step = (250 + resolution - 1) / resolution * tenths / 10;
        const std::vector<std::int64_t> clicks = ClicksAround(resolution, late);
        ASSERT_GE(clicks.size(), 18U);
        // One tick stands for those that have passed, and what it has more than the step is dropped.
        const std::int64_t moved = clicks.back() - clicks[1] - static_cast<std::int64_t>(clicks.size() - 2) * step;
        const std::int64_t ticks = std::lround(static_cast<double>(moved) * 10 / static_cast<double>(tenths));
        EXPECT_GE(ticks, 1);
        EXPECT_LE(ticks * resolution, late + resolution);
        EXPECT_NEAR(static_cast<double>(moved), static_cast<double>(ticks * tenths) / 10, 4);
        std::vector<std::size_t> off;
        for (std::size_t k = 2; k < clicks.size(); ++k)
            if (std::abs(clicks[k] - clicks[k - 1] - step) > 1) off.push_back(k);
        // The late step itself is heard late too, so the distances on both sides of it differ.
        ASSERT_GE(off.size(), 1U);
        EXPECT_LE(off.size(), 2U);
        EXPECT_EQ(off.back() - off.front(), off.size() - 1);
    }
}

TEST(Steps, AStallIsOneStepAndTheNextOnesAreOnTheGrid) {
    const auto i = Settled();
    i->Load(0, kDrum, 5, 400);
    PlayAll(i->s);
    i->Outside.Loop = [] { return 0; };
    i->Run(1.0);
    bool stalled = false;
    i->Outside.Loop = [&stalled] { return std::exchange(stalled, true) ? 0 : 733 * Weather::kMillisecond; };
    i->Run(2.0);
    const auto& clicks = i->Heard[0];
    std::vector<std::int64_t> others;
    for (std::size_t k = 2; k < clicks.size(); ++k)
        if (clicks[k] - clicks[k - 1] != 5 * kTick) others.push_back(clicks[k] - clicks[k - 1]);
    ASSERT_EQ(others.size(), 1U);
    EXPECT_GT(others[0], 730 * 44);
    EXPECT_EQ(others[0] % kTick, 0);
}

TEST(Steps, ALoopAndADrumOfTheSameLengthStayTogetherForAnHour) {
    const auto i = Settled();
    i->Load(0, kLoop, 100, 88200);
    i->Load(2, kDrum, 25, 400);
    i->s.Set[2].NSteps = 7;
    PlayAll(i->s);
    i->Run(3600);
    ASSERT_GE(i->Heard[0].size(), 1799U);
    ASSERT_GE(i->Heard[2].size(), 14390U);
    EXPECT_EQ(DistancesOf(i->Heard[0], 0), std::set<std::int64_t>{88200});
    EXPECT_EQ(DistancesOf(i->Heard[2]), std::set<std::int64_t>{11025});
    // The first tick counts whole though the start fell within it, or within its lateness, so the steps come early.
    const std::int64_t apart = i->Heard[2][8] - i->Heard[0][1];
    EXPECT_GT(apart, -kTick - kBudgetFrames);
    EXPECT_LE(apart, 0);
    for (std::size_t k = 1; k < 1798; ++k) ASSERT_EQ(i->Heard[2][8 * k] - i->Heard[0][k], apart) << k;
}

TEST(Steps, SwingDrawsTheTriggerAtEachTickAsTheRulesSay) {
    const auto i = Settled();
    constexpr int kDraws = 40'000;
    std::mt19937 random(3);
    std::uniform_real_distribution<double> draw(0, 1);
    std::vector<double> chances;
    for (int k = 0; k < kDraws; ++k) chances.push_back(draw(random));
    i->Load(0, kDrum, 25, 400);
    i->s.Set[0].Swing = 12;
    PlayAll(i->s);
    i->Chance.Sequence.assign(chances.begin(), chances.end());
    i->Run(300);
    // The rule, tick by tick: a step is due when the time since the last one and a new number around 0 reach its
    // length.
    std::vector<std::int64_t> distances;
    int elapsed = 0;
    int ticks = 0;
    for (const double chance : chances) {
        ++ticks;
        elapsed += 10;
        if (std::floor(chance * 241) - 120 + elapsed < 250) continue;
        distances.push_back(ticks * kTick);
        elapsed = 0;
        ticks = 0;
    }
    const auto& clicks = i->Heard[0];
    ASSERT_GE(clicks.size(), 1000U);
    ASSERT_LT(clicks.size(), distances.size());
    for (std::size_t k = 2; k < clicks.size(); ++k) ASSERT_EQ(clicks[k] - clicks[k - 1], distances[k - 1]) << k;
}

TEST(Steps, ThePatternsOfAStepAreHeardWithItsFirstFrame) {
    const auto i = Settled();
    i->Load(0, kDrum, 4, 300);
    auto& volumes = i->s.Set[0].Pattern[kVolPattern];
    i->s.Set[0].NSteps = 3;
    constexpr std::array<std::int16_t, 4> kVolumes{500, 470, 490, 455};
    for (int step = 0; step < 4; ++step) volumes[step] = kVolumes[static_cast<std::size_t>(step)];
    PlayAll(i->s);
    i->Run(60);
    ASSERT_GE(i->Levels.size(), 1490U);
    // Six hundredths of a decibel a unit.
    const auto levelOf = [](std::int16_t volume) { return 4000 * std::pow(10, -0.06 * (499 - volume) / 20); };
    for (std::size_t k = 1; k < i->Levels.size(); ++k)
        ASSERT_NEAR(i->Levels[k], std::min(levelOf(kVolumes[k % 4]), 4000.0), 2) << k;
}

}  // namespace
}  // namespace marvolin
