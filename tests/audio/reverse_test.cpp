#include "audio/reverse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

/// Gives row 0 a sample of `count` bytes 0, 1, 2, ... in that format.
void FillBytes(Instrument& i, int count, std::int16_t channels, std::int16_t bits) {
    test::FakeSample sample;
    sample.Format.Channels = channels;
    sample.Format.BitsPerSample = bits;
    sample.Bytes.resize(static_cast<std::size_t>(count));
    std::iota(sample.Bytes.begin(), sample.Bytes.end(), std::uint8_t{0});
    i.Sound.Samples["/r.WAV"] = sample;
    i.Fill(0, "/r.WAV");
}

std::vector<std::uint8_t> Frames(const std::vector<int>& frames, int frameSize) {
    std::vector<std::uint8_t> bytes;
    for (const int frame : frames) {
        for (int b = 0; b < frameSize; ++b) bytes.push_back(static_cast<std::uint8_t>(frame * frameSize + b));
    }
    return bytes;
}

TEST(LoopReverse, ReversesTheFramesAndKeepsTheirBytesInOrder) {
    for (const std::int16_t channels : std::initializer_list<std::int16_t>{1, 2}) {
        for (const std::int16_t bits : std::initializer_list<std::int16_t>{8, 16, 24, 32}) {
            SCOPED_TRACE(std::to_string(channels) + " x " + std::to_string(bits));
            const int size = channels * bits / 8;
            Instrument even;
            FillBytes(even, 4 * size, channels, bits);
            LoopReverse(even.s, 0);
            EXPECT_EQ(even.Buffer(0).Sample->Bytes, Frames({3, 2, 1, 0}, size));
            Instrument odd;
            FillBytes(odd, 5 * size, channels, bits);
            LoopReverse(odd.s, 0);
            EXPECT_EQ(odd.Buffer(0).Sample->Bytes, Frames({4, 3, 2, 1, 0}, size));
        }
    }
}

TEST(LoopReverse, ASampleWithAnOddNumberOfFramesKeepsItsMiddleFrame) {
    Instrument i;
    FillBytes(i, 12, 2, 16);
    LoopReverse(i.s, 0);
    EXPECT_EQ(i.Buffer(0).Sample->Bytes, Frames({2, 1, 0}, 4));
}

TEST(LoopReverse, ALongSampleIsReversedAcrossAllItsPieces) {
    for (const std::int16_t bits : std::initializer_list<std::int16_t>{8, 16, 24, 32}) {
        for (const std::int16_t channels : std::initializer_list<std::int16_t>{1, 2}) {
            Instrument i;
            const int size = channels * bits / 8;
            const std::size_t frames = 600'003;
            FillBytes(i, static_cast<int>(frames) * size, channels, bits);
            auto& bytes = i.Buffer(0).Sample->Bytes;
            for (std::size_t at = 0; at < bytes.size(); ++at)
                bytes[at] = static_cast<std::uint8_t>(at * 2654435761U >> 13);
            const auto before = bytes;
            LoopReverse(i.s, 0);
            const auto frame = static_cast<std::size_t>(size);
            std::size_t wrong = 0;
            for (std::size_t at = 0; at < bytes.size(); ++at) {
                const std::size_t from = (frames - 1 - at / frame) * frame + at % frame;
                if (bytes[at] != before[from]) ++wrong;
            }
            EXPECT_EQ(wrong, 0U) << bits << " x " << channels;
            EXPECT_NE(bytes, before);
        }
    }
}

TEST(LoopReverse, ReversingTwiceRestoresTheSample) {
    Instrument i;
    FillBytes(i, 96, 2, 24);
    const auto before = i.Buffer(0).Sample->Bytes;
    LoopReverse(i.s, 0);
    EXPECT_NE(i.Buffer(0).Sample->Bytes, before);
    LoopReverse(i.s, 0);
    EXPECT_EQ(i.Buffer(0).Sample->Bytes, before);
}

TEST(LoopReverse, ASampleThatDoesNotEndOnAFrameSwapsWithinItsBytes) {
    Instrument i;
    FillBytes(i, 10, 2, 16);  // two frames and a half: 2.5 rounds to 2, one pair
    LoopReverse(i.s, 0);
    EXPECT_EQ(i.Buffer(0).Sample->Bytes, (std::vector<std::uint8_t>{6, 7, 8, 9, 4, 5, 0, 1, 2, 3}));
}

TEST(LoopReverse, TinySamplesStayAsTheyAre) {
    for (const int count : {0, 1, 3, 4}) {
        Instrument i;
        FillBytes(i, count, 2, 16);
        const auto before = i.Buffer(0).Sample->Bytes;
        LoopReverse(i.s, 0);
        EXPECT_EQ(i.Buffer(0).Sample->Bytes, before) << count;
        EXPECT_TRUE(i.Desk.Boxes.empty());
    }
}

TEST(LoopReverse, ReversingADuplicateReversesTheSourceTooAndBothAreShownAgain) {
    Instrument i;
    FillBytes(i, 8, 2, 16);
    i.s.Run[2].Buffer = i.s.DS->DuplicateSoundBuffer(*i.s.Run[0].Buffer);
    i.s.Run[2].Loaded = True;
    i.s.Set[2] = i.s.Set[0];
    i.Fill(3, "/other.WAV");
    LoopReverse(i.s, 2);
    EXPECT_EQ(i.Buffer(0).Sample->Bytes, Frames({1, 0}, 4));
    EXPECT_EQ(i.Screen.Count("ShowWaveform 0"), 1);
    EXPECT_EQ(i.Screen.Count("ShowWaveform 2"), 1);
    EXPECT_EQ(i.Screen.Count("ShowWaveform 3"), 0);
}

TEST(LoopReverse, LeavesNoTraceInTheSettings) {
    Instrument i;
    FillBytes(i, 8, 2, 16);
    const LoopTrackSet before = i.s.Set[0];
    LoopReverse(i.s, 0);
    EXPECT_EQ(i.s.Set[0], before);
}

TEST(LoopReverse, AnEmptyRowIsLeftAlone) {
    Instrument i;
    LoopReverse(i.s, 1);
    EXPECT_TRUE(i.Desk.Log.empty());
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(LoopReverse, FailuresAreShownAndThePointerIsRestored) {
    for (const char* step : {"GetFormat", "ReadBuffer", "WriteBuffer"}) {
        Instrument i;
        FillBytes(i, 8, 2, 16);
        i.Sound.Failures[step] = sound_error::kBufferLost;
        LoopReverse(i.s, 0);
        EXPECT_EQ(i.Desk.LastBox(), "Error reversing sound: The buffer memory has been lost and must be restored.");
        EXPECT_THAT(i.Desk.Log, ::testing::ElementsAre("busy pointer", "default pointer"));
    }
}

}  // namespace
}  // namespace marvolin
