/// What a buffer answers while its calls are on their way.

#include "audio/clocked_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterTold : public ClockedRig {};

TEST_F(SoundAdapterTold, AfterPlayItIsPlayingThoughNothingHasBeenRendered) {
    auto buffer = LoadRamp();
    buffer->SetCurrentPosition(400);
    EXPECT_EQ(buffer->GetCurrentPosition(), 400);
    EXPECT_EQ(buffer->GetStatus(), 0);
    buffer->Play(1);
    EXPECT_EQ(buffer->GetStatus(), 5);
    EXPECT_EQ(buffer->GetCurrentPosition(), 400);
    Callback(kPeriod);
    EXPECT_EQ(buffer->GetStatus(), 5) << "the start is not due yet";
    EXPECT_EQ(buffer->GetCurrentPosition(), 400);
    Play(2048);
    EXPECT_EQ(buffer->GetStatus(), 5);
    EXPECT_EQ(buffer->GetCurrentPosition(), 400 + 2 * (Rendered() - Onset(0, 1000)));
}

TEST_F(SoundAdapterTold, AfterAJumpTheCursorIsThereAndGoesOnFromThere) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Play(1024);
    buffer->SetCurrentPosition(3000);
    EXPECT_EQ(buffer->GetCurrentPosition(), 3000);
    EXPECT_EQ(buffer->GetStatus(), 5);
    Callback(kPeriod);
    EXPECT_EQ(buffer->GetCurrentPosition(), 3000);
    Play(1024);
    EXPECT_GT(buffer->GetCurrentPosition(), 3000);
    EXPECT_LT(buffer->GetCurrentPosition(), 3000 + 2 * 1280);
}

TEST_F(SoundAdapterTold, AfterStopItIsSilentTheCursorStaysAndPlayGoesOnWhereItStopped) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Play(1024);
    {
        const CallGroup tick(*Clock, InstantFor(Rendered() + 250));
        buffer->Stop();
    }
    const int cursor = buffer->GetCurrentPosition();
    EXPECT_EQ(buffer->GetStatus(), 0);
    Play(2048);
    EXPECT_EQ(buffer->GetStatus(), 0);
    EXPECT_EQ(buffer->GetCurrentPosition(), cursor);
    int last = Rendered() - 1;
    while (LeftAt(last) < 100) --last;
    const int level = LeftAt(last);
    const int begin = Rendered();
    buffer->Play(1);
    Play(2048);
    EXPECT_NEAR(LeftAt(Onset(begin, 100)), level + 10, 2 * kStep);
}

TEST_F(SoundAdapterTold, AOneShotThatHasRunOutSaysSo) {
    auto buffer = LoadRamp(500);
    buffer->Play(0);
    Play(512);
    EXPECT_EQ(buffer->GetStatus(), 1);
    Play(1024);
    EXPECT_EQ(buffer->GetStatus(), 0);
    EXPECT_EQ(buffer->GetCurrentPosition(), 0);
}

TEST_F(SoundAdapterTold, APlayThatMeetsASampleThatHasJustRunOutStartsItAtItsBeginning) {
    auto buffer = LoadRamp(600);
    buffer->Play(0);
    Play(512);
    const int start = Onset(0, 5) - 1;
    {
        const CallGroup tick(*Clock, InstantFor(start + 900));
        buffer->Play(0);
    }
    EXPECT_EQ(buffer->GetStatus(), 1);
    Play(4096);
    EXPECT_NEAR(Onset(start + 610, 15) - (start + 900), 2, 1);
    EXPECT_EQ(buffer->GetStatus(), 0);
}

TEST_F(SoundAdapterTold, APlayAfterAStopGoesOnAtTheCursorThoughTheSampleRanOutBeforeItWasStopped) {
    auto buffer = LoadRamp(600);
    buffer->Play(0);
    Play(640);
    const int start = Onset(0, 5) - 1;
    {
        const CallGroup tick(*Clock, InstantFor(start + 900));
        buffer->Stop();
    }
    const int cursor = buffer->GetCurrentPosition();
    ASSERT_GT(cursor, 100);
    Play(2048);
    EXPECT_EQ(buffer->GetStatus(), 0);
    EXPECT_EQ(buffer->GetCurrentPosition(), cursor);
    const int begin = Rendered();
    buffer->Play(0);
    Play(2048);
    EXPECT_NEAR(LeftAt(Onset(begin, 10)), 10 * cursor / 2, 10 + kStep);
}

TEST_F(SoundAdapterTold, AWriteIsHeardAtTheSamePlaceInAllDuplicatesWhileTheySound) {
    auto first = LoadRamp();
    first->Play(1);
    auto second = device_->DuplicateSoundBuffer(*first);
    second->SetPan(10000);
    first->SetPan(-10000);
    second->Play(1);
    Play(1024);
    std::vector<std::int32_t> down;
    for (int i = 0; i < 3000; ++i) down.push_back(-10 * i);
    first->WriteBuffer(0, Pcm(down, 16));
    EXPECT_EQ(first->GetStatus(), 5);
    const int begin = Rendered();
    const int level = LeftAt(begin - 1);
    ASSERT_GT(level, 1000);
    Play(512);
    EXPECT_NEAR(LeftAt(begin), -level - 10, 2 * kStep);
    EXPECT_NEAR(All.Right[static_cast<std::size_t>(begin)], -level - 10, 2 * kStep);
}

TEST_F(SoundAdapterTold, CallsAreTakenWhenTheDeviceIsClosedAndWhatIsReleasedIsFreed) {
    auto first = LoadRamp();
    first->Play(1);
    device_.reset();
    EXPECT_EQ(first->GetStatus(), 5);
    for (int i = 0; i < 10000; ++i) first->SetVolume(-(i % 5000));
    // More than there are sources.
    for (int i = 0; i < 5000; ++i) first->WriteBuffer(0, Pcm({i, -i}, 16));
    first->Stop();
    EXPECT_EQ(first->GetStatus(), 0);
}

TEST_F(SoundAdapterTold, TheNextDeviceGoesOnWithTheClockThoughTheFirstIsStillOpen) {
    Play(1024);
    auto kept = LoadRamp();
    auto next = root_->DirectSoundCreate("");
    All = {};
    device_.swap(next);
    auto buffer = LoadLevels(kLevel, kLevel);
    {
        const CallGroup tick(*Clock, InstantFor(700));
        buffer->Play(1);
        kept->Play(1);
    }
    next.reset();
    Play(1024);
    EXPECT_EQ(Onset(), 700);
    const CallGroup tick(*Clock, InstantFor(Rendered() + 700));
    buffer->SetVolume(0);
}

}  // namespace
}  // namespace marvolin::test
