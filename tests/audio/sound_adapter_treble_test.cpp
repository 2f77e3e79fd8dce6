/// The treble: a return to the sample's own rate neither dulls the sound nor clicks.

#include <algorithm>
#include <numbers>

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

constexpr int kOwnRate = 44100;
constexpr int kDetour = 60417;  ///< 1.37 times the own rate
constexpr int kPeriod = 256;

class SoundAdapterTreble : public LoopbackRig {
protected:
    /// Stereo noise, different in the two channels.
    std::unique_ptr<DirectSoundBuffer> LoadNoise(int frames = 5000) {
        noise_.clear();
        std::uint32_t state = 1;
        for (int i = 0; i < 2 * frames; ++i) {
            state = state * 1664525U + 1013904223U;
            noise_.push_back(static_cast<std::int32_t>(state >> 18) - 8192);
        }
        return Load(noise_, 2);
    }
    /// Expects that the noise is heard number by number, on both sides, from frame `from` on and across its loop point.
    void ExpectNoise(const Heard& heard, int from) {
        const std::size_t frames = noise_.size() / 2;
        for (std::size_t i = 0; i < heard.Left.size(); ++i) {
            const std::size_t n = 2 * ((static_cast<std::size_t>(from) + i) % frames);
            ASSERT_NEAR(heard.Left[i], noise_[n], kStep) << "left, frame " << i;
            ASSERT_NEAR(heard.Right[i], noise_[n + 1], kStep) << "right, frame " << i;
        }
    }
    static int CursorOf(DirectSoundBuffer& buffer) { return buffer.GetCurrentPosition() / 4; }
    /// Leaves the sound between two frames, at the detour's rate.
    void WanderOff(DirectSoundBuffer& buffer, int frames = 1000) {
        buffer.SetFrequency(kDetour);
        Render(frames);
    }

    std::vector<std::int32_t> noise_;
};

/// A tone with a whole number of periods in a second.
std::vector<std::int32_t> Tone(int hertz) {
    std::vector<std::int32_t> numbers;
    for (int i = 0; i < kOwnRate; ++i)
        numbers.push_back(
            static_cast<std::int32_t>(std::lround(16000 * std::sin(2 * std::numbers::pi * hertz * i / kOwnRate))));
    return numbers;
}

/// Level of a frequency in the heard sound, in dB relative to `Tone`.
double LevelOf(const std::vector<int>& samples, double hertz) {
    double real = 0;
    double imaginary = 0;
    const auto count = static_cast<double>(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto at = static_cast<double>(i);
        const double window = 0.5 - 0.5 * std::cos(2 * std::numbers::pi * at / count);
        const double phase = 2 * std::numbers::pi * hertz * at / kOwnRate;
        real += window * samples[i] * std::cos(phase);
        imaginary += window * samples[i] * std::sin(phase);
    }
    return 20 * std::log10(4 * std::hypot(real, imaginary) / count / 16000);
}

/// The sharpest bend in the heard sound: a step of n is a bend of about n.
int SharpestBend(const std::vector<int>& samples) {
    int bend = 0;
    for (std::size_t i = 2; i < samples.size(); ++i)
        bend = std::max(bend, std::abs(samples[i] - 2 * samples[i - 1] + samples[i - 2]));
    return bend;
}

TEST_F(SoundAdapterTreble, AtItsOwnRateASampleIsHeardNumberByNumber) {
    auto buffer = LoadNoise();
    buffer->Play(1);
    ExpectNoise(Render(6000), 0);
    buffer->SetCurrentPosition(4 * 1234);
    ExpectNoise(Render(1000), 1234);
    buffer->Stop();
    buffer->Play(1);
    ExpectNoise(Render(1000), 2234);
    buffer->SetFrequency(kOwnRate);
    ExpectNoise(Render(1000), 3234);
}

TEST_F(SoundAdapterTreble, BackAtItsOwnRateItIsHeardNumberByNumberWithinAPeriod) {
    auto buffer = LoadNoise();
    buffer->Play(1);
    for (int frames = 1; frames < 3000; frames += 61) {
        SCOPED_TRACE(frames);
        WanderOff(*buffer, frames);
        buffer->SetFrequency(kOwnRate);
        Render(kPeriod);
        const int cursor = CursorOf(*buffer);
        ExpectNoise(Render(600), cursor);
    }
}

TEST_F(SoundAdapterTreble, ATrebleToneIsAsLoudAfterADetourAsBefore) {
    for (const std::int32_t flags : {buffer_flags::kSample, buffer_flags::kSample3D}) {
        SCOPED_TRACE(flags);
        auto buffer = Load(Tone(19000), 1, flags);
        buffer->Play(1);
        Render(kPeriod);
        const double before = LevelOf(Render(8192).Left, 19000);
        WanderOff(*buffer);
        buffer->SetFrequency(kOwnRate);
        Render(kPeriod);
        const Heard heard = Render(8192);
        EXPECT_NEAR(LevelOf(heard.Left, 19000), before, 0.05);
        EXPECT_NEAR(LevelOf(heard.Right, 19000), before, 0.05);
    }
}

TEST_F(SoundAdapterTreble, BetweenTheFramesOnlyTheTopOctavesEndIsSofter) {
    for (const int hertz : {100, 1000, 5000, 10000, 15000}) {
        SCOPED_TRACE(hertz);
        auto buffer = Load(Tone(hertz), 1);
        buffer->SetFrequency(kOwnRate + 11);  // one step of OpenAL away from the own rate
        buffer->Play(1);
        Render(kPeriod);
        EXPECT_NEAR(LevelOf(Render(8192).Left, hertz * 4097.0 / 4096), 0, 0.2);
    }
}

TEST_F(SoundAdapterTreble, TheReturnToTheOwnRateDoesNotClick) {
    auto buffer = Load(Tone(1000), 1);
    buffer->Play(1);
    Render(kPeriod);
    const int smooth = SharpestBend(Render(4096).Left);
    for (int frames = 100; frames < 2000; frames += 37) {
        SCOPED_TRACE(frames);
        buffer->SetFrequency(kOwnRate + 130);
        std::vector<int> heard = Render(frames).Left;
        buffer->SetFrequency(kOwnRate);
        const std::vector<int> back = Render(2 * kPeriod).Left;
        heard.insert(heard.end(), back.begin(), back.end());
        EXPECT_LT(SharpestBend(heard), smooth + 40);
    }
}

TEST_F(SoundAdapterTreble, TheReturnDoesNotClickWhenTheSoundIsMixedInShortPieces) {
    auto buffer = Load(Tone(1000), 1);
    auto stepping = LoadLevels(0, 0);
    buffer->Play(1);
    Render(kPeriod);
    const int smooth = SharpestBend(Render(4096).Left);
    for (int frames = 100; frames < 2000; frames += 37) {
        SCOPED_TRACE(frames);
        buffer->SetFrequency(kOwnRate + 130);
        std::vector<int> heard = Render(frames).Left;
        buffer->SetFrequency(kOwnRate);
        for (int piece = 3; piece < 2 * kPeriod / 10; piece += 2) {
            stepping->SetCurrentPosition(0);
            stepping->Play(0);
            const std::vector<int> back = Render(piece).Left;
            heard.insert(heard.end(), back.begin(), back.end());
        }
        EXPECT_LT(SharpestBend(heard), smooth + 40);
        // By now it is back on a whole frame.
        const int cursor = buffer->GetCurrentPosition() / 2;
        EXPECT_NEAR(Render(1).Left[0], 16000 * std::sin(2 * std::numbers::pi * 1000 * cursor / kOwnRate), kStep);
    }
}

TEST_F(SoundAdapterTreble, TheReturnIsAsLoudAsTheSoundAndKeepsVolumeAndPan) {
    auto buffer = LoadLevels(20000, 20000);
    buffer->SetVolume(-602);
    buffer->SetPan(-602);
    buffer->Play(1);
    Render(kPeriod);
    for (int frames = 101; frames < 1000; frames += 100) {
        SCOPED_TRACE(frames);
        WanderOff(*buffer, frames);
        buffer->SetFrequency(kOwnRate);
        const Heard heard = Render(3 * kPeriod);
        for (std::size_t i = 0; i < heard.Left.size(); ++i) {
            ASSERT_NEAR(heard.Left[i], 10000, 20) << i;
            ASSERT_NEAR(heard.Right[i], 5000, 20) << i;
        }
    }
    WanderOff(*buffer, 777);
    buffer->SetFrequency(kOwnRate);
    buffer->SetVolume(0);
    Render(kPeriod);
    EXPECT_NEAR(Render(kPeriod).Left[100], 20000, 20);
}

TEST_F(SoundAdapterTreble, AJumpTogetherWithTheReturnKeepsItsAttackWhole) {
    auto buffer = LoadNoise();
    buffer->Play(1);
    WanderOff(*buffer);
    buffer->SetFrequency(kOwnRate);
    buffer->SetCurrentPosition(4 * 2000);
    ExpectNoise(Render(600), 2000);
    WanderOff(*buffer);
    buffer->SetFrequency(kOwnRate);
    buffer->SetCurrentPosition(0);
    ExpectNoise(Render(600), 0);
    WanderOff(*buffer);
    buffer->SetCurrentPosition(4 * 3000);
    buffer->SetFrequency(kOwnRate);
    ExpectNoise(Render(600), 3000);
}

TEST_F(SoundAdapterTreble, AStopTogetherWithTheReturnIsSilentAtOnceAndGoesOnFromThere) {
    auto buffer = LoadNoise();
    buffer->Play(1);
    WanderOff(*buffer);
    buffer->SetFrequency(kOwnRate);
    buffer->Stop();
    const int cursor = CursorOf(*buffer);
    ExpectSilence(Render(600));
    buffer->Play(1);
    ExpectNoise(Render(600), cursor);
}

TEST_F(SoundAdapterTreble, AWriteTogetherWithTheReturnGoesOnFromThere) {
    auto buffer = LoadNoise();
    buffer->Play(1);
    WanderOff(*buffer);
    buffer->SetFrequency(kOwnRate);
    const int cursor = CursorOf(*buffer);
    for (std::int32_t& number : noise_) number = -number;
    buffer->WriteBuffer(0, Pcm(noise_, 16));
    ExpectNoise(Render(600), cursor);
    WanderOff(*buffer);
    buffer->SetFrequency(kOwnRate);
    Render(kPeriod);
    const int later = CursorOf(*buffer);
    ExpectNoise(Render(600), later);
}

TEST_F(SoundAdapterTreble, ABufferReleasedDuringTheReturnIsSilent) {
    auto buffer = LoadNoise();
    buffer->Play(1);
    WanderOff(*buffer);
    buffer->SetFrequency(kOwnRate);
    buffer.reset();
    ExpectSilence(Render(600));
}

TEST_F(SoundAdapterTreble, TheShortestLoopsReturnToo) {
    for (const int frames : {2, 3, 7}) {
        SCOPED_TRACE(frames);
        auto buffer = LoadNoise(frames);
        buffer->Play(1);
        for (int detour = 1; detour < 300; detour += 13) {
            WanderOff(*buffer, detour);
            buffer->SetFrequency(kOwnRate);
            Render(kPeriod);
            const int cursor = CursorOf(*buffer);
            ExpectNoise(Render(50), cursor);
        }
        EXPECT_EQ(buffer->GetStatus(), 5);
    }
    // A single frame has no other place to settle, and no treble.
    auto buffer = LoadNoise(1);
    buffer->Play(1);
    WanderOff(*buffer, 17);
    buffer->SetFrequency(kOwnRate);
    EXPECT_NEAR(Render(kPeriod).Left[100], noise_[0], 8);
}

TEST_F(SoundAdapterTreble, AOneShotThatReturnsInItsLastFramesEnds) {
    auto buffer = LoadNoise(1000);
    for (int detour = 690; detour < 730; ++detour) {
        SCOPED_TRACE(detour);
        buffer->SetFrequency(kDetour);
        buffer->Play(0);
        Render(detour);
        buffer->SetFrequency(kOwnRate);
        Render(2 * kPeriod);
        EXPECT_EQ(buffer->GetStatus(), 0);
        EXPECT_EQ(buffer->GetCurrentPosition(), 0);
        ExpectSilence(Render(kPeriod));
        buffer->Play(0);
        ExpectNoise(Render(300), 0);
        buffer->Stop();
        buffer->SetCurrentPosition(0);
    }
}

}  // namespace
}  // namespace marvolin::test
