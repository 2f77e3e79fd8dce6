#include "window/popups/report_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <QtTest/QTest>

#include "stage.h"
#include "window/rows/loop_row.h"
#include "window/toolkit/qt_desktop.h"

namespace marvolin {
namespace {

using test::Stage;

/// The main window, whose reports the real desktop shows.
struct Reported : Stage {
    Reported() {
        Real.Attach(Form.get());
        Desk.WhenReported = [this] { Real.Report(Desk.LastBox()); };
    }
    ~Reported() { Real.Attach(nullptr); }

    /// The box; null while none is shown.
    static ReportBox* Box() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* box = dynamic_cast<ReportBox*>(window);
            if (box != nullptr && box->isVisible()) return box;
        }
        return nullptr;
    }
    void Report(const char* text) {
        Real.Report(text);
        Settle();
    }
    /// What the rows of the main window cover on the screen.
    QRect Rows() {
        QRect rows;
        for (const LoopRow* row : Form->Rows) rows |= QRect(row->mapToGlobal(QPoint(0, 0)), row->size());
        return rows;
    }
    QtDesktop Real;
};

TEST(Report, ReturnsAtOnceAndShowsTitleTextAndOneButton) {
    Reported stage;
    stage.Real.Report("Error <b>playing</b>", "Of the sound", BoxStyle::Critical);
    ASSERT_NE(stage.Box(), nullptr);
    EXPECT_EQ(stage.Box()->text(), "Error <b>playing</b>");
    EXPECT_EQ(stage.Box()->windowTitle(), "Of the sound");
    EXPECT_EQ(stage.Box()->icon(), QMessageBox::Critical);
    EXPECT_EQ(stage.Box()->informativeText(), "");
    EXPECT_EQ(stage.Box()->buttons().size(), 1);
    EXPECT_EQ(stage.Box()->buttons()[0]->text(), "OK");
    EXPECT_FALSE(stage.Box()->isModal());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    stage.Report("Error playing loop: ");
    EXPECT_EQ(stage.Box()->windowTitle(), "marvolin");
}

TEST(Report, IsWideEnoughForItsTitle) {
    Reported stage;
    stage.Report("!");
    EXPECT_GE(stage.Box()->width(), 240);
}

TEST(Report, TakesNoFocusAndLeavesTheInstrumentToThePlayer) {
    Reported stage;
    stage.Fill(1);
    stage.At("Play_1")->setFocus();
    stage.Report("Error playing loop: ");
    EXPECT_EQ(QApplication::activeWindow(), stage.Form.get());
    EXPECT_EQ(QApplication::focusWidget(), stage.At("Play_1"));
    EXPECT_TRUE(stage.Box()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(stage.Box()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(stage.Box()->windowHandle()->transientParent(), stage.Form->windowHandle());
    stage.Click("Play_1");
    EXPECT_EQ(stage.s.Run[1].Playing, True);
    QTest::keyClick(stage.Form.get(), Qt::Key_B, Qt::ShiftModifier);
    EXPECT_EQ(stage.Keys, std::vector<std::string>{"B+shift"});
    EXPECT_NE(stage.Box(), nullptr) << "playing does not close it";
}

TEST(Report, GoesWithItsButton) {
    Reported stage;
    stage.Report("Error playing loop: ");
    QTest::mouseClick(stage.Box()->button(QMessageBox::Ok), Qt::LeftButton);
    EXPECT_EQ(stage.Box(), nullptr);
}

TEST(Report, GoesWithEscapeReturnAndEnterWhichDoNothingElse) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        Reported stage;
        stage.Fill(1);
        stage.At("Play_1")->setFocus();
        stage.Report("Error playing loop: ");
        QTest::keyPress(stage.At("Play_1"), key);
        EXPECT_EQ(stage.Box(), nullptr) << key;
        // The key is still held, and repeats.
        QKeyEvent repeated(QEvent::KeyPress, key, {}, QString(), true);
        QApplication::sendEvent(stage.At("Play_1"), &repeated);
        QTest::keyRelease(stage.At("Play_1"), key);
        EXPECT_EQ(stage.s.Run[1].Playing, False) << key;
    }
}

TEST(Report, WithoutAReportTheKeysDoWhatTheyDo) {
    Reported stage;
    stage.Fill(1);
    stage.At("Play_1")->setFocus();
    stage.Report("Error playing loop: ");
    QTest::keyClick(stage.At("Play_1"), Qt::Key_Return);
    QTest::keyClick(stage.At("Play_1"), Qt::Key_Return);
    EXPECT_EQ(stage.s.Run[1].Playing, True);
}

TEST(Report, NeverStacksButShowsTheNewestAndHowManyThereWere) {
    Reported stage;
    stage.Report("one");
    const ReportBox* first = stage.Box();
    stage.Report("two");
    const QAbstractButton* ok = stage.Box()->button(QMessageBox::Ok);
    EXPECT_GE(ok->height(), ok->sizeHint().height()) << "the open box has grown by the line";
    stage.Report("two");
    EXPECT_EQ(stage.Box(), first);
    int boxes = 0;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        boxes += static_cast<int>(window->isVisible() && qobject_cast<const QMessageBox*>(window) != nullptr);
    }
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(stage.Box()->text(), "two");
    EXPECT_EQ(stage.Box()->informativeText(), "3 messages; this is the newest.");
    QTest::keyClick(stage.Form.get(), Qt::Key_Escape);
    stage.Report("four");
    EXPECT_EQ(stage.Box()->informativeText(), "");
}

TEST(Report, WhatIsReportedInOneGoIsShownTogetherEachTextOnce) {
    Reported stage;
    stage.Report("long ago");
    stage.Real.Report("Error Opening Input past end of file");
    stage.Real.Report("The session has been kept in the file /one.mvn");
    stage.Settle();
    EXPECT_EQ(stage.Box()->text(),
              "Error Opening Input past end of file\n\nThe session has been kept in the file /one.mvn");
    EXPECT_EQ(stage.Box()->informativeText(), "3 messages; these are the newest.");
    QTest::keyClick(stage.Form.get(), Qt::Key_Escape);
    for (const char* text : {"one", "two", "two"}) stage.Real.Report(text);
    EXPECT_EQ(stage.Box()->text(), "one\n\ntwo");
    EXPECT_EQ(stage.Box()->informativeText(), "3 messages; these are the newest.");
    // A box that was closed in between begins anew.
    QTest::keyClick(stage.Form.get(), Qt::Key_Escape);
    stage.Real.Report("three");
    EXPECT_EQ(stage.Box()->text(), "three");
    EXPECT_EQ(stage.Box()->informativeText(), "");
    for (const char* text : {"four", "five", "six", "seven"}) stage.Real.Report(text);
    EXPECT_EQ(stage.Box()->text(), "four\n\nfive\n\nsix\n\nseven");
    EXPECT_EQ(stage.Box()->informativeText(), "5 messages; these are the newest.");
}

TEST(Report, ComesUpAwayFromTheRowsInBothSizesOfTheWindow) {
    Reported stage;
    std::string words;
    for (int word = 0; word < 30; ++word) words += "loudness ";
    for (const bool mini : {false, true}) {
        if (stage.s.MiniMode != mini) stage.Form->ToggleMode();
        stage.Settle();
        stage.Report(words.c_str());
        EXPECT_FALSE(stage.Box()->frameGeometry().intersects(stage.Rows())) << mini;
        EXPECT_TRUE(stage.Form->screen()->availableGeometry().contains(stage.Box()->frameGeometry())) << mini;
        QTest::keyClick(stage.Form.get(), Qt::Key_Escape);
    }
}

TEST(Report, GivesWayToTheRowsWhenTheWindowIsMoved) {
    Reported stage;
    stage.Form->move(0, 0);
    stage.Report("Error playing loop: ");
    const QPoint before = stage.Box()->pos();
    stage.Form->move(0, before.y() - 120);
    stage.Settle();
    ASSERT_TRUE(QRect(before, stage.Box()->frameGeometry().size()).intersects(stage.Rows()));
    EXPECT_FALSE(stage.Box()->frameGeometry().intersects(stage.Rows()));
}

TEST(Report, TheFirstPlaceThatIsOnTheScreenAndClearOfTheRowsIsTaken) {
    const QRect area(0, 0, 1000, 800);
    const QRect rows(100, 100, 800, 300);
    const QSize box(300, 120);
    EXPECT_EQ(PlaceClearOf(rows, area, box, {{350, 500}, {350, 650}}), QPoint(350, 500));
    EXPECT_EQ(PlaceClearOf(rows, area, box, {{350, 350}, {350, 650}}), QPoint(350, 650)) << "over the rows";
    EXPECT_EQ(PlaceClearOf(rows, area, box, {{350, 750}, {350, 500}}), QPoint(350, 500)) << "off the screen";
    const QPoint last = PlaceClearOf(area, area, box, {{350, 500}});
    EXPECT_TRUE(area.contains(QRect(last, box))) << "the rows are everywhere";
}

TEST(Report, ADialogueThatOpenedLaterHasTheKeysAndOneThatWasOpenDoesNot) {
    Reported stage;
    stage.Report("Error playing loop: ");
    QDialog dialogue(stage.Form.get());
    dialogue.setModal(true);
    dialogue.show();
    QTest::keyClick(&dialogue, Qt::Key_Escape);
    EXPECT_FALSE(dialogue.isVisible());
    EXPECT_NE(stage.Box(), nullptr);
    dialogue.show();
    stage.Report("There is no folder /nowhere");
    EXPECT_EQ(stage.Box()->windowHandle()->transientParent(), dialogue.windowHandle());
    QTest::keyClick(&dialogue, Qt::Key_Escape);
    EXPECT_EQ(stage.Box(), nullptr);
    EXPECT_TRUE(dialogue.isVisible());
}

TEST(Report, AnOpenListKeepsItsKeys) {
    Reported stage;
    stage.Report("Error playing loop: ");
    QMenu list;
    list.addAction("one");
    list.popup({0, 0});
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_FALSE(list.isVisible());
    EXPECT_NE(stage.Box(), nullptr);
}

TEST(Report, AKnobWhoseMovesAreRefusedIsDraggedOnUnderOneBox) {
    Reported stage;
    stage.Fill(1);
    stage.s.DragAxis = 1;
    stage.Sound.Failures["SetVolume"] = sound_error::kGeneric;
    stage.s.Set[1].Vol = 500;
    const QPointF at = stage.Middle("VolKnob_1");
    stage.Press("VolKnob_1", at);
    std::vector<std::int16_t> levels;
    for (int move = 1; move <= 4; ++move) {
        stage.Move("VolKnob_1", at + QPointF(-10 * move, 0));
        stage.Settle();
        levels.push_back(stage.s.Set[1].Vol);
    }
    ASSERT_FALSE(stage.Desk.Boxes.empty());
    for (std::size_t move = 1; move < levels.size(); ++move) EXPECT_LT(levels[move], levels[move - 1]) << move;
    ASSERT_NE(stage.Box(), nullptr);
    EXPECT_EQ(stage.Box()->Count(), static_cast<int>(stage.Desk.Boxes.size()));
    stage.Release("VolKnob_1", at + QPointF(-40, 0));
    EXPECT_EQ(stage.s.Set[1].Vol, levels.back());
}

TEST(Report, WhileTheProgramEndsAReportWaitsForItsAnswer) {
    Reported stage;
    stage.Form->hide();
    bool waited = false;
    QTimer::singleShot(0, [&] {
        auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        waited = true;
        box->button(QMessageBox::Ok)->click();
    });
    stage.Real.Report("Error uninitializing DSound: ");
    EXPECT_TRUE(waited);
}

TEST(Report, BeforeTheMainWindowIsShownItWaitsForNothingAndThenStandsClearOfTheRows) {
    Reported stage;
    QtDesktop desk;
    FrmMain form(stage.s, {});
    desk.Attach(&form);
    desk.Report("Error creating sound device: ");
    ASSERT_NE(stage.Box(), nullptr);
    form.show();
    stage.Settle();
    QRect rows;
    for (const LoopRow* row : form.Rows) rows |= QRect(row->mapToGlobal(QPoint(0, 0)), row->size());
    EXPECT_FALSE(stage.Box()->frameGeometry().intersects(rows));
    desk.Attach(nullptr);
}

}  // namespace
}  // namespace marvolin
