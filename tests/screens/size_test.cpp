#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QDialog>
#include <QPainter>
#include <QScreen>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <QtTest/QTest>
#include <fstream>
#include <stdexcept>

#include "core/routines.h"
#include "performance/tabs.h"
#include "stage.h"
#include "window/forms/frm_save.h"
#include "window/forms/frm_start_up_query.h"
#include "window/popups/report_box.h"
#include "window/screens/size_choice.h"
#include "window/screens/small_painting.h"
#include "window/screens/toolkit_scale.h"
#include "window/screens/window_keeper.h"
#include "window/tabs/tab_control.h"
#include "window/tabs/tab_options.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_windows.h"

namespace marvolin {
namespace {

/// A program on a large screen whose size really changes.
struct Sized : test::Stage {
    Sized() {
        Form->Tabs->Options->Size->Attach(Keeper);
        SetTab(s, kOptionTab);
        Settle();
    }
    ~Sized() { Take(100); }
    void Take(int percent) {
        Keeper.Choose(percent);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Keeper.Size() == percent; }));
        Settle();
    }
    SizeChoice& Choice() { return *Form->Tabs->Options->Size; }

    QTemporaryDir Folder;
    SmallPainting Painting;
    WindowKeeper Keeper{Folder.filePath("marvolin.windows"),
                        {FrmMain::RegularSize(), 780},
                        {[] {
                             return std::vector<ScreenArea>{{{0, 0, 3840, 2160}, {0, 0, 3840, 2160}}};
                         },
                         ScaleToolkit, true}};
};

/// Black, with a white square of ten pixels in its lower right corner and a word.
class Corner : public QWidget {
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), Qt::black);
        p.fillRect(QRect(width() - 10, height() - 10, 10, 10), Qt::white);
    }
};

TEST(ProgramSize, EachSizeLeavesTheFormInPixelsAsItIs) {
    Sized program;
    const QRect pad = program.At("Pad")->geometry();
    for (const int percent : {75, 95, 150, 200}) {
        program.Take(percent);
        EXPECT_NEAR(program.Form->devicePixelRatioF(), percent / 100.0, 0.001);
        EXPECT_EQ(program.Form->size(), FrmMain::RegularSize());
        EXPECT_EQ(program.At("Pad")->geometry(), pad);
        EXPECT_TRUE(program.Form->isVisible());
    }
}

TEST(ProgramSize, ANewSizeKeepsMiniAndItsPlaceInFront) {
    Sized program;
    program.Form->ToggleMode();
    program.Take(125);
    EXPECT_TRUE(program.s.MiniMode);
    EXPECT_TRUE(program.Form->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(program.Form->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_LT(program.Form->height(), FrmMain::RegularSize().height());
    EXPECT_EQ(program.Unloads, 0);
}

TEST(ProgramSize, HandsReachTheControlsInEachSize) {
    Sized program;
    for (const int percent : {75, 200}) {
        program.Take(percent);
        SetTab(program.s, 0);
        program.Click("Tab_2");
        EXPECT_EQ(program.s.ActiveTab, 2) << percent;
    }
}

TEST(ProgramSize, WhatIsPaintedReachesTheLowerRightCornerAtEachSize) {
    Sized program;
    Corner corner;
    corner.setFixedSize(200, 120);
    corner.show();
    // Above 100 the platform of the tests shows its own part of the picture only.
    for (const int percent : {75, 90, 100}) {
        SCOPED_TRACE(percent);
        program.Take(percent);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&corner));
        corner.repaint();
        program.Settle();
        const QImage image = corner.screen()->grabWindow(corner.winId()).toImage();
        ASSERT_EQ(image.size(), QSize(200, 120) * percent / 100);
        EXPECT_EQ(image.pixelColor(image.width() - 2, image.height() - 2), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(image.width() - 10 * percent / 100 - 2, image.height() - 2), QColor(Qt::black));
    }
}

TEST(ProgramSize, ADialogueThatWaitsIsNotAnsweredByANewSize) {
    Sized program;
    QDialog dialogue;
    bool waited = false;
    QTimer::singleShot(0, &dialogue, [&] {
        program.Keeper.Choose(125);
        QTest::qWait(50);
        waited = dialogue.isVisible() && program.Keeper.Size() == 100;
        dialogue.accept();
    });
    EXPECT_EQ(dialogue.exec(), QDialog::Accepted);
    EXPECT_TRUE(waited);
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Keeper.Size() == 125; }));
}

TEST(ProgramSize, WhatAHandHoldsIsNotLetGo) {
    Sized program;
    QWindow* native = program.Form->windowHandle();
    const QPoint place = program.InWindow("ProgramSize", QPointF(-30, 3));
    QTest::mousePress(native, Qt::LeftButton, {}, place);
    program.Keeper.Choose(125);
    QTest::qWait(50);
    EXPECT_EQ(program.Keeper.Size(), 100);
    QTest::mouseRelease(native, Qt::LeftButton, {}, place);
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Keeper.Size() == 125; }));
}

TEST(ProgramSize, WhatIsInFrontOfTheMainWindowStaysInFrontOfIt) {
    Sized program;
    QWidget question;
    question.winId();
    question.windowHandle()->setTransientParent(program.Form->windowHandle());
    question.show();
    program.Take(125);
    ASSERT_TRUE(question.isVisible());
    EXPECT_EQ(question.windowHandle()->transientParent(), program.Form->windowHandle());
}

TEST(ProgramSize, AReportIsTheSameOneInANewSize) {
    Sized program;
    ReportBox box;
    box.Attach(program.Form.get());
    for (const char* text : {"one", "two"}) {
        box.Show(text, "", QMessageBox::Warning, program.Form.get());
        program.Settle();
    }
    const QString count = box.informativeText();
    ASSERT_NE(count, "");
    program.Take(125);
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(box.windowHandle()->transientParent(), program.Form->windowHandle());
    box.Show("three", "", QMessageBox::Warning, program.Form.get());
    EXPECT_TRUE(box.informativeText().startsWith("3 ")) << box.informativeText().toStdString();
    box.hide();
}

TEST(ProgramSize, TheQuestionOfTheDemoDoesNotOpenHelpAgain) {
    Sized program;
    std::ofstream(program.s.HelpFile = program.Folder.filePath("help").toStdString()) << "x";
    FrmStartUpQuery question(program.s);
    question.show();
    ASSERT_TRUE(program.s.HelpShown);
    program.s.HelpShown = false;
    program.Take(125);
    EXPECT_TRUE(question.isVisible());
    EXPECT_FALSE(program.s.HelpShown);
}

TEST(ProgramSize, TheActiveWindowIsTheSameAfterwards) {
    Sized program;
    QWidget other;
    other.show();
    program.Settle();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &other; }));
    program.Take(125);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &other; }));
    EXPECT_FALSE(other.testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST(ProgramSize, WithoutAnActiveWindowAllComeBackAndNoneTakesTheKeyboard) {
    Sized program;
    QWidget other;
    other.setObjectName("frmOther");
    other.show();
    QApplication::setActiveWindow(nullptr);
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    std::vector<const QObject*> activated;
    const auto watch = QObject::connect(qApp, &QGuiApplication::focusWindowChanged, [&](const QWindow* window) {
        if (window) activated.push_back(window);
    });
    ReopenWindows([] {});
    QObject::disconnect(watch);
    EXPECT_TRUE(program.Form->isVisible());
    EXPECT_TRUE(other.isVisible());
    EXPECT_FALSE(IsReopening());
    EXPECT_TRUE(activated.empty()) << activated.size();
}

/// The forms of a program with a file of its own.
struct FormsWithAFile : test::Stage {
    explicit FormsWithAFile(const QString& file)
        : Keeper(file, {FrmMain::RegularSize(), 780},
                 {[] {
                      return std::vector<ScreenArea>{{{0, 0, 3840, 2160}, {0, 0, 3840, 2160}}};
                  },
                  [](double) { return true; }, true}) {
        Windows.Attach(Keeper);
        Windows.Attach(s, {});
        Windows.Show(marvolin::Form::Save);
    }
    static FrmSave& Save() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "frmSave" && window->isVisible()) return dynamic_cast<FrmSave&>(*window);
        }
        throw std::runtime_error("Save/Open is not open");
    }
    static bool Unfolded() { return Save().findChild<QWidget*>("Elements_0_0")->isVisible(); }
    static void ClickTheFold() { Save().findChild<QToolButton*>("ElementsFold")->click(); }

    WindowKeeper Keeper;
    QtDisplay Shown;
    QtDesktop Desktop;
    QtWindows Windows{Shown, Desktop};
};

TEST(SaveOpenElements, OnceUnfoldedAreSoAtTheNextStartTooUntilTheyAreFoldedAway) {
    QTemporaryDir folder;
    const QString file = folder.filePath("marvolin.windows");
    {
        FormsWithAFile program(file);
        EXPECT_FALSE(FormsWithAFile::Unfolded());
        FormsWithAFile::ClickTheFold();
        EXPECT_FALSE(QFile::exists(file)) << "nothing is written while one plays";
        program.Keeper.Keep();
    }
    EXPECT_TRUE(ReadWindowFile(file).Elements);
    {
        FormsWithAFile program(file);
        EXPECT_TRUE(FormsWithAFile::Unfolded());
        FormsWithAFile::ClickTheFold();
        program.Keeper.Keep();
    }
    FormsWithAFile program(file);
    EXPECT_FALSE(FormsWithAFile::Unfolded());
}

TEST(SizeChoice, WhatFitsIsAskedAnewWhenTheListOpens) {
    Sized program;
    QRect screen(0, 0, 3840, 2160);
    WindowKeeper keeper(program.Folder.filePath("other"), {FrmMain::RegularSize(), 780},
                        {[&] {
                             return std::vector<ScreenArea>{{screen, screen}};
                         },
                         [](double) { return true; }, true});
    program.Choice().Attach(keeper);
    const auto& entries = dynamic_cast<QStandardItemModel&>(*program.Choice().model());
    ASSERT_TRUE(entries.item(10)->isEnabled());
    screen.setSize({1366, 740});
    program.Choice().showPopup();
    EXPECT_FALSE(entries.item(10)->isEnabled());
    program.Choice().hidePopup();
    program.Choice().Attach(program.Keeper);
}

TEST(SizeChoice, AFolderThatCannotBeWrittenIsSaidOnce) {
    Sized program;
    WindowKeeper keeper(program.Folder.filePath("nowhere/file"), {FrmMain::RegularSize(), 780},
                        {[] {
                             return std::vector<ScreenArea>{{{0, 0, 3840, 2160}, {0, 0, 3840, 2160}}};
                         },
                         [](double) { return true; }, true});
    program.Choice().Attach(keeper);
    keeper.Choose(110);
    EXPECT_EQ(program.s.StatusText, "Size and places of the windows cannot be kept: the folder cannot be written.");
    ShowStatus(program.s, "");
    keeper.Choose(125);
    EXPECT_EQ(program.s.StatusText, "");
    program.Choice().Attach(program.Keeper);
}

TEST(SizeChoice, ShowsTheSizeAndGreysWhatDoesNotFit) {
    Sized program;
    EXPECT_EQ(program.Choice().currentText(), "100 %");
    EXPECT_EQ(program.Choice().count(), 11);
    EXPECT_EQ(program.Choice().itemText(0), "75 %");
    EXPECT_EQ(program.Choice().itemText(10), "200 %");
    double by = 1;
    WindowKeeper small(program.Folder.filePath("other"), {FrmMain::RegularSize(), 780},
                       {[&by] {
                            const QRect screen(QPoint(0, 0), QSize(1366, 740) / by);
                            return std::vector<ScreenArea>{{screen, screen}};
                        },
                        [&by](double factor) {
                            by = factor;
                            return true;
                        },
                        true});
    small.Start();
    program.Choice().Attach(small);
    EXPECT_EQ(program.Choice().currentText(), "95 %");
    const auto& entries = dynamic_cast<QStandardItemModel&>(*program.Choice().model());
    EXPECT_TRUE(entries.item(4)->isEnabled());
    EXPECT_FALSE(entries.item(5)->isEnabled());
    program.Choice().Attach(program.Keeper);
}

TEST(SizeChoice, AnEntryIsTaken) {
    Sized program;
    program.Choice().setFocus();
    QTest::keyClick(&program.Choice(), Qt::Key_Space);
    ASSERT_TRUE(program.Choice().view()->isVisible());
    QTest::keyClick(program.Choice().view(), Qt::Key_Down);
    QTest::keyClick(program.Choice().view(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Keeper.Size() == 110; }));
    EXPECT_EQ(program.Choice().currentText(), "110 %");
}

TEST(SizeChoice, TheWheelChangesNothing) {
    Sized program;
    program.Wheel("ProgramSize", -1);
    program.Settle();
    EXPECT_EQ(program.Choice().currentText(), "100 %");
}

TEST(SizeChoice, IsOffWhereTheToolkitCannotScale) {
    Sized program;
    WindowKeeper fixed(program.Folder.filePath("other"), {FrmMain::RegularSize(), 780},
                       {[] {
                            return std::vector<ScreenArea>{{{0, 0, 1366, 768}, {0, 0, 1366, 740}}};
                        },
                        [](double) { return false; }, false});
    program.Choice().Attach(fixed);
    EXPECT_FALSE(program.Choice().isEnabled());
    program.Choice().Attach(program.Keeper);
    EXPECT_TRUE(program.Choice().isEnabled());
}

}  // namespace
}  // namespace marvolin
