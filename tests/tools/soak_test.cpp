// A short evening is well, and each fault that the soak looks for is seen when it is there.

#include "soak/soak.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "audio/recording.h"

namespace marvolin::soak {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

/// A soak of some minutes with a fault from its second look on.
std::vector<std::string> FaultsWith(std::function<void(Evening&)> fault) {
    SoakOptions options;
    options.Minutes = 3;
    options.MinutesBetweenLooks = 1;
    options.AfterEachLook = [fault = std::move(fault)](Evening& evening, std::int64_t) { fault(evening); };
    return RunSoak(options).Faults;
}

TEST(Soak, OfSomeMinutesFindsNothing) {
    SoakOptions options;
    options.Minutes = 4;
    options.MinutesBetweenLooks = 2;
    options.Scripts = {"function OnClock() marvolin.set_volume('A', 300) end"};
    int lines = 0;
    options.Tell = [&](const std::string&) { ++lines; };
    const SoakResult result = RunSoak(options);
    EXPECT_THAT(result.Faults, IsEmpty());
    EXPECT_EQ(result.Minutes, 4);
    EXPECT_GT(result.Gestures, 400U);
    EXPECT_GT(result.Found.Ticks, 20'000U);
    EXPECT_EQ(result.Found.Clicks, 3U * 18) << "18 at each of three looks";
    EXPECT_EQ(lines, 2);
}

TEST(Soak, SeesMemoryThatIsNotGivenBack) {
    std::vector<std::unique_ptr<std::vector<char>>> leak;
    EXPECT_THAT(FaultsWith([&](Evening&) { leak.push_back(std::make_unique<std::vector<char>>(1'100'000, 'x')); }),
                Contains("the heap has grown"));
}

TEST(Soak, SeesAFileThatStaysOpen) {
    std::vector<int> open;
    EXPECT_THAT(FaultsWith([&](Evening&) { open.push_back(::open("/dev/null", O_RDONLY | O_CLOEXEC)); }),
                Contains("open files have become more"));
    std::for_each(open.begin(), open.end(), ::close);
}

TEST(Soak, MeasuresStepsAlsoWhenTheHandHasLeftEverythingSilent) {
    int looks = 0;
    const auto silence = [&](Evening& evening) {
        if (!evening.s.World.Output->IsSilent()) evening.Gesture([&] { ToggleSilence(evening.s); });
        ++looks;
    };
    EXPECT_THAT(FaultsWith(silence), IsEmpty());
    EXPECT_EQ(looks, 2);
}

TEST(Soak, SeesStepsThatAreNotHeard) {
    const auto withoutClick = [](Evening& evening) {
        const std::filesystem::path folder = evening.s.World.Desk.ProgramFolder();
        ASSERT_TRUE(std::filesystem::remove(folder / "click.wav"));
        ASSERT_TRUE(std::filesystem::create_directory(folder / "click.wav"));
    };
    bool once = false;
    EXPECT_THAT(FaultsWith([&](Evening& evening) {
                    if (!std::exchange(once, true)) withoutClick(evening);
                }),
                Contains("steps were not heard"));
}

TEST(Soak, SeesATurnOfTheEventLoopThatMakesStepsLate) {
    EXPECT_THAT(FaultsWith([](Evening& evening) { evening.Stall = 40; }), Contains("steps were late"));
}

TEST(Soak, SeesAClockThatIsAMillisecondOff) {
    EXPECT_THAT(FaultsWith([](Evening& evening) { evening.s.Clock.ClockMs += 1; }), Contains("the clock was wrong"));
}

TEST(Soak, SeesABoxThatNobodyExpects) {
    EXPECT_THAT(
        FaultsWith([](Evening& evening) { evening.Gesture([&] { evening.s.World.Desk.Report("out of order"); }); }),
        Contains("a box: out of order"));
}

}  // namespace
}  // namespace marvolin::soak
