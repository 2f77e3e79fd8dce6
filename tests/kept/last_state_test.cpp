// The last state is kept by itself, and the title knows whether the set in hand differs from its file.

#include "persistence/kept/last_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <random>
#include <set>

#include "audio/transport.h"
#include "browser/clipboard.h"
#include "core/files/paths.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"
#include "instrument/dropped_files.h"
#include "instrument/shut_down.h"
#include "instrument/start_up.h"
#include "kept/kept_rig.h"
#include "parameters/fades.h"
#include "parameters/setters.h"
#include "performance/joystick/joystick_plug.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_waiting.h"
#include "performance/pad/mix_pad.h"
#include "persistence/clips.h"
#include "persistence/kept/clip_records.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/session_reader.h"
#include "persistence/snapshot.h"
#include "persistence/undo/undo_commands.h"

namespace marvolin {
namespace {

using namespace test;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

void Volume(Session& s, std::int16_t vol) { LoopVolChange(s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes); }

TEST(LastState, IsWrittenTwentySecondsAfterTheStartWhenSomethingHasChanged) {
    KeptRig i;
    i.Load(0, "a.wav");
    Volume(i.s, 321);
    i.Pass(19);
    EXPECT_FALSE(FileExists(i.Kept()));
    i.Pass(1);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 321);
}

TEST(LastState, IsNotWrittenWhileNothingHasChanged) {
    KeptRig i;
    i.Pass(100);
    EXPECT_FALSE(FileExists(i.Kept()));
    EXPECT_TRUE(i.s.StatusText.empty());
}

TEST(LastState, IsNotWrittenAgainWhileItIsTheSame) {
    KeptRig i;
    Volume(i.s, 321);
    i.Pass(20);
    std::filesystem::remove(i.Kept());
    i.Pass(60);
    EXPECT_FALSE(FileExists(i.Kept()));
    Volume(i.s, 322);
    i.Pass(20);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 322);
}

TEST(LastState, HasTheWholeInstrumentWhateverTheDialogueChooses) {
    KeptRig i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Load(row, std::string(1, static_cast<char>('a' + row)) + ".wav");
    i.s.SaveOpenSwitches[kWhenSaving].SetSwitch(false);
    i.s.SelectionsOnlySetting = 1;
    i.s.Clips.ClipStaging = i.s.Set[1];
    AddNewClip(i.s);
    LoopPlay(i.s, 2, true);
    i.Pass(20);

    Instrument reader;
    PadGeometryInit(reader.s, 4500, 4500);
    ASSERT_TRUE(LoadSession(reader.s, i.Kept(), SetAsCurrent::No, AllSwitches(), AdoptSwitches::No));
    EXPECT_EQ(reader.s.Set[3].FileName, i.Folder / "d.wav");
    EXPECT_EQ(reader.s.Clips.ClipTop, 0);
    EXPECT_EQ(reader.s.Run[2].Playing, True);
    EXPECT_EQ(reader.s.Run[1].Playing, False);
    EXPECT_EQ(reader.s.History[3].size(), 1U);
}

TEST(LastState, HasTheSameBytesAsASave) {
    KeptRig i;
    i.Load(0, "a.wav");
    for (int clip = 0; clip < 400; ++clip) ClipBoardList_DragDrop(i.s, {drags::kDropDown, 0, ""});
    i.Pass(20);
    i.s.Clips.ClipStore[7].Vol = 3;
    i.Pass(20);
    ASSERT_TRUE(SaveSession(i.s, i.Folder / "set.mvn", LoopsSaved::All, AllSwitches()));
    EXPECT_EQ(ReadBytes(i.Kept()), ReadBytes(i.Folder / "set.mvn"));
}

TEST(LastState, OfTheRunBeforeStaysAsACopyUntilTheNextRun) {
    KeptRig i;
    Volume(i.s, 100);
    i.Pass(20);
    EndKeeping(i.s);
    StartKeeping(i.s);
    for (const std::int16_t vol : {std::int16_t{200}, std::int16_t{300}}) {
        Volume(i.s, vol);
        i.Pass(20);
        EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), vol);
        EXPECT_EQ(KeptRig::VolumeIn(i.Kept() + "~"), 100);
    }
}

TEST(LastState, IsFoundByQuickLoadOnceItIsThere) {
    KeptRig i;
    EXPECT_THAT(i.s.QuickLoadRows, Not(Contains("Last session")));
    Volume(i.s, 100);
    i.Pass(21);
    QuickLoadPop_MouseUp(i.s, kLeftButton);
    ASSERT_THAT(i.s.QuickLoadRows, Contains("Last session"));
    Volume(i.s, 200);
    const auto row = std::find(i.s.QuickLoadRows.begin(), i.s.QuickLoadRows.end(), "Last session");
    QuickLoad_Click(i.s, static_cast<std::size_t>(row - i.s.QuickLoadRows.begin()));
    EXPECT_EQ(i.s.Set[0].Vol, 100);
}

/// An instrument with "one.mvn" in hand and a last state in which A has the volume 100.
struct AfterCrash : KeptRig {
    AfterCrash() {
        EXPECT_TRUE(Save("one.mvn"));
        Volume(s, 100);
        Pass(21);
        Volume(s, 200);
    }
    void ExpectContentWithoutFile() {
        EXPECT_EQ(s.Set[0].Vol, 100);
        EXPECT_EQ(s.CurrentFile, "");
        EXPECT_EQ(s.Title, "marvolin");
        EXPECT_EQ(SaveOpenTitle(s), "Save/Open");
        EXPECT_FALSE(s.SaveItEnabled) << "only Save As, which asks for a name";
        Pass(1);
        EXPECT_FALSE(SetHasChanged(s));
    }
};

TEST(LastState, IsOpenedByQuickLoadWithoutBecomingTheSetInHand) {
    AfterCrash i;
    ASSERT_TRUE(i.Open(std::string(kLastSessionFile)));
    i.ExpectContentWithoutFile();
}

TEST(LastState, IsOpenedByOpenWithoutBecomingTheSetInHand) {
    AfterCrash i;
    OpenIt_Chosen(i.s, CurrentChoices(i.s), i.Kept());
    i.ExpectContentWithoutFile();
    ASSERT_TRUE(i.Save("rescued.mvn"));
    EXPECT_EQ(i.s.CurrentFile, "rescued.mvn");
    EXPECT_TRUE(i.s.SaveItEnabled);
}

TEST(LastState, IsOpenedByReloadWithoutBecomingTheSetInHand) {
    AfterCrash i;
    OpenSaveOpen(i.s, std::string(kLastSessionFile));
    Reload_Click(i.s, CurrentChoices(i.s));
    i.ExpectContentWithoutFile();
}

TEST(LastState, IsOpenedByADropWithoutBecomingTheSetInHand) {
    AfterCrash i;
    DropFiles(i.s, 0, {i.Kept()});
    i.ExpectContentWithoutFile();
}

TEST(LastState, OfTheRunBeforeIsOpenedInTheSameWay) {
    AfterCrash i;
    std::filesystem::rename(i.Kept(), i.Kept() + "~");
    OpenIt_Chosen(i.s, CurrentChoices(i.s), i.Kept() + "~");
    i.ExpectContentWithoutFile();
}

TEST(LastState, ASetOfItsNameInAnotherFolderIsASetAsAnyOther) {
    AfterCrash i;
    std::filesystem::create_directory(i.Folder / "other");
    std::filesystem::rename(i.Kept(), i.Folder / "other/Last session.mvn");
    ASSERT_TRUE(i.Open("other/Last session.mvn"));
    EXPECT_EQ(i.s.CurrentFile, "Last session.mvn");
}

TEST(LastState, NoSaveTakesItsName) {
    AfterCrash i;
    OpenSaveOpen(i.s, std::string(kLastSessionFile));
    SaveIt_Click(i.s, CurrentChoices(i.s));
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 100);
    EXPECT_EQ(i.Desk.LastBox(), "The program itself writes Last session.mvn. Choose another name.");
    SaveItAs_Chosen(i.s, CurrentChoices(i.s), i.Folder / "Last session");
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 100);
    EXPECT_EQ(i.s.CurrentFile, "one.mvn");
    EXPECT_EQ(i.Desk.Boxes.size(), 2U);
}

TEST(LastState, AnOpenListOfQuickLoadKeepsItsRows) {
    KeptRig i;
    Volume(i.s, 100);
    i.Pass(21);
    EXPECT_THAT(i.s.QuickLoadRows, Not(Contains("Last session"))) << "only a press of the button reads the folder";
}

TEST(LastState, TheEndSavesNothing) {
    KeptRig i;
    Volume(i.s, 100);
    i.Pass(19);
    Form_QueryUnload(i.s);
    EXPECT_FALSE(FileExists(i.Kept()));
    EXPECT_EQ(i.s.Kept, nullptr);
    EXPECT_TRUE(i.Timers.Live.empty());
}

/// Notes what of the keeping is left when the program gives its device back.
struct WatchfulDirectX : FakeDirectX {
    WatchfulDirectX(KeptRig& i, std::string& left) : FakeDirectX(i.Sound), i_(i), left_(left) {}
    ~WatchfulDirectX() override {
        left_ = std::string(i_.Timers.Live.empty() ? "" : "timer ") + (i_.s.Kept ? "file" : "");
    }

private:
    KeptRig& i_;
    std::string& left_;
};

TEST(LastState, TheEndWaitsForTheDiskOnlyWhenNothingSoundsAnyMore) {
    KeptRig i;
    std::string left;
    i.s.DX = std::make_unique<WatchfulDirectX>(i, left);
    Form_QueryUnload(i.s);
    EXPECT_EQ(left, "file");
    EXPECT_EQ(i.s.Kept, nullptr);
}

TEST(LastState, AFailureIsToldOnceAndTriedAgain) {
    KeptRig i;
    ASSERT_EQ(::mkdir(i.Kept().c_str(), 0777), 0);
    Volume(i.s, 100);
    i.Pass(21);
    EXPECT_THAT(i.s.StatusText, HasSubstr("The last state cannot be kept: "));
    i.s.StatusText.clear();
    i.Pass(40);
    EXPECT_TRUE(i.s.StatusText.empty());
    ASSERT_EQ(::rmdir(i.Kept().c_str()), 0);
    i.Pass(20);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 100);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(LastState, AFailureAfterASuccessIsToldAgain) {
    KeptRig i;
    ASSERT_EQ(::mkdir(i.Kept().c_str(), 0777), 0);
    Volume(i.s, 100);
    i.Pass(21);
    ASSERT_EQ(::rmdir(i.Kept().c_str()), 0);
    i.Pass(20);
    std::filesystem::remove(i.Kept());
    ASSERT_EQ(::mkdir(i.Kept().c_str(), 0777), 0);
    i.s.StatusText.clear();
    Volume(i.s, 101);
    i.Pass(21);
    EXPECT_THAT(i.s.StatusText, HasSubstr("The last state cannot be kept: "));
}

TEST(LastState, APathThatNoFileHoldsIsAFailureToo) {
    KeptRig i;
    i.s.History[0].push_back(std::string(40000, 'x'));
    i.Pass(20);
    EXPECT_THAT(i.s.StatusText, HasSubstr("The last state cannot be kept: "));
    i.s.History[0].clear();
    i.Load(0, "a.wav");
    i.Pass(20);
    EXPECT_TRUE(FileExists(i.Kept()));
}

TEST(LastState, WhatIsNoWorkDoesNotPushOutTheOneOfTheRunBefore) {
    KeptRig i;
    i.Load(0, "a.wav");
    EndKeeping(i.s);
    StartKeeping(i.s);
    LoopPlay(i.s, 0, true);
    i.s.ActiveTab = kMapTab;
    i.s.Drivers = {"Primary Sound Driver", "One more", "No Sound"};
    i.s.Driver = 1;
    i.Pass(60);
    EXPECT_FALSE(FileExists(i.Kept()));
    Volume(i.s, 400);
    i.Pass(20);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 400);
}

/// The demo plays itself, and the keeping has begun.
struct Demo : KeptRig {
    Demo() {
        EndKeeping(s);
        for (Row row = 0; row < kLoopTracks; ++row) Load(row, "a.wav");
        s.DemoStep = 1;
        StartKeeping(s);
        Pass(25);
        for (Row row = 1; row < kLoopTracks; ++row) LoopSetFade(s, row, FadeCommand::Down);
        s.DemoStep = 4;
    }
    void FadeOut() {
        while (s.Run[1].FadeState != kNoFade) StepFades(s, 20);
    }
};

TEST(LastState, TheDemoThatPlaysItselfIsNoChange) {
    Demo i;
    i.Pass(25);
    i.FadeOut();
    EXPECT_EQ(i.s.Set[3].Vol, 0);
    i.Pass(45);
    EXPECT_FALSE(FileExists(i.Kept()));
    Volume(i.s, 400);
    i.Pass(20);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 400);
}

TEST(LastState, WhatIsDoneDuringTheDemoIsAChange) {
    Demo i;
    Volume(i.s, 321);
    i.Pass(25);
    EXPECT_FALSE(FileExists(i.Kept())) << "while it fades, there would be a state every 20 s without anybody";
    i.FadeOut();
    i.Pass(20);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 321);
}

/// The program has started without a joystick.
void StartWithoutStick(KeptRig& rig) {
    rig.Stick.Devices.clear();
    InitDirectInput(rig.s);
}

/// The first one, with these axes.
void PlugIn(KeptRig& rig, std::vector<std::int32_t> axes) {
    rig.Stick.Devices = {"stick"};
    rig.Stick.Axes = std::move(axes);
    JoystickWatch().Look(rig.s);
    ASSERT_TRUE(rig.s.JoyEnabled);
}

const std::vector<std::int32_t> kAllAxes{0, 4, 8, 20};
const std::vector<std::int32_t> kOnlyXAndY{0, 4};

TEST(LastState, IsNotWrittenForAFirstStickThatIsPluggedIn) {
    KeptRig i;
    StartWithoutStick(i);
    PlugIn(i, kAllAxes);
    ASSERT_EQ(i.s.Joy.Axis[kTwistAxis], kAxisRZ);
    i.Pass(40);
    EXPECT_FALSE(FileExists(i.Kept())) << "the last state of the run before is worth more";
    JButton_Click(i.s, kJoyCentre, 6);
    i.Pass(20);
    EXPECT_TRUE(FileExists(i.Kept())) << "that is work";
}

TEST(LastState, WithoutATimerNothingIsKept) {
    KeptRig i;
    EndKeeping(i.s);
    i.Timers.Fail = true;
    StartKeeping(i.s);
    EXPECT_EQ(i.s.Kept, nullptr);
    EXPECT_FALSE(SetHasChanged(i.s));
}

TEST(LastState, TheStartBeginsToKeepIt) {
    KeptRig i;
    EndKeeping(i.s);
    i.s.FirstActivate = true;
    Form_Activate(i.s);
    ASSERT_NE(i.s.Kept, nullptr);
    Volume(i.s, 77);
    i.Pass(20);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 77);
}

// --- the mark ---

/// An instrument with the set "one.mvn" in hand.
struct InHand : KeptRig {
    InHand() {
        Load(0, "a.wav");
        EXPECT_TRUE(Save("one.mvn"));
    }
    /// Whether the mark shows a second later.
    bool Marked() {
        Pass(1);
        return SetHasChanged(s);
    }
};

TEST(MarkOfAChangedSet, ShowsWhileTheSetDiffersFromItsFile) {
    InHand i;
    EXPECT_FALSE(i.Marked());
    Volume(i.s, 123);
    i.Screen.Log.clear();
    EXPECT_TRUE(i.Marked());
    EXPECT_THAT(i.Screen.Log, Contains("ShowTitle"));
    i.Screen.Log.clear();
    EXPECT_TRUE(i.Marked());
    EXPECT_THAT(i.Screen.Log, Not(Contains("ShowTitle"))) << "it is shown again only when it changes";
    Volume(i.s, kVolFull);
    EXPECT_FALSE(i.Marked()) << "as in the file again";
}

TEST(MarkOfAChangedSet, GoesAtOnceWithASave) {
    InHand i;
    Volume(i.s, 123);
    EXPECT_TRUE(i.Marked());
    SaveIt_Click(i.s, CurrentChoices(i.s));
    EXPECT_FALSE(SetHasChanged(i.s));
    EXPECT_EQ(i.s.Title, "marvolin-one.mvn");
}

TEST(MarkOfAChangedSet, GoesAtOnceWithAnOpen) {
    InHand i;
    Volume(i.s, 123);
    EXPECT_TRUE(i.Marked());
    ASSERT_TRUE(i.Open("one.mvn"));
    EXPECT_FALSE(SetHasChanged(i.s));
    EXPECT_FALSE(i.Marked());
}

TEST(MarkOfAChangedSet, StaysWithASnapshotWhichIsAnotherFile) {
    InHand i;
    Volume(i.s, 123);
    SnapShot_MouseUp(i.s);
    EXPECT_TRUE(i.Marked());
}

TEST(MarkOfAChangedSet, StaysWhenTheSaveFails) {
    InHand i;
    Volume(i.s, 123);
    std::filesystem::remove(i.Folder / "one.mvn");
    ASSERT_EQ(::mkdir((i.Folder / "one.mvn").c_str(), 0777), 0);
    SaveIt_Click(i.s, CurrentChoices(i.s));
    EXPECT_TRUE(i.Marked());
}

TEST(MarkOfAChangedSet, DoesNotShowForWhatIsOnlyPlayedAndLookedAt) {
    InHand i;
    LoopPlay(i.s, 0, true);
    i.s.ActiveTab = kMapTab;
    i.s.Drivers = {"Primary Sound Driver", "One more", "No Sound"};
    i.s.Driver = 1;
    EXPECT_FALSE(i.Marked());
}

TEST(MarkOfAChangedSet, DoesNotShowForAFirstStickThatIsPluggedInAndPulledOut) {
    for (const auto& axes : {kAllAxes, kOnlyXAndY}) {
        InHand i;
        StartWithoutStick(i);
        ASSERT_FALSE(i.Marked());
        PlugIn(i, axes);
        EXPECT_FALSE(i.Marked());
        SetJoyRelative(i.s, 0, false);
        EXPECT_TRUE(i.Marked()) << "that is work";
        SetJoyRelative(i.s, 0, true);
        EXPECT_FALSE(i.Marked());
        JoyUnplug(i.s);
        EXPECT_FALSE(i.Marked());
        PlugIn(i, axes);
        EXPECT_FALSE(i.Marked());
    }
}

TEST(MarkOfAChangedSet, ShowsForAnAxisThatIsChosen) {
    InHand i;
    StartWithoutStick(i);
    PlugIn(i, kAllAxes);
    const auto none = static_cast<std::int16_t>(i.s.Joy.AxisNames.size() - 1);
    JAxis_Click(i.s, kMasterAxis, none);
    EXPECT_TRUE(i.Marked());
    JAxis_Click(i.s, kMasterAxis, 0);
    EXPECT_FALSE(i.Marked()) << "as at a start again";
}

TEST(MarkOfAChangedSet, DoesNotShowWhenTheFirstStickIsAssignedWhatTheSetSays) {
    InHand i;
    StartWithoutStick(i);
    JoyAssignAxis(i.s, kMasterAxis, kAxisRZ);
    JoyAssignButton(i.s, kJoyCentre, 7);
    ASSERT_TRUE(i.Save("one.mvn"));
    ASSERT_FALSE(i.Marked());
    PlugIn(i, kAllAxes);
    ASSERT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisRZ);
    EXPECT_FALSE(i.Marked());
    ASSERT_TRUE(i.Open("one.mvn"));
    EXPECT_FALSE(i.Marked());
}

/// The first stick goes and one with all axes comes, which is no work. The choice of an axis is.
void ExpectOnlyAChoiceToCount(InHand& i) {
    JoyUnplug(i.s);
    EXPECT_FALSE(i.Marked());
    PlugIn(i, kAllAxes);
    EXPECT_FALSE(i.Marked());
    JAxis_Click(i.s, kMasterAxis, 0);
    EXPECT_TRUE(i.Marked()) << "that is work";
}

TEST(MarkOfAChangedSet, DoesNotShowWhenTheFirstStickLacksAnAxisForWhichTheSetNamesNone) {
    InHand i;
    StartWithoutStick(i);
    JoyAssignAxis(i.s, kMasterAxis, kAxisNone);
    JoyAssignAxis(i.s, kTwistAxis, kAxisRZ);
    ASSERT_TRUE(i.Save("one.mvn"));
    ASSERT_FALSE(i.Marked());
    PlugIn(i, kOnlyXAndY);
    EXPECT_FALSE(i.Marked());
    ExpectOnlyAChoiceToCount(i);
}

TEST(MarkOfAChangedSet, DoesNotShowWhenASecondStickHasAnAxisThatTheFirstLacked) {
    InHand i;
    StartWithoutStick(i);
    PlugIn(i, kOnlyXAndY);
    EXPECT_FALSE(i.Marked());
    ExpectOnlyAChoiceToCount(i);
}

TEST(MarkOfAChangedSet, ShowsForBothBoxesThatAreSetBeforeTheFirstStick) {
    InHand i;
    StartWithoutStick(i);
    for (const int box : {0, 1}) SetJoyRelative(i.s, box, true);
    EXPECT_TRUE(i.Marked());
    PlugIn(i, kAllAxes);
    EXPECT_FALSE(i.Marked()) << "it would have set them by itself";
    for (const int box : {0, 1}) SetJoyRelative(i.s, box, false);
    EXPECT_TRUE(i.Marked());
}

TEST(MarkOfAChangedSet, OfASetThatAStepBringsBackTheFirstStickIsNoWorkEither) {
    InHand i;
    StartWithoutStick(i);
    StartUndo(i.s);
    JoyAssignAxis(i.s, kMasterAxis, kAxisZ);
    JoyAssignAxis(i.s, kTwistAxis, kAxisRZ);
    for (const int box : {0, 1}) SetJoyRelative(i.s, box, true);
    ASSERT_TRUE(i.Save("stick.mvn"));
    ASSERT_TRUE(i.Open("one.mvn"));
    ASSERT_FALSE(i.Marked());
    PlugIn(i, kAllAxes);
    EXPECT_FALSE(i.Marked());
    Undo_Click(i.s);
    ASSERT_EQ(i.s.CurrentFile, "stick.mvn");
    EXPECT_FALSE(i.Marked());
    Redo_Click(i.s);
    EXPECT_FALSE(i.Marked());
}

TEST(MarkOfAChangedSet, ShowsForBoxesThatAreSetBeforeTheFirstStick) {
    InHand i;
    StartWithoutStick(i);
    SetJoyRelative(i.s, 1, true);
    EXPECT_TRUE(i.Marked());
    PlugIn(i, kAllAxes);
    EXPECT_TRUE(i.Marked());
}

TEST(MarkOfAChangedSet, ShowsForAClipThatHasChangedAndGoesWhenItIsAsItWas) {
    KeptRig i;
    i.Load(0, "a.wav");
    ClipBoardList_DragDrop(i.s, {drags::kDropDown, 0, ""});
    ASSERT_TRUE(i.Save("set.mvn"));
    i.Pass(1);
    ASSERT_FALSE(SetHasChanged(i.s));
    const LoopTrackSet was = i.s.Clips.ClipStore[0];
    i.s.Clips.ClipStore[0].Pattern[kPanPattern][3] += 1;
    i.Pass(1);
    EXPECT_TRUE(SetHasChanged(i.s));
    i.s.Clips.ClipStore[0] = was;
    i.Pass(1);
    EXPECT_FALSE(SetHasChanged(i.s));
    ClipBoardList_DragDrop(i.s, {drags::kDropDown, 0, ""});
    i.Pass(1);
    EXPECT_TRUE(SetHasChanged(i.s));
}

TEST(ClipRecords, AreMadeAnewOnlyWhenAClipHasChanged) {
    KeptRig i;
    i.Load(0, "a.wav");
    ClipBoardList_DragDrop(i.s, {drags::kDropDown, 0, ""});
    ClipRecords records;
    for (int look = 0; look < 3; ++look) records.Follow(i.s);
    EXPECT_EQ(records.Made(), 1);
    const std::size_t digest = records.Digest();
    i.s.Clips.ClipStore[0].FileName = std::string(40000, 'x');
    EXPECT_THROW(records.Follow(i.s), OverflowError);
    i.s.Clips.ClipStore[0].FileName = "b";
    records.Follow(i.s);
    EXPECT_NE(records.Digest(), digest);
    RecordWriter whole;
    WriteClipBoard(i.s, whole);
    EXPECT_EQ(records.Bytes(), whole.Bytes());
    DeleteClip(i.s, 0);
    records.Follow(i.s);
    EXPECT_EQ(records.Made(), 3);
    EXPECT_EQ(records.Bytes(), std::string_view("\0\0", 2));
}

TEST(MarkOfAChangedSet, DoesNotShowForWhatASaveLeavesOut) {
    InHand i;
    i.s.SaveOpenSwitches[kWhenSaving].Put(Element::HistoryLists, false);
    SaveIt_Click(i.s, CurrentChoices(i.s));
    i.s.History[0].clear();
    EXPECT_FALSE(i.Marked());
}

TEST(MarkOfAChangedSet, DoesNotShowWithoutASetInHand) {
    KeptRig i;
    i.Load(0, "a.wav");
    Volume(i.s, 9);
    i.Pass(1);
    EXPECT_FALSE(SetHasChanged(i.s));
    EXPECT_EQ(i.s.Title, "marvolin");
}

TEST(MarkOfAChangedSet, FollowsTheSetThatAStepTakesBack) {
    InHand i;
    StartUndo(i.s);
    Volume(i.s, 50);
    ASSERT_TRUE(i.Save("two.mvn"));
    ASSERT_TRUE(i.Open("one.mvn"));
    EXPECT_FALSE(i.Marked());
    Undo_Click(i.s);
    ASSERT_EQ(i.s.CurrentFile, "two.mvn");
    EXPECT_FALSE(i.Marked()) << "two.mvn is in hand as it was saved";
    Volume(i.s, 51);
    EXPECT_TRUE(i.Marked());
}

TEST(MarkOfAChangedSet, ShowsAfterAnOpenOfAPart) {
    InHand i;
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::PlayState, false);
    ASSERT_TRUE(i.Open("one.mvn"));
    EXPECT_FALSE(i.Marked()) << "what sounds is not compared";
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::Vol, false);
    ASSERT_TRUE(i.Open("one.mvn"));
    EXPECT_TRUE(i.Marked()) << "the next save would write the volumes of what was there before";
    SaveIt_Click(i.s, CurrentChoices(i.s));
    EXPECT_FALSE(i.Marked());
}

TEST(MarkOfAChangedSet, DoesNotShowAfterAnOpenOfAllThatTheFileHas) {
    InHand i;
    i.s.SaveOpenSwitches[kWhenSaving].Put(Element::Vol, false);
    ASSERT_TRUE(i.Save("two.mvn"));
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::Vol, false);
    ASSERT_TRUE(i.Open("two.mvn"));
    EXPECT_FALSE(i.Marked());
}

TEST(MarkOfAChangedSet, ShowsAfterAnOpenThatFailedHalfway) {
    InHand i;
    std::string bytes = ReadBytes(i.Folder / "one.mvn");
    WriteBytes(i.Folder / "half.mvn", bytes.substr(0, bytes.size() - 4));
    OpenIt_Chosen(i.s, CurrentChoices(i.s), i.Folder / "half.mvn");
    EXPECT_TRUE(i.Marked());
}

// --- a crash in the middle ---

/// Keeps one state after the other until it is killed.
[[noreturn]] void KeepForEver(KeptRig& i, int pipe) {
    if (::write(pipe, "", 1) != 1) ::_exit(1);
    for (std::int16_t vol = 1;; vol = static_cast<std::int16_t>(vol % 499 + 1)) {
        Volume(i.s, vol);
        i.Pass(20);
    }
}

TEST(KilledKeeping, LeavesAWholeStateAndTheOneOfTheRunBefore) {
    constexpr int kKills = 100;
    std::mt19937 random(7);
    KeptRig i;
    Volume(i.s, 500 - 1);
    i.Pass(21);
    ASSERT_TRUE(KeptRig::VolumeIn(i.Kept()));
    EndKeeping(i.s);
    StartKeeping(i.s);
    std::set<std::int16_t> found;
    for (int kill = 0; kill < kKills; ++kill) {
        SCOPED_TRACE(kill);
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = ::fork();
        if (child == 0) KeepForEver(i, pipe[1]);
        ::close(pipe[1]);
        char begun = 1;
        ASSERT_EQ(::read(pipe[0], &begun, 1), 1);
        // From now on the pipe has nothing to read while the child lives.
        pollfd wait{pipe[0], POLLIN, 0};
        // One in ten lives long enough to keep a state, on a slow disk too.
        const long latest = kill % 10 == 0 ? 900'000'000 : 20'000'000;
        const timespec moment{0, std::uniform_int_distribution<long>(0, latest)(random)};
        EXPECT_EQ(::ppoll(&wait, 1, &moment, nullptr), 0) << "the child ended by itself";
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(pipe[0]);
        const auto vol = KeptRig::VolumeIn(i.Kept());
        ASSERT_TRUE(vol);
        found.insert(*vol);
        if (FileExists(i.Kept() + "~")) {
            ASSERT_TRUE(KeptRig::VolumeIn(i.Kept() + "~"));
        }
    }
    EXPECT_GT(found.size(), 1U) << "some were killed after a state was written";
    Volume(i.s, 250);
    i.Pass(20);
    EXPECT_EQ(KeptRig::VolumeIn(i.Kept()), 250);
}

}  // namespace
}  // namespace marvolin
