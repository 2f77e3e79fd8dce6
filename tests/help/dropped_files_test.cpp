// Files dropped on the main window: a set opens wherever it falls.

#include "instrument/dropped_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "browser_stage.h"
#include "core/routines.h"
#include "fakes/temp_folder.h"
#include "persistence/session_format.h"
#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(DroppedSet, OpensWhereverItFallsAsQuickLoadDoes) {
    test::TempFolder folder;
    const std::string set = folder.Touch("night.mvn");
    for (const char* name : {"LoopRow_2", "Letr_0", "VolKnob_3", "frmMain"}) {
        SCOPED_TRACE(name);
        Stage stage;
        stage.s.SaveOpenSwitches[1].SetSwitch(true);
        stage.s.CurrentFile = "night.mvn";
        if (std::string(name) == "frmMain") {
            DropFiles(stage.s, -1, {set});
            EXPECT_EQ(WhyDropIsRefused(stage.s, -1, {set}), "");
        } else {
            EXPECT_TRUE(stage.DropFiles(name, {set}));
        }
        EXPECT_THAT(stage.Store.Log, ElementsAre("Load " + set + " current adopt everything"));
        EXPECT_EQ(stage.s.DialogueFile, "night.mvn");
        EXPECT_TRUE(stage.s.SaveItEnabled);
        EXPECT_EQ(stage.s.Run[2].Loaded, False);
    }
}

TEST(DroppedSet, APackageAndCapitalsCountAndTheRestOfTheDropDoesNot) {
    test::TempFolder folder;
    const std::string sample = folder.Touch("one.wav");
    const std::string package = folder.Touch("night.mvp");
    Stage stage;
    EXPECT_EQ(SetAmong({sample, folder.Touch("NIGHT.MVN"), package}), folder.Path() + "/NIGHT.MVN");
    EXPECT_EQ(SetAmong({sample, package}), package);
    stage.DropFiles("LoopRow_0", {sample, package});
    EXPECT_THAT(stage.Store.Log, ElementsAre("Load " + package + " current adopt"));
    EXPECT_EQ(stage.s.Run[0].Loaded, False);
}

TEST(DroppedSet, APackageIsWhatTheStoreKnowsAsOne) {
    test::TempFolder folder;
    for (const char* name : {"night.mvp", "NIGHT.MVP", "night.Mvp"}) {
        const std::string path = folder.Touch(name);
        EXPECT_EQ(!SetAmong({path}).empty(), IsPackage(path)) << name;
    }
}

TEST(DroppedSet, ThatCannotBeOpenedLeavesTheDialogueAsItIs) {
    test::TempFolder folder;
    Stage stage;
    stage.Store.Answer = false;
    stage.s.DialogueFile = "other.mvn";
    stage.DropFiles("LoopRow_0", {folder.Touch("night.mvn")});
    EXPECT_EQ(stage.s.DialogueFile, "other.mvn");
    EXPECT_FALSE(stage.s.SaveItEnabled);
    EXPECT_FALSE(stage.Desk.Busy);
}

TEST(DroppedSet, BesideTheRowsNothingElseIsTaken) {
    test::TempFolder folder;
    const std::string sample = folder.Touch("one.wav");
    Stage stage;
    EXPECT_EQ(WhyDropIsRefused(stage.s, -1, {sample}), "Drop samples on a row; a set opens anywhere here");
    EXPECT_NE(WhyDropIsRefused(stage.s, -1, {"/nowhere/night.mvn"}), "");
    EXPECT_EQ(WhyDropIsRefused(stage.s, 1, {sample}), "");
    DropFiles(stage.s, -1, {sample});
    EXPECT_THAT(stage.Store.Log, IsEmpty());
    EXPECT_FALSE(stage.DropFiles("Browse", {sample}));
    EXPECT_TRUE(stage.Desk.Boxes.empty());
}

TEST(DroppedSamples, SeveralFillTheRowsFromThereDownwards) {
    test::TempFolder folder;
    Stage stage;
    stage.DropFiles("Letr_1",
                    {folder.Touch("a.wav"), folder.Touch("b.wav"), folder.Touch("c.wav"), folder.Touch("d.wav")});
    EXPECT_EQ(stage.s.Run[0].Loaded, False);
    EXPECT_TRUE(stage.s.Set[1].FileName.ends_with("/a.wav"));
    EXPECT_TRUE(stage.s.Set[2].FileName.ends_with("/b.wav"));
    EXPECT_TRUE(stage.s.Set[3].FileName.ends_with("/c.wav"));
}

TEST(DroppedFiles, ThatWouldDoNothingAreRefusedAndTheStatusLineTellsWhyBeforeTheDrop) {
    test::TempFolder folder;
    const std::string sample = folder.Touch("one.wav");
    const std::string text = folder.Touch("readme.txt");
    Stage stage;
    for (const char* name : {"LoopRow_4", "VolKnob_4", "SndDisp_4"}) {
        stage.s.StatusText.clear();
        EXPECT_FALSE(stage.DropFiles(name, {sample})) << name;
        EXPECT_EQ(stage.s.StatusText, "Nothing is in control of Z: select LoopTracks first") << name;
    }
    for (const char* name : {"LoopRow_0", "Letr_1"}) {
        stage.s.StatusText.clear();
        EXPECT_FALSE(stage.DropFiles(name, {text})) << name;
        EXPECT_EQ(stage.s.StatusText, "Not a sample: readme.txt") << name;
    }
    EXPECT_FALSE(stage.DropFiles("Browse", {sample}));
    EXPECT_EQ(stage.s.StatusText, "Drop samples on a row; a set opens anywhere here");
    stage.s.Set[1].Selected = True;
    EXPECT_TRUE(stage.DropFiles("LoopRow_4", {sample}));
    EXPECT_EQ(stage.s.Run[1].Loaded, True);
}

struct Refused : Stage {
    test::TempFolder Folder;
    std::string Sample = Folder.Touch("one.wav");
    Refused() {
        EXPECT_FALSE(DropFiles("Browse", {Sample}));
        EXPECT_EQ(s.StatusText, "Drop samples on a row; a set opens anywhere here");
    }
};

TEST(DroppedFiles, WhyTheyAreRefusedGoesWhenAControlTakesThem) {
    Refused stage;
    EXPECT_TRUE(stage.DropFiles("LoopRow_0", {stage.Sample}));
    EXPECT_EQ(stage.s.StatusText, "");
}

TEST(DroppedFiles, WhyTheyAreRefusedGoesWhenTheyLeaveTheWindow) {
    Refused stage;
    QDragLeaveEvent leave;
    QApplication::sendEvent(stage.Form->windowHandle(), &leave);
    EXPECT_EQ(stage.s.StatusText, "");
}

TEST(DroppedFiles, WhatStoodInTheStatusLineBeforeTheyWereRefusedComesBack) {
    Stage stage;
    test::TempFolder folder;
    const std::string text = folder.Touch("readme.txt");
    ShowStatus(stage.s, "a report");
    for (const char* name : {"Browse", "Letr_1"}) EXPECT_FALSE(stage.DropFiles(name, {text}));
    ASSERT_NE(stage.s.StatusText, "a report");
    QDragLeaveEvent leave;
    QApplication::sendEvent(stage.Form->windowHandle(), &leave);
    EXPECT_EQ(stage.s.StatusText, "a report");
}

TEST(DroppedFiles, WhatIsShownInPlaceOfTheRefusalStays) {
    Refused stage;
    ShowStatus(stage.s, "A report");
    QDragLeaveEvent leave;
    QApplication::sendEvent(stage.Form->windowHandle(), &leave);
    EXPECT_EQ(stage.s.StatusText, "A report");
}

struct Bins : test::Browser {
    std::string FolderOf(int bin) { return s.Bins[bin].Folder; }
};

TEST(DroppedFolder, OnTheListOfABinIsTakenAsOnItsButton) {
    Bins stage;
    for (const char* name : {"PickFile_1", "PickDir_2"}) {
        EXPECT_TRUE(stage.DropFolder(name, stage.Own.Path())) << name;
    }
    EXPECT_EQ(stage.FolderOf(0), stage.Folder.string());
    EXPECT_EQ(stage.FolderOf(1), stage.Own.Path());
    EXPECT_EQ(stage.FolderOf(2), stage.Own.Path());
}

TEST(DroppedFolder, WhoseNameIsNoUtf8IsTakenToo) {
    Bins stage;
    const std::string folder = stage.Own.Path() + "/B\xe4nke";
    std::filesystem::create_directories(folder);
    auto data = std::make_unique<QMimeData>();
    data->setData("text/uri-list", QByteArray::fromStdString("file://" + stage.Own.Path() + "/B%E4nke\r\n"));
    EXPECT_TRUE(stage.DropOn(stage.Part("PickFile_1"), std::move(data)));
    EXPECT_EQ(stage.FolderOf(1), folder);
}

TEST(DroppedFolder, OfAnotherBinsButtonIsTakenByTheListAndSamplesAreNot) {
    Bins stage;
    stage.DropFolder("PickDir_0", stage.Own.Path());
    EXPECT_TRUE(stage.DropOn("PickFile_1", {"PickDir", 0, ""}));
    EXPECT_EQ(stage.FolderOf(1), stage.Own.Path());
    EXPECT_FALSE(stage.DropOn("PickFile_1", {"PickDir", 1, ""}));
    EXPECT_FALSE(stage.DropOn("PickFile_1", {"PickFile", 0, ""}));
    EXPECT_FALSE(stage.DropFolder("PickFile_2", stage.Folder / "one.wav"));
}

}  // namespace
}  // namespace marvolin
