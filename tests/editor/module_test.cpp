#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>
#include <filesystem>

#include "editor_stage.h"
#include "window/controls/text_button.h"
#include "window/editor/code_view_module.h"
#include "window/forms/frm_main.h"
#include "window/forms/toolbar.h"
#include "window/painted_texts.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_display.h"
#include "window/toolkit/qt_windows.h"

namespace marvolin {
namespace {

using test::ScriptRig;
using testing::HasSubstr;
using testing::IsEmpty;

/// A desktop whose program lies in a folder of the test's choice.
struct InstalledDesktop : QtDesktop {
    std::string InstalledFolder() const override { return Folder; }
    std::string Folder = MARVOLIN_FOLDER;
};

/// The program's windows, with the folder of the build as the program's.
struct Program : ScriptRig {
    Program() {
        Desk.Folder = MARVOLIN_FOLDER;
        s.OpenDriver = 0;
        s.Drivers = {"Primary Sound Driver"};
        Windows.AttachScripts(Room);
    }
    ~Program() {
        Windows.DropForms();
        // A program that has ended opens no dialogue; the next test is another program.
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        QCoreApplication::exec();
    }
    FrmMain& Main() {
        if (Windows.Main() == nullptr) {
            Windows.Attach(
                s, {.Activate = [] {}, .Unload = [this] { ++Unloads; }, .KeyUp = {}, .SoundLoad = {}, .SoundGone = {}});
            Windows.Show(Form::Main);
            Settle();
        }
        return *Windows.Main();
    }
    QWidget& Button() { return *Main().Bar->Scripts; }
    /// The hint of the status line when the pointer comes over the button.
    std::string Hint() {
        s.StatusText.clear();
        QTest::mouseMove(Main().windowHandle(), QPoint(4, Main().height() - 4));
        Settle();
        QTest::mouseMove(Main().windowHandle(), Button().mapTo(&Main(), Button().rect().center()));
        Settle();
        return s.StatusText;
    }
    void ClickScripts() {
        const QPoint place = Button().mapTo(&Main(), Button().rect().center());
        QTest::mouseClick(Main().windowHandle(), Qt::LeftButton, {}, place);
        Settle();
    }
    static void Settle() {
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    }
    int Unloads = 0;
    QtDisplay Shown;
    InstalledDesktop Desktop;
    QtWindows Windows{Shown, Desktop};
};

TEST(Scripts, AClickOpensTheWindowAndAnotherBringsItBack) {
    Program program;
    EXPECT_EQ(program.Button().toolTip(), "Open Scripting");
    program.Main();
    EXPECT_EQ(program.Windows.Scripts(), nullptr);
    program.ClickScripts();
    ASSERT_NE(program.Windows.Scripts(), nullptr);
    EXPECT_TRUE(program.Windows.Scripts()->isVisible());
    EXPECT_THAT(program.Desk.Boxes, IsEmpty());
    program.Windows.Scripts()->close();
    EXPECT_FALSE(program.Windows.Scripts()->isVisible());
    const QWidget* first = program.Windows.Scripts();
    program.ClickScripts();
    EXPECT_EQ(program.Windows.Scripts(), first);
    EXPECT_TRUE(first->isVisible());
}

TEST(Scripts, WithoutTheModuleThePlayerIsToldAndMayTryAgain) {
    Program program;
    const test::TempFolder folder;
    program.Desk.Folder = program.Desktop.Folder = folder.Path();
    program.ClickScripts();
    EXPECT_EQ(program.Windows.Scripts(), nullptr);
    ASSERT_EQ(program.Desk.Boxes.size(), 1U);
    EXPECT_FALSE(program.Desk.Boxes[0].Waits);
    EXPECT_EQ(program.Desk.LastBox(),
              "The window of scripts cannot be opened. It needs the package libqscintilla2-qt6-15.\nThere is no file " +
                  folder.In(kCodeViewModule));
    std::filesystem::copy_file(std::string(MARVOLIN_FOLDER) + "/" + kCodeViewModule, folder / kCodeViewModule);
    program.ClickScripts();
    EXPECT_NE(program.Windows.Scripts(), nullptr);
}

TEST(Scripts, AFileThatIsNoModuleIsToldToo) {
    const test::TempFolder folder;
    folder.Touch(kCodeViewModule, "text");
    std::string error;
    EXPECT_EQ(LoadCodeView(folder.Path(), error), nullptr);
    EXPECT_THAT(error, HasSubstr(kCodeViewModule));
}

TEST(Scripts, AModuleOfAnotherMakeIsNotUsed) {
    // Any plugin of the toolkit is one.
    const test::TempFolder folder;
    std::filesystem::path other;
    for (const QString& path : QCoreApplication::libraryPaths()) {
        const std::filesystem::path found = path.toStdString() + "/platforms/libqoffscreen.so";
        if (std::filesystem::exists(found)) other = found;
    }
    ASSERT_FALSE(other.empty());
    std::filesystem::copy_file(other, folder / kCodeViewModule);
    std::string error;
    EXPECT_EQ(LoadCodeView(folder.Path(), error), nullptr);
    EXPECT_EQ(error, folder.In(kCodeViewModule) + " belongs to another version of the program");
}

TEST(Scripts, WithoutAnEngineTheButtonIsDisabledAndItsHintSaysWhatToInstall) {
    Program program;
    program.s.ScriptAvailable = false;
    QWidget& button = program.Button();
    EXPECT_FALSE(button.isEnabled());
    EXPECT_EQ(program.Hint(), "Scripts need Lua 5.4: install the package liblua5.4-0");
    program.ClickScripts();
    EXPECT_EQ(program.Windows.Scripts(), nullptr);
}

TEST(Scripts, WithAnEngineTheHintSaysWhatAClickDoes) {
    Program program;
    QWidget& button = program.Button();
    EXPECT_TRUE(button.isEnabled());
    EXPECT_EQ(program.Hint(), "clk Open Scripting");
}

TEST(Scripts, TheMainWindowShowsThatAScriptRunsAndWhich) {
    Program program;
    FrmMain& main = program.Main();
    const auto texts = [&] { return test::PaintedTexts(*main.Status2); };
    const QImage dark = program.Button().grab().toImage();
    EXPECT_THAT(texts(), testing::Not(testing::Contains(testing::StartsWith("script"))));
    program.Room.Run("function OnClock() end", "song.mvs");
    Program::Settle();
    EXPECT_THAT(texts(), testing::Contains("script song.mvs"));
    EXPECT_NE(program.Button().grab().toImage(), dark);
    program.Room.Stop();
    EXPECT_THAT(texts(), testing::Not(testing::Contains(testing::StartsWith("script"))));
    EXPECT_EQ(program.Button().grab().toImage(), dark);
}

TEST(Scripts, AScriptThatEndsItselfIsNoLongerShown) {
    Program program;
    program.Main();
    program.Room.Run("function OnClock() marvolin.stop_script() end", "song.mvs");
    program.Tick();
    EXPECT_THAT(test::PaintedTexts(*program.Main().Status2),
                testing::Not(testing::Contains(testing::StartsWith("script"))));
}

TEST(Scripts, TheProgramAsksAboutATextThatIsNotSavedBeforeItEnds) {
    Program program;
    program.ClickScripts();
    FrmScripts& window = *program.Windows.Scripts();
    QTest::keyClicks(&window.View->Widget(), "x = 1");
    int asked = 0;
    const char* answer = "BoxCancel";
    QTimer hand;
    hand.callOnTimeout([&] {
        if (auto* box = QApplication::activeModalWidget()) {
            ++asked;
            box->findChild<QAbstractButton*>(answer)->click();
        }
    });
    hand.start(0);
    program.Main().close();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(program.Unloads, 0);
    EXPECT_TRUE(program.Main().isVisible());
    answer = "BoxDiscard";
    program.Main().close();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(program.Unloads, 1);
    EXPECT_FALSE(window.isVisible());
}

TEST(Scripts, ATextThatIsSavedHoldsNothingUp) {
    Program program;
    program.ClickScripts();
    program.Main().close();
    EXPECT_EQ(program.Unloads, 1);
}

TEST(Scripts, AReportStaysInFrontOfTheWindowOfScripts) {
    Program program;
    program.ClickScripts();
    program.Windows.Scripts()->activateWindow();
    Program::Settle();
    program.Desktop.Report("Error in code for song.mvs");
    const QWidget* box = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == "MessageBox") box = window;
    }
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowHandle()->transientParent(), program.Windows.Scripts()->windowHandle());
}

TEST(Scripts, TheWindowGoesBeforeTheSession) {
    QPointer<QWidget> window;
    {
        Program program;
        program.ClickScripts();
        window = program.Windows.Scripts();
        program.Room.Run("function OnClock() end", "song.mvs");
    }
    EXPECT_TRUE(window.isNull());
}

}  // namespace
}  // namespace marvolin
