#include "audio/output/seam.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <vector>

namespace marvolin {
namespace {

std::vector<std::int16_t> Level(int count, std::int16_t left, std::int16_t right) {
    std::vector<std::int16_t> frames;
    for (int i = 0; i < count; ++i) frames.insert(frames.end(), {left, right});
    return frames;
}

void Sew(Seam& seam, std::vector<std::int16_t>& frames) {
    seam.Pass_rt(frames.data(), static_cast<int>(frames.size() / 2));
}

TEST(Seam, WithoutAResetEverythingPassesAsItIs) {
    Seam seam;
    std::vector<std::int16_t> frames = Level(700, 32767, -32768);
    Sew(seam, frames);
    EXPECT_EQ(frames, Level(700, 32767, -32768));
}

TEST(Seam, GoesFromWhatWasHeardToWhatIsRenderedWithoutAStep) {
    for (const int piece : {1, 100, 128, 1000}) {
        SCOPED_TRACE(piece);
        Seam seam;
        for (int at = 0; at < 1000; at += piece) {
            std::vector<std::int16_t> before = Level(piece, 30000, -32768);
            Sew(seam, before);
        }
        seam.Open();
        std::vector<std::int16_t> heard;
        for (int at = 0; at < 1000; at += piece) {
            std::vector<std::int16_t> after = Level(piece, -30000, 32767);
            Sew(seam, after);
            heard.insert(heard.end(), after.begin(), after.end());
        }
        EXPECT_EQ(heard[0], 30000);
        EXPECT_EQ(heard[1], -32768);
        EXPECT_EQ(heard[2 * (Seam::kHidden - 1)], 30000);
        EXPECT_EQ(heard[2 * Seam::kLength], -30000);
        EXPECT_EQ(heard[2 * Seam::kLength + 1], 32767);
        for (std::size_t i = 2; i < heard.size(); ++i) {
            EXPECT_LE(std::abs(heard[i] - heard[i - 2]), 65535 / Seam::kFade + 1) << i;
        }
    }
}

/// Of a tone with this period, as loud as can be.
std::int16_t Tone(int frame, double period) {
    return static_cast<std::int16_t>(std::lround(32767 * std::sin(2 * std::numbers::pi * frame / period)));
}

TEST(Seam, ATonePlaysOnUntilItFades) {
    for (const double period : {33.0, 100.0, 441.0, 1000.0, 1470.0}) {
        SCOPED_TRACE(period);
        Seam seam;
        constexpr int kBefore = 4111;
        std::vector<std::int16_t> before;
        for (int i = 0; i < kBefore; ++i) {
            before.insert(before.end(), {Tone(i, period), static_cast<std::int16_t>(Tone(i, period) / 2)});
        }
        Sew(seam, before);
        seam.Open();
        std::vector<std::int16_t> after = Level(Seam::kHidden, 9999, 9999);
        Sew(seam, after);
        for (int i = 0; i < Seam::kHidden; ++i) {
            EXPECT_NEAR(after[static_cast<std::size_t>(2 * i)], Tone(kBefore + i, period), 2) << i;
            EXPECT_NEAR(after[static_cast<std::size_t>(2 * i + 1)], Tone(kBefore + i, period) / 2, 2) << i;
        }
    }
}

TEST(Seam, WhatHasNoPeriodGoesOnWithoutAStep) {
    Seam seam;
    std::vector<std::int16_t> before;
    for (int i = 0; i < 2000; ++i) {
        const auto level = static_cast<std::int16_t>(16 * i);
        before.insert(before.end(), {level, static_cast<std::int16_t>(-level)});
    }
    Sew(seam, before);
    seam.Open();
    std::vector<std::int16_t> all(before.end() - 2, before.end());
    std::vector<std::int16_t> after = Level(Seam::kHidden, 9999, 9999);
    Sew(seam, after);
    all.insert(all.end(), after.begin(), after.end());
    for (std::size_t i = 2; i < all.size(); ++i) EXPECT_LE(std::abs(all[i] - all[i - 2]), 100) << i;
}

TEST(Seam, FromSilenceItIsSilentAtFirst) {
    Seam seam;
    std::vector<std::int16_t> before = Level(2000, 0, 0);
    Sew(seam, before);
    seam.Open();
    std::vector<std::int16_t> after = Level(Seam::kHidden, 9999, 9999);
    Sew(seam, after);
    EXPECT_EQ(after, Level(Seam::kHidden, 0, 0));
}

}  // namespace
}  // namespace marvolin
