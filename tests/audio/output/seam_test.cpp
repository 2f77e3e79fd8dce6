#include "audio/output/seam.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
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

TEST(Seam, WhatWasHeardGoesOnBackwards) {
    Seam seam;
    std::vector<std::int16_t> before;
    for (int i = 0; i < 500; ++i) {
        const auto level = static_cast<std::int16_t>(i);
        before.insert(before.end(), {level, level});
    }
    Sew(seam, before);
    seam.Open();
    std::vector<std::int16_t> after = Level(Seam::kHidden, 9999, 9999);
    Sew(seam, after);
    for (int i = 0; i < Seam::kHidden; ++i) EXPECT_EQ(after[static_cast<std::size_t>(2 * i)], 499 - i);
}

}  // namespace
}  // namespace marvolin
