#include <gtest/gtest.h>

#include <QListWidget>
#include <QScreen>
#include <QWindow>

#include "stage.h"
#include "window/forms/frm_browse.h"
#include "window/screens/fitting.h"
#include "window/screens/toolkit_scale.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_windows.h"

namespace marvolin {
namespace {

using test::Stage;

/// Counts what a window of the desktop goes through.
class NativeWatch : public QObject {
public:
    explicit NativeWatch(QWidget& window) : window_(window) { qApp->installEventFilter(this); }
    ~NativeWatch() override { qApp->removeEventFilter(this); }
    int Changes = 0;  ///< times it was hidden, shown, or made anew

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto type = event->type();
        const bool counts = type == QEvent::Hide || type == QEvent::Show || type == QEvent::WinIdChange ||
                            type == QEvent::PlatformSurface;
        if (counts && (object == &window_ || object == window_.windowHandle())) ++Changes;
        return false;
    }

private:
    QWidget& window_;
};

/// The forms of the program over a session on fakes.
struct Forms : test::Stage {
    Forms() {
        Windows.Attach(s, {});
        Windows.Show(Form::Main);
        Settle();
    }
    FrmMain& Main() { return *Windows.Main(); }
    static QWidget* Browser() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "frmBrowse") return window;
        }
        return nullptr;
    }
    void SetState(Qt::WindowState state) {
        Main().setWindowState(state);
        Settle();
    }
    QtDisplay Shown;
    QtDesktop Desktop;
    QtWindows Windows{Shown, Desktop};
};

TEST(ToTop, TheNativeWindowStaysTheSameAndIsNeverHidden) {
    Stage stage;
    const WId id = stage.Form->winId();
    const QWindow* native = stage.Form->windowHandle();
    NativeWatch watch(*stage.Form);
    for (int i = 0; i < 3; ++i) {
        stage.Click("ToTop");
        stage.Settle();
        EXPECT_EQ(stage.Form->winId(), id);
        EXPECT_EQ(stage.Form->windowHandle(), native);
    }
    EXPECT_EQ(watch.Changes, 0);
}

TEST(ToTop, MiniIsTheStripWithBothStatusBarsAtItsLowerEdge) {
    Stage stage;
    const int regular = stage.Form->height();
    stage.Click("ToTop");
    const QWidget* last = stage.At("LoopRow_4");
    const QWidget* hints = stage.At("StatusBar1");
    const QWidget* second = stage.At("StatusBar2");
    EXPECT_LE(last->geometry().bottom(), hints->geometry().top());
    EXPECT_LT(hints->geometry().top() - last->geometry().bottom(), 8);
    EXPECT_EQ(hints->geometry().bottom() + 1, second->geometry().top());
    EXPECT_EQ(second->geometry().bottom() + 1, stage.Form->height());
    EXPECT_TRUE(stage.s.MiniMode);

    stage.Click("ToTop");
    EXPECT_FALSE(stage.s.MiniMode);
    EXPECT_EQ(stage.Form->size(), FrmMain::RegularSize());
    EXPECT_EQ(stage.Form->height(), regular);
    EXPECT_LE(stage.At("TabControl")->geometry().bottom(), stage.At("StatusBar1")->geometry().top());
    EXPECT_EQ(stage.At("StatusBar2")->geometry().bottom() + 1, regular);
}

TEST(ToTop, TheWindowManagerIsAskedToKeepMiniInFrontAndRegularNoMore) {
    Stage stage;
    const QWindow& native = *stage.Form->windowHandle();
    EXPECT_FALSE(native.flags().testFlag(Qt::WindowStaysOnTopHint));
    stage.Click("ToTop");
    EXPECT_TRUE(native.flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(stage.Form->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    stage.Click("ToTop");
    EXPECT_FALSE(native.flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(stage.Form->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

/// Shows the main window, and lets something that is no window of the program have the keyboard then.
struct Unmanaged : Forms {
    explicit Unmanaged(bool firstActivate) {
        Main().hide();
        s.FirstActivate = firstActivate;
        Main().show();
        Settle();
        Other.resize(50, 50);
        Other.show();
        Other.requestActivate();
        Settle();
        EXPECT_EQ(QApplication::activeWindow(), nullptr);
    }
    bool TakesTheKeyboard() {
        return QTest::qWaitFor([this] { return QApplication::activeWindow() == &Main(); }, 2500);
    }
    QWindow Other;
};

TEST(Start, AMainWindowThatNoWindowManagerActivatesTakesTheKeyboardItself) {
    EXPECT_TRUE(Unmanaged(true).TakesTheKeyboard());
}

TEST(Start, OnceTheStartIsDoneTheMainWindowTakesNoKeyboard) { EXPECT_FALSE(Unmanaged(false).TakesTheKeyboard()); }

// The desktop of the tests has no topmost windows, as some managers have none.
TEST(ToTop, AManagerWithoutTopmostLeavesAStripThatWorksAndComesBack) {
    Forms program;
    program.Windows.Show(Form::Browse);
    QWidget& browser = *Forms::Browser();
    browser.raise();
    QApplication::setActiveWindow(&browser);
    QTest::mouseClick(program.Main().findChild<QWidget*>("ToTop"), Qt::LeftButton);
    EXPECT_TRUE(program.s.MiniMode);
    EXPECT_LT(program.Main().height(), FrmMain::RegularSize().height());
    program.s.Run[1].Loaded = True;
    QTest::mouseClick(program.Main().findChild<QWidget*>("Selected_1"), Qt::LeftButton);
    EXPECT_NE(program.s.Set[1].Selected, False);
    EXPECT_TRUE(browser.isVisible());
    QTest::mouseClick(program.Main().findChild<QWidget*>("ToTop"), Qt::LeftButton);
    EXPECT_FALSE(program.s.MiniMode);
    EXPECT_EQ(program.Main().height(), FrmMain::RegularSize().height());
    EXPECT_EQ(QApplication::activeWindow(), &browser) << "nothing asks for the keyboard";
}

TEST(ToTop, AWindowThatIsNotShownYetComesUpTopmost) {
    Stage stage;
    FrmMain other(stage.s, {});
    other.ToggleMode();
    other.show();
    stage.Settle();
    EXPECT_TRUE(other.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_LT(other.height(), FrmMain::RegularSize().height());
}

TEST(ToTop, RegularMovesUpWhereItWouldEndBelowTheScreenAndMiniGoesBackDown) {
    Stage stage;
    const QRect area = stage.Form->screen()->availableGeometry();
    stage.Click("ToTop");
    const QPoint low(20, area.top() + area.height() - stage.Form->frameGeometry().height());
    stage.Form->move(low);
    stage.Settle();
    ASSERT_EQ(stage.Form->pos(), low);
    stage.Click("ToTop");
    stage.Settle();
    EXPECT_EQ(stage.Form->pos().x(), 20);
    EXPECT_EQ(stage.Form->frameGeometry().bottom(), area.bottom());
    stage.Click("ToTop");
    stage.Settle();
    EXPECT_EQ(stage.Form->pos(), low);
}

TEST(ToTop, AWindowThatThePlayerHasMovedStaysThereInMini) {
    Stage stage;
    stage.Click("ToTop");
    stage.Form->move(20, 500);
    stage.Settle();
    stage.Click("ToTop");
    stage.Form->move(30, 10);
    stage.Settle();
    stage.Click("ToTop");
    stage.Settle();
    EXPECT_EQ(stage.Form->pos(), QPoint(30, 10));
}

TEST(ToTop, TheWayBackIsFoundBelowAHundredToo) {
    Stage stage;
    ReopenWindows([] { ASSERT_TRUE(ScaleToolkit(0.75)); });
    const QRect area = stage.Form->screen()->availableGeometry();
    for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE(i);
        stage.Form->ToggleMode();
        const QPoint low(20 + i, area.top() + area.height() - stage.Form->frameGeometry().height() - i);
        stage.Form->move(low);
        stage.Settle();
        stage.Form->ToggleMode();
        stage.Settle();
        stage.Form->move(stage.Form->pos() - QPoint(i % 2, 1));  // as a desktop rounds the place that it tells
        stage.Settle();
        stage.Form->ToggleMode();
        stage.Settle();
        EXPECT_TRUE(IsSamePlace(stage.Form->pos(), low)) << stage.Form->pos().y() << " " << low.y();
        stage.Form->ToggleMode();
    }
    ReopenWindows([] { ScaleToolkit(1); });
}

TEST(FormResize, TheBrowserIsMinimisedAndRestoredWithTheMainWindow) {
    Forms forms;
    forms.Windows.Show(Form::Browse);
    forms.Settle();
    forms.SetState(Qt::WindowMinimized);
    EXPECT_TRUE(Forms::Browser()->isMinimized());
    forms.SetState(Qt::WindowNoState);
    EXPECT_FALSE(Forms::Browser()->isMinimized());
    EXPECT_TRUE(Forms::Browser()->isVisible());
}

TEST(FormResize, TheStateOfTheLastResizeDecidesWhatIsAChange) {
    Forms forms;
    forms.Windows.Show(Form::Browse);
    forms.SetState(Qt::WindowMinimized);
    Forms::Browser()->setWindowState(Qt::WindowNoState);
    QWindowStateChangeEvent again(Qt::WindowMinimized);
    QApplication::sendEvent(&forms.Main(), &again);
    EXPECT_FALSE(Forms::Browser()->isMinimized());
}

TEST(FormResize, AMaximisedMainWindowLeavesTheBrowserAsItIs) {
    Forms forms;
    forms.Windows.Show(Form::Browse);
    forms.SetState(Qt::WindowMaximized);
    EXPECT_FALSE(Forms::Browser()->isMaximized());
    forms.SetState(Qt::WindowMinimized);
    EXPECT_TRUE(Forms::Browser()->isMinimized());
    // Back from the taskbar to maximised: the browser keeps what it has.
    forms.SetState(Qt::WindowMaximized);
    EXPECT_TRUE(Forms::Browser()->isMinimized());
    forms.SetState(Qt::WindowNoState);
    EXPECT_FALSE(Forms::Browser()->isMinimized());
}

TEST(FormResize, ABrowserThatIsNotLoadedStaysUnloaded) {
    Forms forms;
    ASSERT_EQ(Forms::Browser(), nullptr);
    forms.SetState(Qt::WindowMinimized);
    forms.SetState(Qt::WindowNoState);
    EXPECT_EQ(Forms::Browser(), nullptr);
}

TEST(FormResize, ABrowserThatThePlayerHasClosedStaysClosed) {
    Forms forms;
    forms.Windows.Show(Form::Browse);
    Forms::Browser()->close();
    forms.SetState(Qt::WindowMinimized);
    forms.SetState(Qt::WindowNoState);
    EXPECT_FALSE(Forms::Browser()->isVisible());
    forms.Windows.Show(Form::Browse);
    EXPECT_TRUE(Forms::Browser()->isVisible());
    EXPECT_FALSE(Forms::Browser()->isMinimized());
}

TEST(FormResize, TheBrowserDoesNotCarryTheMainWindowAlong) {
    Forms forms;
    forms.Windows.Show(Form::Browse);
    Forms::Browser()->setWindowState(Qt::WindowMinimized);
    forms.Settle();
    EXPECT_FALSE(forms.Main().isMinimized());
}

TEST(Mini, TheListsOfRulesAndOfSetsOpenOverItsEdge) {
    Stage stage;
    const QRect area = stage.Form->screen()->availableGeometry();
    stage.Click("ToTop");
    stage.Form->move(0, area.bottom() - stage.Form->height());
    stage.Settle();
    for (int i = 0; i < 20; ++i) stage.s.QuickLoadRows.push_back("set " + std::to_string(i));
    stage.Form->ShowQuickLoad(true);
    stage.Form->ShowSelectList(true);
    for (const char* name : {"QuickLoad", "SlctGroup"}) {
        const auto* list = stage.Form->findChild<QListWidget*>(name);
        ASSERT_NE(list, nullptr) << name;
        EXPECT_TRUE(list->isWindow()) << name;
        // The platform of the tests gives lists a frame of two pixels.
        EXPECT_TRUE(area.adjusted(0, 0, 4, 4).contains(list->frameGeometry())) << name;
        EXPECT_GE(list->height(), 10 * list->sizeHintForRow(0)) << name;
    }
}

}  // namespace
}  // namespace marvolin
