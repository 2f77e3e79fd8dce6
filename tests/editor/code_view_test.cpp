#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMimeData>
#include <QtTest/QTest>
#include <set>

#include "editor_stage.h"
#include "window/toolkit/theme.h"

namespace marvolin {
namespace {

using test::EditorStage;

using S = QsciScintillaBase;

/// Questions about the view.
struct Page : EditorStage {
    long Ask(unsigned int message, long argument = 0) {
        return Code().SendScintilla(message, static_cast<unsigned long>(argument));
    }
    /// The ink of the first place of `words`.
    QColor InkOf(const std::string& words) {
        Ask(S::SCI_COLOURISE, 0);
        Code().SendScintilla(S::SCI_COLOURISE, 0UL, -1L);
        const std::size_t at = Text().find(words);
        EXPECT_NE(at, std::string::npos) << words;
        return Code().lexer()->color(static_cast<int>(Ask(S::SCI_GETSTYLEAT, static_cast<long>(at))));
    }
    bool Lists() { return Ask(S::SCI_AUTOCACTIVE) != 0; }
    bool Tells() { return Ask(S::SCI_CALLTIPACTIVE) != 0; }
    /// The entry of the open list that is chosen.
    std::string Listed() {
        std::string text(static_cast<std::size_t>(Ask(S::SCI_AUTOCGETCURRENTTEXT)) + 1, '\0');
        Code().SendScintilla(S::SCI_AUTOCGETCURRENTTEXT, 0UL, text.data());
        return text.c_str();
    }
};

TEST(CodeView, LuaHasItsColours) {
    Page page;
    page.Write("-- note\nlocal x = 12 .. 'text'\nprint(string.format('%d', x))\nplain()");
    const QColor plain = page.InkOf("plain");
    EXPECT_EQ(plain, theme::kText);
    std::set<QRgb> inks{plain.rgb()};
    for (const char* words : {"-- note", "local", "12", "'text'", "print"}) {
        EXPECT_TRUE(inks.insert(page.InkOf(words).rgb()).second) << words;
    }
    EXPECT_EQ(page.InkOf("string.format"), page.InkOf("print"));
}

TEST(CodeView, OnlyFunctionsAndEventsThatExistHaveTheirColour) {
    Page page;
    page.Write(
        "marvolin.set_pan('A', 1)\nmarvolin.set_pam('A', 1)\nfunction OnClock() end\nfunction OnClick() "
        "end\nio.open()");
    EXPECT_NE(page.InkOf("marvolin.set_pan"), theme::kText);
    EXPECT_EQ(page.InkOf("marvolin.set_pam"), theme::kText);
    EXPECT_NE(page.InkOf("OnClock"), theme::kText);
    EXPECT_EQ(page.InkOf("OnClick"), theme::kText);
    EXPECT_EQ(page.InkOf("io.open"), theme::kText);
}

TEST(CodeView, EveryWordOfTheLibraryThatHasAColourIsThereForAScript) {
    Page page;
    for (const int set : {2, 3}) {
        const QStringList words = QString(page.Code().lexer()->keywords(set)).split(' ', Qt::SkipEmptyParts);
        EXPECT_GT(words.size(), 10);
        for (const QString& word : words) {
            EXPECT_TRUE(page.Room.Run("assert(" + word.toStdString() + " ~= nil)", word.toStdString()));
        }
    }
    EXPECT_TRUE(
        page.Room.Run("local n = 0 for _, t in ipairs{string, table, math, utf8, coroutine} do for _ in pairs(t) do "
                      "n = n + 1 end end assert(n == " +
                          std::to_string(QString(page.Code().lexer()->keywords(3)).split(' ').size()) + ", n)",
                      "count"));
}

TEST(CodeView, EveryInkCanBeReadOnTheGroundAndOnAWrongLine) {
    Page page;
    const QsciLexer& look = *page.Code().lexer();
    const QColor wrong(0x4a, 0x20, 0x20);
    for (int style = 0; style < 128; ++style) {
        if (look.description(style).isEmpty()) continue;
        EXPECT_GE(theme::Contrast(look.color(style), look.paper(style)), 4.5) << style;
        EXPECT_GE(theme::Contrast(look.color(style), wrong), 4.5) << style;
        EXPECT_GE(theme::Contrast(look.color(style), QColor(0x3d, 0x31, 0x15)), 4.5) << style;
    }
}

TEST(CodeView, LinesAreNumberedAndTheMarginIsWideEnough) {
    Page page;
    EXPECT_TRUE(page.Code().marginLineNumbers(0));
    const int narrow = page.Code().marginWidth(0);
    page.Write(std::string(12'000, '\n'));
    EXPECT_GT(page.Code().marginWidth(0), narrow);
}

TEST(CodeView, BracketsThatBelongTogetherAreShown) {
    Page page;
    page.Write("f(a[1])");
    page.Window.View->GoTo({1, 1});
    page.Settle();
    const QImage apart = page.Code().viewport()->grab().toImage();
    page.Window.View->GoTo({1, 8});
    page.Settle();
    const QImage together = page.Code().viewport()->grab().toImage();
    // Beyond the caret, at the bracket far from it.
    const long at = page.Ask(S::SCI_POINTXFROMPOSITION);
    const int bracket = static_cast<int>(page.Code().SendScintilla(S::SCI_POINTXFROMPOSITION, 0UL, 1L));
    const QRect place(bracket, 0, bracket - static_cast<int>(at), 16);
    EXPECT_NE(apart.copy(place), together.copy(place));
}

TEST(CodeView, UndoAndRedoGoBackAndForth) {
    Page page;
    page.Type("a");
    EXPECT_TRUE(page.At("UndoText")->isEnabled());
    EXPECT_FALSE(page.At("RedoText")->isEnabled());
    page.Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(page.Text(), "");
    EXPECT_FALSE(page.Window.View->IsModified());
    page.Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(page.Text(), "a");
    page.Click("UndoText");
    EXPECT_EQ(page.Text(), "");
    page.Click("RedoText");
    EXPECT_EQ(page.Text(), "a");
}

TEST(CodeView, ATextThatIsSetCannotBeUndoneAndKeepsEveryByte) {
    Page page;
    page.Type("before");
    const std::string text("a\r\nb\nf\xC3\xBCr\0end", 14);
    page.Window.View->SetText(text);
    EXPECT_EQ(page.Text(), text);
    EXPECT_FALSE(page.Window.View->IsModified());
    EXPECT_FALSE(page.Window.View->CanUndo());
    std::string large;
    while (large.size() < 10'000'000) large += "x = 1 -- a line of the usual length\n";
    page.Window.View->SetText(large);
    EXPECT_TRUE(page.Text() == large);
}

TEST(CodeView, NewLinesEndAsThoseOfTheText) {
    Page page;
    page.Window.View->SetText("a\r\nb");
    page.Type("\n");
    EXPECT_EQ(page.Text(), "\r\na\r\nb");
    page.Window.View->SetText("a\nb");
    page.Type("\n");
    EXPECT_EQ(page.Text(), "\na\nb");
}

TEST(CodeView, ALineBeginsWhereTheOneAboveItDoesAndTabulatorsAreBlanks) {
    Page page;
    page.Key(Qt::Key_Tab);
    page.Type("x\ny");
    EXPECT_EQ(page.Text(), "    x\n    y");
}

TEST(CodeView, TheFunctionsOfTheInstrumentAreListedBehindTheirTable) {
    Page page;
    page.Type("marvolin");
    EXPECT_FALSE(page.Lists());
    page.Type(".");
    ASSERT_TRUE(page.Lists());
    page.Type("set_pa");
    EXPECT_EQ(page.Listed(), "set_pad_ball");
    page.Type("n");
    EXPECT_EQ(page.Listed(), "set_pan");
    page.Key(Qt::Key_Return);
    EXPECT_EQ(page.Text(), "marvolin.set_pan");
    EXPECT_FALSE(page.Lists());
}

TEST(CodeView, ABracketTakesTheListedWordAndSaysWhatItNeeds) {
    Page page;
    page.Type("marvolin.set_pan");
    ASSERT_TRUE(page.Lists() || page.Text() == "marvolin.set_pan");
    page.Type("(");
    EXPECT_EQ(page.Text(), "marvolin.set_pan(");
    EXPECT_TRUE(page.Tells());
    page.Type("\"A\", math.max(1, 2");
    EXPECT_FALSE(page.Tells());
    page.Type(")");
    EXPECT_TRUE(page.Tells());
    page.Type(")");
    EXPECT_FALSE(page.Tells());
}

TEST(CodeView, NothingIsListedInATextOrAComment) {
    Page page;
    page.Type("-- marvolin.");
    EXPECT_FALSE(page.Lists());
    page.Write("");
    page.Type("x = 'marvolin.");
    EXPECT_FALSE(page.Lists());
    page.Write("");
    page.Type("other.");
    EXPECT_FALSE(page.Lists());
}

TEST(CodeView, TheEventsAreListedBehindFunctionAndSayWhatTheyGet) {
    Page page;
    page.Type("function OnPanS");
    ASSERT_TRUE(page.Lists());
    EXPECT_EQ(page.Listed(), "OnPanScroll");
    page.Type("(");
    EXPECT_EQ(page.Text(), "function OnPanScroll(");
    EXPECT_TRUE(page.Tells());
    page.Write("");
    page.Type("OnPanS");
    EXPECT_FALSE(page.Lists());
}

TEST(CodeView, EscapeClosesTheListAndKeepsTheText) {
    Page page;
    page.Type("marvolin.");
    ASSERT_TRUE(page.Lists());
    page.Key(Qt::Key_Escape);
    EXPECT_FALSE(page.Lists());
    EXPECT_EQ(page.Text(), "marvolin.");
}

TEST(CodeView, WhereTheCaretIsOnNoScreenNothingIsListedAndTheTextGoesOn) {
    Page page;
    page.Window.move(-5000, -5000);
    page.Settle();
    page.Type("marvolin.set_pan(");
    EXPECT_FALSE(page.Lists());
    EXPECT_EQ(page.Text(), "marvolin.set_pan(");
    page.Window.move(20, 20);
    page.Settle();
    page.Write("");
    page.Type("marvolin.");
    EXPECT_TRUE(page.Lists());
}

TEST(CodeView, WhereTheBeginningOfTheWordIsOnNoScreenNothingIsListedAndTheTextGoesOn) {
    Page page;
    page.Type("marvolin.se");
    page.Key(Qt::Key_Escape);
    ASSERT_FALSE(page.Lists());
    const auto x = [&](long at) {
        return static_cast<int>(page.Code().SendScintilla(S::SCI_POINTXFROMPOSITION, 0UL, at));
    };
    QWidget& text = *page.Code().viewport();
    const QPoint caret = text.mapTo(&page.Window, QPoint(x(11), 0));
    page.Window.move(1 - caret.x(), 20);
    page.Settle();
    ASSERT_LT(text.mapToGlobal(QPoint(x(9), 0)).x(), 0);
    page.Type("t");
    EXPECT_FALSE(page.Lists());
    EXPECT_EQ(page.Text(), "marvolin.set");
}

/// Whether the red dot of a wrong line is on the screen.
bool DotShown(Page& page) {
    QTest::qWait(20);  // what is to be painted is
    const QImage shown = page.Window.screen()->grabWindow(page.Window.winId()).toImage();
    const QPoint margin = page.Code().viewport()->mapTo(&page.Window, QPoint(0, 0));
    for (int x = margin.x(); x < margin.x() + 60; ++x) {
        for (int y = margin.y(); y < margin.y() + 30; ++y) {
            const QColor ink = shown.pixelColor(x, y);
            if (ink.red() > 200 && ink.green() < 120) return true;
        }
    }
    return false;
}

TEST(CodeView, AMarkThatGoesWithItsLineIsPaintedAway) {
    Page page;
    page.Type("wrong");
    page.Window.View->Mark(1);
    ASSERT_TRUE(DotShown(page));
    page.Key(Qt::Key_A, Qt::ControlModifier);
    ASSERT_TRUE(DotShown(page));
    page.Key(Qt::Key_Delete);
    ASSERT_EQ(page.Window.View->Marked(), 0);
    EXPECT_FALSE(DotShown(page));
}

TEST(CodeView, AMarkedLineIsShownAndLosesItsMarkWhenItIsMended) {
    Page page;
    page.Write(std::string(300, '\n') + "wrong");
    CodeView& view = *page.Window.View;
    view.GoTo({1, 1});
    view.Mark(301);
    EXPECT_EQ(view.Marked(), 301);
    const long first = page.Ask(S::SCI_GETFIRSTVISIBLELINE);
    EXPECT_GE(300, first);
    EXPECT_LT(300, first + page.Ask(S::SCI_LINESONSCREEN));
    EXPECT_EQ(view.Caret().Line, 1);
    page.Type("x");
    EXPECT_EQ(view.Marked(), 301);
    view.GoTo({301, 2});
    EXPECT_EQ(view.Caret(), (TextPlace{301, 2}));
    page.Type("x");
    EXPECT_EQ(view.Marked(), 0);
    view.Mark(9999);
    EXPECT_EQ(view.Marked(), 301);
    view.Mark(0);
    EXPECT_EQ(view.Marked(), 0);
}

TEST(CodeView, ARectangleThatIsSelectedIsGivenWhole) {
    Page page;
    const std::string line(60, 'a');
    std::string all;
    for (int i = 0; i < 40; ++i) all += line + "\n";
    page.Write(all);
    page.Window.View->GoTo({1, 1});
    for (int i = 0; i < 39; ++i) page.Key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    for (int i = 0; i < 2; ++i) page.Key(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    std::string selected;
    for (int i = 0; i < 40; ++i) selected += "aa\n";
    EXPECT_EQ(page.Window.View->Selected(), selected);
    page.Key(Qt::Key_Right, Qt::NoModifier);
    EXPECT_EQ(page.Window.View->Selected(), "");
}

TEST(CodeView, WordsAreFoundInAnyCaseRoundTheEnd) {
    Page page;
    page.Write("One two one\nTWO");
    CodeView& view = *page.Window.View;
    view.GoTo({1, 1});
    EXPECT_TRUE(view.Find("two", Search::Next));
    EXPECT_EQ(view.Selected(), "two");
    EXPECT_TRUE(view.Find("two", Search::Here));
    EXPECT_EQ(view.Selected(), "two");
    EXPECT_TRUE(view.Find("two", Search::Next));
    EXPECT_EQ(view.Selected(), "TWO");
    EXPECT_TRUE(view.Find("two", Search::Next));
    EXPECT_EQ(view.Selected(), "two");
    EXPECT_TRUE(view.Find("one", Search::Previous));
    EXPECT_EQ(view.Selected(), "One");
    EXPECT_TRUE(view.Find("one", Search::Previous));
    EXPECT_EQ(view.Selected(), "one");
    EXPECT_FALSE(view.Find("three", Search::Next));
    EXPECT_EQ(view.Selected(), "one");
    EXPECT_FALSE(view.Find("", Search::Next));
}

TEST(CodeView, ThereIsNoBarForATextThatFits) {
    Page page;
    page.Write("short");
    page.Settle();
    EXPECT_EQ(page.Ask(S::SCI_GETSCROLLWIDTH) > page.Code().viewport()->width(), false);
}

}  // namespace
}  // namespace marvolin
