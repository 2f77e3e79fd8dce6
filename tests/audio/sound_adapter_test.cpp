/// What is heard of volume, pan, frequency, cursors and shared samples.

#include <numbers>

#include "audio/loopback_rig.h"

namespace marvolin::test {
namespace {

class SoundAdapter : public LoopbackRig {};

double GainOf(int hundredths) { return hundredths <= -10000 ? 0 : std::pow(10.0, hundredths / 2000.0); }

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
    for (const std::uint32_t rate : {8000U, 22050U, 48000U, 96000U, 192000U}) {
        SCOPED_TRACE(rate);
        auto buffer = Load(Tone(400, rate, static_cast<int>(rate / 2)), 1, buffer_flags::kSample, rate);
        EXPECT_EQ(buffer->GetFrequency(), static_cast<std::int32_t>(rate));
        buffer->Play(1);
        EXPECT_NEAR(Crossings(Render(44100).Left), 400, 2);
    }
}

TEST_F(SoundAdapter, ALoopGoesOnWithoutAGap) {
    auto buffer = LoadRamp(1000);
    buffer->Play(1);
    const Heard heard = Render(3500);
    for (int pass = 0; pass < 3; ++pass) ExpectRamp(heard, 1000 * pass, 1000, 0);
    EXPECT_EQ(buffer->GetStatus(), 5);
}

TEST_F(SoundAdapter, AOneShotEndsAndItsCursorIsBackAtTheStart) {
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

TEST_F(SoundAdapter, AOneShotThatRanOutAsksNothingBeforeItIsPlayedAgain) {
    auto buffer = LoadRamp(1000);
    buffer->SetCurrentPosition(400);
    buffer->Play(0);
    Render(1280);
    buffer->Play(0);
    ExpectRamp(Render(500), 0, 500, 0);
}

TEST_F(SoundAdapter, PlayOnASoundingBufferChangesOnlyTheLooping) {
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

TEST_F(SoundAdapter, StopKeepsTheCursorAndPlayGoesOnFromThere) {
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

TEST_F(SoundAdapter, APositionSetWhileSilentIsRememberedAndItsAttackIsWhole) {
    auto buffer = LoadRamp();
    buffer->SetCurrentPosition(2000);
    EXPECT_EQ(buffer->GetCurrentPosition(), 2000);
    buffer->Play(0);
    ExpectRamp(Render(512), 0, 512, 1000);
}

TEST_F(SoundAdapter, APositionSetWhileSoundingJumpsWithoutAGap) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Render(512);
    buffer->SetCurrentPosition(3000);
    EXPECT_EQ(buffer->GetStatus(), 5);
    ExpectRamp(Render(512), 0, 512, 1500);
    buffer->SetCurrentPosition(0);
    ExpectRamp(Render(512), 0, 512, 0);
}

TEST_F(SoundAdapter, PositionsAreTakenDownToAWholeFrame) {
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

TEST_F(SoundAdapter, APositionBeyondTheSampleIsAnInvalidArgument) {
    auto buffer = LoadLevels(1000, 1000, 100);
    for (const int bytes : {400, 401, -1, 0x7FFFFFFF}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(NumberOf([&] { buffer->SetCurrentPosition(bytes); }), sound_error::kInvalidArgument);
    }
    EXPECT_EQ(buffer->GetCurrentPosition(), 0);
}

TEST_F(SoundAdapter, TheCursorFollowsTheSound) {
    auto buffer = LoadRamp();
    buffer->Play(1);
    Render(1024);
    EXPECT_EQ(buffer->GetCurrentPosition(), 2048);
}

TEST_F(SoundAdapter, LeftAndRightStayTogetherThroughEveryCall) {
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

TEST_F(SoundAdapter, ADuplicateHasCursorVolumePanAndFrequencyOfItsOwn) {
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

TEST_F(SoundAdapter, ADuplicateSoundsOnAfterTheFirstIsGone) {
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

TEST_F(SoundAdapter, OnlyABufferOfTheSameDeviceIsDuplicated) {
    LoopbackRenderer other;
    auto otherRoot = other.Root();
    auto otherDevice = otherRoot->DirectSoundCreate("");
    auto buffer = LoadRamp();
    EXPECT_EQ(NumberOf([&] { otherDevice->DuplicateSoundBuffer(*buffer); }), sound_error::kInvalidCall);
    auto primary = device_->CreateSoundBuffer(1);
    EXPECT_EQ(NumberOf([&] { device_->DuplicateSoundBuffer(*primary); }), sound_error::kInvalidCall);
}

TEST_F(SoundAdapter, ASampleIsReadAsItsBytesStandInTheFile) {
    Wave wave;
    wave.Channels = 1;
    wave.Data = Pcm({1, -2, 300, -400, 32767, -32768}, 16);
    auto buffer = Load(wave);
    Bytes whole(wave.Data.size() + 1, 0xEE);
    buffer->ReadBuffer(0, whole);
    EXPECT_EQ(Bytes(whole.begin(), whole.end() - 1), wave.Data);
    EXPECT_EQ(whole.back(), 0xEE);
    Bytes part(3);
    buffer->ReadBuffer(5, part);
    EXPECT_EQ(part, Bytes(wave.Data.begin() + 5, wave.Data.begin() + 8));
    buffer->ReadBuffer(12, part);
    EXPECT_EQ(NumberOf([&] { buffer->ReadBuffer(13, part); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->ReadBuffer(-1, part); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->WriteBuffer(13, part); }), sound_error::kInvalidArgument);
    EXPECT_EQ(NumberOf([&] { buffer->WriteBuffer(-1, part); }), sound_error::kInvalidArgument);
}

TEST_F(SoundAdapter, AWriteIsHeardInAllDuplicatesAtOnceAndTheyGoOn) {
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
    Bytes bytes = Pcm(down, 16);
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
    Bytes back(6000);
    silent->ReadBuffer(0, back);
    bytes.pop_back();
    EXPECT_EQ(back, bytes);
}

TEST_F(SoundAdapter, APartIsWrittenWhereItIsMeant) {
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

TEST_F(SoundAdapter, ControlsThatABufferWasNotMadeWithAreUnavailable) {
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

TEST_F(SoundAdapter, MoreBuffersThanTheMixerHasIsNoMemoryAndHarmsNoOther) {
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
