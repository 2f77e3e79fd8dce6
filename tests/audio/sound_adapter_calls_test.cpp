/// Calls with an instant, as heard.

#include <algorithm>
#include <functional>
#include <random>

#include "audio/clocked_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterCalls : public ClockedRig {
protected:
    /// A click: ten loud frames, then nothing for a tenth of a second.
    std::unique_ptr<DirectSoundBuffer> LoadClick(int level = kLevel, int frames = 4410) {
        std::vector<std::int32_t> numbers(static_cast<std::size_t>(frames), 0);
        std::fill_n(numbers.begin(), 10, level);
        return Load(numbers, 1);
    }
    /// What a step does: from the start again, or a start when it is silent.
    static void Step(DirectSoundBuffer& buffer) {
        const bool sounding = (buffer.GetStatus() & buffer_status::kPlaying) != 0;
        buffer.SetCurrentPosition(0);
        if (!sounding) buffer.Play(0);
    }
};

TEST_F(SoundAdapterCalls, ATickIsHeardAtItsInstantAndTheLead) {
    auto buffer = LoadLevels(kLevel, kLevel);
    for (const int frame : {1000, 1001, 1127, 1128}) {
        SCOPED_TRACE(frame);
        {
            const CallGroup tick(*Clock, InstantFor(Rendered() + frame));
            buffer->SetCurrentPosition(0);
            buffer->Play(0);
        }
        const int begin = Rendered();
        Play(2048);
        EXPECT_EQ(Onset(begin), begin + frame);
        EXPECT_NEAR(LeftAt(begin + frame - 1), 0, kStep);
        EXPECT_NEAR(LeftAt(begin + frame), kLevel, kStep);
        buffer->Stop();
        Play(kPeriod);
    }
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterCalls, StepsAreAsFarApartAsTheirTicksHoweverLateTheEventLoopIs) {
    constexpr int kStepFrames = 11025;
    constexpr int kSteps = 200;
    auto buffer = LoadClick();
    std::mt19937 chance(1);
    Play(4096);
    auto tick = static_cast<Instant>(Clock->Now()) + 1000;
    for (int step = 0; step < kSteps; ++step, tick += kStepFrames) {
        // The event loop comes round up to four milliseconds after the instant.
        const double due = static_cast<double>(tick + static_cast<Instant>(chance() % (176 - kPeriod)));
        while (Clock->Now() < due) Play(kPeriod);
        const CallGroup group(*Clock, tick);
        Step(*buffer);
    }
    Play(kStepFrames);
    int onset = Onset();
    for (int i = 1; i < kSteps; ++i) {
        const int following = Onset(onset + 100);
        ASSERT_EQ(following - onset, kStepFrames) << "step " << i;
        onset = following;
    }
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterCalls, AllStartsOfOneGestureAreHeardAtOneFrameEvenIfTheCardAsksInBetween) {
    std::vector<std::unique_ptr<DirectSoundBuffer>> buffers;
    for (int i = 0; i < 4; ++i) buffers.push_back(LoadLevels(5000, 5000));
    {
        const CallGroup gesture(*Clock);
        for (auto& buffer : buffers) {
            buffer->Play(1);
            Play(kPeriod);
        }
    }
    Play(1024);
    const int onset = Onset(0, 1000);
    ASSERT_GT(onset, 0);
    EXPECT_NEAR(LeftAt(onset), 20000, 4 * kStep);
}

TEST_F(SoundAdapterCalls, AStartByHandIsHeardAfterTheLeadAlways) {
    auto buffer = LoadLevels(kLevel, kLevel);
    // Until the line of the callbacks is known well the clock keeps some milliseconds ahead.
    Play(5 * 44100);
    int least = 1 << 20;
    int most = 0;
    for (int part = 0; part < kPeriod; part += 3) {
        Callback(kPeriod);
        const int begin = Rendered();
        Time.PassFrames(part);
        buffer->SetCurrentPosition(0);
        buffer->Play(1);
        Time.PassFrames(kPeriod - part);
        Play(1024);
        const int delay = Onset(begin) - (begin - kPeriod + part);
        least = std::min(least, delay);
        most = std::max(most, delay);
        buffer->Stop();
        Play(kPeriod);
    }
    EXPECT_LE(most - least, 1) << "the instant is a whole frame";
    EXPECT_NEAR(least, Clock->Lead(), 16) << "the clock keeps a little ahead of the callbacks";
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterCalls, VolumePanAndPitchByHandAreHeardWithTheNextCallback) {
    auto buffer = LoadRamp(3000);
    buffer->SetVolume(-600);
    buffer->Play(1);
    Play(2048);
    const auto changes = [&](const std::function<void()>& change) {
        const int place = buffer->GetCurrentPosition() / 2;
        change();
        const Heard heard = Render(kPeriod);
        const double gain = std::pow(10.0, -0.3);
        // What would be heard without the change.
        for (int i = 0; i < kPeriod; ++i) {
            const double expected = gain * 10 * ((place + i) % 3000);
            const auto n = static_cast<std::size_t>(i);
            if (std::abs(heard.Left[n] - expected) > 20 || std::abs(heard.Right[n] - expected) > 20) return true;
        }
        return false;
    };
    EXPECT_FALSE(changes([] {}));
    EXPECT_TRUE(changes([&] { buffer->SetVolume(0); }));
    buffer->SetVolume(-600);
    Play(kPeriod);
    EXPECT_TRUE(changes([&] { buffer->SetPan(-1000); }));
    buffer->SetPan(0);
    Play(kPeriod);
    EXPECT_TRUE(changes([&] { buffer->SetFrequency(30000); }));
}

TEST_F(SoundAdapterCalls, ARestartAndItsVolumePanAndPitchAreHeardAsOne) {
    for (const bool restartFirst : {true, false}) {
        SCOPED_TRACE(restartFirst);
        auto buffer = LoadLevels(kLevel, kLevel, 44100);
        buffer->SetVolume(-2000);
        buffer->Play(1);
        Play(2048);
        const int frame = Rendered() + 1000;
        {
            const CallGroup tick(*Clock, InstantFor(frame));
            if (restartFirst) buffer->SetCurrentPosition(0);
            buffer->SetVolume(0);
            buffer->SetPan(602);
            buffer->SetFrequency(22050);
            if (!restartFirst) buffer->SetCurrentPosition(0);
        }
        Play(2048);
        EXPECT_NEAR(LeftAt(frame - 1), kLevel / 10, kStep);
        // The resampler needs some frames to get from silence to a level, however the sample is started.
        EXPECT_GT(LeftAt(frame), 0.9 * kLevel / 2) << "the attack has the old volume or pan";
        EXPECT_NEAR(LeftAt(frame + 24), kLevel / 2, 100);
        EXPECT_GT(All.Right[static_cast<std::size_t>(frame)], 0.9 * kLevel);
        EXPECT_NEAR(All.Right[static_cast<std::size_t>(frame + 24)], kLevel, 200);
        EXPECT_EQ(buffer->GetFrequency(), 22050);
    }
}

TEST_F(SoundAdapterCalls, ARestartedSampleSoundsAtItsNewPitchFromTheFirstFrameOn) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Play(1024);
    const int frame = Rendered() + 777;
    {
        const CallGroup tick(*Clock, InstantFor(frame));
        buffer->SetCurrentPosition(0);
        buffer->SetFrequency(88200);
    }
    Play(2048);
    for (int i = 24; i < 500; ++i) ASSERT_NEAR(LeftAt(frame + i), 20 * i, 12) << i;
}

TEST_F(SoundAdapterCalls, CallsToOneVoiceAreHeardInTheOrderInWhichTheyWereMade) {
    auto buffer = LoadLevels(kLevel, kLevel, 44100);
    buffer->Play(1);
    Play(1024);
    {
        const CallGroup tick(*Clock, InstantFor(Rendered() + 500));
        buffer->SetVolume(-10000);
        buffer->SetCurrentPosition(4);
    }
    // By hand, before the tick is heard.
    buffer->SetVolume(-602);
    Play(2048);
    EXPECT_NEAR(LeftAt(Rendered() - 1), kLevel * std::pow(10.0, -0.301), kStep);

    buffer->Stop();
    Play(kPeriod);
    buffer->Play(1);
    buffer->Stop();
    Play(4096);
    EXPECT_EQ(buffer->GetStatus(), 0);
    EXPECT_NEAR(LeftAt(Rendered() - 1), 0, kStep) << "the stop came before the start it follows";
}

TEST_F(SoundAdapterCalls, ALateCallIsHeardAtOnceAndCounted) {
    auto buffer = LoadLevels(kLevel, kLevel);
    Play(1280);
    {
        const CallGroup tick(*Clock, InstantFor(1000));
        buffer->Play(1);
    }
    Play(256);
    EXPECT_EQ(Onset(), 1280);
    EXPECT_EQ(Counts().Late, 1U);
    EXPECT_EQ(Counts().LongestLate, 280);
}

TEST_F(SoundAdapterCalls, AHundredCallsInOneTickAreHeardTogether) {
    std::vector<std::unique_ptr<DirectSoundBuffer>> buffers;
    for (int i = 0; i < 25; ++i) buffers.push_back(LoadLevels(1000, 1000));
    {
        const CallGroup tick(*Clock, InstantFor(900));
        for (auto& buffer : buffers) {
            buffer->SetVolume(-602);
            buffer->SetPan(0);
            buffer->SetCurrentPosition(0);
            buffer->Play(1);
        }
    }
    Play(2048);
    EXPECT_NEAR(LeftAt(899), 0, kStep);
    EXPECT_NEAR(LeftAt(900), 12500, 60);
    EXPECT_EQ(Counts().Late, 0U);
    EXPECT_EQ(Counts().Overflowed, 0U);
}

TEST_F(SoundAdapterCalls, CallsThatFindTheRingFullAreHeardLaterInOrder) {
    auto buffer = LoadLevels(kLevel, kLevel, 44100);
    buffer->Play(1);
    for (int i = 0; i < 20000; ++i) buffer->SetVolume(-(i % 3000));
    buffer->SetVolume(-602);
    EXPECT_GT(Counts().Overflowed, 10000U);
    for (int i = 0; i < 20; ++i) {
        Play(kPeriod);
        EXPECT_EQ(buffer->GetStatus(), 5);
    }
    Play(1024);
    EXPECT_NEAR(LeftAt(Rendered() - 1), kLevel * std::pow(10.0, -0.301), kStep);
    // From here on there is room again.
    const std::uint64_t overflowed = Counts().Overflowed;
    buffer->SetVolume(0);
    Play(1024);
    EXPECT_NEAR(LeftAt(Rendered() - 1), kLevel, kStep);
    EXPECT_EQ(Counts().Overflowed, overflowed);
}

TEST_F(SoundAdapterCalls, AStandstillAndABurstLoseNoCallAndTheStepsAreOnTheGridAgain) {
    auto buffer = LoadClick();
    Play(4096);
    // For a second the card asks for nothing, then for everything at once. The ticks go on.
    const int begin = Rendered();
    for (int i = 1; i <= 10; ++i) {
        Time.PassFrames(4410);
        const CallGroup tick(*Clock, static_cast<Instant>(Clock->Now()));
        Step(*buffer);
        buffer->SetVolume(i < 10 ? -10000 : -602);
    }
    for (int i = 0; i < 44100 / kPeriod; ++i) Callback(kPeriod);
    const double gain = std::pow(10.0, -0.301);
    const int onset = Onset(begin, 1000);
    ASSERT_GE(onset, begin);
    EXPECT_NEAR(LeftAt(onset), kLevel * gain, kStep) << "only the last step is loud";
    EXPECT_EQ(buffer->GetStatus(), 0);

    Play(44100);
    const auto first = static_cast<Instant>(Clock->Now());
    const int from = Rendered();
    for (int i = 0; i < 5; ++i) {
        while (Clock->Now() < static_cast<double>(first + 4410 * i)) Play(kPeriod);
        const CallGroup tick(*Clock, first + 4410 * i);
        Step(*buffer);
    }
    Play(4410);
    const int start = Onset(from, 1000);
    for (int i = 1; i < 5; ++i) EXPECT_EQ(Onset(start + 4410 * i - 100, 1000), start + 4410 * i);
}

TEST_F(SoundAdapterCalls, AStepIsHeardEvenIfItsSampleEndsBetweenTheTickAndItsFrame) {
    auto buffer = LoadClick(kLevel, 2000);
    buffer->Play(0);
    Play(512);
    const int start = Onset();
    ASSERT_GE(start, 0);
    // The tick finds the sample sounding; when the step is due, it has run out.
    {
        const CallGroup tick(*Clock, InstantFor(start + 2100));
        Step(*buffer);
    }
    EXPECT_EQ(buffer->GetStatus(), 1);
    Play(4096);
    EXPECT_EQ(Onset(start + 100), start + 2100);
}

TEST_F(SoundAdapterCalls, AStopInATickIsHeardWithItsInstant) {
    auto buffer = LoadLevels(kLevel, kLevel);
    buffer->Play(1);
    Play(1024);
    const int frame = Rendered() + 600;
    {
        const CallGroup tick(*Clock, InstantFor(frame));
        buffer->Stop();
    }
    Play(1024);
    EXPECT_NEAR(LeftAt(frame - 1), kLevel, kStep);
    EXPECT_NEAR(LeftAt(frame + 2 * 32), 0, kStep);
}

TEST_F(SoundAdapterCalls, ANestedGroupIsHeardWithoutWaitingForTheOuterOne) {
    auto outer = LoadLevels(100, 100);
    auto inner = LoadLevels(kLevel, kLevel);
    const CallGroup gesture(*Clock);
    outer->SetVolume(-1);
    {
        const CallGroup tick(*Clock, InstantFor(500));
        inner->Play(1);
    }
    Play(1024);
    EXPECT_EQ(Onset(), 500);
}

TEST_F(SoundAdapterCalls, ThePeriodAndTheDelayAreKnownWhileADeviceIsOpen) {
    EXPECT_EQ(OpenAlPeriod(*root_), kPeriod);
    EXPECT_NEAR(OpenAlDelay(*root_), 1000.0 * (Clock->Lead() + kPeriod) / kFramesASecond, 1e-9);
    device_.reset();
    EXPECT_EQ(OpenAlPeriod(*root_), 0);
    EXPECT_EQ(OpenAlDelay(*root_), 0);
    EXPECT_EQ(Counts().Late, 0U);
}

TEST(SoundAdapterDelay, TheBufferOfAServerIsKnownWhereTheDriverAsksForIt) {
    EXPECT_EQ(ServerBuffer("pulseaudio", "40"), 40);
    EXPECT_EQ(ServerBuffer("pulseaudio", "0"), 0);
    EXPECT_EQ(ServerBuffer("pulseaudio", nullptr), 0);
    for (const char* noNumber : {"", "-3", "4x", "40 "}) EXPECT_EQ(ServerBuffer("pulseaudio", noNumber), 0) << noNumber;
    for (const char* driver : {"alsa", "pipewire", "jack", "disk", ""})
        EXPECT_EQ(ServerBuffer(driver, "40"), 0) << driver;
}

class SoundAdapterLongPeriod : public ClockedRig {
protected:
    SoundAdapterLongPeriod() : ClockedRig(2048) {}
};

TEST_F(SoundAdapterLongPeriod, ADeviceOf2048FramesKeepsEveryFrameToo) {
    EXPECT_EQ(OpenAlPeriod(*root_), 2048);
    EXPECT_GT(Clock->Lead(), 2048);
    auto buffer = LoadLevels(kLevel, kLevel);
    for (const int ahead : {2049, 3000, 4095, 4096}) {
        SCOPED_TRACE(ahead);
        const int frame = Rendered() + ahead;
        {
            const CallGroup tick(*Clock, InstantFor(frame));
            buffer->SetCurrentPosition(0);
            buffer->Play(1);
        }
        const int begin = Rendered();
        Play(8192);
        EXPECT_EQ(Onset(begin), frame);
        buffer->Stop();
        Play(2048);
    }
    EXPECT_EQ(Counts().Late, 0U);
}

}  // namespace
}  // namespace marvolin::test
