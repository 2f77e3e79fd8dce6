/// Volume, pan and frequency, as heard.

#include <numbers>

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapter : public LoopbackRig {};

TEST_F(SoundAdapter, VolumeIsAnExactAttenuation) {
    auto buffer = LoadLevels(20000, -12000);
    for (const int volume : {0, -1, -100, -301, -602, -1000, -2000, -3500, -6000, -9999, -10000}) {
        SCOPED_TRACE(volume);
        buffer->SetVolume(volume);
        buffer->SetCurrentPosition(0);
        buffer->Play(1);
        const Heard heard = Render(512);
        EXPECT_NEAR(heard.Left[300], 20000 * GainOf(volume), kStep);
        EXPECT_NEAR(heard.Right[300], -12000 * GainOf(volume), kStep);
        buffer->Stop();
    }
    EXPECT_EQ(NumberOf([&] { buffer->SetVolume(1); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->SetVolume(-10001); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapter, VolumeChangesWhileTheSampleSounds) {
    auto buffer = LoadLevels(20000, 20000);
    buffer->Play(1);
    EXPECT_NEAR(Render(512).Left[400], 20000, kStep);
    buffer->SetVolume(-602);
    EXPECT_NEAR(Render(512).Left[400], 20000 * GainOf(-602), kStep);
}

TEST_F(SoundAdapter, PanAttenuatesTheOtherSideOnly) {
    auto buffer = LoadLevels(20000, 10000);
    buffer->SetVolume(-300);
    for (const int pan : {0, 1, 100, 602, 3000, 9999, 10000, -1, -100, -602, -3000, -9999, -10000}) {
        SCOPED_TRACE(pan);
        buffer->SetPan(pan);
        buffer->SetCurrentPosition(0);
        buffer->Play(1);
        const Heard heard = Render(512);
        EXPECT_NEAR(heard.Left[300], 20000 * GainOf(-300) * GainOf(std::min(-pan, 0)), kStep);
        EXPECT_NEAR(heard.Right[300], 10000 * GainOf(-300) * GainOf(std::min(pan, 0)), kStep);
        buffer->Stop();
    }
    EXPECT_EQ(NumberOf([&] { buffer->SetPan(10001); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->SetPan(-10001); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapter, AMonoSampleIsPannedLikeAStereoOne) {
    auto buffer = Load(std::vector<std::int32_t>(4410, 15000), 1);
    buffer->SetPan(-602);
    buffer->Play(1);
    const Heard heard = Render(512);
    EXPECT_NEAR(heard.Left[300], 15000, kStep);
    EXPECT_NEAR(heard.Right[300], 15000 * GainOf(-602), kStep);
}

TEST_F(SoundAdapter, EachFrameIsHeardFromTheFirstOn) {
    auto buffer = LoadRamp();
    buffer->Play(0);
    ExpectRamp(Render(2000), 0, 2000, 0);
}

TEST_F(SoundAdapter, ALoudSumIsCutOffAndNothingElseGetsSofter) {
    auto first = LoadLevels(30000, 1000);
    auto second = LoadLevels(30000, 2000);
    first->Play(1);
    second->Play(1);
    const Heard heard = Render(4096);
    for (const std::size_t at : {std::size_t{0}, std::size_t{300}, std::size_t{4000}}) {
        EXPECT_EQ(heard.Left[at], 32767);
        EXPECT_NEAR(heard.Right[at], 3000, kStep);
    }
    second->Stop();
    EXPECT_NEAR(Render(512).Left[0], 30000, kStep);
}

TEST_F(SoundAdapter, AStartIsHeardWithinOnePeriod) {
    auto buffer = LoadLevels(20000, 20000);
    Render(100);
    buffer->Play(0);
    EXPECT_NEAR(Render(256).Left[0], 20000, kStep);
}

TEST_F(SoundAdapter, TwiceTheFrequencyHalvesTheLength) {
    auto buffer = LoadLevels(20000, 20000, 8820);
    buffer->SetFrequency(88200);
    EXPECT_EQ(buffer->GetFrequency(), 88200);
    buffer->Play(0);
    const Heard heard = Render(8820);
    EXPECT_NEAR(heard.Left[4300], 20000, 40);
    ExpectSilence(heard, 4500);
    EXPECT_EQ(buffer->GetStatus(), 0);
}

int Crossings(const std::vector<int>& samples) {
    int crossings = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) crossings += samples[i - 1] < 0 && samples[i] >= 0 ? 1 : 0;
    return crossings;
}

std::vector<std::int32_t> Tone(double hertz, double rate, int frames) {
    std::vector<std::int32_t> numbers;
    for (int i = 0; i < frames; ++i)
        numbers.push_back(static_cast<std::int32_t>(20000 * std::sin(2 * std::numbers::pi * hertz * (i + 0.5) / rate)));
    return numbers;
}

TEST_F(SoundAdapter, TheFrequencyTransposesATone) {
    auto buffer = Load(Tone(441, 44100, 4400), 1);
    buffer->Play(1);
    for (const int hertz : {11025, 22050, 44100, 66150, 100000}) {
        SCOPED_TRACE(hertz);
        buffer->SetFrequency(hertz);
        Render(512);
        EXPECT_NEAR(Crossings(Render(44100).Left), 441.0 * hertz / 44100, 2);
    }
    EXPECT_EQ(NumberOf([&] { buffer->SetFrequency(99); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->SetFrequency(100001); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapter, TheHighestFrequencyOfALowSampleIsReached) {
    auto buffer = Load(Tone(80, 8000, 8000), 1, buffer_flags::kSample, 8000);
    EXPECT_EQ(buffer->GetFrequency(), 8000);
    buffer->SetFrequency(100000);
    buffer->Play(1);
    EXPECT_NEAR(Crossings(Render(44100).Left), 1000, 4);
}

TEST_F(SoundAdapter, SamplesOfOtherRatesKeepTheirPitch) {
    struct Case {
        std::uint32_t Rate;
        std::int32_t Played;  ///< no buffer plays above 100000
    };
    for (const Case& c : std::vector<Case>{{8000, 8000},
                                           {22050, 22050},
                                           {48000, 48000},
                                           {96000, 96000},
                                           {100000, 100000},
                                           {176400, 88200},
                                           {192000, 96000},
                                           {384000, 96000}}) {
        SCOPED_TRACE(c.Rate);
        auto buffer = Load(Tone(400, c.Rate, static_cast<int>(c.Rate / 2)), 1, buffer_flags::kSample, c.Rate);
        EXPECT_EQ(buffer->GetFrequency(), c.Played);
        EXPECT_EQ(buffer->GetFormat().AvgBytesPerSec, c.Played * 2);
        EXPECT_EQ(buffer->GetCaps().BufferBytes, c.Played);  // half a second of 16 bits
        buffer->SetFrequency(buffer->GetFrequency());
        buffer->Play(1);
        EXPECT_NEAR(Crossings(Render(44100).Left), 400, 2);
    }
}

}  // namespace
}  // namespace marvolin::test
