#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QDialog>
#include <QDropEvent>
#include <QFileDialog>
#include <QListWidget>
#include <QMimeData>
#include <QUrl>
#include <QtTest/QTest>
#include <filesystem>

#include "editor_stage.h"
#include "scripting/api/api_page.h"
#include "scripting/script_file.h"
#include "window/editor/script_status.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;
using test::Choose;
using test::EditorStage;
using test::Press;
using testing::IsEmpty;

TEST(EditorFiles, NewBeginsWithAnExampleThatIsChosen) {
    EditorStage stage;
    for (int i = 0; i < static_cast<int>(kScriptExamples.size()); ++i) {
        stage.Click("Examples");
        auto* list = stage.Window.findChild<QListWidget*>("ExampleList");
        ASSERT_TRUE(list->isVisible());
        ASSERT_EQ(list->count(), static_cast<int>(kScriptExamples.size()));
        EXPECT_TRUE(list->item(i)->text().contains(
            QString::fromUtf8(kScriptExamples[static_cast<std::size_t>(i)].Purpose.data(),
                              static_cast<qsizetype>(kScriptExamples[static_cast<std::size_t>(i)].Purpose.size()))));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(i)).center());
        stage.Settle();
        EXPECT_FALSE(list->isVisible());
        const std::string file(kScriptExamples[static_cast<std::size_t>(i)].File);
        EXPECT_EQ(stage.Text(), ReadScript(stage.Desk.Folder + "/Scripts/" + file));
        EXPECT_EQ(stage.Window.Document->Name(), file);
        EXPECT_FALSE(stage.Window.View->IsModified());
    }
}

/// Counts how often a widget is painted.
struct PaintCount : QObject {
    int Paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++Paints;
        return false;
    }
};

TEST(EditorFiles, TheButtonOfTheListIsPaintedAnewWhenTheListHasGoneAndThePointerIsElsewhere) {
    EditorStage stage;
    QCursor::setPos(stage.Window.mapToGlobal(QPoint(5, stage.Window.height() - 5)));
    stage.Click("Examples");
    stage.Settle();
    PaintCount count;
    stage.At("Examples")->installEventFilter(&count);
    stage.Window.findChild<QListWidget*>("ExampleList")->hide();
    stage.Settle();
    EXPECT_FALSE(stage.At("Examples")->underMouse());
    EXPECT_GT(count.Paints, 0) << "it was lit as under the pointer";
}

TEST(EditorFiles, AnExampleThatIsGoneIsToldAndTheTextStays) {
    EditorStage stage;
    stage.Desk.Folder = "/nowhere";
    stage.Window.View->SetText("mine");
    stage.Window.Document->BeginExample(0);
    EXPECT_EQ(stage.Desk.LastBox(), "The example pan_oscillator.mvs cannot be opened: File not found");
    EXPECT_FALSE(stage.Desk.Boxes.back().Waits);
    EXPECT_EQ(stage.Text(), "mine");
}

TEST(EditorFiles, AnExampleIsSavedAsAFileOfThePlayers) {
    EditorStage stage;
    stage.Window.Document->BeginExample(1);
    stage.Answer({[&](QDialog& dialogue) {
                     auto& files = dynamic_cast<QFileDialog&>(dialogue);
                     EXPECT_EQ(files.directory().absolutePath().toStdString(), stage.Folder.Path());
                     EXPECT_TRUE(files.selectedFiles().first().endsWith("/ducking.mvs"));
                     Choose("mine")(dialogue);
                 }},
                 [&] { stage.Key(Qt::Key_S, Qt::ControlModifier); });
    EXPECT_EQ(ReadScript(stage.Folder / "mine.mvs"), stage.Text());
    EXPECT_EQ(stage.Window.Document->Name(), "mine.mvs");
    EXPECT_EQ(stage.Window.windowTitle(), "marvolin scripts - mine.mvs[*]");
}

TEST(EditorFiles, AFileIsOpenedChangedAndSavedUnderItsName) {
    EditorStage stage;
    const std::string path = stage.Folder.Touch("song.mvs", "x = 1\n");
    stage.Answer({Choose("song.mvs")}, [&] { stage.Click("OpenScript"); });
    EXPECT_EQ(stage.Text(), "x = 1\n");
    EXPECT_FALSE(stage.Window.isWindowModified());
    stage.Type("y = 2 ");
    EXPECT_TRUE(stage.Window.isWindowModified());
    stage.Click("SaveScript");
    EXPECT_FALSE(stage.Window.isWindowModified());
    EXPECT_EQ(ReadScript(path), "y = 2 x = 1\n");
    EXPECT_EQ(ReadScript(path + "~"), "x = 1\n");
    EXPECT_EQ(stage.Window.Status->Hint(), "Saved " + QString::fromStdString(path));
    EXPECT_THAT(stage.Desk.Boxes, IsEmpty());
}

TEST(EditorFiles, SaveAsAsksForANameAndGivesItItsEnding) {
    EditorStage stage;
    stage.Type("x");
    stage.Answer({Choose("verse 2.1")}, [&] { stage.Key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier); });
    EXPECT_EQ(ReadScript(stage.Folder / "verse 2.1.mvs"), "x");
    stage.Answer({Choose("Other.MVS")}, [&] { stage.Click("SaveScriptAs"); });
    EXPECT_EQ(ReadScript(stage.Folder / "Other.MVS"), "x");
    EXPECT_EQ(stage.Window.Document->Name(), "Other.MVS");
}

TEST(EditorFiles, AFileThatExistsIsOverwrittenOnlyAfterAQuestion) {
    EditorStage stage;
    const std::string path = stage.Folder.Touch("song.mvs", "old");
    stage.Type("x");
    // The toolkit asks while its dialogue is open.
    stage.Answer({Choose("song.mvs"), [](QDialog& box) { box.reject(); }, [](QDialog& dialogue) { dialogue.reject(); }},
                 [&] { stage.Click("SaveScriptAs"); });
    EXPECT_EQ(ReadScript(path), "old");
    EXPECT_TRUE(stage.Window.View->IsModified());
}

TEST(EditorFiles, ASaveThatIsCancelledOrFailsLosesNothing) {
    EditorStage stage;
    stage.Type("x");
    stage.Answer({[](QDialog& dialogue) { dialogue.reject(); }}, [&] { stage.Click("SaveScript"); });
    EXPECT_TRUE(stage.Window.View->IsModified());
    const std::string path = stage.Folder.Touch("song.mvs", "old");
    stage.Answer({Press("BoxDiscard")}, [&] { stage.Window.Document->Open(path); });
    stage.Type("new ");
    fs::create_directory(path + "~");
    stage.Click("SaveScript");
    EXPECT_EQ(stage.Desk.LastBox().substr(0, 42), "The script song.mvs cannot be saved: Path/");
    EXPECT_FALSE(stage.Desk.Boxes.back().Waits);
    EXPECT_TRUE(stage.Window.View->IsModified());
    EXPECT_EQ(stage.Text(), "new old");
    EXPECT_EQ(ReadScript(path), "old");
}

TEST(EditorFiles, TheOpenFileOpenedAgainIsReadAfterTheChangesWereSavedToIt) {
    EditorStage stage;
    const std::string path = stage.Folder.Touch("song.mvs", "old");
    stage.Window.Document->Open(path);
    stage.Type("new ");
    stage.Answer({Press("BoxSave")}, [&] { stage.Window.Document->Open(path); });
    EXPECT_EQ(stage.Text(), "new old");
    EXPECT_EQ(ReadScript(path), "new old");
    EXPECT_FALSE(stage.Window.View->IsModified());
    stage.Type("more ");
    stage.Answer({Press("BoxDiscard")}, [&] { stage.Window.Document->Open(path); });
    EXPECT_EQ(stage.Text(), "new old");
    stage.Type("mine ");
    stage.Answer({Press("BoxCancel")}, [&] { stage.Window.Document->Open(path); });
    EXPECT_EQ(stage.Text(), "mine new old");
    EXPECT_TRUE(stage.Window.View->IsModified());
    EXPECT_THAT(stage.Desk.Boxes, IsEmpty());
}

TEST(EditorFiles, ATextThatCannotBeOpenedAgainIsSavedAndThatIsTold) {
    EditorStage stage;
    const std::string path = stage.Folder.Touch("song.mvs", "old");
    stage.Window.Document->Open(path);
    const std::string longer(1024 * 1024 + 1, 'x');
    stage.Window.View->SetText(longer);
    EXPECT_TRUE(stage.Window.Document->Save());
    EXPECT_EQ(std::filesystem::file_size(path), longer.size());
    EXPECT_EQ(
        stage.Desk.LastBox(),
        "The script song.mvs is saved, but cannot be opened again: It is longer than 1 MB, the most for a script");
    EXPECT_FALSE(stage.Desk.Boxes.back().Waits);
    stage.Desk.Boxes.clear();
    stage.Window.View->SetText("x");
    EXPECT_TRUE(stage.Window.Document->Save());
    EXPECT_THAT(stage.Desk.Boxes, IsEmpty());
}

TEST(EditorFiles, AFileThatHasVanishedIsSavedAgain) {
    EditorStage stage;
    const std::string path = stage.Folder.Touch("song.mvs", "old");
    stage.Window.Document->Open(path);
    stage.Type("x");
    fs::remove(path);
    stage.Click("SaveScript");
    EXPECT_EQ(ReadScript(path), "xold");
}

TEST(EditorFiles, WhatIsNoScriptIsToldAndTheTextStays) {
    EditorStage stage;
    stage.Type("mine");
    const auto told = [&](const std::string& path) {
        stage.Desk.Boxes.clear();
        stage.Window.Document->Open(path);
        EXPECT_EQ(stage.Text(), "mine");
        EXPECT_EQ(stage.Window.Document->Name(), "untitled.mvs");
        EXPECT_EQ(stage.Desk.Boxes.size(), 1U);
        EXPECT_FALSE(stage.Desk.Boxes.back().Waits);
        return stage.Desk.LastBox();
    };
    EXPECT_EQ(told(stage.Folder / "gone.mvs"), "The script gone.mvs cannot be opened: File not found");
    EXPECT_EQ(told(stage.Folder.Touch("long.mvs", std::string(10'000'000, 'x'))),
              "The script long.mvs cannot be opened: It is longer than 1 MB, the most for a script");
    EXPECT_EQ(told(stage.Folder.Touch("zero.mvs", std::string("a\0b", 3))),
              "The script zero.mvs cannot be opened: It is no text: it holds a zero byte");
    EXPECT_EQ(told(stage.Folder.Touch("latin.mvs", "f\xFCr")),
              "The script latin.mvs cannot be opened: It is no text in UTF-8");
}

TEST(EditorFiles, ATextThatIsNotSavedIsAskedAboutBeforeItIsReplaced) {
    EditorStage stage;
    const std::string path = stage.Folder.Touch("other.mvs", "other");
    const std::vector<std::function<void()>> ways{
        [&] { stage.Key(Qt::Key_N, Qt::ControlModifier); }, [&] { stage.Click("NewScript"); },
        [&] { stage.Window.Document->Open(path); }, [&] { stage.Window.Document->BeginExample(0); }};
    for (const auto& way : ways) {
        stage.Window.View->SetText("");
        stage.Type("mine");
        stage.Answer({Press("BoxCancel")}, way);
        EXPECT_EQ(stage.Text(), "mine");
        stage.Answer({Press("BoxDiscard")}, way);
        EXPECT_NE(stage.Text(), "mine");
        EXPECT_FALSE(stage.Window.View->IsModified());
    }
}

TEST(EditorFiles, ATextCanBeSavedFromTheQuestion) {
    EditorStage stage;
    stage.Type("mine");
    stage.Answer({Press("BoxSave"), Choose("kept")}, [&] { stage.Click("NewScript"); });
    EXPECT_EQ(ReadScript(stage.Folder / "kept.mvs"), "mine");
    EXPECT_EQ(stage.Text(), "");
    EXPECT_EQ(stage.Window.Document->Name(), "untitled.mvs");
    stage.Type("again");
    stage.Answer({Press("BoxSave"), [](QDialog& dialogue) { dialogue.reject(); }}, [&] { stage.Click("NewScript"); });
    EXPECT_EQ(stage.Text(), "again");
}

TEST(EditorFiles, ATextThatIsSavedIsReplacedWithoutAQuestion) {
    EditorStage stage;
    stage.Window.Document->BeginExample(0);
    stage.Answer({}, [&] { stage.Click("NewScript"); });
    EXPECT_EQ(stage.Text(), "");
    stage.Type("x");
    stage.Click("UndoText");
    stage.Answer({}, [&] { stage.Click("NewScript"); });
}

TEST(EditorFiles, AScriptThatIsDroppedOnTheWindowOpens) {
    EditorStage stage;
    const auto drop = [&](const std::string& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        // Onto the text, which takes no files: what it ignores goes to the window.
        auto* text = dynamic_cast<QAbstractScrollArea&>(stage.Window.View->Widget()).viewport();
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QApplication::sendEvent(text, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent dropped(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(text, &dropped);
        stage.Settle();
        return true;
    };
    EXPECT_FALSE(drop(stage.Folder.Touch("beat.wav")));
    EXPECT_EQ(stage.Text(), "");
    EXPECT_TRUE(drop(stage.Folder.Touch("song.mvs", "dropped")));
    EXPECT_EQ(stage.Text(), "dropped");
}

}  // namespace
}  // namespace marvolin
