#include "audio/carrying.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "audio/device.h"
#include "audio/loader.h"
#include "audio/loop_clearing.h"
#include "audio/play_commands.h"
#include "audio/play_modes.h"
#include "audio/reverse.h"
#include "audio/thinning.h"
#include "audio/transport.h"
#include "core/routines.h"

namespace marvolin {
namespace {

using test::Loader;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An instrument with samples in the rows A and C, and a store that brings back nothing but the samples.
struct Carrying : Loader {
    std::vector<std::string> Order;
    Carrying() {
        InitAudioDriversList(s);
        s.Driver = 0;
        InitDirectSound(s);
        Desk.TempFile = Folder.Touch("VBN1.tmp");
        Make("a.WAV");
        Make("c.WAV");
        Load(0, "a.WAV");
        Load(2, "c.WAV");
        Store.OnSave = [this] { Order.push_back("save"); };
        Store.OnLoad = [this] {
            Order.push_back(std::filesystem::exists(Desk.TempFile) ? "load" : "load nothing");
            Load(0, "a.WAV");
            Load(2, "c.WAV");
        };
        Sound.Log.clear();
    }
    bool Reopen() {
        return CarryAcross(s, [this] {
            Order.push_back("change");
            UnInitDirectSound(s);
            InitDirectSound(s);
        });
    }
    bool Silence() {
        s.Driver = 2;
        return Reopen();
    }
    bool TempFileStays() const { return std::filesystem::exists(Desk.TempFile); }
};

TEST(CarryAcross, SavesEverythingMakesTheChangeLoadsTheLoopTracksAndDeletesTheFile) {
    Carrying i;
    EXPECT_TRUE(i.Reopen());
    EXPECT_THAT(i.Order, ElementsAre("save", "change", "load"));
    EXPECT_THAT(i.Store.Log, ElementsAre("Save " + i.Desk.TempFile + " all everything", "Load " + i.Desk.TempFile));
    for (int number = 0; number < kElements; ++number) {
        const auto element = static_cast<Element>(number);
        const bool ofTheLoopTracks = element <= Element::CrossFader;
        EXPECT_EQ(i.Store.Loaded.Get(element), ofTheLoopTracks) << kElementNames[static_cast<std::size_t>(number)];
    }
    EXPECT_FALSE(i.TempFileStays());
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(CarryAcross, WithoutATemporaryFileTheChangeIsNotMadeAndTheReasonIsShown) {
    Carrying i;
    i.Desk.TempFile = "";
    EXPECT_FALSE(i.Reopen());
    EXPECT_THAT(i.Order, IsEmpty());
    EXPECT_EQ(i.Desk.LastBox(),
              "No temporary file can be made. The session could not be kept, so nothing has changed.");
    EXPECT_EQ(i.s.Run[0].Loaded, True);
}

TEST(CarryAcross, AFailedSavePreventsTheChangeAndLeavesNoFile) {
    Carrying i;
    i.Store.Answer = false;
    EXPECT_FALSE(i.Reopen());
    EXPECT_THAT(i.Order, ElementsAre("save"));
    EXPECT_FALSE(i.TempFileStays());
    EXPECT_EQ(i.s.StatusText, "The session could not be kept, so nothing has changed.");
    EXPECT_EQ(i.s.Run[0].Loaded, True);
    EXPECT_EQ(i.Sound.Count("Release"), 0);
}

TEST(CarryAcross, TheFileOfAFailedLoadStaysUnderANameThatOpenShowsAndItsPathIsTold) {
    Carrying i;
    i.Store.OnLoad = [&] {
        i.Desk.Report("Error Opening Input past end of file");
        i.Store.Answer = false;
    };
    EXPECT_TRUE(i.Reopen());
    EXPECT_FALSE(i.TempFileStays());
    EXPECT_TRUE(std::filesystem::exists(i.Folder.In("VBN1.mvn")));
    // The window shows both together.
    ASSERT_EQ(i.Desk.Boxes.size(), 2U);
    EXPECT_EQ(i.Desk.LastBox(), "The session has been kept in the file " + i.Folder.In("VBN1.mvn"));
    EXPECT_EQ(i.s.Run[0].InHand.FileName, i.Folder.In("a.WAV"));
}

TEST(CarryAcross, TheFileOfAFailedLoadReplacesNoOtherAndKeepsItsNameThen) {
    Carrying i;
    i.Folder.Touch("VBN1.mvn");
    i.Store.OnLoad = [&] { i.Store.Answer = false; };
    EXPECT_TRUE(i.Reopen());
    EXPECT_TRUE(i.TempFileStays());
    EXPECT_TRUE(std::filesystem::exists(i.Folder.In("VBN1.mvn")));
    EXPECT_EQ(i.Desk.LastBox(), "The session has been kept in the file " + i.Desk.TempFile);
}

TEST(CarryAcross, AFileThatIsGoneIsToldAndTheSamplesStayInHand) {
    Carrying i;
    i.Store.OnLoad = [&] {
        std::filesystem::remove(i.Desk.TempFile);
        i.Store.Answer = false;
    };
    EXPECT_TRUE(i.Reopen());
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.LastBox(), "The session could not be loaded again: there is no file " + i.Desk.TempFile);
    EXPECT_EQ(i.s.Run[2].InHand.FileName, i.Folder.In("c.WAV"));
}

TEST(CarryAcross, FromADeviceThatNoLongerAnswersWhatCountsAsSoundingStartsAgain) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    i.Buffer(0).Position = 4000;
    LoopPlay(i.s, 2, true);
    LoopPlayCommand(i.s, 2, PlayCommand::Pause);
    i.Sound.Failures["GetStatus"] = sound_error::kGeneric;
    EXPECT_TRUE(CarryAcross(i.s, [&] {
        i.Sound.Failures.clear();
        UnInitDirectSound(i.s);
        InitDirectSound(i.s);
    }));
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.Buffer(0).Status, 5);
    EXPECT_EQ(i.Buffer(0).Position, 0);
    EXPECT_EQ(i.s.Run[2].Paused, True);
    EXPECT_EQ(i.Buffer(2).Status, 0);
}

TEST(CarryAcross, ARowThatCannotGoBackToItsPlaceIsToldAndTheOthersGoOn) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    LoopPlay(i.s, 2, true);
    i.Buffer(0).Position = 4000;
    const auto load = i.Store.OnLoad;
    i.Store.OnLoad = [&, load] {
        load();
        i.Sound.Failures["SetCurrentPosition"] = sound_error::kGeneric;
    };
    EXPECT_TRUE(i.Reopen());
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.LastBox(), "Error playing loop: An undetermined error occurred inside the DirectSound subsystem.");
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.Buffer(0).Status, 0);
    EXPECT_EQ(i.Buffer(2).Status, 5) << "at its beginning, where it need not be put";
}

TEST(CarryAcross, ASoundingRowGoesOnWhereItWasAndAsItLooped) {
    Carrying i;
    LoopSetPlayMode(i.s, 2, kOneShot, false);
    LoopPlay(i.s, 0, true);
    LoopPlay(i.s, 2, true);
    i.Buffer(0).Position = 4000;
    i.Buffer(2).Position = 800;
    i.Sound.Log.clear();
    i.Reopen();
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.Buffer(0).Position, 4000);
    EXPECT_EQ(i.Buffer(0).Status, 5);
    EXPECT_EQ(i.s.Run[2].Playing, True);
    EXPECT_EQ(i.Buffer(2).Position, 800);
    EXPECT_EQ(i.Buffer(2).Status, 1);
    // Each starts once, at its place, after both are loaded.
    EXPECT_THAT(i.Sound.Calls("Play " + i.Name(0)), ElementsAre("Play " + i.Name(0) + " 1"));
    const auto place = [&](const std::string& call) {
        return std::ranges::find(i.Sound.Log, call) - i.Sound.Log.begin();
    };
    EXPECT_LT(place("SetCurrentPosition " + i.Name(0) + " 4000"), place("Play " + i.Name(0) + " 1"));
    EXPECT_LT(place("SetFrequency " + i.Name(2) + " 44100"), place("Play " + i.Name(0) + " 1"));
}

TEST(CarryAcross, ARowWhoseFileHasBecomeShorterThanItsPlaceStartsAtItsStart) {
    for (const std::int16_t mode : {kLoop, kDrum}) {
        SCOPED_TRACE(mode);
        Carrying i;
        LoopSetPlayMode(i.s, 0, mode, false);
        LoopPlay(i.s, 0, true);
        i.Buffer(0).Position = 88200;
        i.Make("a.WAV", 0.5);
        i.Store.OnLoad = [&] {
            i.Load(0, "a.WAV");
            i.s.Run[0].BeatStartBytes = 400;
        };
        i.Reopen();
        EXPECT_EQ(i.Buffer(0).Position, mode == kDrum ? 400 : 0);
        EXPECT_EQ(i.Buffer(0).Status, mode == kDrum ? 1 : 5);
    }
}

TEST(CarryAcross, AModeThatIsTurnedInSilenceIsHeardAfterwards) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    LoopSetPlayMode(i.s, 2, kOneShot, false);
    LoopPlay(i.s, 2, true);
    i.Buffer(2).Status = 0;
    i.Silence();
    LoopSetPlayMode(i.s, 0, kOneShot, false);
    LoopSetPlayMode(i.s, 2, kLoop, false);
    i.s.Driver = 0;
    i.Reopen();
    EXPECT_EQ(i.s.Set[0].PlayMode, kOneShot);
    EXPECT_EQ(i.Buffer(0).Status, 1);
    EXPECT_EQ(i.s.Set[2].PlayMode, kLoop);
    EXPECT_EQ(i.Buffer(2).Status, 5);
}

TEST(CarryAcross, APausedRowStaysPausedAndSilentAndResumesWhereItWas) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    i.Buffer(0).Position = 4000;
    LoopPlayCommand(i.s, 0, PlayCommand::Pause);
    i.Sound.Log.clear();
    i.Reopen();
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.s.Run[0].Paused, True);
    EXPECT_EQ(i.Sound.Count("Play b"), 0);
    LoopPlayCommand(i.s, 0, PlayCommand::Resume);
    EXPECT_EQ(i.Buffer(0).Status, 5);
    EXPECT_EQ(i.Buffer(0).Position, 4000);
}

TEST(CarryAcross, ARowThatCountsAsPlayingWithoutSoundStaysSilent) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    i.Buffer(0).Status = 0;
    i.Sound.Log.clear();
    i.Reopen();
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.Sound.Count("Play b"), 0);
}

TEST(CarryAcross, FadeStepClockAndTheLineOfAFadeGoOn) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    LoopTrackRun& run = i.s.Run[0];
    run.FadeState = kFalling;
    run.FadeValue = 321.5;
    run.FadeTarget = 100;
    run.FadeToMark = True;
    run.Step = 2;
    run.StepElapsed = 77;
    run.StepDue = True;
    i.s.SndDisp[0].Line = 100;
    i.Reopen();
    EXPECT_EQ(run.FadeState, kFalling);
    EXPECT_EQ(run.FadeValue, 321.5);
    EXPECT_EQ(run.FadeTarget, 100);
    EXPECT_EQ(run.FadeToMark, True);
    EXPECT_EQ(run.Step, 2);
    EXPECT_EQ(run.StepElapsed, 77);
    EXPECT_EQ(run.StepDue, True);
    EXPECT_EQ(i.s.SndDisp[0].Line, 100);
}

TEST(CarryAcross, TheValuesOfTheStepThatIsPlayedAreSent) {
    Carrying i;
    LoopSetPlayMode(i.s, 0, kTrack, false);
    LoopPlay(i.s, 0, true);
    i.s.Run[0].Step = 2;
    i.Store.OnLoad = [&] {
        i.Load(0, "a.WAV");
        i.s.Set[0].PlayMode = kTrack;
        i.s.Set[0].Pattern[kHzPattern][2] = 500;
    };
    i.Reopen();
    EXPECT_EQ(i.Buffer(0).Frequency, 22050);
}

TEST(CarryAcross, TheOldestOfTheThinnedRowsStaysTheOldest) {
    Carrying i;
    i.s.ThinList.clear();
    LoopPlay(i.s, 2, true);
    LoopPlay(i.s, 0, true);
    ASSERT_EQ(i.s.ThinList, "CA");
    i.Reopen();
    EXPECT_EQ(i.s.ThinList, "CA");
}

TEST(CarryAcross, TheOrderOfThinningStaysThroughSilence) {
    Carrying i;
    i.s.ThinList.clear();
    LoopPlay(i.s, 2, true);
    LoopPlay(i.s, 0, true);
    i.Silence();
    EXPECT_EQ(i.s.ThinList, "CA");
    i.Silence();
    i.s.Driver = 0;
    i.Reopen();
    EXPECT_EQ(i.s.ThinList, "CA");
}

TEST(CarryAcross, ALimitThatIsSetInSilenceStopsTheOldestRowThatWaits) {
    Carrying i;
    i.s.ThinList.clear();
    LoopPlay(i.s, 2, true);
    LoopPlay(i.s, 0, true);
    i.Silence();
    i.s.Limit = 1;
    ThinTo(i.s);
    EXPECT_EQ(i.s.ThinList, "A");
    i.s.Limit = kNoLimit;
    i.s.Driver = 0;
    i.Reopen();
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_EQ(i.s.Run[0].Playing, True);
}

TEST(CarryAcross, ASampleThatADeviceRefusesWaitsForTheNextOneAndIsThinnedLastThen) {
    for (const bool in3d : {false, true}) {
        SCOPED_TRACE(in3d);
        Carrying i;
        i.s.ThinList.clear();
        LoopPlay(i.s, 2, true);
        LoopPlay(i.s, 0, true);
        i.Buffer(2).Position = 4000;
        i.s.Use3D = in3d;
        const auto refuse = [&](bool refused) {
            i.Sound.Failures.clear();
            if (refused) i.Sound.Failures[in3d ? "GetDirectSound3dBuffer" : "CreateSoundBufferFromFile"] = 1;
        };
        i.Store.OnLoad = [&] {
            i.Load(0, "a.WAV");
            refuse(true);
            i.Load(2, "c.WAV");
        };
        i.Reopen();
        EXPECT_TRUE(i.s.DSReady);
        EXPECT_EQ(i.s.Run[2].Loaded, False);
        EXPECT_EQ(i.s.Run[2].Playing, False);
        EXPECT_EQ(i.s.Run[2].InHand.FileName, i.Folder.In("c.WAV"));
        EXPECT_EQ(i.s.Run[0].InHand.FileName, "");
        EXPECT_EQ(i.s.Run[0].Playing, True);
        EXPECT_EQ(i.s.ThinList, "A");
        refuse(false);
        i.Store.OnLoad = [&] {
            i.Load(0, "a.WAV");
            i.Load(2, "c.WAV");
        };
        i.Reopen();
        EXPECT_EQ(i.s.Run[2].Playing, True);
        EXPECT_EQ(i.Buffer(2).Position, 4000);
        EXPECT_EQ(i.Buffer(2).Status, 5);
        EXPECT_EQ(i.s.Run[2].InHand.FileName, "");
        EXPECT_EQ(i.s.ThinList, "AC");
    }
}

TEST(CarryAcross, ARefusedRowThatGetsAnotherSampleOrIsEmptiedDropsWhatWaited) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    i.s.Run[0].Step = 2;
    i.Store.OnLoad = [] {};
    i.Reopen();
    ASSERT_EQ(i.s.Run[0].InHand.FileName, i.Folder.In("a.WAV"));
    ASSERT_EQ(i.s.Run[0].Step, 2);
    i.Load(0, "c.WAV");
    EXPECT_EQ(i.s.Run[0].InHand.FileName, "");
    EXPECT_FALSE(i.s.Run[0].InHand.Playing);
    EXPECT_EQ(i.s.Run[0].Step, 0);
    ASSERT_EQ(i.s.Run[2].InHand.FileName, i.Folder.In("c.WAV"));
    LoopClear(i.s, 2);
    EXPECT_EQ(i.s.Run[2].InHand.FileName, "");
}

TEST(CarryAcross, ARowWhoseSampleIsGoneIsEmptyAndOutOfTheThinning) {
    Carrying i;
    i.s.ThinList.clear();
    LoopPlay(i.s, 2, true);
    LoopPlay(i.s, 0, true);
    i.Store.OnLoad = [&] { i.Load(0, "a.WAV"); };
    i.Reopen();
    EXPECT_EQ(i.s.Run[2].Loaded, False);
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_EQ(i.s.ThinList, "A");
    EXPECT_EQ(i.s.Run[0].Playing, True);
}

TEST(CarryAcross, ASampleThatRunsBackwardsStillDoesOnceForAllItsRows) {
    Carrying i;
    const std::string path = i.Make("b.WAV");
    i.Sound.Samples[path].Bytes = {1, 0, 1, 0, 2, 0, 2, 0, 3, 0, 3, 0};
    i.Load(1, "b.WAV");
    i.Load(3, "b.WAV");
    LoopReverse(i.s, 3);
    ASSERT_EQ(i.Buffer(1).Sample->Bytes.front(), 3);
    i.Store.OnLoad = [&] {
        i.Load(1, "b.WAV");
        i.Load(3, "b.WAV");
    };
    i.Reopen();
    EXPECT_EQ(i.Buffer(1).Sample->Bytes.front(), 3);
    EXPECT_EQ(i.Buffer(3).Sample->Bytes.front(), 3);
    LoopReverse(i.s, 1);
    i.Reopen();
    EXPECT_EQ(i.Buffer(1).Sample->Bytes.front(), 1);
}

TEST(CarryAcross, PanAndPlaceOfA3dStateInWhichAFileDoesNotKeepThemStay) {
    Carrying i;
    i.s.Set[0].Pan = 123;
    i.s.Set[0].Pattern[kPanPattern][4] = 321;
    i.s.Set[0].PositionX = 0.5F;
    i.s.Set[0].PositionY = -0.25F;
    CarryAcross(i.s, [&] {
        UnInitDirectSound(i.s);
        i.s.Use3D = true;
        InitDirectSound(i.s);
    });
    EXPECT_EQ(i.s.Set[0].Pan, 123);
    EXPECT_EQ(i.s.Set[0].Pattern[kPanPattern][4], 321);
    EXPECT_EQ(i.s.Set[0].PositionX, 0.5F);
    EXPECT_EQ(i.s.Set[0].PositionY, -0.25F);
    EXPECT_THAT(i.Sound.Log, Contains("SetPosition " + i.Name(0) + " 0.500000,0.000000,-0.250000"));
}

TEST(CarryAcross, WhileItLoadsEmptyRowsAreNotBlankedByTheChoiceForOpening) {
    Carrying i;
    i.s.EmptyBlankSetting = 1;
    std::int16_t during = -1;
    i.Store.OnLoad = [&] { during = i.s.EmptyBlankSetting; };
    i.Reopen();
    EXPECT_EQ(during, 0);
    EXPECT_EQ(i.s.EmptyBlankSetting, 1);
}

TEST(CarryAcross, ThePalettesKeepTheirEntriesAndTheirOrder) {
    Carrying i;
    i.s.History[0] = {"/x.WAV"};
    i.s.History[kSelectionRow] = {"/y.WAV", "/x.WAV"};
    i.Reopen();
    EXPECT_THAT(i.s.History[0], ElementsAre("/x.WAV"));
    EXPECT_THAT(i.s.History[kSelectionRow], ElementsAre("/y.WAV", "/x.WAV"));
}

TEST(CarryAcross, ASampleThatWaitedForADeviceComesIntoThePalettes) {
    Carrying i;
    EXPECT_TRUE(i.Silence());
    i.s.History[0] = {"/x.WAV"};
    i.s.History[kSelectionRow].clear();
    i.s.Driver = 1;
    EXPECT_TRUE(i.Reopen());
    EXPECT_THAT(i.s.History[0], ElementsAre(i.Folder.In("a.WAV"), "/x.WAV"));
    EXPECT_THAT(i.s.History[kSelectionRow], ElementsAre(i.Folder.In("c.WAV"), i.Folder.In("a.WAV")));
}

TEST(CarryAcross, WithoutADeviceTheRowsAreEmptyAndTheirSamplesWaitForTheNextOne) {
    Carrying i;
    i.s.Set[0].BeatStart = 12;
    LoopPlay(i.s, 0, true);
    i.Buffer(0).Position = 4000;
    EXPECT_TRUE(i.Silence());
    EXPECT_FALSE(i.s.DSReady);
    for (const Row row : {Row{0}, Row{2}}) {
        EXPECT_EQ(i.s.Set[row].FileName, "");
        EXPECT_EQ(i.s.Run[row].Loaded, False);
        EXPECT_EQ(i.s.Run[row].Playing, False);
    }
    EXPECT_EQ(i.s.Run[0].InHand.FileName, i.Folder.In("a.WAV"));
    EXPECT_EQ(i.s.Run[0].InHand.BeatStart, 12);
    EXPECT_TRUE(i.Silence());
    i.s.Driver = 1;
    EXPECT_TRUE(i.Reopen());
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.Buffer(0).Position, 4000);
    EXPECT_EQ(i.Buffer(0).Status, 5);
    EXPECT_EQ(i.s.Run[2].Loaded, True);
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_EQ(i.s.Run[0].InHand.FileName, "");
}

TEST(CarryAcross, ARowThatIsStoppedOrEmptiedInSilenceIsSoAfterwards) {
    Carrying i;
    for (const Row row : {Row{0}, Row{2}}) {
        LoopPlay(i.s, row, true);
        i.Buffer(row).Position = 4000;
        i.s.Run[row].Step = 2;
        i.s.Run[row].FadeState = kFalling;
    }
    i.Silence();
    StopAll(i.s);
    EXPECT_FALSE(i.s.Run[0].InHand.Playing);
    EXPECT_EQ(i.s.Run[0].InHand.FileName, i.Folder.In("a.WAV"));
    EXPECT_EQ(i.s.ThinList, "");
    LoopClear(i.s, 2);
    EXPECT_EQ(i.s.Run[2].InHand.FileName, "");
    i.s.Driver = 0;
    i.Store.OnLoad = [&] { i.Load(0, "a.WAV"); };
    i.Reopen();
    EXPECT_EQ(i.s.Run[0].Loaded, True);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[0].Step, 0);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_EQ(i.Buffer(0).Status, 0);
    EXPECT_EQ(i.Buffer(0).Position, 0);
    EXPECT_EQ(i.s.Run[2].Loaded, False);
    EXPECT_EQ(i.s.Run[2].Playing, False);
}

TEST(CarryAcross, AStopInSilenceDoesNotEndAPause) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    i.Buffer(0).Position = 4000;
    LoopPlayCommand(i.s, 0, PlayCommand::Pause);
    i.Silence();
    StopAll(i.s);
    i.s.Driver = 0;
    i.Reopen();
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[0].Paused, True);
    EXPECT_EQ(i.Buffer(0).Status, 0);
    EXPECT_EQ(i.Buffer(0).Position, 0);
}

TEST(CarryAcross, APausedRowIsNotResumedInSilenceAndIsPausedAfterwards) {
    Carrying i;
    LoopPlay(i.s, 0, true);
    LoopPlayCommand(i.s, 0, PlayCommand::Pause);
    i.Silence();
    EXPECT_EQ(i.s.Run[0].Paused, False);
    i.s.Driver = 0;
    i.Reopen();
    EXPECT_EQ(i.s.Run[0].Paused, True);
    EXPECT_EQ(i.Buffer(0).Status, 0);
}

TEST(CarryAcross, TheRollOffOf3dSoundStaysAlsoThroughSilence) {
    Carrying i;
    i.s.Use3D = true;
    i.Reopen();
    i.s.RollOffValue = 2.5F;
    i.Silence();
    i.s.Driver = 0;
    i.Sound.Log.clear();
    i.Reopen();
    EXPECT_EQ(i.s.RollOffValue, 2.5F);
    EXPECT_EQ(i.Sound.Calls("SetRolloffFactor").back(), "SetRolloffFactor 2.500000");
}

}  // namespace
}  // namespace marvolin
