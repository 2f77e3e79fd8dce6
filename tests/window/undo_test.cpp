#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include "audio/loop_clearing.h"
#include "performance/selection/selection.h"
#include "performance/tabs.h"
#include "persistence/undo/undo_commands.h"
#include "stage.h"
#include "window/descriptions/description.h"

namespace marvolin {
namespace {

struct UndoWindow : testing::Test, test::Stage {
    UndoWindow() {
        StartUndo(s);
        Fill(0);
        LoopClearRows(s, 0);
        Settle();
    }
    bool Cleared() { return s.Run[0].Loaded == False; }
};

TEST_F(UndoWindow, TheButtonsAreEnabledWhileThereIsSomethingForThem) {
    StartUndo(s);
    EXPECT_FALSE(At("Undo")->isEnabled());
    EXPECT_FALSE(At("Redo")->isEnabled());
    SelectorRadio_Click(s, 0);
    EXPECT_TRUE(At("Undo")->isEnabled());
    EXPECT_FALSE(At("Redo")->isEnabled());
    Click("Undo");
    EXPECT_TRUE(s.SelectionControlled);
    EXPECT_FALSE(At("Undo")->isEnabled());
    EXPECT_TRUE(At("Redo")->isEnabled());
    Click("Redo");
    EXPECT_FALSE(s.SelectionControlled);
}

TEST_F(UndoWindow, AClickTakesBackAndTheHintNamesTheStep) {
    EXPECT_EQ(DescriptionOf("Undo").Hint.At({s}), "clk Take back: Clear of A; key Backspace");
    Click("Undo");
    EXPECT_FALSE(Cleared());
    EXPECT_EQ(s.StatusText, "Taken back: Clear of A");
    EXPECT_EQ(DescriptionOf("Redo").Hint.At({s}), "clk Do again: Clear of A; key Shift+Backspace");
    Click("Redo");
    EXPECT_TRUE(Cleared());
}

TEST_F(UndoWindow, AButtonThatHasNoStepLeftHandsTheFocusToTheOther) {
    Form->activateWindow();
    At("Undo")->setFocus();
    ASSERT_TRUE(At("Undo")->hasFocus());
    QTest::keyClick(At("Undo"), Qt::Key_Space);
    ASSERT_FALSE(At("Undo")->isEnabled());
    EXPECT_TRUE(At("Redo")->hasFocus());
    QTest::keyClick(At("Redo"), Qt::Key_Space);
    ASSERT_FALSE(At("Redo")->isEnabled());
    EXPECT_TRUE(At("Undo")->hasFocus());
}

TEST_F(UndoWindow, AButtonThatHasAnotherStepKeepsTheFocus) {
    SelectorRadio_Click(s, 0);
    At("Undo")->setFocus();
    QTest::keyClick(At("Undo"), Qt::Key_Space);
    EXPECT_TRUE(At("Undo")->hasFocus());
}

TEST_F(UndoWindow, BackspaceActsWhicheverControlHasTheFocus) {
    for (const char* name : {"Play_0", "VolKnob_2", "ToTop", "Tab_1", "frmMain"}) {
        SCOPED_TRACE(name);
        QWidget* focus = std::string_view(name) == "frmMain" ? Form.get() : At(name);
        focus->setFocus();
        QTest::keyClick(focus, Qt::Key_Backspace);
        EXPECT_FALSE(Cleared());
        QTest::keyClick(focus, Qt::Key_Backspace, Qt::ShiftModifier);
        EXPECT_TRUE(Cleared());
    }
}

TEST_F(UndoWindow, AHeldKeyTakesBackOneStepAndCtrlBackspaceNone) {
    SelectorRadio_Click(s, 0);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(Form.get(), &press);
    QCoreApplication::sendEvent(Form.get(), &repeat);
    EXPECT_TRUE(s.SelectionControlled);
    EXPECT_TRUE(Cleared());
    QTest::keyClick(Form.get(), Qt::Key_Backspace, Qt::ControlModifier);
    QTest::keyClick(Form.get(), Qt::Key_Backspace, Qt::AltModifier);
    EXPECT_TRUE(Cleared());
}

TEST_F(UndoWindow, BackspaceInATextIsThatOfTheText) {
    QLineEdit text(Form.get());
    text.setText("abc");
    text.show();
    text.setFocus();
    QTest::keyClick(&text, Qt::Key_Backspace);
    EXPECT_EQ(text.text(), "ab");
    EXPECT_TRUE(Cleared());
}

TEST_F(UndoWindow, BackspaceActsInTheBrowserAndInNoOtherWindow) {
    QWidget browser;
    browser.setObjectName("frmBrowse");
    QTest::keyClick(&browser, Qt::Key_Backspace);
    EXPECT_FALSE(Cleared());
    QWidget other;
    other.setObjectName("frmSave");
    QTest::keyClick(&other, Qt::Key_Backspace, Qt::ShiftModifier);
    EXPECT_FALSE(Cleared());
}

TEST_F(UndoWindow, ADrawingOnAGraphIsOneStep) {
    SetTab(s, kPatternTab);
    Settle();
    const PatternBlock before = s.Set[0].Pattern[kVolPattern];
    Drag("PatternGraph_0", {60, 20});
    ASSERT_NE(s.Set[0].Pattern[kVolPattern], before);
    EXPECT_EQ(UndoText(s), "Drawing of the Vol pattern of A");
    QTest::keyClick(Form.get(), Qt::Key_Backspace);
    EXPECT_EQ(s.Set[0].Pattern[kVolPattern], before);
    EXPECT_EQ(UndoText(s), "Clear of A");
}

}  // namespace
}  // namespace marvolin
