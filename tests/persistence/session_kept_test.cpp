// A change of the device and of 3D, with sessions in real files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "audio/device.h"
#include "audio/loop_clearing.h"
#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "audio/thinning.h"
#include "browser/clipboard.h"
#include "parameters/setters.h"
#include "performance/map/use_3d.h"
#include "performance/pad/mix_pad.h"
#include "persistence/clips.h"
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

TEST(SessionKept, NoSoundUnloadsTheSamplesKeepsTheClipsAndAnyDeviceBringsTheSetBack) {
    Played i;
    i.s.Set[0].BeatStart = 25;
    std::int16_t vol = 99;
    for (const std::int16_t entry : std::initializer_list<std::int16_t>{0, 1}) {
        cboDrivers_Click(i.s, 2);
        EXPECT_FALSE(i.s.DSReady);
        for (Row row = 0; row < kLoopTracks; ++row) {
            EXPECT_EQ(i.s.Run[row].Loaded, False);
            EXPECT_EQ(i.s.Run[row].Buffer, nullptr);
            EXPECT_EQ(i.s.Set[row].FileName, "");
        }
        EXPECT_THAT(i.s.Clips.List, ElementsAre("a", "b", "(2) a"));
        // What is turned in silence holds.
        LoopVolChange(i.s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes);
        cboDrivers_Click(i.s, 2);
        cboDrivers_Click(i.s, entry);
        i.ExpectKept();
        EXPECT_EQ(i.s.Set[0].Vol, 99);
        EXPECT_EQ(i.s.Set[0].BeatStart, 25);
    }
}

TEST(SessionKept, ADeviceThatRefusesKeepsTheSetInHand) {
    Played i;
    i.Sound.Failures["DirectSoundCreate"] = sound_error::kNoDriver;
    cboDrivers_Click(i.s, 1);
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.s.Run[2].Loaded, False);
    EXPECT_EQ(i.s.OpenDriver, -1);
    cboDrivers_Click(i.s, 1);
    i.Sound.Failures.clear();
    i.Desk.Boxes.clear();
    cboDrivers_Click(i.s, 0);
    i.ExpectKept();
}

TEST(SessionKept, ADeviceThatOpensAndRefusesTheSamplesKeepsTheSetInHandAlsoForASaveInBetween) {
    Played i;
    i.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    cboDrivers_Click(i.s, 1);
    EXPECT_EQ(i.s.OpenDriver, 1);
    EXPECT_EQ(i.Desk.Boxes.size(), 2U);  // of rows 0 and 2
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[2].Playing, False);
    ASSERT_TRUE(i.Save("x.mvn"));
    i.Sound.Failures.clear();
    i.Desk.Boxes.clear();
    cboDrivers_Click(i.s, 0);
    i.ExpectKept();
    LoopClear(i.s, 0);
    LoopClear(i.s, 2);
    ASSERT_TRUE(i.Load("x.mvn", test::AllBut(Element::ClipBoard)));
    i.ExpectKept();
}

TEST(SessionKept, ASetThatIsOpenedReplacesTheSamplesThatWaitForADevice) {
    Played i;
    ASSERT_TRUE(i.Save("x.mvn"));
    LoopLoad(i.s, 0, i.Folder.Path(), "c.wav");
    i.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    cboDrivers_Click(i.s, 1);
    ASSERT_EQ(i.s.Run[0].InHand.FileName, i.Folder / "c.wav");
    ASSERT_TRUE(i.Load("x.mvn", test::AllBut(Element::ClipBoard)));
    i.Sound.Failures.clear();
    cboDrivers_Click(i.s, 0);
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "a.wav");
}

TEST(SessionKept, ASetThatIsSavedInSilenceHoldsItsSamples) {
    Played i;
    i.s.Set[0].BeatStart = 25;
    cboDrivers_Click(i.s, 2);
    // An empty row cannot keep it.
    i.s.Set[0].BeatStart = 0;
    ASSERT_TRUE(i.Save("x.mvn"));
    cboDrivers_Click(i.s, 0);
    LoopClear(i.s, 0);
    LoopClear(i.s, 2);
    ASSERT_TRUE(i.Load("x.mvn", test::AllBut(Element::ClipBoard)));
    EXPECT_EQ(i.s.Set[0].BeatStart, 25);
    i.ExpectKept();
}

TEST(SessionKept, AClipThatIsDroppedInSilenceSoundsWithTheNextDevice) {
    Played i;
    cboDrivers_Click(i.s, 2);
    i.s.Clips.Selected = 1;
    DropClip(i.s, 3, {"ClipBoardList", 0, "1"});
    EXPECT_TRUE(i.s.ThinList.ends_with("D"));
    i.s.Clips.Selected = 0;
    DropClip(i.s, 1, {"ClipBoardList", 0, "2"});
    EXPECT_TRUE(i.Desk.Boxes.empty());
    cboDrivers_Click(i.s, 0);
    EXPECT_EQ(i.s.Set[3].FileName, i.Folder / "b.wav");
    EXPECT_EQ(i.s.Run[3].Playing, True);
    EXPECT_EQ(i.s.Set[1].FileName, i.Folder / "a.wav");
    EXPECT_EQ(i.s.Run[1].Playing, False);
}

TEST(SessionKept, ASetThatIsOpenedInSilenceSoundsWithTheNextDevice) {
    for (const std::int16_t emptyBlank : std::initializer_list<std::int16_t>{0, 1}) {
        SCOPED_TRACE(emptyBlank);
        Played i;
        ASSERT_TRUE(i.Save("x.mvn"));
        LoopClear(i.s, 0);
        LoopLoad(i.s, 2, i.Folder.Path(), "c.wav");
        cboDrivers_Click(i.s, 2);
        i.s.EmptyBlankSetting = emptyBlank;
        ASSERT_TRUE(i.Load("x.mvn", test::AllBut(Element::ClipBoard)));
        EXPECT_EQ(i.s.Set[2].FileName, "");
        EXPECT_EQ(i.s.Run[2].Playing, False);
        cboDrivers_Click(i.s, 0);
        i.ExpectKept();
    }
}

TEST(SessionKept, PadMapFadeSpeedHistoryAndBinsStayAcrossAnyChange) {
    Played i;
    const auto across = [&](const std::function<void()>& change) {
        double x = 700;
        double y = -300;
        PadMix(i.s, x, y, kVolPad, {.Absolute = true});
        i.s.BallPos[4] = {123, 456};
        i.s.FadeStep = 1001 / 500.0;
        i.s.History[kSelectionRow] = {"/y.wav"};
        i.s.Bins[1].Selected = 3;
        const auto vol = i.s.ChannelVol;
        change();
        EXPECT_EQ(i.s.PadTable[kVolPad].X, 700);
        EXPECT_EQ(i.s.PadTable[kVolPad].Y, -300);
        EXPECT_EQ(i.s.ChannelVol, vol);
        EXPECT_EQ(i.s.BallPos[4].X, 123);
        EXPECT_EQ(i.s.FadeStep, 1001 / 500.0);
        EXPECT_THAT(i.s.History[kSelectionRow], ElementsAre("/y.wav"));
        EXPECT_EQ(i.s.Bins[1].Selected, 3);
        i.ExpectKept();
    };
    across([&] { cboDrivers_Click(i.s, 1); });
    across([&] { Enable3d_Click(i.s, true); });
    across([&] { cboDrivers_Click(i.s, 0); });
    across([&] { Enable3d_Click(i.s, false); });
}

TEST(SessionKept, With3DOnAChangeOfTheDeviceKeepsPanPatternsAndPlaces) {
    Played i;
    i.s.Set[2].Pan = 42;
    i.s.Set[2].Pattern[kPanPattern][7] = 321;
    Enable3d_Click(i.s, true);
    i.s.Set[2].PositionX = 0.5F;
    for (const std::int16_t entry : std::initializer_list<std::int16_t>{1, 2, 0}) cboDrivers_Click(i.s, entry);
    EXPECT_EQ(i.s.Set[2].Pattern[kPanPattern][7], 321);
    EXPECT_EQ(i.s.Set[2].Pan, 42);
    EXPECT_EQ(i.s.Set[2].PositionX, 0.5F);
    i.ExpectKept();
}

TEST(SessionKept, AnEmptyRowKeepsItsSettingsWhateverIsChosenForOpening) {
    Played i;
    i.s.EmptyBlankSetting = 1;
    std::int16_t vol = 55;
    LoopVolChange(i.s, 1, vol, TakeHold::Yes, UpdateDisplay::Yes);
    std::int16_t hz = 1500;
    LoopHzChange(i.s, 1, hz, TakeHold::Yes);
    std::int16_t pan = 300;
    LoopPanChange(i.s, 1, pan, TakeHold::Yes);
    LoopSetPlayMode(i.s, 1, kTrack, true);
    LoopSetThinnable(i.s, 1, false);
    i.s.Set[1].StepDuration = 40;
    i.s.Set[1].NSteps = 7;
    const auto expectSettings = [&] {
        EXPECT_EQ(i.s.Set[1].Vol, 55);
        EXPECT_EQ(i.s.Set[1].Hz, 1500);
        EXPECT_EQ(i.s.Set[1].Pan, 300);
        EXPECT_EQ(i.s.Set[1].PlayMode, kTrack);
        EXPECT_EQ(i.s.Set[1].Thinnable, False);
        EXPECT_EQ(i.s.Set[1].StepDuration, 40);
        EXPECT_EQ(i.s.Set[1].NSteps, 7);
    };
    for (const std::int16_t entry : std::initializer_list<std::int16_t>{1, 2, 0}) {
        cboDrivers_Click(i.s, entry);
        expectSettings();
    }
    Enable3d_Click(i.s, true);
    expectSettings();
    i.ExpectKept();
}

TEST(SessionKept, ASetOfTheOther3dStateOpenedForItsStateAloneLeavesTheRowsSounding) {
    Played i;
    Enable3d_Click(i.s, true);
    ASSERT_TRUE(i.Save("3d.mvn"));
    Enable3d_Click(i.s, false);
    ASSERT_TRUE(i.Load("3d.mvn", test::Only(Element::ThreeD)));
    EXPECT_TRUE(i.s.Use3D);
    EXPECT_NE(i.s.Run[2].Buffer3D, nullptr);
    EXPECT_EQ(i.Buffer(2).Status, buffer_status::kPlaying);
    i.ExpectKept();
}

TEST(SessionKept, AFullDiskLeavesDeviceAnd3dAsTheyAre) {
    Played i;
    i.Store.OnSave = [&] {
        i.Desk.Report("Error Saving Disk full");
        i.Store.Answer = false;
    };
    i.Store.OnLoad = [] { ADD_FAILURE() << "nothing was kept to load"; };
    cboDrivers_Click(i.s, 1);
    EXPECT_EQ(i.s.Driver, 0);
    cboDrivers_Click(i.s, 2);
    EXPECT_EQ(i.s.Driver, 0);
    Enable3d_Click(i.s, true);
    EXPECT_FALSE(i.s.Use3D);
    EXPECT_EQ(i.Desk.Boxes.size(), 3U);
    i.Desk.Boxes.clear();
    i.ExpectKept();
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
