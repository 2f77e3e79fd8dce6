#include "audio/waveform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/reverse.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

void FillWith(Instrument& i, std::int16_t channels, std::int16_t bits, const std::vector<std::uint8_t>& bytes) {
    test::FakeSample sample;
    sample.Format.Channels = channels;
    sample.Format.BitsPerSample = bits;
    sample.Bytes = bytes;
    i.Sound.Samples["/w.WAV"] = sample;
    i.Fill(0, "/w.WAV");
}

TEST(Waveform, ReadsAllWidthsOfPcm) {
    // one frame at full scale down, one at half scale up
    const std::pair<std::int16_t, std::vector<std::uint8_t>> kSamples[] = {
        {8, {0x00, 0xC0}},
        {16, {0x00, 0x80, 0x00, 0x40}},
        {24, {0x00, 0x00, 0x80, 0x00, 0x00, 0x40}},
        {32, {0x00, 0x00, 0x00, 0x80, 0x00, 0x00, 0x00, 0x40}}};
    for (const auto& [bits, bytes] : kSamples) {
        Instrument i;
        FillWith(i, 1, bits, bytes);
        EXPECT_THAT(LoopWaveform(i.s, 0, 2), ElementsAre(WaveformColumn{-1, -1}, WaveformColumn{0.5F, 0.5F})) << bits;
        EXPECT_THAT(LoopWaveform(i.s, 0, 1), ElementsAre(WaveformColumn{-1, 0.5F})) << bits;
    }
}

TEST(Waveform, AColumnSpansAllChannelsOfItsFrames) {
    Instrument i;
    FillWith(i, 2, 8, {0x80, 0x00, 0x80, 0xC0, 0x40, 0x80, 0x80, 0x80});
    EXPECT_THAT(LoopWaveform(i.s, 0, 2), ElementsAre(WaveformColumn{-1, 0.5F}, WaveformColumn{-0.5F, 0}));
}

TEST(Waveform, AShortSampleRepeatsItsFrames) {
    Instrument i;
    FillWith(i, 1, 8, {0x00, 0xC0});
    const WaveformColumn low{-1, -1};
    const WaveformColumn high{0.5F, 0.5F};
    EXPECT_THAT(LoopWaveform(i.s, 0, 4), ElementsAre(low, low, high, high));
}

TEST(Waveform, ALongSampleIsReadInPiecesWithoutLosingAPeak) {
    Instrument i;
    std::vector<std::uint8_t> bytes(3'000'000, 0x80);
    bytes[1'499'999] = 0xFF;
    FillWith(i, 1, 8, bytes);
    const auto columns = LoopWaveform(i.s, 0, 2);
    EXPECT_EQ(columns[0].High, 127.0F / 128);
    EXPECT_EQ(columns[1], (WaveformColumn{0, 0}));
}

TEST(Waveform, AnOutlineMadeInSharesIsTheOneMadeAtOnce) {
    Instrument i;
    std::vector<std::uint8_t> bytes(1'000'003);
    for (std::size_t at = 0; at < bytes.size(); ++at) bytes[at] = static_cast<std::uint8_t>(at * 2654435761U >> 20);
    FillWith(i, 1, 8, bytes);
    const auto whole = LoopWaveform(i.s, 0, 100);
    ASSERT_EQ(whole.size(), 100U);
    std::vector<WaveformColumn> grown;
    for (int shares = 1; grown.size() < whole.size(); ++shares) {
        ASSERT_LE(shares, 15);
        const auto more = LoopWaveform(i.s, 0, 100, static_cast<int>(grown.size()), 70'000);
        // Seven columns hold 70000 bytes, and one more would begin beyond them.
        EXPECT_LE(more.size(), 8U);
        grown.insert(grown.end(), more.begin(), more.end());
    }
    EXPECT_EQ(grown, whole);
    EXPECT_EQ(LoopWaveform(i.s, 0, 100, 40, 0).size(), 1U);
    EXPECT_THAT(LoopWaveform(i.s, 0, 100, 100), IsEmpty());
}

TEST(Waveform, NothingToSeeGivesNoColumns) {
    Instrument i;
    EXPECT_THAT(LoopWaveform(i.s, 0, 10), IsEmpty());
    FillWith(i, 2, 16, {});
    EXPECT_THAT(LoopWaveform(i.s, 0, 10), IsEmpty());
    FillWith(i, 2, 12, {1, 2, 3});
    EXPECT_THAT(LoopWaveform(i.s, 0, 10), IsEmpty());
    FillWith(i, 1, 8, {1, 2, 3});
    EXPECT_THAT(LoopWaveform(i.s, 0, 0), IsEmpty());
    i.Sound.Failures["ReadBuffer"] = sound_error::kBufferLost;
    EXPECT_THAT(LoopWaveform(i.s, 0, 2), IsEmpty());
}

TEST(Waveform, ShowsAReversalAtOnce) {
    Instrument i;
    FillWith(i, 1, 8, {0x00, 0xC0});
    LoopReverse(i.s, 0);
    EXPECT_THAT(LoopWaveform(i.s, 0, 2), ElementsAre(WaveformColumn{0.5F, 0.5F}, WaveformColumn{-1, -1}));
}

}  // namespace
}  // namespace marvolin
