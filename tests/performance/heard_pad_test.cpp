// How the mix pad sounds.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <complex>
#include <numbers>

#include "performance/heard_rig.h"
#include "performance/pad/pad_gesture.h"
#include "performance/pad/pad_twist.h"
#include "performance/pad/wire_sets.h"

namespace marvolin {
namespace {

using test::HeardInstrument;

constexpr int kFrames = 4410;
constexpr double kPadLevel = 4000;
constexpr double kPadNear = 10;

/// Four sines, one a LoopTrack and a channel, each of its own whole number of periods in a tenth of a second.
struct FourSines : HeardInstrument {
    static constexpr std::array<int, 4> kPeriods{20, 50, 90, 140};

    FourSines() {
        for (Row row = 0; row < kLoopTracks; ++row) {
            std::vector<std::int32_t> numbers;
            for (int n = 0; n < kFrames; ++n) {
                const double angle = 2 * std::numbers::pi * kPeriods[static_cast<std::size_t>(row)] * n / kFrames;
                numbers.push_back(static_cast<std::int32_t>(std::lround(kPadLevel * std::sin(angle))));
            }
            Sound(row, numbers, 1);
        }
        SetChannel_Click(s, 3);  // "Alternate by 4"
        PadFunction_Click(s, 1);
    }
    /// How loud each LoopTrack is at the left, by its frequency.
    std::array<double, 4> Levels() {
        Render(2048);
        const std::vector<std::int16_t> out = Render(kFrames);
        std::array<double, 4> levels{};
        for (std::size_t row = 0; row < levels.size(); ++row) {
            std::complex<double> sum;
            for (int n = 0; n < kFrames; ++n) {
                sum += std::polar<double>(out[static_cast<std::size_t>(2 * n)],
                                          -2 * std::numbers::pi * kPeriods[row] * n / kFrames);
            }
            levels[row] = 2 * std::abs(sum) / kFrames;
        }
        return levels;
    }
    /// The level of a channel with the ball this share of the diagonal from its corner.
    static double Expected(double share) {
        const double left = 500 - std::nearbyint(share * 500);
        if (left <= 0) return 0;
        return kPadLevel * std::pow(10, -(left >= 500 ? 0 : (499 - left) * 6) / 2000);
    }
    void ExpectLevels() {
        const double x = s.PadTable[2].X / s.Geometry.PadHalfX;
        const double y = s.PadTable[2].Y / s.Geometry.PadHalfY;
        static constexpr std::array<std::array<int, 2>, 4> kCorners{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
        const std::array<double, 4> levels = Levels();
        for (std::size_t row = 0; row < levels.size(); ++row) {
            const double share = std::hypot(kCorners[row][0] - x, kCorners[row][1] - y) / std::sqrt(8.0);
            EXPECT_NEAR(levels[row], Expected(share), kPadNear) << "LoopTrack " << row;
        }
    }
};

TEST(HeardPad, TheBallFromCornerToCornerCrossFadesFourLoopTracks) {
    FourSines i;
    PadMove(i.s, -1, -1, 1, {.Absolute = true, .Apply = true});
    i.ExpectLevels();
    double before = i.Levels()[0];
    EXPECT_NEAR(before, kPadLevel, kPadNear);
    PadBallGesture(i.s, Phase::Down, kLeftButton, 225, 225);
    for (int move = 0; move < 20; ++move) {
        SCOPED_TRACE(move);
        const double step = 2 * i.s.Geometry.PadHalfX / 20;
        PadBallGesture(i.s, Phase::Move, kLeftButton, 225 + step, 225 + step);
        i.ExpectLevels();
        const double now = i.Levels()[0];
        EXPECT_LT(now, before);
        before = now;
    }
    EXPECT_NEAR(i.Levels()[0], 0, kPadNear);
    EXPECT_NEAR(i.Levels()[2], kPadLevel, kPadNear);
}

TEST(HeardPad, EachCornerPlaysItsOwnChannelAtItsLoudest) {
    FourSines i;
    static constexpr std::array<std::array<int, 2>, 4> kCorners{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
    for (std::size_t corner = 0; corner < kCorners.size(); ++corner) {
        SCOPED_TRACE(corner);
        PadMove(i.s, kCorners[corner][0], kCorners[corner][1], 1, {.Absolute = true, .Apply = true});
        i.ExpectLevels();
        EXPECT_NEAR(i.Levels()[corner], kPadLevel, kPadNear);
    }
}

TEST(HeardPad, TheTwistFadesFromOnePairOfLoopTracksToTheOther) {
    FourSines i;
    PadType_Click(i.s, kPitch400Pad);  // its twist moves the volume
    for (const double place : {-1.0, -0.5, 0.0, 0.4, 1.0}) {
        SCOPED_TRACE(place);
        PadTwist(i.s, place, 1, {.Absolute = true, .Apply = true});
        const std::array<double, 4> levels = i.Levels();
        for (const std::size_t left : {0, 3}) EXPECT_NEAR(levels[left], FourSines::Expected((place + 1) / 2), kPadNear);
        for (const std::size_t right : {1, 2}) {
            EXPECT_NEAR(levels[right], FourSines::Expected((1 - place) / 2), kPadNear);
        }
    }
    EXPECT_NEAR(i.Levels()[1], kPadLevel, kPadNear);
}

TEST(HeardPad, ThePanPadMovesEachLoopTrackBetweenTheSides) {
    HeardInstrument i;
    i.Sound(0, 8000);
    PadType_Click(i.s, 3);
    PadMove(i.s, -1, -1, 1, {.Absolute = true, .Apply = true});
    EXPECT_NEAR(i.Heard().Left, 8000, kPadNear);
    EXPECT_NEAR(i.Heard().Right, 0, kPadNear);
    PadMove(i.s, 1, 1, 1, {.Absolute = true, .Apply = true});
    EXPECT_NEAR(i.Heard().Left, 0, kPadNear);
    EXPECT_NEAR(i.Heard().Right, 8000, kPadNear);
}

}  // namespace
}  // namespace marvolin
