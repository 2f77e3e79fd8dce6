#include "audio/headphones.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "audio/device.h"
#include "audio/device_abilities.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// An instrument with 3D sound.
struct Headphones : test::Instrument {
    Headphones() {
        InitAudioDriversList(s);
        s.Driver = 0;
        s.Use3D = true;
        InitDirectSound(s);
        Sound.Log.clear();
    }
    std::vector<std::string> Switched() { return Sound.Calls("SetHeadphones"); }
};

/// A device that counts how often it is asked, which takes long.
class AskedDevice final : public DirectSound, public HeadphoneSwitch {
public:
    explicit AskedDevice(int& asked) : asked_(asked) {}
    void SetCooperativeLevel(std::int32_t) override {}
    std::unique_ptr<DirectSoundBuffer> CreateSoundBuffer(std::int32_t) override { return nullptr; }
    std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromFile(const std::string&, std::int32_t) override {
        return nullptr;
    }
    std::unique_ptr<DirectSoundBuffer> DuplicateSoundBuffer(DirectSoundBuffer&) override { return nullptr; }
    std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromKept(const std::shared_ptr<KeptSample>&,
                                                                 std::int32_t) override {
        return nullptr;
    }
    std::int32_t GetSpeakerConfig() override { return 0; }
    void SetSpeakerConfig(std::int32_t) override {}
    bool HasHeadphones() override { return ++asked_ > 0; }
    void SetHeadphones(bool) override {}

private:
    int& asked_;
};

TEST(Headphones, ADeviceIsAskedOnlyWhereTheSwitchIsOnWith3DSound) {
    Headphones i;
    int asked = 0;
    i.s.DS = std::make_unique<AskedDevice>(asked);
    HeadphonesRestore(i.s);
    EXPECT_EQ(asked, 0) << "the switch is off";
    i.s.Use3D = false;
    i.s.Headphones = true;
    HeadphonesRestore(i.s);
    Headphones_Click(i.s, true);
    EXPECT_FALSE(HeadphonesAvailable(i.s));
    EXPECT_EQ(asked, 0) << "there is no 3D sound";
    i.s.Use3D = true;
    HeadphonesRestore(i.s);
    EXPECT_EQ(asked, 1);
}

TEST(Headphones, AreSwitchedAtOnceAndShown) {
    Headphones i;
    EXPECT_TRUE(HeadphonesAvailable(i.s));
    Headphones_Click(i.s, true);
    EXPECT_TRUE(i.s.Headphones);
    Headphones_Click(i.s, false);
    EXPECT_FALSE(i.s.Headphones);
    EXPECT_THAT(i.Switched(), ElementsAre("SetHeadphones on", "SetHeadphones off"));
    EXPECT_EQ(i.Screen.Count("ShowMapControls"), 2);
}

TEST(Headphones, AreGivenToTheNextDeviceWith3DSound) {
    Headphones i;
    i.s.Headphones = true;
    UnInitDirectSound(i.s);
    InitDirectSound(i.s);
    EXPECT_THAT(i.Switched(), ElementsAre("SetHeadphones on"));
    i.s.Use3D = false;
    i.Sound.Log.clear();
    InitDirectSound(i.s);
    EXPECT_THAT(i.Switched(), IsEmpty()) << "without 3D sound pan is exact";
}

TEST(Headphones, AreRememberedWithout3DSoundAndWithoutADevice) {
    Headphones i;
    i.s.Use3D = false;
    EXPECT_FALSE(HeadphonesAvailable(i.s));
    Headphones_Click(i.s, true);
    EXPECT_TRUE(i.s.Headphones);
    i.s.Use3D = true;
    UnInitDirectSound(i.s);
    EXPECT_TRUE(HeadphonesAvailable(i.s));
    Headphones_Click(i.s, false);
    EXPECT_FALSE(i.s.Headphones);
    EXPECT_THAT(i.Switched(), IsEmpty());
}

TEST(Headphones, ADeviceThatKnowsNoneIsLeftAlone) {
    Headphones i;
    i.Sound.Failures["HasHeadphones"] = 1;
    EXPECT_FALSE(HeadphonesAvailable(i.s));
    i.s.Headphones = true;
    InitDirectSound(i.s);
    EXPECT_THAT(i.Switched(), IsEmpty());
    EXPECT_TRUE(i.s.Headphones);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(Headphones, ARefusalIsShownAndTheSwitchStays) {
    Headphones i;
    i.Sound.Failures["SetHeadphones"] = sound_error::kControlUnavailable;
    Headphones_Click(i.s, true);
    EXPECT_FALSE(i.s.Headphones);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error switching headphones: The control (volume, pan, and so forth) requested by the caller is not "
              "available.");
    i.s.Headphones = true;
    InitDirectSound(i.s);
    EXPECT_TRUE(i.s.DSReady);
    EXPECT_EQ(i.Desk.Boxes.size(), 2u);
}

}  // namespace
}  // namespace marvolin
