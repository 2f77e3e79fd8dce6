#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QTest>

#include "hand.h"
#include "shown_picture.h"
#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

struct OptionStage : Stage {
    OptionStage() {
        s.ActiveTab = kOptionTab;
        Screen.ShowTab();
        Screen.ShowDrivers();
    }
    template <typename Widget>
    Widget& Find(const char* name) {
        return *Form->findChild<Widget*>(name);
    }
};

TEST(Options, ListTheDriversAndOpenTheChosenOne) {
    OptionStage stage;
    auto& drivers = stage.Find<QComboBox>("cboDrivers");
    ASSERT_EQ(drivers.count(), 3);
    EXPECT_EQ(drivers.itemText(2), "No Sound");
    test::Choose(drivers, 2);
    EXPECT_EQ(stage.s.Driver, 2);
    EXPECT_FALSE(stage.s.DSReady);
}

TEST(Options, TheOnlyOutputOfItsNameHasNoNumberInTheListAndTheBar) {
    OptionStage stage;
    stage.s.Drivers = {"Primary Sound Driver", "USB (3)", "No Sound"};
    stage.s.DSReady = true;
    stage.s.OpenDriver = 1;
    stage.Screen.ShowDrivers();
    EXPECT_EQ(stage.Find<QComboBox>("cboDrivers").itemText(1), "USB");
    EXPECT_EQ(stage.Form->Status2->DeviceText().section(',', 0, 0), "USB");
}

TEST(Options, AListIsPaintedWithoutThePointerThatHasLeftItWhileItsEntriesAreOpen) {
    OptionStage stage;
    auto& drivers = stage.Find<QComboBox>("cboDrivers");
    const auto isPaintedAsItIs = [&] {
        stage.Settle();
        return test::IsShownAsPainted(*stage.Form);
    };
    stage.Move("cboDrivers", stage.Middle("cboDrivers"));
    ASSERT_TRUE(drivers.underMouse());
    EXPECT_TRUE(isPaintedAsItIs());
    // The toolkit sends the event that repaints a control under the pointer only to those of the open entries then.
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&drivers, &leave);
    ASSERT_FALSE(drivers.underMouse());
    EXPECT_TRUE(isPaintedAsItIs());
}

TEST(Options, ResetOnLoadIsTheSessionsFlag) {
    OptionStage stage;
    stage.Click("ResetVars", {8, 12});
    EXPECT_FALSE(stage.s.ResetVars);
    stage.s.ResetVars = true;
    stage.Screen.ShowOptions();
    EXPECT_TRUE(stage.Find<QCheckBox>("ResetVars").isChecked());
}

TEST(Options, PlayAfterADropIsTheSessionsFlag) {
    OptionStage stage;
    EXPECT_FALSE(stage.Find<QCheckBox>("PlayOnLoad").isChecked());
    stage.Click("PlayOnLoad", {8, 12});
    EXPECT_TRUE(stage.s.PlayOnLoad);
    stage.s.PlayOnLoad = false;
    stage.Screen.ShowOptions();
    EXPECT_FALSE(stage.Find<QCheckBox>("PlayOnLoad").isChecked());
}

TEST(Options, TheSubTabsOpenTheirPages) {
    OptionStage stage;
    for (int tab = 0; tab < 4; ++tab) {
        stage.Click(("OptionSubTab_" + std::to_string(tab)).c_str());
        EXPECT_EQ(stage.s.ActiveSubTab, tab);
        EXPECT_TRUE(stage.At(("OptionSubPage_" + std::to_string(tab)).c_str())->isVisible());
    }
}

TEST(Options, TheDragAxisIsChosen) {
    OptionStage stage;
    stage.Click("OptionSubTab_1");
    auto& axis = stage.Find<QComboBox>("DragAxisSelect");
    EXPECT_EQ(axis.currentIndex(), 1);
    test::Choose(axis, 0);
    EXPECT_EQ(stage.s.DragAxis, 0);
}

TEST(Options, TheClocksIntervalIsSetAndShown) {
    OptionStage stage;
    stage.Find<QSlider>("ResSlider").setValue(25);
    EXPECT_EQ(stage.s.TimingRes, 25);
    EXPECT_EQ(stage.Find<QLabel>("ResReadout").text(), "Timer Resolution: 25 ms");
    EXPECT_EQ(stage.s.StatusText, "Timer Resolution: 25 ms");
}

TEST(Options, TheSensitivityOfTheScriptEventsIsSet) {
    OptionStage stage;
    stage.Find<QSlider>("ScrollSensitivity_1").setValue(9);
    EXPECT_EQ(stage.s.ScrollSensitivity[1], 9);
    EXPECT_EQ(stage.s.ScrollSensitivity[0], 1);
    EXPECT_EQ(stage.s.StatusText, "Send scroll event every 9 moves");
    EXPECT_EQ(stage.s.ReadoutText, "");
    stage.Find<QSlider>("ScrollSensitivity_1").setValue(60000);
    EXPECT_EQ(stage.s.ScrollSensitivity[1], 50000);
}

}  // namespace
}  // namespace marvolin
