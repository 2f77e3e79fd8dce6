// The title of the main window, and a row whose sample is missing, by real events.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "audio/loop_clearing.h"
#include "audio/sample_loading.h"
#include "core/files/paths.h"
#include "fakes/file_bytes.h"
#include "persistence/kept/last_state.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"
#include "stage.h"
#include "window/descriptions/description.h"
#include "window/rows/find_button.h"
#include "window/rows/loop_row.h"
#include "window/rows/missing_finder.h"

namespace marvolin {
namespace {

using test::Stage;
using test::TempFolder;
using test::WriteBytes;
using ::testing::ElementsAre;

/// Lets a second of the timer pass by which the set is looked at.
void PassASecond(Stage& stage) {
    for (auto* timer : stage.Timers.Live) {
        if (timer->Interval == kLookPeriod) timer->OnTick(kLookPeriod);
    }
}

TEST(TitleOfTheWindow, EndsInAMarkWhileTheSetDiffersFromItsFile) {
    TempFolder folder;
    Stage stage;
    stage.Desk.Folder = folder.Path();
    stage.s.CurrentFolder = folder.Path() + "/";
    stage.s.CurrentFile = "friday.mvn";
    stage.s.Title = "marvolin-friday.mvn";
    stage.s.SaveOpenSwitches[kWhenSaving].SetSwitch(true);
    StartKeeping(stage.s);
    NoteSetOnDisk(stage.s, folder / "friday.mvn");
    stage.s.World.Screen.ShowTitle();
    EXPECT_EQ(stage.Form->windowTitle(), "marvolin-friday.mvn");
    stage.Drag("VolKnob_1", QPointF(-30, 0));
    PassASecond(stage);
    EXPECT_EQ(stage.Form->windowTitle(), "marvolin-friday.mvn*");
    EXPECT_EQ(stage.s.Title, "marvolin-friday.mvn") << "the text itself stays";
    NoteSetOnDisk(stage.s, folder / "friday.mvn");
    EXPECT_EQ(stage.Form->windowTitle(), "marvolin-friday.mvn");
    EndKeeping(stage.s);
}

/// The window with the sample of A missing; it lies in "deep/er" now.
struct MissingStage {
    TempFolder Folder;
    Stage Window;
    Session& s = Window.s;

    MissingStage() {
        WriteBytes(Folder / "a.wav", "a");
        s.CurrentFolder = Folder.Path() + "/";
        LoadSample(s, {.Path = Folder / "a.wav", .Target = 0});
        EXPECT_TRUE(SaveSession(s, Folder / "set.mvn", LoopsSaved::All, AllSwitches()));
        LoopClear(s, 0);
        std::filesystem::create_directories(Folder / "deep/er");
        std::filesystem::rename(Folder / "a.wav", Folder / "deep/er/a.wav");
        EXPECT_FALSE(Find().isVisible());
        clsSwitchRecord switches = AllSwitches();
        switches.Put(Element::PickLists, false);
        EXPECT_TRUE(LoadSession(s, Folder / "set.mvn", SetAsCurrent::No, switches, AdoptSwitches::No));
        Window.Settle();
    }
    FindButton& Find() { return *Window.Form->Rows[0]->Find; }
    /// Answers the question for the folder that opens next.
    void Answer(const QString& folder) {
        answer_.callOnTimeout([this, folder] {
            auto* question = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (question == nullptr) return;
            answer_.stop();
            Asked = question->windowTitle();
            if (folder.isEmpty()) return question->reject();
            auto* edit = question->findChild<QLineEdit*>("fileNameEdit");
            edit->setText(folder);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        answer_.start(1);
    }
    bool Searching() const { return s.BusyPointers > 0; }
    QString Asked;

private:
    QTimer answer_;
};

TEST(MissingSampleOfARow, ShowsFindAndSaysWhatIsMissing) {
    MissingStage m;
    EXPECT_TRUE(m.Find().isVisible());
    EXPECT_FALSE(m.Window.Form->Rows[1]->Find->isVisible());
    EXPECT_EQ(m.Window.At("FindSample_0")->accessibleName(), "Find the missing sample of LoopTrack A");
    EXPECT_TRUE(m.Window.At("DropDown_0")->toolTip().contains("missing: "));
    LoopClear(m.s, 0);
    EXPECT_FALSE(m.Find().isVisible());
}

TEST(MissingSampleOfARow, IsFoundInTheFolderOfTheAnswerAndBelow) {
    MissingStage m;
    m.Answer(QString::fromStdString(m.Folder.Path()));
    m.Window.Click("FindSample_0");
    EXPECT_EQ(m.Asked, "Find missing samples in a folder and below");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m.Searching(); }));
    EXPECT_EQ(m.s.Set[0].FileName, m.Folder / "deep/er/a.wav");
    EXPECT_FALSE(m.Find().isVisible());
    EXPECT_EQ(m.s.StatusText, "Found: a.wav");
}

TEST(MissingSampleOfARow, IsFoundByKey) {
    MissingStage m;
    m.Answer(QString::fromStdString(m.Folder.Path()));
    m.Find().setFocus();
    QTest::keyClick(&m.Find(), Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m.Searching(); }));
    EXPECT_EQ(m.s.Run[0].Loaded, True);
}

TEST(MissingSampleOfARow, StaysWhenTheQuestionIsCancelled) {
    MissingStage m;
    m.Answer("");
    m.Window.Click("FindSample_0");
    EXPECT_FALSE(m.Searching());
    EXPECT_THAT(MissingNames(m.s), ElementsAre("a.wav"));
}

TEST(MissingSampleOfARow, EscapeEndsTheSearchAndNothingIsLoaded) {
    MissingStage m;
    MissingFinder finder(m.s);
    finder.Look(m.Folder.Path());
    EXPECT_TRUE(m.Searching());
    EXPECT_TRUE(m.Window.Desk.Busy);
    QTest::keyClick(m.Window.Form.get(), Qt::Key_Escape);
    EXPECT_FALSE(m.Searching());
    m.Window.Settle();
    EXPECT_EQ(m.s.StatusText, "The search has ended, and nothing is loaded.");
    EXPECT_THAT(MissingNames(m.s), ElementsAre("a.wav"));
}

TEST(MissingSampleOfARow, LettersPlayOnDuringTheSearch) {
    MissingStage m;
    MissingFinder finder(m.s);
    finder.Look(m.Folder.Path());
    QTest::keyClick(m.Window.Form.get(), Qt::Key_B);
    EXPECT_THAT(m.Window.Keys, ElementsAre("B"));
}

}  // namespace
}  // namespace marvolin
