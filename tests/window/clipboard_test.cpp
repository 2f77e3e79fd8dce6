#include "browser/clipboard.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "browser_stage.h"

namespace marvolin {
namespace {

/// The browser, open at the clipboard.
struct Clips : test::Browser {
    Clips() {
        OpenTab(3);
        Settle();
    }
    QListWidget& List() { return dynamic_cast<QListWidget&>(Part("ClipBoardList")); }
    QStringList Rows() {
        QStringList rows;
        for (int row = 0; row < List().count(); ++row) rows << List().item(row)->text();
        return rows;
    }
    bool DropOnList(const DragSource& source) { return DropOn(*List().viewport(), ToMimeData(source)); }
    /// Loads a row with one of the samples on disk and gives it settings of its own.
    void Load(Row row, const char* sample) {
        Fill(row);
        s.Set[row].FileName = (Folder / sample).string();
        s.Set[row].Vol = 123;
        s.Set[row].Hz = 2000;
        s.Set[row].Pan = 250;
        s.Set[row].Channel = 4;
        s.Set[row].NSteps = 7;
        s.Set[row].Pattern[kVolPattern][2] = 44;
        Screen.ShowCaption(row);
    }
    /// What a press on a clip drags; none when it drags nothing.
    std::optional<DragSource> DragOfClip(int row, Qt::MouseButton button) {
        QWidget& view = *List().viewport();
        const QPoint place =
            row < List().count() ? List().visualItemRect(List().item(row)).center() : QPoint(20, view.height() - 10);
        return test::DragAway(List(), view, place, button);
    }
    void Untick(int box) { ClickOn(("Components_" + std::to_string(box)).c_str(), {10, 12}); }
};

TEST(ClipBoardPage, HasItsLabelsBoxesAndButtons) {
    Clips clips;
    QStringList labels;
    for (const QLabel* label : clips.Window.findChildren<QLabel*>()) {
        if (label->isVisible()) labels << label->text();
    }
    EXPECT_TRUE(labels.contains("Drag copies all LoopTrack elements"));
    EXPECT_TRUE(labels.contains("Right drag copies the following Elements:"));
    const char* captions[] = {"Sample", "Vol", "Pitch", "Pan", "Patterns", "Position", "Wire"};
    for (int box = 0; box < 7; ++box) {
        const auto& shown = dynamic_cast<QCheckBox&>(clips.Part(("Components_" + std::to_string(box)).c_str()));
        EXPECT_EQ(shown.text(), captions[box]);
        EXPECT_TRUE(shown.isChecked()) << box;
    }
    EXPECT_TRUE(clips.Part("Trash").isVisible());
    EXPECT_TRUE(clips.Part("ClearClip").isVisible());
}

TEST(ClipBoardPage, TheNameOfALoadedLoopTrackDroppedOnTheListBecomesAClip) {
    Clips clips;
    clips.Load(1, "one.wav");
    EXPECT_TRUE(clips.DropOnList({"DropDown", 1, ""}));
    EXPECT_TRUE(clips.DropOnList({"DropDown", 1, ""}));
    EXPECT_FALSE(clips.DropOnList({"DropDown", 0, ""}));  // empty
    ASSERT_EQ(clips.Rows(), (QStringList{"one", "(2) one"}));
    EXPECT_EQ(clips.s.Clips.ClipStore[1].Vol, 123);
}

TEST(ClipBoardPage, AGripOfTheMainWindowDragsWhatTheListTakes) {
    Clips clips;
    clips.Load(2, "two.WAV");
    QWidget& grip = *clips.At("DropDown_2");
    const auto source = test::DragAway(grip, grip, {40, 3});
    ASSERT_TRUE(source.has_value());
    EXPECT_TRUE(clips.DropOnList(*source));
    EXPECT_EQ(clips.Rows(), QStringList{"two"});
}

TEST(ClipBoardPage, TheSelectionRowAddsEachSelectedLoopTrackThatIsLoaded) {
    Clips clips;
    clips.Load(0, "one.wav");
    clips.Load(2, "two.WAV");
    clips.Load(3, "three.wav");
    EXPECT_FALSE(clips.DropOnList({"DropDown", 4, ""}));
    EXPECT_EQ(clips.Rows(), QStringList{});
    for (const char* flag : {"Selected_0", "Selected_1", "Selected_3"}) clips.Click(flag);
    EXPECT_TRUE(clips.DropOnList({"DropDown", 4, ""}));
    EXPECT_EQ(clips.Rows(), (QStringList{"one", "three"}));
}

TEST(ClipBoardPage, OtherControlsAndFilesAddNothing) {
    Clips clips;
    clips.Load(0, "one.wav");
    for (const char* name : {"PickFile", "Letr", "ClipBoardList", "SndDisp"}) clips.DropOnList({name, 0, "1"});
    auto urls = std::make_unique<QMimeData>();
    urls->setUrls({QUrl::fromLocalFile(QString::fromStdString((clips.Folder / "one.wav").string()))});
    EXPECT_FALSE(clips.DropOn(*clips.List().viewport(), std::move(urls)));
    EXPECT_EQ(clips.Rows(), QStringList{});
}

TEST(ClipBoardPage, AClickOnAClipChoosesItAndDragsNothing) {
    Clips clips;
    clips.Load(0, "one.wav");
    for (int i = 0; i < 2; ++i) clips.DropOnList({"DropDown", 0, ""});
    QWidget& view = *clips.List().viewport();
    const QPoint place = clips.List().visualItemRect(clips.List().item(1)).center();
    EXPECT_EQ(test::DragOf(clips.List(), [&] { QTest::mouseClick(&view, Qt::LeftButton, {}, place); }), std::nullopt);
    EXPECT_EQ(clips.List().currentRow(), 1);
    EXPECT_EQ(clips.s.Clips.Selected, -1);
}

TEST(ClipBoardPage, ADragOfAClipHasTheButtonForItsTag) {
    Clips clips;
    clips.Load(0, "one.wav");
    clips.Load(1, "two.WAV");
    clips.DropOnList({"DropDown", 0, ""});
    clips.DropOnList({"DropDown", 1, ""});
    EXPECT_EQ(clips.DragOfClip(1, Qt::LeftButton), (DragSource{"ClipBoardList", 0, "1"}));
    EXPECT_EQ(clips.s.Clips.Selected, 1);
    EXPECT_EQ(clips.List().currentRow(), 1);
    EXPECT_EQ(clips.DragOfClip(0, Qt::RightButton), (DragSource{"ClipBoardList", 0, "2"}));
    EXPECT_EQ(clips.s.Clips.Selected, 0);
    EXPECT_EQ(clips.DragOfClip(2, Qt::LeftButton), std::nullopt);  // below the last clip
    EXPECT_EQ(clips.s.Clips.Selected, 0);
}

TEST(ClipBoardPage, AClipDraggedWithTheLeftButtonCopiesEverythingAndPlays) {
    Clips clips;
    clips.Load(0, "one.wav");
    clips.DropOnList({"DropDown", 0, ""});
    clips.Untick(1);  // the boxes count only for a drag with the right button
    const auto drag = clips.DragOfClip(0, Qt::LeftButton);
    ASSERT_TRUE(drag.has_value());
    clips.DropControl("SndDisp_2", *drag);
    EXPECT_EQ(clips.s.Set[2].FileName, clips.s.Set[0].FileName);
    EXPECT_EQ(clips.s.Set[2].Vol, 123);
    EXPECT_EQ(clips.s.Set[2].Hz, 2000);
    EXPECT_EQ(clips.s.Set[2].Channel, 4);
    EXPECT_EQ(clips.s.Set[2].Pattern[kVolPattern][2], 44);
    EXPECT_EQ(clips.s.Run[2].Playing, True);
}

TEST(ClipBoardPage, AClipDraggedWithTheRightButtonCopiesOnlyWhatIsTicked) {
    for (int box = 0; box < 7; ++box) {
        SCOPED_TRACE(box);
        Clips clips;
        clips.Load(0, "one.wav");
        clips.DropOnList({"DropDown", 0, ""});
        clips.Untick(box);
        const auto drag = clips.DragOfClip(0, Qt::RightButton);
        ASSERT_TRUE(drag.has_value());
        clips.DropControl("LoopRow_2", *drag);
        const LoopTrackSet& set = clips.s.Set[2];
        EXPECT_EQ(set.FileName.empty(), box == 0);
        EXPECT_EQ(set.Vol == 123, box != 1);
        EXPECT_EQ(set.Hz == 2000, box != 2);
        EXPECT_EQ(set.Pan == 250, box != 3);
        EXPECT_EQ(set.Pattern[kVolPattern][2] == 44, box != 4);
        EXPECT_EQ(set.Channel == 4, box != 6);
        EXPECT_EQ(clips.s.Run[2].Playing, False);
    }
}

TEST(ClipBoardPage, AClipOnTheSelectionRowDoesNothing) {
    Clips clips;
    clips.Load(0, "one.wav");
    clips.DropOnList({"DropDown", 0, ""});
    clips.Click("Selected_2");
    const auto drag = clips.DragOfClip(0, Qt::LeftButton);
    ASSERT_TRUE(drag.has_value());
    clips.DropControl("DropDown_4", *drag);
    EXPECT_EQ(clips.s.Run[2].Loaded, False);
    EXPECT_NE(clips.s.Set[4].Vol, 123);
}

TEST(ClipBoardPage, TrashRemovesTheClipThatWasDraggedAndTheOthersKeepTheirTexts) {
    Clips clips;
    clips.Load(0, "one.wav");
    for (int i = 0; i < 3; ++i) clips.DropOnList({"DropDown", 0, ""});
    const auto drag = clips.DragOfClip(1, Qt::LeftButton);
    ASSERT_TRUE(drag.has_value());
    EXPECT_TRUE(clips.DropOn("Trash", *drag));
    EXPECT_EQ(clips.Rows(), (QStringList{"one", "(3) one"}));
    EXPECT_EQ(clips.s.Clips.ClipTop, 1);
    clips.DropOn("Trash", {"DropDown", 0, ""});
    clips.DropOn("Trash", *drag);  // no clip is selected any more
    EXPECT_EQ(clips.Rows(), (QStringList{"one", "(3) one"}));
}

TEST(ClipBoardPage, ClearAllAsksAndOnlyOkEmptiesTheList) {
    Clips clips;
    clips.Load(0, "one.wav");
    clips.DropOnList({"DropDown", 0, ""});
    clips.Desk.Answers = {false, true};
    clips.ClickOn("ClearClip");
    ASSERT_EQ(clips.Desk.Boxes.size(), 1U);
    EXPECT_EQ(clips.Desk.Boxes[0].Title, "Clear?");
    EXPECT_EQ(clips.Desk.Boxes[0].Text, "Clear all items from clipboard?");
    EXPECT_EQ(clips.Desk.Boxes[0].Style, BoxStyle::Question);
    EXPECT_EQ(clips.Rows(), QStringList{"one"});
    clips.ClickOn("ClearClip");
    EXPECT_EQ(clips.Rows(), QStringList{});
    EXPECT_EQ(clips.s.Clips.ClipTop, -1);
}

TEST(ClipBoardPage, HintsOfListAndTrashAreShownInTheBrowsersStatusBar) {
    Clips clips;
    const std::string main = clips.s.StatusText;
    clips.Hover(*clips.List().viewport(), {20, 20});
    EXPECT_TRUE(clips.Shows("drg Copy to LoopTrack; rtdrg Copy by Element"));
    clips.Hover(clips.Part("Trash"), {20, 20});
    EXPECT_TRUE(clips.Shows("drop Clip here to Trash it"));
    EXPECT_EQ(clips.s.StatusText, main);
}

TEST(ClipBoardPage, TheDeleteKeyRemovesTheSelectedClip) {
    Clips clips;
    clips.Load(0, "one.wav");
    clips.Load(1, "two.WAV");
    clips.DropOnList({"DropDown", 0, ""});
    clips.DropOnList({"DropDown", 1, ""});
    clips.List().setFocus();
    clips.List().setCurrentRow(0);
    QTest::keyClick(&clips.List(), Qt::Key_Delete);
    EXPECT_EQ(clips.Rows(), QStringList{"two"});
}

}  // namespace
}  // namespace marvolin
