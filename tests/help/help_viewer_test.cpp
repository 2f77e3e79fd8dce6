// The window of Help.

#include "window/help/help_viewer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QToolButton>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "core/errors.h"
#include "core/help.h"
#include "fakes/temp_folder.h"
#include "window/toolkit/qt_desktop.h"
#include "window/view_timers.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// A folder of Help with three pages, and the viewer.
struct Viewed {
    Viewed() {
        Write(
            "marvolin.chm",
            "10000\t10000.html\tContents\tMarvolin Help\n10023\t10023.html\tPlay\tRows\n10024\tgone.html\tGone\tRows\n"
            "10025\t10025.html\tName\tRows\n");
        Write("10000.html", "<h1>Contents</h1><a href=\"10023.html\">Play</a>");
        Write("10023.html", "<html><head><title>secret</title></head><h1>Play</h1>Click &amp; it plays.");
        Write("10025.html", "<h1>Name</h1>A click opens the palette; click again.");
    }
    void Write(const std::string& name, const std::string& text) { std::ofstream(Folder / name) << text; }
    std::string List() { return Folder / "marvolin.chm"; }
    void Open(std::int32_t topic) {
        Viewer.Open(List(), topic, nullptr);
        QCoreApplication::processEvents();
    }
    std::string Heading() { return Viewer.Text().document()->begin().text().toStdString(); }
    void Press(const char* name) { Viewer.findChild<QToolButton*>(name)->click(); }
    bool Enabled(const char* name) { return Viewer.findChild<QToolButton*>(name)->isEnabled(); }
    QLineEdit& Find() { return *Viewer.findChild<QLineEdit*>("HelpFind"); }
    /// The entries of the contents, chapters in brackets.
    std::vector<std::string> Entries() {
        std::vector<std::string> entries;
        for (QTreeWidgetItemIterator at(const_cast<QTreeWidget*>(&Viewer.Contents())); *at != nullptr; ++at) {
            const std::string text = (*at)->text(0).toStdString();
            entries.push_back((*at)->parent() == nullptr ? "[" + text + "]" : text);
        }
        return entries;
    }
    void Search(const char* words) {
        Find().setText(words);
        for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
    }

    test::TempFolder Folder;
    HelpViewer Viewer;
};

TEST(HelpViewer, OpensOnThePageOfTheTopicAndShowsWhereItIs) {
    Viewed view;
    view.Open(10023);
    EXPECT_TRUE(view.Viewer.isVisible());
    EXPECT_EQ(view.Viewer.windowTitle().toStdString(), kHelpTitle);
    EXPECT_EQ(view.Heading(), "Play");
    EXPECT_EQ(view.Viewer.Contents().currentItem()->text(0).toStdString(), "Play");
    EXPECT_EQ(view.Viewer.Text().verticalScrollBar()->value(), 0);
    EXPECT_THAT(view.Entries(), ElementsAre("[Marvolin Help]", "Contents", "[Rows]", "Play", "Gone", "Name"));
}

TEST(HelpViewer, ATopicWithoutAPageOpensTheContents) {
    Viewed view;
    view.Open(12345);
    EXPECT_EQ(view.Heading(), "Contents");
}

TEST(HelpViewer, GoesBackAndForwardAndToTheContents) {
    Viewed view;
    view.Open(10000);
    EXPECT_FALSE(view.Enabled("HelpBack"));
    view.Viewer.Go("10023.html");
    view.Viewer.Go("10025.html");
    EXPECT_TRUE(view.Enabled("HelpBack"));
    view.Press("HelpBack");
    EXPECT_EQ(view.Heading(), "Play");
    EXPECT_TRUE(view.Enabled("HelpForward"));
    view.Press("HelpForward");
    EXPECT_EQ(view.Heading(), "Name");
    view.Press("HelpContents");
    EXPECT_EQ(view.Heading(), "Contents");
}

TEST(HelpViewer, ThePageHasTheFocusAndAltWithAnArrowGoesBackAndForwardWhereverTheFocusIs) {
    Viewed view;
    view.Open(10023);
    EXPECT_EQ(view.Viewer.focusWidget(), &view.Viewer.Text());
    for (const char* name : {"HelpText", "HelpTree", "HelpFind"}) {
        SCOPED_TRACE(name);
        view.Viewer.Go("10023.html");
        view.Viewer.Go("10025.html");
        view.Viewer.findChild<QWidget*>(name)->setFocus();
        QCoreApplication::processEvents();
        QTest::keyClick(view.Viewer.windowHandle(), Qt::Key_Left, Qt::AltModifier);
        EXPECT_EQ(view.Heading(), "Play");
        QTest::keyClick(view.Viewer.windowHandle(), Qt::Key_Right, Qt::AltModifier);
        EXPECT_EQ(view.Heading(), "Name");
    }
}

TEST(HelpViewer, AnEntryOfTheContentsOpensItsPage) {
    Viewed view;
    view.Open(10000);
    auto& tree = const_cast<QTreeWidget&>(view.Viewer.Contents());
    tree.setCurrentItem(tree.topLevelItem(1)->child(2));
    EXPECT_EQ(view.Heading(), "Name");
}

TEST(HelpViewer, AMissingPageIsToldWithItsFile) {
    Viewed view;
    view.Open(10024);
    EXPECT_EQ(view.Heading(), "This page is missing");
    EXPECT_TRUE(view.Viewer.Text().toPlainText().contains("/gone.html"));
    EXPECT_EQ(view.Viewer.Contents().currentItem()->text(0).toStdString(), "Gone");
    view.Press("HelpContents");
    EXPECT_EQ(view.Heading(), "Contents");
}

TEST(HelpViewer, AMissingPageIsAStepOfTheWayBackAndForward) {
    Viewed view;
    view.Open(10023);
    view.Viewer.Go("gone.html");
    EXPECT_TRUE(view.Enabled("HelpBack"));
    view.Viewer.Go("10025.html");
    view.Press("HelpBack");
    EXPECT_EQ(view.Heading(), "This page is missing");
    EXPECT_EQ(view.Viewer.Contents().currentItem()->text(0).toStdString(), "Gone");
    view.Press("HelpBack");
    EXPECT_EQ(view.Heading(), "Play");
    EXPECT_EQ(view.Viewer.Contents().currentItem()->text(0).toStdString(), "Play");
    view.Press("HelpForward");
    EXPECT_EQ(view.Heading(), "This page is missing");
    view.Write("gone.html", "<h1>Back again</h1>");
    view.Open(10024);
    EXPECT_EQ(view.Heading(), "Back again");
}

TEST(HelpViewer, ANextQuestionLooksForNoWords) {
    Viewed view;
    view.Open(10023);
    view.Search("click");
    EXPECT_EQ(view.Entries().front(), "[Found on 2 pages]");
    view.Open(10025);
    EXPECT_EQ(view.Find().text(), "");
    EXPECT_EQ(view.Entries().size(), 6U);
    EXPECT_EQ(view.Viewer.Contents().currentItem()->text(0).toStdString(), "Name");
    EXPECT_TRUE(view.Viewer.Text().extraSelections().isEmpty());
}

TEST(HelpViewer, ALongPageIsMarkedAtItsFirstPlacesOnly) {
    Viewed view;
    std::string page = "<h1>Name</h1>";
    for (int i = 0; i < 2000; ++i) page += "word and word<br>";
    view.Write("10025.html", page);
    view.Open(10025);
    view.Search("word");
    EXPECT_EQ(view.Viewer.Text().extraSelections().size(), HelpText::kMostMarks);
}

TEST(HelpViewer, AMissingOrEmptyHelpFileIsAnErrorAndNothingIsShown) {
    Viewed view;
    const auto error = [&](const std::string& file) {
        try {
            view.Viewer.Open(file, 10023, nullptr);
        } catch (const RuntimeError& e) {
            return std::to_string(e.Number()) + " " + e.what();
        }
        return std::string();
    };
    EXPECT_EQ(error("/nowhere/marvolin.chm"), "53 File not found: /nowhere/marvolin.chm");
    view.Write("empty.chm", "");
    EXPECT_EQ(error(view.Folder / "empty.chm"), "53 File not found: " + (view.Folder / "empty.chm"));
    EXPECT_FALSE(view.Viewer.isVisible());
    // A folder that goes away later does not take the shown pages along.
    view.Open(10023);
    fs::remove(view.List());
    EXPECT_NE(error(view.List()), "");
    EXPECT_EQ(view.Heading(), "Play");
    view.Press("HelpContents");
    EXPECT_EQ(view.Heading(), "Contents");
}

TEST(HelpViewer, FindsWordsInAllPagesAndMarksThem) {
    Viewed view;
    view.Open(10000);
    view.Search("CLICK");
    EXPECT_THAT(view.Entries(), ElementsAre("[Found on 2 pages]", "Play", "Name"));
    view.Viewer.Go("10025.html");
    EXPECT_EQ(view.Viewer.Text().extraSelections().size(), 2);
    view.Search("click palette");
    EXPECT_THAT(view.Entries(), ElementsAre("[Found on 1 page]", "Name"));
    view.Search("secret");
    EXPECT_THAT(view.Entries(), ElementsAre("[Found on no page]"));
    view.Search("& it");
    EXPECT_THAT(view.Entries(), ElementsAre("[Found on 1 page]", "Play"));
    view.Search("");
    EXPECT_EQ(view.Entries().size(), 6U);
    EXPECT_EQ(view.Viewer.Text().extraSelections().size(), 0);
}

TEST(HelpViewer, ASearchReadsAFewPagesATurnSoThatTheBeatDoesNotWait) {
    test::TempFolder folder;
    std::ofstream list(folder / "marvolin.chm");
    const int count = 4 * HelpSearch::kPagesATurn;
    for (int page = 0; page < count; ++page) {
        const std::string name = std::to_string(page) + ".html";
        list << page + 1 << "\t" << name << "\tPage\tChapter\n";
        std::ofstream(folder / name) << "word";
    }
    list.close();
    const HelpPages pages(folder / "marvolin.chm");
    int found = 0;
    int most = 0;
    bool done = false;
    HelpSearch search(
        pages, [&](const HelpPage&) { ++found; }, [&] { done = true; });
    search.Start("word");
    EXPECT_EQ(found, 0);
    while (!done) {
        const int before = found;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        most = std::max(most, found - before);
    }
    EXPECT_EQ(found, count);
    EXPECT_LE(most, HelpSearch::kPagesATurn);
}

TEST(HelpViewer, TheTextHasASizeWithinItsBounds) {
    Viewed view;
    view.Open(10023);
    const int before = view.Viewer.TextSize();
    view.Press("HelpLarger");
    EXPECT_GT(view.Viewer.TextSize(), before);
    EXPECT_EQ(view.Viewer.Text().document()->defaultFont().pixelSize(), view.Viewer.TextSize());
    for (int i = 0; i < 20; ++i) view.Press("HelpLarger");
    EXPECT_EQ(view.Viewer.TextSize(), HelpViewer::kLargestText);
    for (int i = 0; i < 20; ++i) view.Press("HelpSmaller");
    EXPECT_EQ(view.Viewer.TextSize(), HelpViewer::kSmallestText);
    view.Open(10025);
    EXPECT_EQ(view.Viewer.TextSize(), HelpViewer::kSmallestText);
}

TEST(HelpViewer, EscapeEmptiesTheSearchAndThenCloses) {
    Viewed view;
    view.Open(10023);
    view.Search("click");
    QTest::keyClick(&view.Viewer, Qt::Key_Escape);
    EXPECT_TRUE(view.Viewer.isVisible());
    EXPECT_EQ(view.Find().text(), "");
    QTest::keyClick(&view.Viewer, Qt::Key_Escape);
    EXPECT_FALSE(view.Viewer.isVisible());
}

TEST(HelpViewer, IsWholeOnTheScreenAndBesideTheMainWindowWhereThereIsRoom) {
    Viewed view;
    QWidget main;
    main.setGeometry(0, 0, 60, 60);
    main.show();
    view.Viewer.Open(view.List(), 10023, &main);
    const QRect screen = view.Viewer.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(view.Viewer.geometry()));
    main.setGeometry(0, 0, 790, 790);
    Viewed other;
    other.Viewer.Open(other.List(), 10023, &main);
    EXPECT_TRUE(screen.contains(other.Viewer.geometry()));
}

struct Desk : QtDesktop {
    explicit Desk(std::string folder) : Folder(std::move(folder)) {}
    std::string InstalledFolder() const override { return Folder; }
    std::string Folder;
};

int HelpWindows() {
    const QWidgetList all = QApplication::topLevelWidgets();
    return static_cast<int>(
        std::count_if(all.begin(), all.end(), [](QWidget* window) { return window->objectName() == "frmHelp"; }));
}

TEST(HelpOnTheDesktop, TheViewerIsMadeAtTheFirstQuestionAndClosedByItsTitle) {
    Desk desk(MARVOLIN_FOLDER);
    EXPECT_EQ(HelpWindows(), 0);
    desk.ShowHelpTopic(10023);
    desk.ShowHelpTopic(10026);
    EXPECT_EQ(HelpWindows(), 1);
    desk.CloseWindowTitled(std::string(kHelpTitle));
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        EXPECT_FALSE(window->objectName() == "frmHelp" && window->isVisible());
    }
}

TEST(HelpOnTheDesktop, AMissingFolderRaisesTheErrorThatIsTold) {
    Desk desk("/nowhere");
    EXPECT_THROW(desk.ShowHelpTopic(10023), RuntimeError);
    desk.Folder = MARVOLIN_FOLDER;  // it can be put back while the program runs
    EXPECT_NO_THROW(desk.ShowHelpTopic(10023));
}

TEST(HelpOnTheDesktop, ADialogueThatWaitsDoesNotBlockIt) {
    Desk desk(MARVOLIN_FOLDER);
    QDialog asking;
    asking.setModal(true);
    asking.show();
    desk.ShowHelpTopic(10174);
    QWidget* viewer = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "frmHelp") viewer = window;
    }
    ASSERT_NE(viewer, nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(viewer->windowHandle()->transientParent(), asking.windowHandle());
    auto* find = viewer->findChild<QLineEdit*>("HelpFind");
    QTest::mouseClick(viewer->windowHandle(), Qt::LeftButton, {}, find->mapTo(viewer, find->rect().center()));
    QTest::keyClick(viewer->windowHandle(), Qt::Key_X);
    EXPECT_EQ(find->text(), "x");
}

TEST(HelpOnTheDesktop, EveryPageOfTheProgramOpens) {
    HelpViewer viewer;
    const std::string list = std::string(MARVOLIN_FOLDER) + "/" + std::string(kHelpFile);
    const HelpPages pages(list);
    viewer.Open(list, kHelpContents, nullptr);
    EXPECT_GT(pages.All().size(), 140U);
    for (const HelpPage& page : pages.All()) {
        viewer.Go(page.File);
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();  // laid out and painted
        EXPECT_EQ(viewer.Text().verticalScrollBar()->value(), 0) << page.Title.toStdString();
        EXPECT_NE(viewer.Text().document()->toPlainText().indexOf(page.Chapter), -1) << page.Title.toStdString();
    }
}

void SendLeft(QWidget& view, QEvent::Type type, QPointF place) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, view.mapToGlobal(place), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &event);
}

/// Counts what a text gets.
struct ReleasesOf : QObject {
    explicit ReleasesOf(QObject& view) { view.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonRelease) ++Count;
        return false;
    }
    int Count = 0;
};

TEST(HelpText, ASelectionBeyondTheEdgeWhoseReleaseIsLostEndsWithTheNextTurnOfItsTimer) {
    Viewed view;
    view.Open(10025);
    auto& text = *view.Viewer.findChild<QAbstractScrollArea*>("HelpText");
    ReleasesOf releases(*text.viewport());
    SendLeft(*text.viewport(), QEvent::MouseButtonPress, {5, 5});
    SendLeft(*text.viewport(), QEvent::MouseMove, {5, -60});
    ASSERT_EQ(test::TimersOf(text).size(), 1U);
    test::PassTimers(text);  // no button is down
    EXPECT_EQ(releases.Count, 1);
    EXPECT_TRUE(test::TimersOf(text).empty());
}

TEST(HelpText, ATimerThatIsNotOfAHoldGetsNoRelease) {
    Viewed view;
    view.Open(10025);
    auto& text = *view.Viewer.findChild<QAbstractScrollArea*>("HelpText");
    ReleasesOf releases(*text.viewport());
    const int other = text.startTimer(std::chrono::hours(1));
    test::PassTimers(text);
    EXPECT_EQ(releases.Count, 0) << "nothing has been pressed";
    SendLeft(*text.viewport(), QEvent::MouseButtonPress, {5, 5});
    SendLeft(*text.viewport(), QEvent::MouseButtonRelease, {5, 5});
    test::PassTimers(text);
    EXPECT_EQ(releases.Count, 1) << "its own release alone";
    text.killTimer(other);
}

}  // namespace
}  // namespace marvolin
