#include "audio/beat_start.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(LoopSetBeatStart, LimitsTheValueInPlaceToTheSampleAndCountsItsBytes) {
    Instrument i;
    i.Fill(0);
    for (const auto& [asked, stored] : {std::pair{-5, 0}, {0, 0}, {50, 50}, {100, 100}, {101, 100}}) {
        std::int32_t value = asked;
        LoopSetBeatStart(i.s, 0, value);
        EXPECT_EQ(value, stored);
        EXPECT_EQ(i.s.Set[0].BeatStart, stored);
        EXPECT_EQ(i.s.Run[0].BeatStartBytes, stored * 1764);
    }
}

TEST(LoopSetBeatStart, TheLimitIsTheLengthInHundredthsRoundedAHalfToTheEvenNumber) {
    Instrument i;
    i.Fill(0);
    for (const auto& [length, limit] : {std::pair{0.294, 29}, {0.296, 30}, {0.125, 12}, {0.375, 38}}) {
        i.s.Set[0].Length = length;
        std::int32_t value = 99999;
        LoopSetBeatStart(i.s, 0, value);
        EXPECT_EQ(value, limit) << length;
    }
}

TEST(LoopSetBeatStart, RoundsTheBytesDownWithoutMindingFrames) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].AvgBytesPerSec = 11025;
    std::int32_t value = 3;
    LoopSetBeatStart(i.s, 0, value);
    EXPECT_EQ(i.s.Run[0].BeatStartBytes, 330);  // 330.75
}

}  // namespace
}  // namespace marvolin
