#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <filesystem>
#include <fstream>

#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

/// A folder with sample files, removed at the end.
class Folder {
public:
    Folder()
        : path_(std::filesystem::temp_directory_path() /
                std::filesystem::path(::testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(path_);
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    std::string Put(const std::string& name) {
        std::ofstream(path_ / name) << "sample";
        return (path_ / name).string();
    }

private:
    std::filesystem::path path_;
};

TEST(FileDrop, AWavFileLoadsIntoTheRowWhicheverControlItIsDroppedOn) {
    Stage stage;
    Folder folder;
    const std::string one = folder.Put("one.wav");
    const std::string two = folder.Put("two.WAV");
    stage.DropFiles("SndDisp_1", {one});
    EXPECT_EQ(stage.s.Run[1].Loaded, True);
    stage.DropFiles("LoopRow_2", {two});
    EXPECT_EQ(stage.s.Run[2].Loaded, True);
    EXPECT_EQ(stage.s.Run[0].Loaded, False);
    EXPECT_TRUE(stage.Desk.Boxes.empty());
    EXPECT_FALSE(stage.Desk.Busy);
}

TEST(FileDrop, OntoTheSelectionRowLoadsIntoTheControlledRows) {
    Stage stage;
    Folder folder;
    stage.s.Set[0].Selected = True;
    stage.s.Set[3].Selected = True;
    stage.DropFiles("DropDown_4", {folder.Put("one.wav")});
    EXPECT_EQ(stage.s.Run[0].Loaded, True);
    EXPECT_EQ(stage.s.Run[1].Loaded, False);
    EXPECT_EQ(stage.s.Run[3].Loaded, True);
}

TEST(FileDrop, SeveralFilesFillTheRowsBelow) {
    Stage stage;
    Folder folder;
    stage.DropFiles("Letr_2", {folder.Put("a.wav"), folder.Put("b.wav"), folder.Put("c.wav")});
    EXPECT_EQ(stage.s.Run[1].Loaded, False);
    EXPECT_EQ(stage.s.Run[2].Loaded, True);
    EXPECT_EQ(stage.s.Run[3].Loaded, True);
    EXPECT_EQ(std::filesystem::path(stage.s.Set[3].FileName).stem(), "b");
}

TEST(FileDrop, ATextChangesNothing) {
    Stage stage;
    Folder folder;
    stage.Fill(0);
    stage.DropFiles("LoopRow_0", {folder.Put("readme.txt")});
    EXPECT_EQ(stage.s.Run[0].Loaded, True);
    EXPECT_TRUE(stage.Desk.Boxes.empty());
    EXPECT_EQ(stage.s.StatusText, "Not a sample: readme.txt");
}

TEST(FileDrop, AFileThatDoesNotExistShowsABox) {
    Stage stage;
    stage.DropFiles("LoopRow_0", {"/nowhere/gone.wav"});
    EXPECT_EQ(stage.Desk.LastBox(), "File Doesn't Exist !!");
}

TEST(FileDrop, ThePointerPromisesNoDropOfAnAddressElsewhere) {
    Stage stage;
    QMimeData data;
    data.setUrls({QUrl("https://samples.invalid/one.wav")});
    for (const char* name : {"LoopRow_0", "Letr_0", "PatternGraph_0"}) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(stage.At(name), &enter);
        EXPECT_FALSE(enter.isAccepted()) << name;
    }
}

TEST(FileDrop, ANameThatIsNoUtf8ArrivesWithItsBytes) {
    for (const char* head : {"file://", "file:", "file://localhost"}) {
        Stage stage;
        Folder folder;
        const std::string path = folder.Put("caf\xE9 100%.wav");
        QMimeData data;
        data.setData("text/uri-list", head + QByteArray::fromStdString(path).toPercentEncoding("/") + "\r\n");
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(stage.At("LoopRow_0"), &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(stage.At("LoopRow_0"), &drop);
        EXPECT_EQ(stage.s.Set[0].FileName, path) << head;
    }
}

TEST(FileDrop, PlaysAfterLoadingWhenPlayOnLoadIsOn) {
    Stage stage;
    Folder folder;
    stage.s.PlayOnLoad = true;
    stage.DropFiles("LoopRow_0", {folder.Put("one.wav")});
    EXPECT_EQ(stage.s.Run[0].Playing, True);
}

TEST(ControlDrop, ThePointerPromisesOnlyWhatADropDoes) {
    Stage stage;
    for (const char* name : {"Letr_0", "SndDisp_0", "LoopRow_0", "VolKnob_0", "Play_0"}) {
        EXPECT_FALSE(stage.DropControl(name, {"Letr", 0, "Dropper~~0"})) << name;
        EXPECT_FALSE(stage.DropControl(name, {"Eraser", 0, ""})) << name;
        EXPECT_FALSE(stage.DropControl(name, {"Patterns", 0, ""})) << name;  // A is shown
        EXPECT_FALSE(stage.DropControl(name, {"DropDown", 1, ""})) << name;  // empty
        EXPECT_TRUE(stage.DropControl(name, {"Letr", 1, "Dropper~~1"})) << name;
    }
    EXPECT_FALSE(stage.DropControl("PatternGraph_0", {"Letr", 1, "Dropper~~1"}));
    EXPECT_FALSE(stage.DropControl("PatternGraph_0", {"PatternGraph", 1, ""}));
    EXPECT_TRUE(stage.DropControl("PatternGraph_0", {"Eraser", 0, ""}));
}

TEST(ControlDrop, PatternsAndTimingAreCopiedToTheRow) {
    Stage stage;
    stage.s.Set[0].Pattern[kHzPattern][2] = 1234;
    stage.s.Set[0].Pattern[kVolPattern][1] = 77;
    stage.s.Set[0].StepDuration = 45;
    stage.s.Set[0].Swing = 6;
    stage.s.Set[0].NSteps = 9;
    stage.DropControl("Letr_1", {"PatternGraph", kHzPattern, ""});
    EXPECT_EQ(stage.s.Set[1].Pattern[kHzPattern][2], 1234);
    EXPECT_EQ(stage.s.Set[1].Pattern[kVolPattern][1], 500);
    stage.DropControl("SndDisp_2", {"CloneTime", 2, ""});
    EXPECT_EQ(stage.s.Set[2].Swing, 6);
    EXPECT_EQ(stage.s.Set[2].StepDuration, 1);
    stage.DropControl("LoopRow_2", {"AllTiming", 0, ""});
    EXPECT_EQ(stage.s.Set[2].StepDuration, 45);
    stage.DropControl("Play_3", {"Patterns", 0, ""});
    EXPECT_EQ(stage.s.Set[3].NSteps, 9);
    EXPECT_EQ(stage.s.Set[3].Pattern[kVolPattern][1], 77);
    EXPECT_EQ(stage.s.Set[3].StepDuration, 1);
    stage.DropControl("VolKnob_3", {"TabControl", 0, ""});
    EXPECT_EQ(stage.s.Set[3].StepDuration, 45);
}

TEST(DragSource, TravelsAsMimeData) {
    const DragSource source{"PosBall", 3, "Dropper~~3"};
    EXPECT_EQ(FromMimeData(*ToMimeData(source)), source);
    QMimeData other;
    other.setText("PosBall");
    EXPECT_FALSE(IsDragSource(other));
    EXPECT_EQ(FromMimeData(other), std::nullopt);
}

}  // namespace
}  // namespace marvolin
