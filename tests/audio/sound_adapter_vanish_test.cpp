/// A device that is unplugged while it sounds.

#include <atomic>

#include "audio/loopback_rig.h"
#include "audio/vanishing_output.h"

namespace marvolin::test {
namespace {

constexpr int kPeriodBytes = 2 * 256;
constexpr const char* kDrivers[] = {"alsa", "disk"};

std::string WriteTone(const SampleFolder& folder) {
    return folder.Write("tone.wav",
                        WaveBytes({.Channels = 1, .Data = Pcm(std::vector<std::int32_t>(11025, 3000), 16)}));
}

/// True when the mono buffer plays on for some periods, heard or not.
bool GetsOn(DirectSoundBuffer& buffer) {
    buffer.SetCurrentPosition(0);
    return Eventually([&] { return buffer.GetCurrentPosition() > 16 * kPeriodBytes; });
}

TEST(SoundAdapterVanish, ASampleSoundsOnUnheardAndEveryCallIsTaken) {
    for (const char* driver : kDrivers) {
        SCOPED_TRACE(driver);
        const SampleFolder folder;
        VanishingOutput output(driver);
        auto root = CreateOpenAlSound(std::make_shared<CardClock>());
        auto device = root->DirectSoundCreate("");
        auto buffer = device->CreateSoundBufferFromFile(WriteTone(folder), buffer_flags::kSample);
        buffer->Play(1);
        ASSERT_TRUE(output.Heard());
        EXPECT_FALSE(OpenAlSoundGone(*root));

        output.Vanish();
        ASSERT_TRUE(Eventually([&] { return OpenAlSoundGone(*root); }));
        ASSERT_TRUE(GetsOn(*buffer));
        output.Listen();
        ASSERT_TRUE(GetsOn(*buffer));
        EXPECT_FALSE(output.Arrived()) << "the device is still there";

        EXPECT_EQ(buffer->GetStatus(), 5);
        buffer->SetVolume(-600);
        buffer->SetPan(300);
        buffer->SetFrequency(30000);
        auto second = device->DuplicateSoundBuffer(*buffer);
        second->Play(0);
        EXPECT_EQ(second->GetStatus(), 1);
        EXPECT_TRUE(Eventually([&] { return second->GetStatus() == 0; })) << "the one shot does not end";
        buffer->Stop();
        EXPECT_EQ(buffer->GetStatus(), 0);
        ByteList bytes(4, 1);
        buffer->WriteBuffer(0, bytes);
        auto third = device->CreateSoundBufferFromFile(WriteTone(folder), buffer_flags::kSample3D);
        third->Play(1);
        EXPECT_TRUE(GetsOn(*third));
    }
}

TEST(SoundAdapterVanish, ADriverThatAsksTooFastInPlaceOfAGoneDeviceDoesNotSetThePace) {
    for (const char* driver : kDrivers) {
        SCOPED_TRACE(driver);
        const SampleFolder folder;
        VanishingOutput output(driver);
        std::atomic<std::int64_t> steady{1'000'000'000};
        const auto clock = std::make_shared<CardClock>([&] { return steady.load(); });
        auto root = CreateOpenAlSound(clock);
        auto device = root->DirectSoundCreate("");
        auto buffer = device->CreateSoundBufferFromFile(WriteTone(folder), buffer_flags::kSample);
        buffer->Play(1);
        ASSERT_TRUE(output.Heard());
        output.Vanish();
        ASSERT_TRUE(Eventually([&] { return OpenAlSoundGone(*root); }));
        ASSERT_TRUE(GetsOn(*buffer));
        const double before = clock->Now();
        // One millisecond for each time the cursor is seen to move by a period or more: far less than is asked for.
        constexpr int kMilliseconds = 600;
        for (int i = 1; i <= kMilliseconds; ++i) {
            const std::int32_t at = buffer->GetCurrentPosition();
            ASSERT_TRUE(Eventually([&] { return buffer->GetCurrentPosition() != at; }));
            steady += 1'000'000;
            ASSERT_NEAR(clock->Now(), before + 44.1 * i, 0.5) << i;
        }
    }
}

TEST(SoundAdapterVanish, TheNextDeviceIsHeardWhetherTheGoneOneWasClosedBeforeOrNot) {
    for (const char* driver : kDrivers) {
        for (const bool closed : {true, false}) {
            SCOPED_TRACE(std::string(driver) + (closed ? ", closed" : ", open"));
            const SampleFolder folder;
            VanishingOutput output(driver);
            auto root = CreateOpenAlSound(std::make_shared<CardClock>());
            auto gone = root->DirectSoundCreate("");
            auto lost = gone->CreateSoundBufferFromFile(WriteTone(folder), buffer_flags::kSample);
            lost->Play(1);
            ASSERT_TRUE(output.Heard());
            output.Vanish();
            ASSERT_TRUE(GetsOn(*lost));
            ASSERT_TRUE(Eventually([&] { return OpenAlSoundGone(*root); }));
            if (closed) {
                gone.reset();
                EXPECT_FALSE(OpenAlSoundGone(*root)) << "there is no device";
            }

            output.PlugIn();
            auto device = root->DirectSoundCreate("");
            auto buffer = device->CreateSoundBufferFromFile(WriteTone(folder), buffer_flags::kSample);
            EXPECT_FALSE(OpenAlSoundGone(*root));
            buffer->Play(1);
            EXPECT_TRUE(output.Heard());
            output.Vanish();
        }
    }
}

TEST(SoundAdapterVanish, ADeviceThatIsNoLongerThereWhenItIsChosenIsNoDriver) {
    for (const char* driver : kDrivers) {
        SCOPED_TRACE(driver);
        VanishingOutput output(driver);
        auto root = CreateOpenAlSound();
        EXPECT_GE(root->GetDSEnum()->GetCount(), 1);
        output.Refuse();
        EXPECT_EQ(NumberOf([&] { root->DirectSoundCreate(""); }), sound_error::kNoDriver);
    }
}

}  // namespace
}  // namespace marvolin::test
