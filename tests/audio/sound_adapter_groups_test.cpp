/// Calls that belong together, as heard.

#include <array>
#include <functional>

#include "audio/clocked_rig.h"
#include "audio/openal/sample.h"

namespace marvolin::test {
namespace {

class SoundAdapterGroups : public ClockedRig {
protected:
    using Buffer = std::unique_ptr<DirectSoundBuffer>;
    static constexpr int kPart = 5000;

    static std::array<Buffer, 4> Four(const std::function<Buffer()>& load) { return {load(), load(), load(), load()}; }
    std::array<Buffer, 4> FourLevels() {
        return Four([this] { return LoadLevels(kPart, kPart, 44100); });
    }
    /// Expects four samples of `FourLevels` that begin at one frame after frame `from`, and returns it.
    int ExpectOneStart(int from) {
        const int onset = Onset(from, kPart / 2);
        EXPECT_GT(onset, 0) << "nothing is heard";
        const int level = onset > 0 ? LeftAt(onset) : 0;
        EXPECT_NEAR(level, 4 * kPart, 4 * kStep) << "they begin at different frames";
        return onset;
    }
    /// Until the line of the callbacks is known well, the clock keeps some milliseconds ahead.
    void Settle() { Play(5 * 44100); }
    /// The card asks for nothing while so many frames pass.
    void StandStill(int frames) { Time.PassFrames(frames); }
};

TEST_F(SoundAdapterGroups, WhatIsStoppedBeforeALoadIsSilentBeforeTheGroupEnds) {
    auto old = LoadLevels(kLevel, kLevel);
    old->Play(1);
    Play(2048);
    ASSERT_GT(LeftAt(Rendered() - 1), kLevel / 2);
    const CallGroup gesture(*Clock);
    old->Stop();
    auto fresh = LoadLevels(kLevel, kLevel);
    Play(kPeriod);
    EXPECT_NEAR(LeftAt(Rendered() - 1), 0, kStep);
}

TEST_F(SoundAdapterGroups, StartsAfterALoadInTheSameGroupAreNotLateAndStandAtOneFrame) {
    Settle();
    auto old = LoadLevels(kLevel, kLevel);
    old->Play(1);
    Play(2048);
    std::array<Buffer, 4> fresh;
    {
        const CallGroup gesture(*Clock);
        old->Stop();
        for (Buffer& buffer : fresh) {
            buffer = LoadLevels(kPart, kPart, 44100);
            Play(4480);
            buffer->SetVolume(0);
        }
        for (Buffer& buffer : fresh) buffer->Play(1);
    }
    const int begin = Rendered();
    Play(4096);
    EXPECT_NEAR(ExpectOneStart(begin), begin + Clock->Lead(), kPeriod);
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterGroups, WhatIsStoppedBeforeAWriteIsSilentBeforeTheGroupEnds) {
    auto old = LoadLevels(kLevel, kLevel);
    auto written = LoadLevels(kLevel, kLevel);
    old->Play(1);
    Play(2048);
    ASSERT_GT(LeftAt(Rendered() - 1), kLevel / 2);
    const CallGroup gesture(*Clock);
    old->Stop();
    written->WriteBuffer(0, ByteList(4, 1));
    Play(kPeriod);
    EXPECT_NEAR(LeftAt(Rendered() - 1), 0, kStep);
}

TEST_F(SoundAdapterGroups, StartsAfterALoadInATickAreNotLateAndStandAtOneFrame) {
    Settle();
    std::array<Buffer, 4> fresh;
    Instant end = 0;
    {
        const CallGroup tick(*Clock, static_cast<Instant>(Clock->Now()));
        for (Buffer& buffer : fresh) {
            Play(4480);
            buffer = LoadLevels(kPart, kPart, 44100);
        }
        for (Buffer& buffer : fresh) buffer->Play(1);
        end = static_cast<Instant>(Clock->Now());
    }
    const int begin = Rendered();
    const int frame = FrameOf(end);
    Play(4096);
    EXPECT_NEAR(ExpectOneStart(begin), frame, 1);
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterGroups, ATickThatLoadsWithinTheBudgetKeepsItsPlace) {
    Settle();
    const auto grid = static_cast<Instant>(Clock->Now());
    const int frame = FrameOf(grid);
    Buffer buffer;
    {
        const CallGroup tick(*Clock, grid);
        buffer = LoadLevels(kLevel, kLevel, 44100);
        Time.PassFrames(100);
        buffer->Play(1);
    }
    Time.PassFrames(28);
    const int begin = Rendered();
    Play(2048);
    EXPECT_EQ(Onset(begin), frame);
}

TEST_F(SoundAdapterGroups, AGestureThatLastsLongerThanTheBudgetIsHeardTogetherAtItsEnd) {
    Settle();
    auto buffers = FourLevels();
    Play(2048);
    {
        const CallGroup gesture(*Clock);
        for (Buffer& buffer : buffers) {
            buffer->SetVolume(-602);
            buffer->Play(1);
            buffer->SetVolume(0);
            Play(1024);
        }
    }
    const int begin = Rendered();
    Play(4096);
    EXPECT_NEAR(ExpectOneStart(begin), begin + Clock->Lead(), kPeriod);
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterGroups, AShortGestureIsHeardAtItsFirstCallAndTheLead) {
    Settle();
    auto buffers = FourLevels();
    Play(4096);
    const int begin = Rendered();
    {
        const CallGroup gesture(*Clock);
        for (Buffer& buffer : buffers) {
            buffer->Play(1);
            Time.PassFrames(kPeriod / 4);
        }
    }
    Play(4096);
    EXPECT_NEAR(ExpectOneStart(begin), begin + Clock->Lead(), 16);
    EXPECT_EQ(Counts().Late, 0U);
}

TEST_F(SoundAdapterGroups, FourStartsStandAtOneFrameThoughTheCardHasLostItsPlace) {
    for (const bool inTick : {false, true}) {
        SCOPED_TRACE(inTick);
        auto buffers = FourLevels();
        Play(8192);
        // While the card stands still, one of them is called, for a frame far ahead.
        StandStill(44100);
        const auto before = static_cast<Instant>(Clock->Now());
        {
            const CallGroup tick(*Clock, before);
            buffers[0]->SetVolume(0);
        }
        const auto ahead = Clock->FrameOf(before + Clock->Lead());
        while (Clock->FrameOf(static_cast<Instant>(Clock->Now())) >= Rendered() + 512) Play(kPeriod);
        const auto now = static_cast<Instant>(Clock->Now());
        ASSERT_LT(Clock->FrameOf(now + Clock->Lead()), ahead) << "frames have not gone back";
        const int begin = Rendered();
        {
            const CallGroup group(*Clock, inTick ? std::optional<Instant>(now) : std::nullopt);
            for (Buffer& buffer : buffers) buffer->Play(1);
        }
        Play(44100);
        ExpectOneStart(begin);
    }
}

TEST_F(SoundAdapterGroups, AStartByHandDoesNotMoveTheStepOfAnotherSample) {
    auto byHand = LoadLevels(100, 100, 44100);
    auto stepped = LoadLevels(kLevel, kLevel, 44100);
    Play(4096);
    const auto grid = static_cast<Instant>(Clock->Now());
    Time.PassFrames(100);
    byHand->Play(1);
    // The tick comes 100 frames late, within the budget.
    const int frame = FrameOf(grid);
    {
        const CallGroup tick(*Clock, grid);
        byHand->SetVolume(0);
        stepped->Play(1);
    }
    Time.PassFrames(28);
    Play(2048);
    EXPECT_EQ(Onset(), frame);
}

TEST_F(SoundAdapterGroups, SamplesWithoutAStepToComeDoNotWaitForTheOneThatHasOne) {
    auto buffers = FourLevels();
    for (Buffer& buffer : buffers) buffer->Play(1);
    Play(4096);
    {
        const CallGroup tick(*Clock, InstantFor(Rendered() + 300));
        buffers[1]->SetCurrentPosition(0);
    }
    {
        const CallGroup gesture(*Clock);
        for (Buffer& buffer : buffers) buffer->SetVolume(-10000);
    }
    Play(kPeriod);
    EXPECT_NEAR(LeftAt(Rendered() - 1), kPart, kPart / 20) << "the other three are not silent after one period";
    Play(1024);
    EXPECT_NEAR(LeftAt(Rendered() - 1), 0, kStep);
}

TEST_F(SoundAdapterGroups, SamplesThatAreStoppedByOneGestureFallSilentTogether) {
    auto buffers = FourLevels();
    for (Buffer& buffer : buffers) buffer->Play(1);
    Play(4096);
    // The stop of this one has to wait.
    {
        const CallGroup tick(*Clock, InstantFor(Rendered() + 300));
        buffers[1]->SetCurrentPosition(0);
    }
    const int begin = Rendered();
    {
        const CallGroup gesture(*Clock);
        for (Buffer& buffer : buffers) buffer->Stop();
    }
    Play(2048);
    int quiet = begin;
    while (LeftAt(quiet) > 4 * kPart - 100) ++quiet;
    EXPECT_GE(quiet, begin + 300);
    for (int i = quiet + 1; i < Rendered(); ++i) ASSERT_NEAR(LeftAt(i), 0, kStep) << i - begin;
}

TEST_F(SoundAdapterGroups, VolumesOfAGestureWithoutAStartAreHeardWithTheNextCallback) {
    auto buffers = FourLevels();
    for (Buffer& buffer : buffers) buffer->Play(1);
    Play(4096);
    {
        const CallGroup gesture(*Clock);
        for (Buffer& buffer : buffers) buffer->SetVolume(-10000);
    }
    Callback(kPeriod);
    EXPECT_NEAR(LeftAt(Rendered() - 1), 0, 4 * kPart / 100);
}

TEST_F(SoundAdapterGroups, AStopAndAPlayOfOneGestureLeaveNoHole) {
    Settle();
    auto buffer = LoadRamp(3000);
    buffer->SetVolume(-600);
    buffer->Play(1);
    Play(1024);
    const int begin = Rendered();
    {
        const CallGroup gesture(*Clock);
        buffer->SetVolume(0);
        buffer->Stop();
        buffer->Play(0);
    }
    Play(1024);
    const double quiet = std::pow(10.0, -0.3);
    const int before = static_cast<int>(std::lround(LeftAt(begin - 1) / quiet / 10));
    int change = begin;
    for (; change < Rendered(); ++change) {
        const double expected = quiet * 10 * (before + change - begin + 1);
        if (std::abs(LeftAt(change) - expected) > 20) break;
    }
    EXPECT_NEAR(change, begin + Clock->Lead(), kPeriod) << "the volume has not come with the start";
    for (int i = change + 32; i < begin + 900; ++i) ASSERT_NEAR(LeftAt(i), 10 * (before + i - begin + 1), 20) << i;
}

TEST_F(SoundAdapterGroups, AChangeFromOneSampleToAnotherInOneGestureIsSeamless) {
    auto first = LoadLevels(kLevel, kLevel, 44100);
    auto second = LoadLevels(kLevel, kLevel, 44100);
    first->Play(1);
    Play(2048);
    {
        const CallGroup gesture(*Clock);
        first->Stop();
        first->SetCurrentPosition(0);
        second->Play(1);
    }
    Play(2048);
    EXPECT_EQ(first->GetStatus(), 0);
    EXPECT_EQ(second->GetStatus(), 5);
    // A mixer fades a stopped source out over some frames.
    for (int i = 1024; i < Rendered(); ++i) ASSERT_GT(LeftAt(i), kLevel - 100) << i;
}

TEST_F(SoundAdapterGroups, StartsOfOneFrameAreNotTornApartByTheMostCallsOfAPiece) {
    for (const int others : {250, 253, 254, 255, 300, 1000}) {
        SCOPED_TRACE(others);
        auto buffers = FourLevels();
        {
            const CallGroup tick(*Clock, InstantFor(Rendered() + 700));
            for (int i = 0; i < others; ++i) buffers[0]->SetVolume(0);
            for (Buffer& buffer : buffers) buffer->Play(1);
        }
        const int begin = Rendered();
        Play(2048);
        ExpectOneStart(begin);
        for (Buffer& buffer : buffers) buffer->Stop();
        Play(kPeriod);
    }
}

TEST_F(SoundAdapterGroups, AVoiceMayEndWithinItsGroup) {
    auto kept = LoadLevels(kLevel, kLevel);
    {
        const CallGroup gesture(*Clock);
        for (int i = 0; i < 10; ++i) {
            auto duplicate = device_->DuplicateSoundBuffer(*kept);
            duplicate->Play(1);
        }
        kept->Play(1);
    }
    Play(2048);
    EXPECT_NEAR(LeftAt(Rendered() - 1), kLevel, kStep);
}

/// Says when it is destroyed.
class WatchedThing final : public OpenAlContext::Thing {
public:
    WatchedThing(bool& past, bool& freed) : past_(past), freed_(freed) {}
    ~WatchedThing() override { freed_ = true; }
    bool Past() const override { return past_; }

private:
    bool& past_;
    bool& freed_;
};

TEST(SoundAdapterReleased, WhatIsReleasedIsFreedByTheNextTickWithoutAnyCallOfTheService) {
    HandTime time;
    const auto clock = time.MakeClock();
    bool past = false;
    bool freed = false;
    OpenAlContext context(std::make_shared<LoadMeter>());
    context.JoinClock(clock, 128);
    context.Retire(std::make_unique<WatchedThing>(past, freed));
    { const CallGroup tick(*clock, 0); }
    EXPECT_FALSE(freed);
    past = true;
    { const CallGroup tick(*clock, 441); }
    EXPECT_TRUE(freed);
}

TEST(SoundAdapterReleased, ALoadFreesWhatIsPastBeforeItReadsAnything) {
    bool past = false;
    bool freed = false;
    const auto context = std::make_shared<OpenAlContext>(std::make_shared<LoadMeter>());
    context->Retire(std::make_unique<WatchedThing>(past, freed));
    past = true;
    EXPECT_THROW(SampleMemory(context, "no such file", false), SoundError);
    EXPECT_TRUE(freed);
}

TEST_F(SoundAdapterGroups, CallsThatFoundTheRingFullFollowWithTheTicksAlone) {
    auto buffer = LoadLevels(kLevel, kLevel, 44100);
    buffer->Play(1);
    for (int i = 0; i < 20000; ++i) buffer->SetVolume(-(i % 3000));
    buffer->SetVolume(-602);
    ASSERT_GT(Counts().Overflowed, 10000U);
    for (int i = 0; i < 100; ++i) {
        { const CallGroup tick(*Clock, static_cast<Instant>(Clock->Now())); }
        Play(kPeriod);
    }
    EXPECT_NEAR(LeftAt(Rendered() - 1), kLevel * std::pow(10.0, -0.301), kStep);
}

}  // namespace
}  // namespace marvolin::test
