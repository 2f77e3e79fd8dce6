/// Roots, drivers, devices and the primary buffer.

#include <chrono>
#include <thread>

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapterDevice : public LoopbackRig {
protected:
    static void ChooseOutputs(const char* driver) { setenv("SDL_AUDIODRIVER", driver, 1); }
};

constexpr WaveFormat kPrimaryFormat{1, 2, 44100, 16, 4, 176400, 0};

TEST_F(SoundAdapterDevice, ThePrimaryBufferTakesTheOneFormatAtThePriorityLevel) {
    auto primary = device_->CreateSoundBuffer(1);
    EXPECT_EQ(NumberOf([&] { primary->SetFormat(kPrimaryFormat); }), sound_error::kPriorityNeeded);
    device_->SetCooperativeLevel(2);
    primary->SetFormat(kPrimaryFormat);
    EXPECT_EQ(primary->GetFormat(), kPrimaryFormat);
    WaveFormat other = kPrimaryFormat;
    other.SamplesPerSec = 22050;
    EXPECT_EQ(NumberOf([&] { primary->SetFormat(other); }), sound_error::kBadFormat);
    device_->SetCooperativeLevel(1);
    EXPECT_EQ(NumberOf([&] { primary->SetFormat(kPrimaryFormat); }), sound_error::kPriorityNeeded);
    EXPECT_EQ(NumberOf([&] { device_->SetCooperativeLevel(0); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapterDevice, ThePrimaryBufferPlaysLoopingOnlyAndHoldsNoSample) {
    auto primary = device_->CreateSoundBuffer(17);
    EXPECT_EQ(primary->GetStatus(), 0);
    EXPECT_EQ(NumberOf([&] { primary->Play(0); }), sound_error::kInvalidArgument);
    primary->Play(1);
    EXPECT_EQ(primary->GetStatus(), 5);
    primary->Stop();
    EXPECT_EQ(primary->GetStatus(), 0);
    EXPECT_EQ(primary->GetCaps().Flags, 17);
    EXPECT_EQ(primary->GetCaps().BufferBytes, 0);
    ByteList bytes(4);
    EXPECT_EQ(NumberOf([&] { primary->ReadBuffer(0, bytes); }), sound_error::kInvalidCall);
    EXPECT_EQ(NumberOf([&] { primary->WriteBuffer(0, bytes); }), sound_error::kInvalidCall);
    EXPECT_EQ(NumberOf([&] { primary->SetCurrentPosition(0); }), sound_error::kInvalidCall);
    EXPECT_EQ(NumberOf([&] { primary->SetVolume(0); }), sound_error::kControlUnavailable);
    EXPECT_EQ(NumberOf([&] { primary->GetDirectSound3dBuffer(); }), sound_error::kNoInterface);
    EXPECT_EQ(NumberOf([&] { device_->CreateSoundBuffer(2); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapterDevice, OnlyASpatialPrimaryBufferHasAListener) {
    EXPECT_EQ(NumberOf([&] { device_->CreateSoundBuffer(1)->GetDirectSound3dListener(); }), sound_error::kNoInterface);
    EXPECT_NE(device_->CreateSoundBuffer(17)->GetDirectSound3dListener(), nullptr);
}

TEST_F(SoundAdapterDevice, TheSpeakersAreThoseThatWereSet) {
    EXPECT_NE(device_->GetSpeakerConfig() & 3, 3);
    device_->SetSpeakerConfig(3);
    EXPECT_EQ(device_->GetSpeakerConfig(), 3);
}

TEST_F(SoundAdapterDevice, WhatOutlivesItsDeviceStaysUsable) {
    auto primary = device_->CreateSoundBuffer(17);
    auto listener = primary->GetDirectSound3dListener();
    auto buffer = LoadRamp();
    device_.reset();
    root_.reset();
    buffer->Play(1);
    EXPECT_EQ(buffer->GetStatus(), 5);
    listener->SetPosition({1, 0, 0});
    primary->Stop();
    primary.reset();
    buffer.reset();
    listener.reset();
    ExpectSilence(Render(256));
}

TEST_F(SoundAdapterDevice, TheHeadlessServiceHasOneDriver) {
    auto drivers = root_->GetDSEnum();
    ASSERT_EQ(drivers->GetCount(), 1);
    EXPECT_EQ(drivers->GetDescription(1), "Primary Sound Driver");
    EXPECT_EQ(NumberOf([&] { drivers->GetGuid(0); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { drivers->GetGuid(2); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { root_->DirectSoundCreate("elsewhere"); }), sound_error::kNoDriver);
}

TEST_F(SoundAdapterDevice, RenderingWithoutADeviceIsSilence) {
    LoopbackRenderer idle;
    std::vector<std::int16_t> out(64, 77);
    idle.Render(out.data(), 32);
    EXPECT_EQ(out, std::vector<std::int16_t>(64, 0));
}

TEST_F(SoundAdapterDevice, DevicesOfOneProcessDoNotMix) {
    LoopbackRenderer other;
    auto otherRoot = other.Root();
    auto otherDevice = otherRoot->DirectSoundCreate("");
    const std::string path =
        folder_.Write("b.wav", WaveBytes({.Data = Pcm(std::vector<std::int32_t>(4000, -3000), 16)}));
    auto theirs = otherDevice->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    auto ours = LoadLevels(5000, 6000);
    ours->Play(1);
    theirs->Play(1);
    ours->SetVolume(-600);
    theirs->SetVolume(0);
    std::vector<std::int16_t> out(1024);
    other.Render(out.data(), 512);
    EXPECT_NEAR(out[1000], -3000, kStep);
    EXPECT_NEAR(Render(512).Left[400], 5000 * std::pow(10.0, -0.3), kStep);
    otherDevice.reset();
    theirs.reset();
    EXPECT_EQ(ours->GetStatus(), 5);
}

TEST_F(SoundAdapterDevice, TheLoadIsKnownWhileADeviceIsOpen) {
    EXPECT_EQ(OpenAlSoundLoad(*root_), 0);
    auto buffer = LoadRamp();
    buffer->SetFrequency(60000);
    buffer->Play(1);
    Render(44100);
    EXPECT_GT(OpenAlSoundLoad(*root_), 0);
    device_.reset();
    EXPECT_EQ(OpenAlSoundLoad(*root_), 0);
}

TEST_F(SoundAdapterDevice, ARealDeviceOpensAndClosesAndOpensAgain) {
    ChooseOutputs("dummy");
    auto root = CreateOpenAlSound();
    auto drivers = root->GetDSEnum();
    ASSERT_GE(drivers->GetCount(), 2);
    EXPECT_EQ(drivers->GetDescription(1), "Primary Sound Driver");
    EXPECT_EQ(drivers->GetGuid(1), "");
    for (std::int16_t i = 1; i <= drivers->GetCount(); ++i) {
        SCOPED_TRACE(drivers->GetDescription(i));
        auto device = root->DirectSoundCreate(drivers->GetGuid(i));
        device->SetCooperativeLevel(2);
        auto primary = device->CreateSoundBuffer(17);
        primary->SetFormat(kPrimaryFormat);
        device->SetCooperativeLevel(1);
        primary->Play(1);
        EXPECT_EQ(OpenAlPeriod(*root), 128) << "this driver grants what it is asked for";
        device.reset();
        EXPECT_EQ(OpenAlPeriod(*root), 0);
    }
    EXPECT_EQ(NumberOf([&] { root->DirectSoundCreate("no such output"); }), sound_error::kNoDriver);
}

TEST_F(SoundAdapterDevice, AnOutputThatIsMissingCostsTheNextOneNothing) {
    ChooseOutputs("dummy");
    auto root = CreateOpenAlSound();
    EXPECT_EQ(NumberOf([&] { root->DirectSoundCreate("no such output"); }), sound_error::kNoDriver);
    for (int i = 0; i < 2; ++i) EXPECT_NE(root->DirectSoundCreate("")->CreateSoundBuffer(17), nullptr);
}

TEST_F(SoundAdapterDevice, AServiceThatIsAskedForNoDeviceEndsWithTheMixerItHasMadeAhead) {
    ChooseOutputs("dummy");
    EXPECT_EQ(CreateOpenAlSound()->GetDSEnum()->GetDescription(1), "Primary Sound Driver");
}

TEST_F(SoundAdapterDevice, TheOutputsThreadMovesTheCursorWhileCallsPourIn) {
    ChooseOutputs("dummy");
    auto root = CreateOpenAlSound(std::make_shared<CardClock>());
    auto device = root->DirectSoundCreate("");
    auto primary = device->CreateSoundBuffer(17);
    auto listener = primary->GetDirectSound3dListener();
    const std::string path =
        folder_.Write("tone.wav", WaveBytes({.Data = Pcm(std::vector<std::int32_t>(44100, 3000), 16)}));
    auto first = device->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    auto second = device->DuplicateSoundBuffer(*first);
    auto spatial = device->CreateSoundBufferFromFile(path, buffer_flags::kSample3D);
    auto place = spatial->GetDirectSound3dBuffer();
    first->Play(1);
    spatial->Play(1);
    const ByteList bytes = Pcm(std::vector<std::int32_t>(2000, -1000), 16);
    for (int i = 0; i < 5000; ++i) {
        first->SetVolume(-(i % 5000));
        first->SetPan(i % 4000 - 2000);
        first->SetFrequency(30000 + i);
        second->SetCurrentPosition(i * 8 % 80000);
        second->Play(i % 2);
        if (i % 7 == 0) second->Stop();
        if (i % 50 == 0) second = device->DuplicateSoundBuffer(*first);
        if (i % 100 == 0) first->WriteBuffer(i, bytes);
        place->SetPosition({static_cast<float>(i % 10) - 5, 0, 1});
        listener->SetRolloffFactor(static_cast<float>(i % 10));
        EXPECT_EQ(first->GetStatus(), 5);
    }
    // The output's thread renders every few milliseconds; wait until it has.
    first->SetCurrentPosition(0);
    std::int32_t cursor = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (cursor == 0 && std::chrono::steady_clock::now() < end) {
        cursor = first->GetCurrentPosition();
        std::this_thread::yield();
    }
    EXPECT_GT(cursor, 0);
    EXPECT_GT(OpenAlSoundLoad(*root), 0);
}

TEST_F(SoundAdapterDevice, WithoutAnyOutputTheListIsEmptyAndNothingOpens) {
    ChooseOutputs("no-such-driver");
    auto root = CreateOpenAlSound();
    EXPECT_EQ(root->GetDSEnum()->GetCount(), 0);
    EXPECT_EQ(NumberOf([&] { root->DirectSoundCreate(""); }), sound_error::kNoDriver);
}

}  // namespace
}  // namespace marvolin::test
