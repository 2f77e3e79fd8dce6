/// Four Drum LoopTracks whose steps meet again and again, when the card or the machine fails them.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <set>
#include <vector>

#include "core/routines.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"
#include "steps_rig.h"

namespace marvolin {
namespace {

using test::SteppedInstrument;
using test::Weather;

constexpr std::int64_t kFramesOfATick = 441;  // frames of 10 ms
// Hundredths of a second. Each step of a row is one of all rows above it.
constexpr std::array<std::int32_t, kLoopTracks> kDurations{3, 6, 12, 24};
constexpr std::array<int, kLoopTracks> kLengths{400, 20000, 300, 30000};

std::function<std::int64_t()> Lateness(double milliseconds) {
    return [milliseconds] { return static_cast<std::int64_t>(milliseconds * Weather::kMillisecond); };
}

void LoadFour(SteppedInstrument& i) {
    for (Row row = 0; row < kLoopTracks; ++row)
        i.Load(row, kDrum, kDurations[static_cast<std::size_t>(row)], kLengths[static_cast<std::size_t>(row)]);
}

/// The four have been stepped for three seconds in good weather.
std::unique_ptr<SteppedInstrument> FourStepping() {
    auto i = std::make_unique<SteppedInstrument>();
    i->Run(2);
    LoadFour(*i);
    PlayAll(i->s);
    i->Run(3);
    return i;
}

/// The clicks of a row from a frame on.
std::vector<std::int64_t> From(const SteppedInstrument& i, std::size_t row, std::int64_t frame) {
    std::vector<std::int64_t> clicks;
    for (const std::int64_t click : i.Heard[row])
        if (click >= frame) clicks.push_back(click);
    return clicks;
}

/// From `frame` on, each step of a row is heard on the frame of a step of each row above it.
void ExpectTogether(const SteppedInstrument& i, std::int64_t frame) {
    for (std::size_t row = 1; row < kLoopTracks; ++row) {
        const std::vector<std::int64_t> quicker = From(i, row - 1, 0);
        const std::vector<std::int64_t> clicks = From(i, row, frame);
        EXPECT_FALSE(clicks.empty()) << row;
        for (const std::int64_t click : clicks)
            EXPECT_TRUE(std::binary_search(quicker.begin(), quicker.end(), click)) << "row " << row << ", " << click;
    }
}

/// From `frame` on, the four are exact and together.
void ExpectExact(const SteppedInstrument& i, std::int64_t frame) {
    for (std::size_t row = 0; row < kLoopTracks; ++row) {
        const std::vector<std::int64_t> clicks = From(i, row, frame);
        ASSERT_GE(clicks.size(), 10U) << row;
        for (std::size_t k = 1; k < clicks.size(); ++k)
            ASSERT_EQ(clicks[k] - clicks[k - 1], kDurations[row] * kFramesOfATick)
                << "row " << row << ", " << clicks[k];
    }
    ExpectTogether(i, frame);
}

/// Where the steps of the quickest row lie within its step.
std::int64_t GridOf(const SteppedInstrument& i, std::int64_t frame) {
    return From(i, 0, frame).front() % (kDurations[0] * kFramesOfATick);
}

TEST(StepsOfFour, CallbacksThatStopForASecondAndComeInABurstLeaveTheGridWhereItWas) {
    const auto i = FourStepping();
    const std::int64_t stopped = i->Rendered;
    const std::int64_t grid = GridOf(*i, stopped - 44100);
    bool comes = false;
    i->Outside.Card = [&comes] { return std::exchange(comes, true) ? 0 : 1000 * Weather::kMillisecond; };
    i->Run(8);
    ASSERT_GE(i->Rendered, stopped + 7 * 44100);
    // The steps of the second in which nothing was asked for may have gone together, up to a second after it.
    const std::int64_t after = stopped + 2 * 44100;
    ExpectExact(*i, after);
    EXPECT_EQ(GridOf(*i, after), grid);
}

TEST(StepsOfFour, AClockThatJumpsTenSecondsLeavesThemTogetherAndOnAGrid) {
    const auto i = FourStepping();
    const std::int64_t before = i->Rendered;
    i->Suspend(10);
    i->Run(8);
    EXPECT_NEAR(static_cast<double>(i->Rendered - before), 8 * 44100, 512) << "the card was suspended too";
    ExpectExact(*i, before + 44100);
}

TEST(StepsOfFour, TurnsOfTheEventLoopBeyondTheBudgetMoveAllFourTogetherAndTheNextStepsAreOnTheGrid) {
    for (const double late : {4.5, 5.0, 7.0, 9.5}) {
        SCOPED_TRACE(late);
        const auto i = FourStepping();
        const std::int64_t begin = i->Rendered;
        const std::int64_t grid = GridOf(*i, begin - 44100);
        i->Outside.Loop = Lateness(late);
        i->Run(1);
        const std::int64_t end = i->Rendered;
        i->Outside.Loop = Lateness(0);
        i->Run(4);
        ExpectTogether(*i, begin);
        ExpectExact(*i, end + 2 * kFramesOfATick);
        EXPECT_EQ(GridOf(*i, end + 2 * kFramesOfATick), grid);
        // Within the second they were late indeed.
        EXPECT_NE(GridOf(*i, begin + 4 * kFramesOfATick), grid);
        EXPECT_EQ(i->Counts().Late, 0U) << i->Counts().LongestLate;
    }
}

TEST(StepsOfFour, ASetOfFourSamplesThatIsOpenedWhileEverythingPlaysStartsTogether) {
    const auto i = FourStepping();
    PadGeometryInit(i->s, 4500, 4500);
    PadTablesInit(i->s);
    const std::string path = i->Folder.Path("four.mvn");
    ASSERT_TRUE(SaveSession(i->s, path, LoopsSaved::All, AllSwitches()));
    // Other samples, so that opening the set has to load all four.
    for (Row row = 0; row < kLoopTracks; ++row) {
        std::vector<std::int32_t> numbers(2 * 60000, 0);
        numbers[row < 2 ? 0 : 1] = SteppedInstrument::kLevels[static_cast<std::size_t>(row)];
        i->Load(row, kDrum, kDurations[static_cast<std::size_t>(row)], numbers, "other" + std::to_string(row) + ".wav");
    }
    PlayAll(i->s);
    i->Run(2);

    // Each sample takes a while to be read; the card goes on meanwhile.
    int shown = 0;
    i->Screen.WhenCaptionIsShown = [&] {
        ++shown;
        i->Work(0.02);
    };
    const std::int64_t opened = i->Rendered;
    {
        const CallGroup gesture(*i->Clock);
        ASSERT_TRUE(LoadSession(i->s, path, SetAsCurrent::Yes, AllSwitches(), AdoptSwitches::No));
    }
    i->Screen.WhenCaptionIsShown = nullptr;
    EXPECT_GE(shown, 4);
    for (Row row = 0; row < kLoopTracks; ++row)
        EXPECT_EQ(i->s.Set[row].FileName, i->Folder.Path("click" + std::to_string(row) + ".wav"));
    // The four play in the set.
    const std::int64_t begin = i->Rendered;
    EXPECT_GT(begin, opened + 4 * 882);
    i->Run(5);
    const std::int64_t start = From(*i, 0, begin).front();
    EXPECT_LT(start, begin + 2 * i->Clock->Lead());
    for (std::size_t row = 0; row < kLoopTracks; ++row) EXPECT_EQ(From(*i, row, begin).front(), start) << row;
    ExpectExact(*i, start + 1);
    EXPECT_EQ(i->Counts().Late, 0U) << i->Counts().LongestLate;
    EXPECT_EQ(i->Counts().Refused, 0U);
}

TEST(StepsOfFour, ATickAtTheEdgeOfTheBudgetHasTimeForItsWork) {
    for (int tenths = 39; tenths <= 50; ++tenths) {
        SCOPED_TRACE(tenths);
        SteppedInstrument i;
        // The clock keeps no further ahead of a card that is always on time than it must.
        i.Run(8);
        LoadFour(i);
        PlayAll(i.s);
        i.Outside.Loop = Lateness(0.1 * tenths);
        i.Outside.Tick = [&i] {
            i.Work(0.0005);
            return 0;
        };
        i.Run(20);
        EXPECT_EQ(i.Counts().Late, 0U) << i.Counts().LongestLate;
        ExpectTogether(i, i.Rendered - 18 * 44100);
        if (tenths == 39) ExpectExact(i, i.Rendered - 18 * 44100);
    }
}

}  // namespace
}  // namespace marvolin
