// How 3D sound for headphones sounds.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numbers>
#include <thread>

#include "audio/headphones.h"
#include "performance/heard_rig.h"
#include "performance/map/use_3d.h"

namespace marvolin {
namespace {

using test::HeardInstrument;

constexpr int kWave = 100;  // frames of a period of the tone

/// A tone at the right of the listener, with 3D sound.
struct Tone : HeardInstrument {
    explicit Tone(double hz = 44100.0 / kWave) {
        SetUse3D(s, true);
        std::vector<std::int32_t> numbers;
        for (int n = 0; n < 44100; ++n)
            numbers.push_back(
                static_cast<std::int32_t>(std::lround(8000 * std::sin(2 * std::numbers::pi * n * hz / 44100))));
        Sound(0, numbers, 1);
        Place(0, 1, 0);
        Render(2048);
    }
    int Cursor() { return s.Run[0].Buffer->GetCurrentPosition(); }
};

/// Of each period of the tone, how loud the two sides are together.
std::vector<double> Loudness(const std::vector<std::int16_t>& out) {
    std::vector<double> periods;
    for (std::size_t begin = 0; begin + 2 * kWave <= out.size(); begin += 2 * kWave) {
        double sum = 0;
        for (std::size_t i = begin; i < begin + 2 * kWave; ++i) sum += static_cast<double>(out[i]) * out[i];
        periods.push_back(std::sqrt(sum / kWave));
    }
    return periods;
}

double Quietest(const std::vector<std::int16_t>& out) {
    const std::vector<double> periods = Loudness(out);
    return *std::min_element(periods.begin(), periods.end());
}

/// The largest step from one frame to the next, of either side.
int LargestStep(const std::vector<std::int16_t>& out) {
    int step = 0;
    for (std::size_t i = 2; i < out.size(); ++i) step = std::max(step, std::abs(out[i] - out[i - 2]));
    return step;
}

double LeftShare(const std::vector<std::int16_t>& out) {
    double left = 0;
    double all = 1;
    for (std::size_t i = 0; i < out.size(); i += 2) {
        left += std::abs(out[i]);
        all += std::abs(out[i]) + std::abs(out[i + 1]);
    }
    return left / all;
}

TEST(HeardHeadphones, BothEarsHearWhatIsAtOneSide) {
    Tone i;
    ASSERT_TRUE(HeadphonesAvailable(i.s));
    EXPECT_NEAR(LeftShare(i.Render(4410)), 0, 0.001);
    Headphones_Click(i.s, true);
    i.Render(2048);
    const double share = LeftShare(i.Render(4410));
    EXPECT_GT(share, 0.05);
    EXPECT_LT(share, 0.45);
    Headphones_Click(i.s, false);
    i.Render(2048);
    EXPECT_NEAR(LeftShare(i.Render(4410)), 0, 0.001);
}

TEST(HeardHeadphones, SwitchingLeavesNoGapAndMovesNoCursor) {
    Tone i;
    const std::vector<std::int16_t> speakers = i.Render(4400);
    Headphones_Click(i.s, true);
    i.Render(2048);
    const std::vector<std::int16_t> headphones = i.Render(4400);
    const double least = 0.2 * std::min(Quietest(speakers), Quietest(headphones));
    const int most = 2 * std::max(LargestStep(speakers), LargestStep(headphones));
    std::vector<std::int16_t> all;
    for (int turn = 0; turn < 20; ++turn) {
        SCOPED_TRACE(turn);
        const int before = i.Cursor();
        Headphones_Click(i.s, turn % 2 != 0);
        EXPECT_EQ(i.Cursor(), before);
        // A cursor is told at the end of a period.
        const std::vector<std::int16_t> out = i.Render(1280);
        EXPECT_EQ((i.Cursor() - before + 88200) % 88200, 2 * 1280);
        all.insert(all.end(), out.begin(), out.end());
    }
    EXPECT_GT(Quietest(all), least);
    EXPECT_LT(LargestStep(all), most);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

/// The least of all milliseconds, in dB.
double QuietestMillisecond(const std::vector<std::int16_t>& out) {
    constexpr std::size_t kFrames = 44;
    double least = 1e30;
    for (std::size_t begin = 0; begin + 2 * kFrames <= out.size(); begin += 2) {
        double sum = 1e-3;
        for (std::size_t i = begin; i < begin + 2 * kFrames; ++i) sum += static_cast<double>(out[i]) * out[i];
        least = std::min(least, sum);
    }
    return 10 * std::log10(least);
}

TEST(HeardHeadphones, SwitchingMakesNoMillisecondQuieterThanWhatIsBeforeAndBehind) {
    for (const double hz : {100.0, 260.0, 441.0, 700.0, 1000.0, 1300.0, 2200.0, 3000.0, 6000.0}) {
        SCOPED_TRACE(hz);
        Tone i(hz);
        double before = QuietestMillisecond(i.Render(4099));
        for (int turn = 0; turn < 10; ++turn) {
            SCOPED_TRACE(turn);
            Headphones_Click(i.s, turn % 2 == 0);
            const double seam = QuietestMillisecond(i.Render(700));
            i.Render(1024);
            const double behind = QuietestMillisecond(i.Render(4099));
            EXPECT_GT(seam, std::min(before, behind) - 3);
            before = behind;
        }
    }
}

TEST(HeardHeadphones, SwitchingWhileAnotherThreadRendersLeavesNoGap) {
    Tone i;
    std::vector<std::int16_t> out(2 * 88200);
    std::atomic<int> rendered = 0;
    std::thread card([&] {
        for (int at = 0; at < 88200; at += 126) {
            i.Renderer.Render(out.data() + 2 * at, 126);
            rendered = at;
        }
    });
    for (int turn = 1; turn <= 10; ++turn) {
        while (rendered < turn * 8000) std::this_thread::yield();
        Headphones_Click(i.s, turn % 2 != 0);
    }
    card.join();
    EXPECT_GT(Quietest(out), 1000);
}

TEST(HeardHeadphones, WithThePanOfPlainSoundNothingOfThemIsHeard) {
    Tone i;
    Headphones_Click(i.s, true);
    SetUse3D(i.s, false);
    i.Sound(0, 8000);
    EXPECT_NEAR(i.Heard().Left, 8000, 2);
    EXPECT_NEAR(i.Heard().Right, 8000, 2);
    SetUse3D(i.s, true);
    i.Sound(0, 8000);
    i.Place(0, 1, 0);
    EXPECT_GT(std::abs(i.Heard().Left), 50) << "the switch is kept";
}

}  // namespace
}  // namespace marvolin
