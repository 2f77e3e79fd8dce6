// A change of the device and of 3D, with sessions in real files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "audio/device.h"
#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "browser/clipboard.h"
#include "parameters/setters.h"
#include "performance/map/use_3d.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using test::SetInstrument;
using ::testing::ElementsAre;

/// Two rows with settings of their own, one of them sounding, and three clips.
struct Played : SetInstrument {
    Played() {
        s.DeviceSwapArmed = true;
        Desk.TempFile = Folder / "VBN1.tmp";
        Store.OnSave = [this] { EXPECT_TRUE(SaveSession(s, Desk.TempFile, LoopsSaved::All, test::All())); };
        Store.OnLoad = [this] {
            EXPECT_TRUE(LoadSession(s, Desk.TempFile, SetAsCurrent::No, Store.Loaded, AdoptSwitches::No));
        };
        LoopLoad(s, 0, Folder.Path(), "a.wav");
        LoopLoad(s, 2, Folder.Path(), "b.wav");
        std::int16_t vol = 321;
        LoopVolChange(s, 2, vol, TakeHold::Yes, UpdateDisplay::Yes);
        s.Set[2].Pattern[kVolPattern][5] = 77;
        LoopSetPlayMode(s, 2, kDrum, false);
        LoopPlay(s, 2, true);
        for (const Row row : {Row{0}, Row{2}, Row{0}}) {
            s.Clips.ClipStaging = s.Set[row];
            AddNewClip(s);
        }
        s.Clips.Selected = 1;
    }
    void ExpectKept() {
        EXPECT_EQ(s.Set[0].FileName, Folder / "a.wav");
        EXPECT_EQ(s.Set[2].FileName, Folder / "b.wav");
        EXPECT_EQ(s.Run[0].Loaded, True);
        EXPECT_EQ(s.Run[2].Playing, True);
        EXPECT_EQ(s.Set[2].Vol, 321);
        EXPECT_EQ(s.Set[2].Pattern[kVolPattern][5], 77);
        EXPECT_EQ(s.Set[2].PlayMode, kDrum);
        EXPECT_EQ(s.Run[1].Loaded, False);
        EXPECT_THAT(s.Clips.List, ElementsAre("a", "b", "(2) a"));
        EXPECT_EQ(s.Clips.ClipStore.size(), 3U);
        EXPECT_EQ(s.Clips.ClipTop, 2);
        EXPECT_EQ(s.Clips.Selected, 1);
        EXPECT_TRUE(Desk.Boxes.empty());
    }
};

TEST(SessionKept, AChangeOfTheDeviceKeepsSamplesSettingsAndEachClipOnce) {
    Played i;
    static constexpr std::array<std::int16_t, 3> kEntries{1, 0, 1};
    for (const std::int16_t entry : kEntries) {
        cboDrivers_Click(i.s, entry);
        i.ExpectKept();
    }
}

TEST(SessionKept, AChangeOf3DKeepsSamplesSettingsAndEachClipOnce) {
    Played i;
    for (const bool on : {true, false, true}) {
        Enable3d_Click(i.s, on);
        i.ExpectKept();
        EXPECT_EQ(i.s.Use3D, on);
    }
}

TEST(SessionKept, AChangeOfTheDeviceBringsBackTheFileThatWasChosenWhateverItsName) {
    for (const char* name : {"a.WAV", "kick", "c\\d.WAV"}) {
        Played i;
        const std::string path = i.Folder.Touch(name);
        LoopLoad(i.s, 0, i.Folder.Path(), name);
        cboDrivers_Click(i.s, 1);
        EXPECT_EQ(i.s.Set[0].FileName, path);
        EXPECT_EQ(i.s.Run[0].Loaded, True);
        EXPECT_TRUE(i.Desk.Boxes.empty());
    }
}

TEST(SessionKept, NoSoundUnloadsTheSamplesAndKeepsTheClips) {
    Played i;
    cboDrivers_Click(i.s, 2);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_THAT(i.s.Clips.List, ElementsAre("a", "b", "(2) a"));
}

TEST(SessionKept, ARefusedPositionIsReportedAndTheRestOfTheSetIsRestored) {
    Played i;
    Enable3d_Click(i.s, true);
    LoopStop(i.s, 2);
    i.s.Set[2].PositionX = 0.5F;
    ASSERT_TRUE(i.Save("x.mvn"));
    i.Sound.Failures["SetPosition"] = sound_error::kGeneric;
    std::int16_t vol = 1;
    LoopVolChange(i.s, 2, vol, TakeHold::Yes, UpdateDisplay::Yes);
    i.s.Set[2].Pattern[kVolPattern][5] = 0;
    EXPECT_TRUE(i.Load("x.mvn", test::AllBut(Element::LoopTrack)));
    ASSERT_EQ(i.Desk.Boxes.size(), 2U);  // of rows 0 and 2
    EXPECT_EQ(i.Desk.LastBox(),
              "Error placing sound: An undetermined error occurred inside the DirectSound subsystem.");
    EXPECT_EQ(i.s.Set[2].Vol, 321);
    EXPECT_EQ(i.s.Set[2].Pattern[kVolPattern][5], 77);
}

}  // namespace
}  // namespace marvolin
