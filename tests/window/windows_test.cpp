#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>
#include <utility>

#include "stage.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_windows.h"

namespace marvolin {
namespace {

/// Unloads a form during a press on one of its controls, as closing the program during a drag does.
class UnloadAtPress : public QObject {
public:
    UnloadAtPress(QtWindows& windows, Form form) : windows_(windows), form_(form) {}
    int Presses = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::MouseButtonPress) return false;
        ++Presses;
        windows_.Unload(form_);
        return false;
    }

private:
    QtWindows& windows_;
    Form form_;
};

/// The real forms over a session on fakes.
struct FormsOfAProgram : test::Stage {
    FormsOfAProgram() { Windows.Attach(s, {}); }
    QtDisplay Shown;
    QtDesktop Desktop;
    QtWindows Windows{Shown, Desktop};
};

QWidget* Shown(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) return window;
    }
    return nullptr;
}

TEST(Windows, TheFormsAreDeletedBeforeTheSessionThatTheyShow) {
    FormsOfAProgram program;
    QtWindows& windows = program.Windows;
    std::vector<QPointer<QWidget>> shown;
    for (const auto& [form, name] : {std::pair{Form::Browse, "frmBrowse"},
                                     {Form::Save, "frmSave"},
                                     {Form::Splash, "frmSplash"},
                                     {Form::StartUpQuery, "frmStartUpQuery"}}) {
        windows.Show(form);
        shown.emplace_back(Shown(name));
        ASSERT_FALSE(shown.back().isNull()) << name;
    }
    windows.Unload(Form::Splash);
    windows.DropForms();
    for (const QPointer<QWidget>& window : shown) EXPECT_TRUE(window.isNull());
    // Nobody shows anything any more.
    program.Shown.ShowDrivers();
    program.Shown.ShowBin(0);
    windows.DropForms();
}

TEST(Windows, AFormThatIsUnloadedDuringAGestureOnItOutlivesTheGesture) {
    struct Case {
        Form Which;
        const char* Window;
        const char* Pressed;  // "" the window itself
    };
    for (const Case& one : {Case{Form::Browse, "frmBrowse", "PickFile_0"}, Case{Form::Save, "frmSave", "SaveIt"},
                            Case{Form::Splash, "frmSplash", ""}}) {
        SCOPED_TRACE(one.Window);
        test::Stage stage;
        QtDisplay display;
        QtDesktop desktop;
        QPointer<QWidget> pressed;
        {
            QtWindows windows(display, desktop);
            windows.Attach(stage.s, {});
            windows.Show(one.Which);
            QWidget* window = Shown(one.Window);
            ASSERT_NE(window, nullptr);
            pressed = *one.Pressed == 0 ? window : window->findChild<QWidget*>(one.Pressed);
            ASSERT_NE(pressed, nullptr);
            UnloadAtPress unload(windows, one.Which);
            pressed->installEventFilter(&unload);
            QTest::mousePress(pressed, Qt::LeftButton, {}, QPoint(12, 8));
            EXPECT_EQ(unload.Presses, 1);
            ASSERT_NE(pressed, nullptr);
            EXPECT_FALSE(pressed->isVisible());
            EXPECT_EQ(Shown(one.Window), nullptr);
        }
        EXPECT_EQ(pressed, nullptr);  // deleted with the windows
    }
}

TEST(Windows, AFormThatWasUnloadedCanBeShownAgain) {
    FormsOfAProgram program;
    QtWindows& windows = program.Windows;
    for (int i = 0; i < 2; ++i) {
        windows.Show(Form::Browse);
        EXPECT_NE(Shown("frmBrowse"), nullptr);
        windows.AllowBrowserToClose();
        windows.Unload(Form::Browse);
        EXPECT_EQ(Shown("frmBrowse"), nullptr);
    }
}

TEST(Windows, SplashAndStartUpQueryBelongToTheMainWindowSoThatTheyStayInFrontOfIt) {
    FormsOfAProgram program;
    QtWindows& windows = program.Windows;
    windows.Show(Form::Main);
    for (const auto& [form, name] : {std::pair{Form::Splash, "frmSplash"}, {Form::StartUpQuery, "frmStartUpQuery"}}) {
        windows.Show(form);
        ASSERT_NE(Shown(name), nullptr) << name;
        EXPECT_EQ(Shown(name)->windowHandle()->transientParent(), windows.Main()->windowHandle()) << name;
    }
    windows.Show(Form::Browse);
    EXPECT_EQ(Shown("frmBrowse")->windowHandle()->transientParent(), nullptr) << "may be behind the main window";
}

TEST(Windows, ClosingTheMainWindowEndsTheProgramAlthoughAnotherWindowRefusesToClose) {
    struct Stubborn : QWidget {
        void closeEvent(QCloseEvent* event) override { event->ignore(); }
    };
    FormsOfAProgram program;
    QtWindows& windows = program.Windows;
    windows.Show(Form::Main);
    Stubborn other;
    other.show();
    bool late = false;
    QTimer::singleShot(0, windows.Main(), [&] { windows.Main()->close(); });
    QTimer::singleShot(5000, &other, [&] {
        late = true;
        QCoreApplication::exit();
    });
    QApplication::exec();
    EXPECT_TRUE(windows.Ended());
    EXPECT_FALSE(late);
}

}  // namespace
}  // namespace marvolin
