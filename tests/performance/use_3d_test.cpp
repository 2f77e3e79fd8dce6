#include "performance/map/use_3d.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "audio/device.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

struct Opened : Surfaces {
    Opened() {
        InitAudioDriversList(s);
        s.Driver = 0;
        InitDirectSound(s);
        Clear();
    }
};

TEST(Use3D, SwitchingTakesTheDeviceDownAndUpAndEnablesTheMap) {
    Opened i;
    i.Fill(0);
    SetUse3D(i.s, true);
    EXPECT_TRUE(GetUse3D(i.s));
    EXPECT_TRUE(i.s.MapEnabled);
    EXPECT_TRUE(i.s.DSReady);
    EXPECT_TRUE(i.s.Listener);
    EXPECT_EQ(i.s.RollOffValue, 1.0F);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.Sound.Count("Release device"), 1);
    EXPECT_EQ(i.Sound.Count("CreateSoundBuffer 17"), 1);
    EXPECT_EQ(i.Screen.Count("ShowMapControls"), 1);
    for (int ball = 0; ball < 5; ++ball) EXPECT_EQ(i.Screen.Count("ShowMapBall " + std::to_string(ball)), 1);
    i.Clear();
    SetUse3D(i.s, false);
    EXPECT_FALSE(i.s.MapEnabled);
    EXPECT_FALSE(i.s.Listener);
    EXPECT_EQ(i.s.RollOffValue, 0.0F);
    EXPECT_EQ(i.Sound.Count("CreateSoundBuffer 1"), 1);
    EXPECT_EQ(i.Screen.Count("ShowMapBall 0"), 0);
}

TEST(Use3D, TheSameStateAgainChangesNothing) {
    Opened i;
    SetUse3D(i.s, false);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(Use3D, TheBoxSavesTheSessionSwitchesLoadsItBackAndDeletesTheFile) {
    Opened i;
    const std::filesystem::path file = std::filesystem::path(testing::TempDir()) / "VBN_use_3d.tmp";
    std::ofstream(file) << "x";
    i.Desk.TempFile = file.string();
    bool sawOff = false;
    bool sawOn = false;
    i.Store.OnSave = [&] { sawOff = !i.s.Use3D; };
    i.Store.OnLoad = [&] {
        sawOn = i.s.Use3D && std::filesystem::exists(file);
        i.s.PadTypeIndex = 0;
        i.s.PadTable[2].TwistIcon = 4;
    };
    i.s.PadTable[2].TwistIcon = 3;
    Enable3d_Click(i.s, true);
    ASSERT_EQ(i.Store.Log.size(), 2u);
    EXPECT_EQ(i.Store.Log[0], "Save " + file.string() + " all everything");
    EXPECT_EQ(i.Store.Log[1], "Load " + file.string());
    // Not the 3D setting itself, which would undo the change.
    EXPECT_FALSE(i.Store.Loaded.Get(Element::ThreeD));
    EXPECT_TRUE(i.Store.Loaded.Get(Element::LoopTrack));
    EXPECT_TRUE(sawOff);
    EXPECT_TRUE(sawOn);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(i.s.PadTypeIndex, 2);
    EXPECT_EQ(i.s.PadTable[2].TwistIcon, 3);
    EXPECT_GE(i.Screen.Count("ShowTwist"), 1);
    EXPECT_TRUE(i.s.Use3D);
}

TEST(Use3D, WhenTheSessionCannotBeKeptTheStateAndTheBoxStay) {
    Opened i;
    i.Desk.TempFile = "";
    Enable3d_Click(i.s, true);
    EXPECT_FALSE(i.s.Use3D);
    EXPECT_FALSE(i.s.MapEnabled);
    EXPECT_EQ(i.Screen.Count("ShowMapControls"), 1);
    EXPECT_TRUE(i.Store.Log.empty());
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_EQ(i.Desk.Boxes.size(), 1u);
}

TEST(Use3D, SwitchedOnInSilenceTheRollOffIsThatOfANewDevice) {
    Opened i;
    i.s.Driver = 2;
    UnInitDirectSound(i.s);
    i.s.RollOff = 35;
    SetUse3D(i.s, true);
    EXPECT_EQ(i.s.RollOffValue, 1.0F);
    EXPECT_EQ(i.s.RollOff, 10);
    SetUse3D(i.s, false);
    EXPECT_EQ(i.s.RollOffValue, 0.0F);
}

TEST(Use3D, TheClickOfTheBoxDoesNotRunWhileTheBoxIsSet) {
    Opened i;
    i.s.Enable3dHeld = true;
    Enable3d_Click(i.s, true);
    EXPECT_FALSE(i.s.Use3D);
    EXPECT_TRUE(i.Desk.Log.empty());
    MapEnable(i.s, true);
    EXPECT_FALSE(i.s.Enable3dHeld);
    EXPECT_TRUE(i.s.MapEnabled);
}

TEST(Use3D, SwitchingShowsTheControlsAndPlacesAllBalls) {
    Opened i;
    SetUse3D(i.s, true);
    EXPECT_EQ(i.Screen.Count("ShowMapControls"), 1);
    for (const char* ball : {"0", "1", "2", "3", "4"}) {
        EXPECT_EQ(i.Screen.Count(std::string("ShowMapBall ") + ball), 1) << ball;
    }
}

}  // namespace
}  // namespace marvolin
