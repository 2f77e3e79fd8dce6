#include "window/screens/window_keeper.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QtTest/QTest>

namespace marvolin {
namespace {

/// A window of the program, 400 x 300, or fixed at 1040 x 740.
std::unique_ptr<QWidget> Window(const char* name) {
    auto window = std::make_unique<QWidget>();
    window->setObjectName(name);
    window->resize(400, 300);
    if (std::string(name) == "frmMain") window->setFixedSize(1040, 740);
    return window;
}

struct Keeper : testing::Test {
    QTemporaryDir Folder;
    QString Path = Folder.filePath("marvolin.windows");
    std::vector<ScreenArea> Screens{{{0, 0, 1920, 1080}, {0, 0, 1920, 1052}}};
    std::vector<double> Scales;
    bool CanScale = true;

    /// The screens are told in pixels at 100 %, as the desktop has them.
    WindowKeeper::Surroundings Around() {
        return {[this] {
                    std::vector<ScreenArea> scaled = Screens;
                    const double by = Scales.empty() ? 1 : Scales.back();
                    for (ScreenArea& screen : scaled) {
                        for (QRect* rect : {&screen.Free, &screen.Whole}) {
                            const QPoint far = rect->topLeft() - screen.Whole.topLeft();
                            *rect = QRect(screen.Whole.topLeft() + far / by, rect->size() / by);
                        }
                    }
                    return scaled;
                },
                [this](double factor) {
                    if (CanScale) Scales.push_back(factor);
                    return CanScale;
                },
                CanScale};
    }
    std::unique_ptr<WindowKeeper> Start() {
        auto keeper = std::make_unique<WindowKeeper>(Path, FormSizes{{1040, 740}, 780}, Around());
        keeper->Start();
        return keeper;
    }
    void Write(const QByteArray& lines) {
        QFile file(Path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("marvolin windows 1\n" + lines);
    }
};

TEST_F(Keeper, AFirstStartScalesToTheLargestSizeThatFitsAndRemembersNone) {
    Screens = {{{0, 0, 1024, 600}, {0, 0, 1024, 600}}};
    auto keeper = Start();
    EXPECT_EQ(keeper->Size(), 75);
    EXPECT_EQ(Scales, std::vector{0.75});
    keeper->Keep();
    EXPECT_FALSE(QFile::exists(Path)) << "the next screen may be another one";
}

TEST_F(Keeper, TheChosenSizeIsThatOfTheNextStart) {
    Start()->Choose(125);
    EXPECT_EQ(ReadWindowFile(Path).Size, 125);
    EXPECT_EQ(Start()->Size(), 125);
}

TEST_F(Keeper, AChosenSizeThatNoLongerFitsIsKeptForTheScreenOnWhichItDoes) {
    Write("size 200\n");
    Screens = {{{0, 0, 1366, 768}, {0, 0, 1366, 740}}};
    auto keeper = Start();
    EXPECT_EQ(keeper->Size(), 95);
    keeper->Keep();
    EXPECT_EQ(ReadWindowFile(Path).Size, 200);
}

TEST_F(Keeper, ASizeIsTakenOnceTheEventHasEnded) {
    auto keeper = Start();
    int changes = 0;
    keeper->OnChange = [&] { ++changes; };
    keeper->Choose(125);
    EXPECT_EQ(keeper->Size(), 100);
    EXPECT_TRUE(QTest::qWaitFor([&] { return keeper->Size() == 125; }));
    EXPECT_EQ(changes, 1);
    keeper->Choose(200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
    EXPECT_EQ(keeper->Size(), 125) << "the largest that fits";
}

TEST_F(Keeper, WhatFitsDependsOnTheScreen) {
    auto keeper = Start();
    EXPECT_TRUE(keeper->Fits(125));
    EXPECT_FALSE(keeper->Fits(150));
}

TEST_F(Keeper, AToolkitThatCannotScaleStaysAtAHundred) {
    CanScale = false;
    Write("size 125\n");
    auto keeper = Start();
    EXPECT_EQ(keeper->Size(), 100);
    EXPECT_FALSE(keeper->CanChange());
}

TEST_F(Keeper, AWindowComesUpWhereItWasAtTheLastStart) {
    {
        auto keeper = Start();
        auto browser = Window("frmBrowse");
        browser->show();
        browser->move(300, 200);
        browser->resize(700, 500);
        browser->hide();
        browser.reset();
        keeper->Keep();
    }
    auto keeper = Start();
    auto browser = Window("frmBrowse");
    browser->show();
    EXPECT_EQ(browser->frameGeometry().topLeft(), QPoint(300, 200));
    EXPECT_EQ(browser->size(), QSize(700, 500));
}

TEST_F(Keeper, AWindowThatIsOpenAtTheEndIsKeptToo) {
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->show();
    help->move(500, 60);
    keeper->Keep();
    EXPECT_EQ(ReadWindowFile(Path).Places["frmHelp"].Corner, QPoint(500, 60));
}

TEST_F(Keeper, OnlyTheFormsOfTheProgramAreKept) {
    auto keeper = Start();
    auto other = Window("MessageBox");
    other->show();
    other->hide();
    keeper->Keep();
    EXPECT_FALSE(QFile::exists(Path));
}

TEST_F(Keeper, AWindowThatIsClosedAndOpenedAgainIsWhereItWas) {
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->show();
    help->move(500, 60);
    help->hide();
    help->move(0, 0);  // its own wish
    help->show();
    EXPECT_EQ(help->pos(), QPoint(500, 60));
}

TEST_F(Keeper, APlaceIsOnTheSamePixelsInEverySize) {
    Write("size 125\nfrmHelp 500 250 400 300\n");
    auto keeper = Start();
    ASSERT_EQ(keeper->Size(), 125);
    auto help = Window("frmHelp");
    help->show();
    EXPECT_EQ(help->pos(), QPoint(400, 200));
    help->hide();
    keeper->Keep();
    EXPECT_EQ(ReadWindowFile(Path).Places["frmHelp"].Corner, QPoint(500, 250));
}

TEST_F(Keeper, APlaceOffEveryScreenIsIgnored) {
    for (const char* place : {"5000 100", "-900 100", "100 1060", "100 -200"}) {
        SCOPED_TRACE(place);
        Write(QByteArray("frmHelp ") + place + " 400 300\n");
        auto keeper = Start();
        auto help = Window("frmHelp");
        help->move(77, 88);
        help->show();
        EXPECT_EQ(help->pos(), QPoint(77, 88));
    }
}

TEST_F(Keeper, APlaceThatIsHalfOffTheScreenIsBroughtIn) {
    Write("frmHelp 1800 1000 400 300\n");
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->show();
    EXPECT_EQ(help->frameGeometry().right(), 1919);
    EXPECT_LE(help->frameGeometry().bottom(), 1052);
}

TEST_F(Keeper, AWindowOnASecondScreenComesUpThere) {
    Screens.push_back({{1920, 0, 1280, 720}, {1920, 0, 1280, 720}});
    Write("frmHelp 2500 100 400 300\n");
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->show();
    EXPECT_EQ(help->pos(), QPoint(2500, 100));
}

TEST_F(Keeper, AWindowThatIsLargerThanTheScreenIsMadeToFit) {
    Screens = {{{0, 0, 1366, 768}, {0, 0, 1366, 740}}};
    Write("size 95\nfrmScripts 10 10 3000 2000\n");
    auto keeper = Start();
    auto scripts = Window("frmScripts");
    scripts->show();
    const QRect free = Around().Screens().front().Free;
    EXPECT_TRUE(free.contains(scripts->frameGeometry()));
    EXPECT_LE(scripts->height() + kTitleRoom, free.height());
}

TEST_F(Keeper, AScreenThatIsUnpluggedBringsItsWindowsBack) {
    Screens.push_back({{1920, 0, 1280, 720}, {1920, 0, 1280, 720}});
    auto keeper = Start();
    auto main = Window("frmMain");
    auto help = Window("frmHelp");
    main->move(100, 100);
    main->show();
    help->show();
    help->move(2500, 100);
    Screens.pop_back();
    keeper->ScreensChanged();
    EXPECT_TRUE(Screens.front().Free.contains(help->frameGeometry()));
    EXPECT_EQ(main->pos(), QPoint(100, 100)) << "whole before, and not moved";
}

TEST_F(Keeper, AScreenThatGetsSmallerMakesTheProgramSmallerAndALargerOneGivesTheChosenSizeBack) {
    Write("size 125\n");
    auto keeper = Start();
    auto main = Window("frmMain");
    main->show();
    ASSERT_EQ(keeper->Size(), 125);
    Screens = {{{0, 0, 1024, 600}, {0, 0, 1024, 600}}};
    keeper->ScreensChanged();
    EXPECT_EQ(keeper->Size(), 75);
    EXPECT_TRUE(main->isVisible());
    Screens = {{{0, 0, 1920, 1080}, {0, 0, 1920, 1052}}};
    keeper->ScreensChanged();
    EXPECT_EQ(keeper->Size(), 125);
}

TEST_F(Keeper, ASizeThatWasNotChosenGrowsBackWithTheScreen) {
    auto keeper = Start();
    auto main = Window("frmMain");
    main->show();
    ASSERT_EQ(keeper->Size(), 100);
    Screens = {{{0, 0, 1024, 600}, {0, 0, 1024, 600}}};
    keeper->ScreensChanged();
    ASSERT_EQ(keeper->Size(), 75);
    Screens = {{{0, 0, 1920, 1080}, {0, 0, 1920, 1052}}};
    keeper->ScreensChanged();
    EXPECT_EQ(keeper->Size(), 100);
}

TEST_F(Keeper, AChangeThatTheDesktopTellsComesByItself) {
    auto keeper = Start();
    auto main = Window("frmMain");
    main->show();
    Screens = {{{0, 0, 1024, 600}, {0, 0, 1024, 600}}};
    emit QGuiApplication::primaryScreen()->availableGeometryChanged({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return keeper->Size() == 75; }));
}

TEST_F(Keeper, AMainWindowThatIsMovedToASmallScreenGetsSmallerThere) {
    Screens.push_back({{1920, 0, 1024, 600}, {1920, 0, 1024, 600}});
    Write("size 125\n");
    auto keeper = Start();
    auto main = Window("frmMain");
    main->move(100, 100);
    main->show();
    ASSERT_EQ(keeper->Size(), 125);
    main->move(120, 100);
    main->move(2200, 100);
    EXPECT_EQ(keeper->Size(), 125) << "it may be moved further";
    EXPECT_TRUE(QTest::qWaitFor([&] { return keeper->Size() == 75; }));
    main->move(100, 100);
    EXPECT_TRUE(QTest::qWaitFor([&] { return keeper->Size() == 125; }));
}

TEST_F(Keeper, APlaceThatTheProgramChoseIsNotThePlayers) {
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->move(1700, 1000);  // is brought in
    help->show();
    QTest::qWait(300);
    help->hide();
    help->move(0, 0);
    help->show();
    EXPECT_EQ(help->pos(), QPoint(0, 0)) << "its own wish";
    help->hide();
    keeper->Keep();
    EXPECT_FALSE(QFile::exists(Path));
}

TEST_F(Keeper, APlaceThatHadToBeCorrectedIsKeptForTheScreenOnWhichItFits) {
    Write("frmHelp 1800 1000 400 300\n");
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->show();
    help->hide();
    keeper->Keep();
    EXPECT_EQ(ReadWindowFile(Path).Places["frmHelp"].Corner, QPoint(1800, 1000));
}

TEST_F(Keeper, AWindowThatNobodyHasPlacedStaysOnItsPixelsInANewSize) {
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->move(500, 250);
    help->show();
    keeper->Choose(125);
    ASSERT_TRUE(QTest::qWaitFor([&] { return keeper->Size() == 125; }));
    EXPECT_EQ(help->pos(), QPoint(400, 200));
    help->hide();
    keeper->Keep();
    EXPECT_EQ(ReadWindowFile(Path).Places.count("frmHelp"), 0u);
}

TEST_F(Keeper, AWindowThatFillsTheScreenComesUpSoAndGoesBackToItsPlace) {
    {
        auto keeper = Start();
        auto help = Window("frmHelp");
        help->show();
        help->move(300, 200);
        help->showMaximized();
        QTest::qWait(10);
        keeper->Keep();
    }
    const WindowPlace kept = ReadWindowFile(Path).Places["frmHelp"];
    // The platform of the tests has a frame of two pixels that a window without it loses.
    EXPECT_TRUE(IsSamePlace(kept.Corner, {300, 200}));
    EXPECT_EQ(kept.Size, QSize(400, 300));
    EXPECT_TRUE(kept.Maximised);
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->show();
    EXPECT_TRUE(help->isMaximized());
    help->showNormal();
    EXPECT_EQ(help->pos(), kept.Corner);
    EXPECT_EQ(help->size(), QSize(400, 300));
}

TEST_F(Keeper, AWindowThatGrowsByItselfIsBroughtBack) {
    auto keeper = Start();
    auto save = Window("frmSave");
    save->setFixedSize(400, 300);
    save->show();
    save->move(100, 700);
    save->setFixedSize(400, 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Screens.front().Free.contains(save->frameGeometry()); }, 150));
    EXPECT_EQ(save->x(), 100);
}

TEST_F(Keeper, AWindowThatThePlayerEnlargesIsLeftAlone) {
    auto keeper = Start();
    auto help = Window("frmHelp");
    help->show();
    QTest::qWait(300);
    help->move(100, 900);
    help->resize(400, 500);
    QTest::qWait(30);
    EXPECT_EQ(help->pos(), QPoint(100, 900));
    EXPECT_EQ(help->size(), QSize(400, 500));
}

TEST_F(Keeper, WindowsComeUpClearOfATopmostStrip) {
    auto keeper = Start();
    auto main = Window("frmMain");
    main->setWindowFlag(Qt::WindowStaysOnTopHint);
    main->setFixedSize(1040, 354);
    main->move(100, 100);
    main->show();
    for (const char* name : {"frmSave", "frmScripts", "frmHelp"}) {
        SCOPED_TRACE(name);
        auto other = Window(name);
        other->move(300, 150);
        other->show();
        EXPECT_FALSE(other->frameGeometry().intersects(main->frameGeometry()));
        EXPECT_TRUE(Screens.front().Free.contains(other->frameGeometry()));
    }
    main->setWindowFlag(Qt::WindowStaysOnTopHint, false);
    main->show();
    auto other = Window("frmHelp");
    other->move(300, 150);
    other->show();
    EXPECT_EQ(other->pos(), QPoint(300, 150));
}

TEST_F(Keeper, AWindowThatCameUpOutOfReachIsBroughtInOnceItsFrameIsKnown) {
    auto keeper = Start();
    auto save = Window("frmSave");
    save->show();
    save->move(1700, -40);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Screens.front().Free.contains(save->frameGeometry()); }));
}

TEST_F(Keeper, TheBrowserComesUpBesideTheMainWindow) {
    auto keeper = Start();
    auto main = Window("frmMain");
    auto browser = Window("frmBrowse");
    browser->setMinimumSize(620, 420);
    browser->resize(780, 520);
    main->move(874, 100);
    main->show();
    browser->show();
    browser->move(0, 100);  // its told place
    keeper->Arrange(*browser, main.get());
    EXPECT_EQ(browser->frameGeometry().topLeft(), QPoint(0, 100));
    EXPECT_EQ(browser->width(), 780);
    EXPECT_FALSE(browser->frameGeometry().intersects(main->frameGeometry()));
    main->move(650, 100);
    keeper->Arrange(*browser, main.get());
    EXPECT_EQ(browser->frameGeometry().width(), 650);
    EXPECT_FALSE(browser->frameGeometry().intersects(main->frameGeometry()));
}

TEST_F(Keeper, WithoutRoomBesideItTheMainWindowIsInFrontOfTheBrowser) {
    Screens = {{{0, 0, 1366, 768}, {0, 0, 1366, 768}}};
    auto keeper = Start();
    auto main = Window("frmMain");
    auto browser = Window("frmBrowse");
    browser->setMinimumSize(620, 420);
    main->move(300, 0);
    main->show();
    browser->show();
    browser->activateWindow();
    keeper->Arrange(*browser, main.get());
    EXPECT_EQ(browser->pos().x(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == main.get(); }));
}

TEST_F(Keeper, TheSplashIsOnTheMiddleOfTheMainWindow) {
    auto keeper = Start();
    auto main = Window("frmMain");
    auto splash = Window("frmSplash");
    main->move(500, 200);
    keeper->Arrange(*splash, main.get());
    EXPECT_EQ(splash->geometry().center(), main->frameGeometry().center());
}

TEST_F(Keeper, AFormThatThePlayerHasPlacedIsNotTakenToItsToldPlace) {
    Write("frmMain 120 130 1040 740\n");
    auto keeper = Start();
    auto main = Window("frmMain");
    main->show();
    main->move(873, 150);
    keeper->Arrange(*main, nullptr);
    EXPECT_EQ(main->pos(), QPoint(120, 130));
}

TEST_F(Keeper, ToldPlacesAreBroughtOntoTheScreen) {
    auto keeper = Start();
    auto main = Window("frmMain");
    main->move(873, -60);
    main->show();
    keeper->Arrange(*main, nullptr);
    EXPECT_EQ(main->pos(), QPoint(873, 0));
}

}  // namespace
}  // namespace marvolin
