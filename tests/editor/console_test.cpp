#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScrollBar>
#include <QtTest/QTest>

#include "editor_stage.h"
#include "window/editor/console_view.h"
#include "window/view_timers.h"

namespace marvolin {
namespace {

using test::EditorStage;
using test::PassTimers;
using test::TimersOf;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Kept(const ScriptConsole& console) {
    std::vector<std::string> texts;
    for (const ConsoleLine& line : console.Lines()) texts.push_back(line.Text);
    return texts;
}

TEST(ScriptConsole, ATextBecomesALineForEachOfItsOwn) {
    ScriptConsole console;
    console.Add(ConsoleLine::Kind::Printed, "one\ntwo\r\n");
    EXPECT_THAT(Kept(console), ElementsAre("one", "two", ""));
    EXPECT_EQ(console.Count(), 3U);
    console.Add(ConsoleLine::Kind::Printed, std::string_view("a\0b", 3));
    EXPECT_EQ(Kept(console).back(), "a?b");
    console.Clear();
    EXPECT_TRUE(console.Lines().empty());
    EXPECT_EQ(console.Count(), 4U);
}

TEST(ScriptConsole, OnlyTheNewestThousandLinesAreKept) {
    ScriptConsole console;
    for (int i = 0; i < 1500; ++i) console.Add(ConsoleLine::Kind::Printed, std::to_string(i));
    EXPECT_EQ(console.Lines().size(), 1000U);
    EXPECT_EQ(console.Lines().front().Text, "500");
    EXPECT_EQ(console.Count(), 1500U);
    console.Add(ConsoleLine::Kind::Printed, std::string(5000, '\n') + "end");
    EXPECT_EQ(console.Lines().size(), 1000U);
    EXPECT_EQ(console.Lines().front().Text, "");
    EXPECT_EQ(console.Lines().back().Text, "end");
}

TEST(ScriptConsole, ALongLineIsCutBetweenCharacters) {
    ScriptConsole console;
    console.Add(ConsoleLine::Kind::Printed, std::string(ScriptConsole::kLongestLine, 'x'));
    EXPECT_EQ(console.Lines().back().Text.size(), ScriptConsole::kLongestLine);
    console.Add(ConsoleLine::Kind::Printed, std::string(ScriptConsole::kLongestLine - 1, 'x') + "\xC3\xA4");
    EXPECT_EQ(console.Lines().back().Text, std::string(ScriptConsole::kLongestLine - 1, 'x') + "...");
}

TEST(ConsoleView, ShowsWhatHasComeAndStaysAtItsEnd) {
    EditorStage stage;
    stage.Room.Print("first");
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->toPlainText(), "first");
    for (int i = 0; i < 200; ++i) stage.Room.Print("line " + std::to_string(i));
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->blockCount(), 201);
    const QScrollBar& bar = *stage.Window.Console->verticalScrollBar();
    EXPECT_GT(bar.maximum(), 0);
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST(ConsoleView, DoesNotMoveUnderAPlayerWhoHasScrolledUp) {
    EditorStage stage;
    for (int i = 0; i < 200; ++i) stage.Room.Print("line " + std::to_string(i));
    stage.Settle();
    stage.Window.Console->verticalScrollBar()->setValue(3);
    stage.Room.Print("more");
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->verticalScrollBar()->value(), 3);
}

TEST(ConsoleView, IsBoundedAndItsButtonEmptiesIt) {
    EditorStage stage;
    for (int i = 0; i < 3000; ++i) stage.Room.Print(std::to_string(i));
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->blockCount(), 1000);
    EXPECT_TRUE(stage.Window.Console->toPlainText().endsWith("2999"));
    stage.Click("ClearConsole");
    EXPECT_EQ(stage.Window.Console->toPlainText(), "");
    stage.Room.Print("again");
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->toPlainText(), "again");
}

TEST(ConsoleView, ShowsAFloodOfLinesAFewTimesASecondAndNotWithEachEvent) {
    EditorStage stage;
    ConsoleView& view = *stage.Window.Console;
    view.Pause.setInterval(3'600'000);  // ms: it ends when the test says so
    stage.Room.Print("first");
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    EXPECT_EQ(view.toPlainText(), "first");
    int changes = 0;
    QObject::connect(view.document(), &QTextDocument::contentsChanged, [&] { ++changes; });
    for (int event = 0; event < 50; ++event) {
        stage.Room.Print("line");
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    }
    EXPECT_EQ(changes, 0);
    stage.EndPause();
    EXPECT_EQ(changes, 1) << "all lines at once";
    EXPECT_EQ(view.blockCount(), 51);
    stage.EndPause();
    EXPECT_FALSE(view.Pause.isActive()) << "nothing has come";
}

TEST(ConsoleView, DoesNothingWhileItIsHiddenAndShowsAllWhenItComesBack) {
    EditorStage stage;
    stage.Window.close();
    stage.Room.Print("unseen");
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->toPlainText(), "");
    stage.Window.Open();
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->toPlainText(), "unseen");
}

TEST(ConsoleView, KeepsAnEmptyFirstLine) {
    EditorStage stage;
    stage.Room.Print("");
    stage.Settle();
    stage.Room.Print("second");
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->toPlainText(), "\nsecond");
    stage.Click("ClearConsole");
    stage.Room.Print("again");
    stage.Settle();
    EXPECT_EQ(stage.Window.Console->toPlainText(), "again");
}

TEST(ConsoleView, CannotBeTypedInto) {
    EditorStage stage;
    QTest::keyClicks(stage.Window.Console, "text");
    EXPECT_EQ(stage.Window.Console->toPlainText(), "");
}

TEST(ConsoleView, ASelectionBeyondTheEdgeScrollsUntilTheButtonIsUp) {
    EditorStage stage;
    for (int i = 0; i < 20; ++i) stage.Room.Print("a line to select");
    stage.Settle();
    ConsoleView& view = *stage.Window.Console;
    QWindow* window = stage.Window.windowHandle();
    const QPoint inside = view.viewport()->mapTo(&stage.Window, QPoint(5, 5));
    QTest::mousePress(window, Qt::LeftButton, {}, inside);
    QTest::mouseMove(window, inside + QPoint(0, -60));
    PassTimers(view);
    EXPECT_EQ(TimersOf(view).size(), 1U);
    QTest::mouseRelease(window, Qt::LeftButton, {}, inside + QPoint(0, -60));
    EXPECT_THAT(TimersOf(view), IsEmpty());
}

TEST(ConsoleView, ATextThatWasDraggedAwayNeitherSelectsNorDragsAgain) {
    EditorStage stage;
    for (int i = 0; i < 20; ++i) stage.Room.Print("a line to select");
    stage.Settle();
    ConsoleView& view = *stage.Window.Console;
    view.selectAll();
    QWindow* window = stage.Window.windowHandle();
    const QPoint inside = view.viewport()->mapTo(&stage.Window, QPoint(20, 5));
    QTest::mousePress(window, Qt::LeftButton, {}, inside);
    QTest::mouseMove(window, inside + QPoint(0, -60));  // the drag begins and ends, and the release was its own
    QTest::mouseRelease(window, Qt::LeftButton, {}, inside + QPoint(0, -60));
    ASSERT_EQ(TimersOf(view).size(), 1U);
    PassTimers(view);
    EXPECT_THAT(TimersOf(view), IsEmpty());
}

}  // namespace
}  // namespace marvolin
