#include "audio/headphones.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/device.h"
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
