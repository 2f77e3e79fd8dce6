#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QWindow>
#include <QtTest/QTest>
#include <set>

#include "editor_stage.h"
#include "parameters/scroll_events.h"
#include "window/controls/text_button.h"
#include "window/descriptions/described.h"
#include "window/editor/console_view.h"
#include "window/editor/event_list.h"
#include "window/editor/find_bar.h"
#include "window/editor/script_status.h"
#include "window/painted_texts.h"

namespace marvolin {
namespace {

using test::EditorStage;
using test::Press;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPan = "function OnVolChange(row, volume)\n    marvolin.set_pan(row - 1, volume)\nend\n";

TEST(Editor, RunRunsTheTextAndStopStopsIt) {
    EditorStage stage;
    EXPECT_FALSE(stage.At("StopScript")->isEnabled());
    stage.Write(kPan);
    stage.Click("RunScript");
    EXPECT_TRUE(stage.Room.Runs());
    EXPECT_EQ(stage.Room.Name(), "untitled.mvs");
    EXPECT_TRUE(stage.At("StopScript")->isEnabled());
    EXPECT_EQ(stage.Window.Running->text(), "untitled.mvs runs");
    SendScriptEvent(stage.s, ScriptEvent::OnVolChange, std::array{1.0, 123.0});
    EXPECT_EQ(stage.s.Set[0].Pan, 623);
    stage.Click("StopScript");
    EXPECT_FALSE(stage.Room.Runs());
    EXPECT_FALSE(stage.At("StopScript")->isEnabled());
    EXPECT_EQ(stage.Window.Running->text(), "no script runs");
    EXPECT_THAT(test::PaintedTexts(*stage.Window.Status), testing::Contains("line 4, column 1"));
}

TEST(Editor, TheKeysOfRunAndStopWorkInTheText) {
    EditorStage stage;
    stage.Write(kPan);
    stage.Key(Qt::Key_F5);
    EXPECT_TRUE(stage.Room.Runs());
    stage.Key(Qt::Key_F5, Qt::ShiftModifier);
    EXPECT_FALSE(stage.Room.Runs());
}

TEST(Editor, AWrongLineIsMarkedAndTheScriptThatRunsGoesOn) {
    EditorStage stage;
    stage.Write(kPan);
    stage.Click("RunScript");
    stage.Write(std::string(100, '\n') + "x = = 1\n");
    stage.Click("RunScript");
    EXPECT_TRUE(stage.Room.Runs());
    EXPECT_EQ(stage.Window.View->Marked(), 101);
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{101, 3}));
    EXPECT_EQ(stage.Window.Status->Hint(), "Line 101: unexpected symbol near '='");
    EXPECT_TRUE(
        stage.Window.Console->toPlainText().endsWith("Error in untitled.mvs: unexpected symbol near '=', line 101"));
    EXPECT_THAT(stage.Desk.Boxes, IsEmpty());
    stage.Write("x = 1");
    stage.Click("RunScript");
    EXPECT_EQ(stage.Window.View->Marked(), 0);
}

TEST(Editor, ALoopWithoutEndIsStoppedToldAndMarked) {
    EditorStage stage;
    stage.Look = 1'000'000;
    stage.Write("local x = 0\nwhile true do x = x + 1 end");
    stage.Click("RunScript");
    EXPECT_FALSE(stage.Room.Runs());
    ASSERT_EQ(stage.Desk.Boxes.size(), 1U);
    EXPECT_FALSE(stage.Desk.Boxes[0].Waits);
    EXPECT_EQ(stage.Window.View->Marked(), 2);
}

TEST(Editor, AFailureWhileItRunsIsMarkedUnlessTheTextHasChanged) {
    EditorStage stage;
    stage.Write("function OnClock()\n    error('late')\nend");
    stage.Click("RunScript");
    stage.Tick();
    stage.Settle();
    EXPECT_EQ(stage.Window.View->Marked(), 2);
    EXPECT_EQ(stage.Window.Status->Hint(), "Line 2: late");
    stage.Click("RunScript");
    EXPECT_EQ(stage.Window.View->Marked(), 0);
    stage.Window.View->GoTo({3, 4});
    stage.Type("\n-- more");
    stage.Tick();
    stage.Settle();
    EXPECT_EQ(stage.Window.View->Marked(), 0);
    EXPECT_TRUE(stage.Window.Console->toPlainText().endsWith("Error in OnClock: late, line 2"));
}

TEST(Editor, AFailureDoesNotTakeTheCaretAway) {
    EditorStage stage;
    stage.Write("function OnClock()\n    error('late')\nend");
    stage.Click("RunScript");
    stage.Window.View->GoTo({1, 3});
    stage.Tick();
    stage.Settle();
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 3}));
}

TEST(Editor, WhatAScriptPrintsStandsInTheConsole) {
    EditorStage stage;
    stage.Write("print('hello', 1)");
    stage.Click("RunScript");
    EXPECT_EQ(stage.Window.Console->toPlainText(), "untitled.mvs starts\nhello\t1");
}

TEST(Editor, ATextOfTenMegabytesIsToldAndKept) {
    EditorStage stage;
    const std::string large(10'000'000, '\n');
    stage.Window.View->SetText(large);
    stage.Click("RunScript");
    EXPECT_FALSE(stage.Room.Runs());
    EXPECT_TRUE(stage.Window.Console->toPlainText().contains("The text is longer than 1 MB"));
    EXPECT_TRUE(stage.Text() == large);
}

TEST(Editor, TextsWithZeroBytesOrBrokenCharactersAreTold) {
    EditorStage stage;
    stage.Window.View->SetText(std::string("x = 1\0y", 7));
    stage.Click("RunScript");
    EXPECT_TRUE(stage.Window.Console->toPlainText().contains("Error in untitled.mvs"));
    EXPECT_EQ(stage.Window.View->Marked(), 1);
    stage.Window.View->SetText("\xFF\xFE");
    stage.Click("RunScript");
    EXPECT_EQ(stage.Window.View->Marked(), 1);
    EXPECT_FALSE(stage.Room.Runs());
}

TEST(Editor, TheEventsThatAScriptHearsHaveAMark) {
    EditorStage stage;
    const auto picture = [&] { return stage.Window.Events->grab().toImage(); };
    const auto row = [&](const QImage& image, ScriptEvent event) {
        return image.copy(0, 3 + static_cast<int>(event) * EventList::kRowHeight, 20, EventList::kRowHeight);
    };
    const QImage none = picture();
    stage.Write("function OnClock() error() end function OnVolChange() end");
    stage.Click("RunScript");
    const QImage two = picture();
    EXPECT_NE(row(two, ScriptEvent::OnClock), row(none, ScriptEvent::OnClock));
    EXPECT_EQ(row(two, ScriptEvent::OnClock), row(two, ScriptEvent::OnVolChange));
    EXPECT_EQ(row(two, ScriptEvent::OnPanChange), row(none, ScriptEvent::OnPanChange));
    stage.Tick();
    stage.Settle();
    const QImage silent = picture();
    EXPECT_NE(row(silent, ScriptEvent::OnClock), row(two, ScriptEvent::OnClock));
    EXPECT_NE(row(silent, ScriptEvent::OnClock), row(none, ScriptEvent::OnClock));
    EXPECT_EQ(row(silent, ScriptEvent::OnVolChange), row(two, ScriptEvent::OnVolChange));
    stage.Click("StopScript");
    EXPECT_EQ(picture(), none);
}

TEST(Editor, TheHintOfAnEventNamesItsArguments) {
    EditorStage stage;
    const auto hint = [&](ScriptEvent event) {
        const QPoint place(30, 3 + static_cast<int>(event) * EventList::kRowHeight + 8);
        QTest::mouseMove(stage.Window.windowHandle(), stage.Window.Events->mapTo(&stage.Window, place));
        stage.Settle();
        return stage.Window.Status->Hint().toStdString();
    };
    EXPECT_EQ(hint(ScriptEvent::OnVolChange), "OnVolChange(row, volume): a volume knob was let go");
    EXPECT_EQ(hint(ScriptEvent::OnClock), "OnClock(milliseconds, part, seconds): ten times a second");
    EXPECT_EQ(stage.s.StatusText, "") << "the main window's bar is not touched";
}

TEST(Editor, EveryControlHasItsHintInTheWindowsOwnBar) {
    EditorStage stage;
    stage.Click("FindText");
    int buttons = 0;
    for (const QWidget* control : stage.Window.findChildren<QWidget*>()) {
        const Described* described = DescribedOf(*control);
        if (described == nullptr || dynamic_cast<const TextButton*>(control) == nullptr || !control->isEnabled())
            continue;
        SCOPED_TRACE(control->objectName().toStdString());
        ++buttons;
        QTest::mouseMove(stage.Window.windowHandle(), control->mapTo(&stage.Window, control->rect().center()));
        stage.Settle();
        EXPECT_FALSE(described->Hint(0, false).empty());
        EXPECT_EQ(stage.Window.Status->Hint().toStdString(), described->Hint(0, false));
    }
    EXPECT_GE(buttons, 10);
    EXPECT_EQ(stage.s.StatusText, "");
}

TEST(Editor, NoHintIsCutInTheSmallestWindow) {
    EditorStage stage;
    stage.Window.resize(stage.Window.minimumSize());
    stage.Settle();
    std::set<std::string> hints;
    for (const QWidget* control : stage.Window.findChildren<QWidget*>()) {
        const Described* described = DescribedOf(*control);
        if (described == nullptr) continue;
        for (int part = 0; part < kScriptEvents; ++part) hints.insert(described->Hint(part, false));
    }
    hints.erase("");
    EXPECT_GT(hints.size(), 20U);
    for (const std::string& hint : hints) {
        stage.Window.ShowHint(hint);
        EXPECT_THAT(test::PaintedTexts(*stage.Window.Status), testing::Contains(hint));
    }
}

TEST(Editor, ALongTextInTheBarIsCut) {
    EditorStage stage;
    std::string letters(299, 'x');
    stage.Window.ShowHint(letters + "\xC3\xA4" + std::string(1'000'000, 'x'));
    EXPECT_EQ(stage.Window.Status->Hint().toStdString(), letters + "...");
    stage.Window.TakeHintAway(letters + "\xC3\xA4" + std::string(1'000'000, 'x'));
    EXPECT_EQ(stage.Window.Status->Hint().toStdString(), "");
}

TEST(Editor, FindOpensABarThatFindsWhileWordsAreTyped) {
    EditorStage stage;
    stage.Write("one two one");
    stage.Window.View->GoTo({1, 1});
    EXPECT_FALSE(stage.Window.Find->isVisible());
    stage.Key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(stage.Window.Find->isVisible());
    auto* words = dynamic_cast<QLineEdit*>(stage.At("FindWords"));
    EXPECT_TRUE(words->hasFocus());
    QTest::keyClicks(words, "on");
    EXPECT_EQ(stage.Window.View->Selected(), "on");
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 3}));
    QTest::keyClicks(words, "e");
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 4}));
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 12}));
    QTest::keyClick(words, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 4}));
    stage.Click("FindNext");
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 12}));
    stage.Click("FindPrevious");
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 4}));
    QTest::keyClicks(words, "x");
    EXPECT_TRUE(stage.Window.Find->findChild<QLabel*>()->text() == "not found");
    EXPECT_EQ(stage.Window.View->Selected(), "one");
    QTest::keyClick(words, Qt::Key_Escape);
    EXPECT_FALSE(stage.Window.Find->isVisible());
    EXPECT_TRUE(stage.Window.View->Widget().hasFocus());
}

TEST(Editor, FindBeginsWithWhatIsSelectedAndItsKeysWorkInTheText) {
    EditorStage stage;
    stage.Write("one two one");
    stage.Window.View->Find("one", Search::Next);
    stage.Click("FindText");
    auto* words = dynamic_cast<QLineEdit*>(stage.At("FindWords"));
    EXPECT_EQ(words->text(), "one");
    stage.Window.View->Widget().setFocus();
    stage.Key(Qt::Key_F3);
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 12}));
    stage.Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(stage.Window.View->Caret(), (TextPlace{1, 4}));
    stage.Key(Qt::Key_Escape);
    EXPECT_FALSE(stage.Window.Find->isVisible());
}

TEST(Editor, ClosingAsksAboutATextThatIsNotSaved) {
    EditorStage stage;
    stage.Type("x");
    stage.Answer({Press("BoxCancel")}, [&] { stage.Window.close(); });
    EXPECT_TRUE(stage.Window.isVisible());
    stage.Answer({Press("BoxDiscard")}, [&] { stage.Window.close(); });
    EXPECT_FALSE(stage.Window.isVisible());
    EXPECT_EQ(stage.Text(), "");
    stage.Window.Open();
    stage.Answer({}, [&] { stage.Window.close(); });
    EXPECT_FALSE(stage.Window.isVisible());
}

TEST(Editor, AScriptRunsOnWhenItsWindowIsClosed) {
    EditorStage stage;
    stage.Window.View->SetText("function OnClock() print('tick') end");
    stage.Click("RunScript");
    stage.Window.close();
    EXPECT_TRUE(stage.Room.Runs());
    stage.Tick();
    stage.Window.Open();
    stage.Settle();
    EXPECT_TRUE(stage.Window.Console->toPlainText().endsWith("tick"));
    EXPECT_EQ(stage.Window.Running->text(), "untitled.mvs runs");
    EXPECT_TRUE(stage.At("StopScript")->isEnabled());
}

TEST(Editor, TheTimersGoOnWhileTheWindowAsks) {
    EditorStage stage;
    stage.Write("function OnClock() print('tick') end");
    stage.Click("RunScript");
    stage.Answer({[&](QDialog& box) {
                     stage.Tick();
                     Press("BoxCancel")(box);
                 }},
                 [&] { stage.Window.close(); });
    EXPECT_TRUE(stage.Window.Console->toPlainText().endsWith("tick"));
}

TEST(Editor, ManyChangesAreShownAtOnce) {
    EditorStage stage;
    stage.Write("for i = 1, 500 do print(i) end");
    stage.Click("RunScript");
    EXPECT_TRUE(stage.Window.Console->toPlainText().endsWith("500"));
    stage.Room.Print("later");
    EXPECT_TRUE(stage.Window.Console->toPlainText().endsWith("500")) << "not while an event is under way";
    stage.Settle();
    EXPECT_TRUE(stage.Window.Console->toPlainText().endsWith("later"));
}

TEST(Editor, TheWindowFitsItsScreen) {
    EditorStage stage;
    const QSize room = stage.Window.screen()->availableSize();
    EXPECT_LE(stage.Window.width(), room.width());
    EXPECT_LE(stage.Window.height(), room.height());
    stage.Window.resize(760, 420);
    stage.Settle();
    EXPECT_EQ(stage.Window.size(), QSize(760, 420));
    for (const char* name : {"StopScript", "ScriptText", "Console", "EventList", "ScriptStatusBar", "ClearConsole"}) {
        const QWidget& widget = *stage.At(name);
        const QRect place(widget.mapTo(&stage.Window, QPoint(0, 0)), widget.size());
        EXPECT_TRUE(stage.Window.rect().contains(place)) << name;
        EXPECT_GE(place.height(), 20) << name;
    }
}

TEST(Editor, EveryButtonIsReachedByTab) {
    EditorStage stage;
    for (const QWidget* widget : stage.Window.findChildren<QWidget*>()) {
        if (dynamic_cast<const TextButton*>(widget) == nullptr) continue;
        EXPECT_TRUE(widget->focusPolicy() & Qt::TabFocus) << widget->objectName().toStdString();
    }
}

TEST(Editor, CtrlTabGoesFromTheTextToEachButtonAndBack) {
    EditorStage stage;
    for (const Qt::KeyboardModifiers keys :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::ControlModifier | Qt::ShiftModifier)}) {
        QWidget& text = stage.Window.View->Widget();
        text.setFocus();
        std::set<const QWidget*> seen;
        for (int step = 0; step < 100; ++step) {
            stage.Key(Qt::Key_Tab, keys);
            const QWidget* at = stage.Window.focusWidget();
            ASSERT_NE(at, nullptr);
            if (at == &text) break;
            EXPECT_TRUE(seen.insert(at).second) << at->objectName().toStdString() << " comes twice before the text";
        }
        EXPECT_EQ(stage.Window.focusWidget(), &text) << "the walk does not come back";
        for (const QWidget* widget : stage.Window.findChildren<QWidget*>()) {
            const bool button = dynamic_cast<const TextButton*>(widget) != nullptr;
            if (!button || !widget->isVisible() || !widget->isEnabled()) continue;
            EXPECT_TRUE(seen.contains(widget)) << widget->objectName().toStdString();
        }
        EXPECT_EQ(stage.Text(), "") << "a tab was typed";
    }
}

}  // namespace
}  // namespace marvolin
