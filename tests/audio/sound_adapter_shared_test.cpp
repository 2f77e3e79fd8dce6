/// Samples that several buffers share, and what a buffer refuses.

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterShared : public LoopbackRig {};

TEST_F(SoundAdapterShared, ADuplicateHasCursorVolumePanAndFrequencyOfItsOwn) {
    auto first = LoadLevels(10000, 10000, 2000);
    first->SetVolume(-600);
    first->SetPan(300);
    first->SetFrequency(22050);
    first->SetCurrentPosition(80);
    auto second = device_->DuplicateSoundBuffer(*first);
    EXPECT_EQ(second->GetFrequency(), 22050);
    EXPECT_EQ(second->GetCurrentPosition(), 0);
    EXPECT_EQ(second->GetStatus(), 0);
    EXPECT_EQ(second->GetCaps().BufferBytes, 8000);
    EXPECT_EQ(second->GetCaps().Flags, buffer_flags::kSample);

    second->SetVolume(0);
    second->SetPan(-10000);
    second->SetFrequency(44100);
    second->SetCurrentPosition(400);
    EXPECT_EQ(first->GetFrequency(), 22050);
    EXPECT_EQ(first->GetCurrentPosition(), 80);
    second->Play(1);
    EXPECT_EQ(first->GetStatus(), 0);
    const Heard alone = Render(512);
    EXPECT_NEAR(alone.Left[300], 10000, kStep);
    EXPECT_NEAR(alone.Right[300], 0, kStep);
    second->Stop();
    first->Play(1);
    const Heard other = Render(512);
    EXPECT_NEAR(other.Left[300], 10000 * GainOf(-600) * GainOf(-300), kStep);
    EXPECT_NEAR(other.Right[300], 10000 * GainOf(-600), kStep);
}

TEST_F(SoundAdapterShared, ADuplicateSoundsOnAfterTheFirstIsGone) {
    auto first = LoadRamp();
    first->Play(1);
    auto second = device_->DuplicateSoundBuffer(*first);
    second->Play(1);
    Render(256);
    first.reset();
    ExpectRamp(Render(512), 0, 512, 256);
    auto third = device_->DuplicateSoundBuffer(*second);
    second.reset();
    ExpectSilence(Render(256));
    third->Play(1);
    ExpectRamp(Render(512), 0, 512, 0);
}

TEST_F(SoundAdapterShared, OnlyABufferOfTheSameDeviceIsDuplicated) {
    LoopbackRenderer other;
    auto otherRoot = other.Root();
    auto otherDevice = otherRoot->DirectSoundCreate("");
    auto buffer = LoadRamp();
    EXPECT_EQ(NumberOf([&] { otherDevice->DuplicateSoundBuffer(*buffer); }), sound_error::kInvalidCall);
    auto primary = device_->CreateSoundBuffer(1);
    EXPECT_EQ(NumberOf([&] { device_->DuplicateSoundBuffer(*primary); }), sound_error::kInvalidCall);
}

TEST_F(SoundAdapterShared, ASampleIsReadAsItsBytesStandInTheFile) {
    Wave wave;
    wave.Channels = 1;
    wave.Data = Pcm({1, -2, 300, -400, 32767, -32768}, 16);
    auto buffer = Load(wave);
    ByteList whole(wave.Data.size() + 1, 0xEE);
    buffer->ReadBuffer(0, whole);
    EXPECT_EQ(ByteList(whole.begin(), whole.end() - 1), wave.Data);
    EXPECT_EQ(whole.back(), 0xEE);
    ByteList part(3);
    buffer->ReadBuffer(5, part);
    EXPECT_EQ(part, ByteList(wave.Data.begin() + 5, wave.Data.begin() + 8));
    buffer->ReadBuffer(12, part);
    EXPECT_EQ(NumberOf([&] { buffer->ReadBuffer(13, part); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->ReadBuffer(-1, part); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->WriteBuffer(13, part); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->WriteBuffer(-1, part); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapterShared, AWriteIsHeardInAllDuplicatesAtOnceAndTheyGoOn) {
    auto first = LoadRamp();
    auto second = device_->DuplicateSoundBuffer(*first);
    auto silent = device_->DuplicateSoundBuffer(*first);
    silent->SetCurrentPosition(600);
    first->SetPan(-10000);
    second->SetPan(10000);
    first->Play(1);
    Render(512);
    second->Play(0);
    Render(512);

    std::vector<std::int32_t> down;
    for (int i = 0; i < 3000; ++i) down.push_back(-10 * i);
    ByteList bytes = Pcm(down, 16);
    bytes.push_back(0);
    first->WriteBuffer(0, bytes);
    EXPECT_EQ(first->GetStatus(), 5);
    EXPECT_EQ(second->GetStatus(), 1);
    EXPECT_EQ(first->GetCurrentPosition(), 2048);
    EXPECT_EQ(second->GetCurrentPosition(), 1024);
    EXPECT_EQ(silent->GetCurrentPosition(), 600);

    const Heard heard = Render(512);
    for (std::size_t i = 0; i < 512; ++i) {
        ASSERT_NEAR(heard.Left[i], -10 * (1024 + static_cast<int>(i)), kStep) << i;
        ASSERT_NEAR(heard.Right[i], -10 * (512 + static_cast<int>(i)), kStep) << i;
    }
    ByteList back(6000);
    silent->ReadBuffer(0, back);
    bytes.pop_back();
    EXPECT_EQ(back, bytes);
}

TEST_F(SoundAdapterShared, APartIsWrittenAtItsPlace) {
    auto buffer = LoadLevels(1000, 2000, 1000);
    buffer->WriteBuffer(400 * 4 + 2, Pcm({-5000, 7000, -6000}, 16));
    buffer->WriteBuffer(3998, Pcm({9000, 9000}, 16));
    buffer->Play(0);
    const Heard heard = Render(1000);
    EXPECT_NEAR(heard.Left[400], 1000, kStep);
    EXPECT_NEAR(heard.Right[400], -5000, kStep);
    EXPECT_NEAR(heard.Left[401], 7000, kStep);
    EXPECT_NEAR(heard.Right[401], -6000, kStep);
    EXPECT_NEAR(heard.Left[402], 1000, kStep);
    EXPECT_NEAR(heard.Left[999], 1000, kStep);
    EXPECT_NEAR(heard.Right[999], 9000, kStep);
}

TEST_F(SoundAdapterShared, ControlsThatABufferWasNotMadeWithAreUnavailable) {
    const std::vector<std::int32_t> numbers(100, 0);
    auto bare = Load(numbers, 1, buffer_flags::kStatic);
    EXPECT_EQ(NumberOf([&] { bare->SetVolume(0); }), sound_error::kControlUnavailable);
    EXPECT_EQ(NumberOf([&] { bare->SetPan(0); }), sound_error::kControlUnavailable);
    EXPECT_EQ(NumberOf([&] { bare->SetFrequency(44100); }), sound_error::kControlUnavailable);
    EXPECT_EQ(NumberOf([&] { bare->GetDirectSound3dBuffer(); }), sound_error::kNoInterface);
    EXPECT_EQ(NumberOf([&] { bare->GetDirectSound3dListener(); }), sound_error::kNoInterface);
    EXPECT_EQ(NumberOf([&] { bare->SetFormat(WaveFormat{}); }), sound_error::kInvalidCall);
    auto spatial = Load(numbers, 1, buffer_flags::kSample3D);
    EXPECT_EQ(NumberOf([&] { spatial->SetPan(0); }), sound_error::kControlUnavailable);
    EXPECT_EQ(spatial->GetCaps().Flags, buffer_flags::kSample3D);
    const std::int32_t both = buffer_flags::kControl3D | buffer_flags::kControlPan;
    EXPECT_EQ(NumberOf([&] { Load(numbers, 1, both); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapterShared, MoreBuffersThanTheMixerHasAreOutOfMemoryAndHarmNoOther) {
    auto first = LoadRamp();
    std::vector<std::unique_ptr<DirectSoundBuffer>> many;
    std::uint32_t number = 0;
    while (number == 0 && many.size() < 100000)
        number = NumberOf([&] { many.push_back(device_->DuplicateSoundBuffer(*first)); });
    EXPECT_EQ(number, sound_error::kOutOfMemory);
    EXPECT_GE(many.size(), 100U);
    first->Play(0);
    ExpectRamp(Render(256), 0, 256, 0);
    many.clear();
    EXPECT_EQ(NumberOf([&] { many.push_back(device_->DuplicateSoundBuffer(*first)); }), 0U);
}

}  // namespace
}  // namespace marvolin::test
