#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

TEST(Keyboard, ALetterIsReportedWhenItsKeyIsReleased) {
    Stage stage;
    QTest::keyPress(stage.Form.get(), Qt::Key_C);
    EXPECT_TRUE(stage.Keys.empty());
    QTest::keyRelease(stage.Form.get(), Qt::Key_C);
    EXPECT_EQ(stage.Keys, std::vector<std::string>{"C"});
}

TEST(Keyboard, ShiftControlAndAltAreReportedWithIt) {
    Stage stage;
    QTest::keyClick(stage.Form.get(), Qt::Key_A, Qt::ShiftModifier);
    QTest::keyClick(stage.Form.get(), Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(stage.Form.get(), Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(stage.Keys, (std::vector<std::string>{"A+shift", "B+control", "Z+alt"}));
}

TEST(Keyboard, LettersAreReportedWhicheverControlHasTheFocus) {
    Stage stage;
    stage.s.ActiveTab = kOptionTab;
    stage.Screen.ShowTab();
    stage.Screen.ShowDrivers();
    auto* drivers = stage.Form->findChild<QComboBox*>("cboDrivers");
    ASSERT_NE(drivers, nullptr);
    for (const char* name : {"cboDrivers", "ResetVars", "Play_0", "VolKnob_2", "ToTop", "Tab_1"}) {
        SCOPED_TRACE(name);
        stage.Keys.clear();
        stage.At(name)->setFocus();
        QTest::keyClick(stage.At(name), Qt::Key_N);
        EXPECT_EQ(stage.Keys, std::vector<std::string>{"N"});
    }
    EXPECT_EQ(drivers->currentIndex(), 0);
}

TEST(Keyboard, OtherKeysAreNotReported) {
    Stage stage;
    for (int key : {Qt::Key_1, Qt::Key_F1, Qt::Key_Escape, Qt::Key_Shift})
        QTest::keyClick(stage.Form.get(), static_cast<Qt::Key>(key));
    EXPECT_TRUE(stage.Keys.empty());
}

TEST(Keyboard, ReleasesOfAKeyThatRepeatsAreNotReported) {
    Stage stage;
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_A, {}, "a", true);
    QCoreApplication::sendEvent(stage.Form.get(), &repeated);
    EXPECT_TRUE(stage.Keys.empty());
}

TEST(Keyboard, ATextFieldKeepsItsLetters) {
    Stage stage;
    QLineEdit field(stage.Form.get());
    field.show();
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_B, Qt::NoModifier);
    EXPECT_EQ(field.text(), "b");
    EXPECT_TRUE(stage.Keys.empty());
}

TEST(Keyboard, SpaceActivatesTheFocusedControl) {
    Stage stage;
    stage.Fill(0);
    stage.At("Play_0")->setFocus();
    QTest::keyClick(stage.At("Play_0"), Qt::Key_Space);
    EXPECT_EQ(stage.s.Run[0].Playing, True);
}

}  // namespace
}  // namespace marvolin
