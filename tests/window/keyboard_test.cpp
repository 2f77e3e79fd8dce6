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

TEST(Keyboard, AModifierCountsThatWasHeldAtThePressOrAtTheRelease) {
    Stage stage;
    const auto key = [&](QEvent::Type type, int letter, Qt::KeyboardModifiers held, bool repeat = false) {
        QKeyEvent event(type, letter, held, {}, repeat);
        QCoreApplication::sendEvent(stage.Form.get(), &event);
    };
    key(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier);
    key(QEvent::KeyPress, Qt::Key_A, {}, true);  // Shift is released first, and the key repeats
    key(QEvent::KeyRelease, Qt::Key_A, {});
    key(QEvent::KeyPress, Qt::Key_B, {});
    key(QEvent::KeyRelease, Qt::Key_B, Qt::ControlModifier);
    key(QEvent::KeyPress, Qt::Key_C, Qt::AltModifier);
    key(QEvent::KeyPress, Qt::Key_D, {});
    key(QEvent::KeyRelease, Qt::Key_C, Qt::ShiftModifier);
    key(QEvent::KeyRelease, Qt::Key_D, {});
    EXPECT_EQ(stage.Keys, (std::vector<std::string>{"A+shift", "B+control", "C+shift+alt", "D"}));
}

TEST(Keyboard, AModifierOfAnEarlierPressDoesNotCount) {
    Stage stage;
    QTest::keyClick(stage.Form.get(), Qt::Key_A, Qt::ShiftModifier);
    QTest::keyRelease(stage.Form.get(), Qt::Key_A);
    // The release of this press goes to another window.
    QTest::keyPress(stage.Form.get(), Qt::Key_B, Qt::ControlModifier);
    QEvent left(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(stage.Form.get(), &left);
    QTest::keyRelease(stage.Form.get(), Qt::Key_B);
    EXPECT_EQ(stage.Keys, (std::vector<std::string>{"A+shift", "A", "B"}));
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
