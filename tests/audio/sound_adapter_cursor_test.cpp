/// Starting, stopping and moving a sample, as heard.

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterCursor : public LoopbackRig {};

TEST_F(SoundAdapterCursor, ALoopGoesOnWithoutAGap) {
    auto buffer = LoadRamp(1000);
    buffer->Play(1);
    const Heard heard = Render(3500);
    for (int pass = 0; pass < 3; ++pass) ExpectRamp(heard, 1000 * pass, 1000, 0);
    EXPECT_EQ(buffer->GetStatus(), 5);
}

TEST_F(SoundAdapterCursor, AOneShotEndsAndItsCursorIsBackAtTheStart) {
    auto buffer = LoadRamp(1000);
    buffer->Play(0);
    EXPECT_EQ(buffer->GetStatus(), 1);
    const Heard heard = Render(1280);
    ExpectRamp(heard, 0, 1000, 0);
    ExpectSilence(heard, 1000);
    EXPECT_EQ(buffer->GetStatus(), 0);
    EXPECT_EQ(buffer->GetCurrentPosition(), 0);
    buffer->Play(0);
    ExpectRamp(Render(500), 0, 500, 0);
}

TEST_F(SoundAdapterCursor, AOneShotThatRanOutCanBePlayedAgain) {
    auto buffer = LoadRamp(1000);
    buffer->SetCurrentPosition(400);
    buffer->Play(0);
    Render(1280);
    buffer->Play(0);
    ExpectRamp(Render(500), 0, 500, 0);
}

TEST_F(SoundAdapterCursor, PlayOnASoundingBufferChangesOnlyTheLooping) {
    auto buffer = LoadRamp(1000);
    buffer->Play(1);
    Render(600);
    buffer->Play(0);
    EXPECT_EQ(buffer->GetStatus(), 1);
    const Heard last = Render(768);
    ExpectRamp(last, 0, 400, 600);
    ExpectSilence(last, 400);
    EXPECT_EQ(buffer->GetStatus(), 0);

    buffer->Play(0);
    Render(600);
    buffer->Play(1);
    EXPECT_EQ(buffer->GetStatus(), 5);
    const Heard more = Render(800);
    ExpectRamp(more, 0, 400, 600);
    ExpectRamp(more, 400, 400, 0);
    EXPECT_EQ(NumberOf([&] { buffer->Play(2); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapterCursor, StopKeepsTheCursorAndPlayGoesOnFromThere) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Render(768);
    buffer->Stop();
    EXPECT_EQ(buffer->GetStatus(), 0);
    EXPECT_EQ(buffer->GetCurrentPosition(), 2 * 768);
    ExpectSilence(Render(512));
    buffer->Play(1);
    ExpectRamp(Render(512), 0, 512, 768);
}

TEST_F(SoundAdapterCursor, APositionSetWhileSilentIsRememberedAndItsAttackIsWhole) {
    auto buffer = LoadRamp();
    buffer->SetCurrentPosition(2000);
    EXPECT_EQ(buffer->GetCurrentPosition(), 2000);
    buffer->Play(0);
    ExpectRamp(Render(512), 0, 512, 1000);
}

TEST_F(SoundAdapterCursor, APositionSetWhileSoundingJumpsWithoutAGap) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Render(512);
    buffer->SetCurrentPosition(3000);
    EXPECT_EQ(buffer->GetStatus(), 5);
    ExpectRamp(Render(512), 0, 512, 1500);
    buffer->SetCurrentPosition(0);
    ExpectRamp(Render(512), 0, 512, 0);
}

TEST_F(SoundAdapterCursor, PositionsAreTakenDownToAWholeFrame) {
    auto mono = LoadRamp();
    mono->SetCurrentPosition(2001);
    EXPECT_EQ(mono->GetCurrentPosition(), 2000);
    auto stereo = LoadLevels(1000, 1000, 100);
    for (const int bytes : {40, 41, 42, 43}) {
        stereo->SetCurrentPosition(bytes);
        EXPECT_EQ(stereo->GetCurrentPosition(), 40);
    }
    stereo->SetCurrentPosition(399);
    EXPECT_EQ(stereo->GetCurrentPosition(), 396);
}

TEST_F(SoundAdapterCursor, APositionBeyondTheSampleIsAnInvalidArgument) {
    auto buffer = LoadLevels(1000, 1000, 100);
    for (const int bytes : {400, 401, -1, 0x7FFFFFFF}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(NumberOf([&] { buffer->SetCurrentPosition(bytes); }), sound_error::kInvalidArgument);
    }
    EXPECT_EQ(buffer->GetCurrentPosition(), 0);
}

TEST_F(SoundAdapterCursor, TheCursorFollowsTheSound) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Render(1024);
    EXPECT_EQ(buffer->GetCurrentPosition(), 2048);
}

TEST_F(SoundAdapterCursor, LeftAndRightStayTogetherThroughEveryCall) {
    std::vector<std::int32_t> noise;
    std::uint32_t state = 1;
    for (int i = 0; i < 5000; ++i) {
        state = state * 1664525U + 1013904223U;
        noise.push_back(static_cast<std::int32_t>(state >> 18) - 8192);
    }
    auto buffer = Load(noise, 1);
    buffer->Play(1);
    for (int i = 0; i < 200; ++i) {
        SCOPED_TRACE(i);
        if (i % 3 == 0) buffer->SetCurrentPosition((i * 997) % 9000);
        if (i % 5 == 0) buffer->SetFrequency(20000 + i * 300);
        if (i % 7 == 0) buffer->Stop();
        if (i % 7 == 1) buffer->Play(1);
        const Heard heard = Render(100 + i);
        for (std::size_t n = 0; n < heard.Left.size(); ++n) ASSERT_NEAR(heard.Left[n], heard.Right[n], 2 * kStep);
    }
}

}  // namespace
}  // namespace marvolin::test
