#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QDialog>
#include <QPainter>
#include <QScreen>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QTest>

#include "performance/tabs.h"
#include "stage.h"
#include "window/screens/size_choice.h"
#include "window/screens/small_painting.h"
#include "window/screens/toolkit_scale.h"
#include "window/screens/window_keeper.h"
#include "window/tabs/tab_control.h"
#include "window/tabs/tab_options.h"

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
