#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "fakes/temp_folder.h"
#include "persistence/start_up_demo.h"
#include "window/forms/frm_splash.h"
#include "window/forms/frm_start_up_query.h"
#include "window/stage.h"

namespace marvolin {
namespace {

using namespace test;

TEST(Splash, ClosesAtTheReleaseOfAClickSoThatNothingBelowGetsIt) {
    FrmSplash splash;
    splash.show();
    QTest::mousePress(&splash, Qt::LeftButton);
    EXPECT_TRUE(splash.isVisible());
    QTest::mouseRelease(&splash, Qt::LeftButton);
    EXPECT_FALSE(splash.isVisible());
}

TEST(StartUpQueryForm, AsksWithItsTitleTextAndButtons) {
    Stage stage;
    FrmStartUpQuery query(stage.s);
    EXPECT_EQ(query.windowTitle(), "Startup Demo");
    ASSERT_NE(query.findChild<QLabel*>(), nullptr);
    EXPECT_EQ(query.findChild<QLabel*>()->text(), "Show this startup demo next time?");
    ASSERT_NE(query.findChild<QPushButton*>("cmdYes"), nullptr);
    ASSERT_NE(query.findChild<QPushButton*>("cmdNo"), nullptr);
    EXPECT_EQ(query.findChild<QPushButton*>("cmdYes")->text(), "Yes");
    EXPECT_EQ(query.findChild<QPushButton*>("cmdNo")->text(), "No");
}

TEST(StartUpQueryForm, OpensItsHelpPageWhenItIsShown) {
    Stage stage;
    TempFolder folder;
    stage.s.HelpFile = folder.Touch("help");
    FrmStartUpQuery query(stage.s);
    EXPECT_FALSE(stage.s.HelpShown);
    query.show();
    EXPECT_TRUE(stage.s.HelpShown);
    EXPECT_EQ(
        std::count(stage.Desk.Log.begin(), stage.Desk.Log.end(), "ShowHelpTopic " + std::to_string(kStartUpQueryTopic)),
        1);
}

TEST(StartUpQueryForm, TheReturnKeyPressesTheFocusedButtonAtFirstYes) {
    Stage stage;
    stage.Desk.Folder = "/nowhere";
    FrmStartUpQuery query(stage.s);
    query.show();
    stage.Forms.Loaded.insert(Form::StartUpQuery);
    QTest::keyClick(&query, Qt::Key_Return);
    EXPECT_EQ(stage.Forms.Log.back(), "BringToFront Main");
    EXPECT_TRUE(stage.Desk.Boxes.empty());

    stage.Forms.Loaded.insert(Form::StartUpQuery);
    query.findChild<QPushButton*>("cmdNo")->setFocus();
    QTest::keyClick(&query, Qt::Key_Return);
    EXPECT_EQ(stage.Desk.Boxes.size(), 1U);
}

}  // namespace
}  // namespace marvolin
