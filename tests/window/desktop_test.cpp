#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <filesystem>

#include "core/errors.h"
#include "window/toolkit/front_call.h"
#include "window/toolkit/qt_desktop.h"

namespace marvolin {
namespace {

TEST(QtDesktop, TemporaryFilesAreUniqueAndInTheSystemsFolder) {
    QtDesktop desk;
    const std::filesystem::path one = desk.TempFileName("VBN");
    const std::filesystem::path two = desk.TempFileName("VBN");
    EXPECT_NE(one, two);
    EXPECT_TRUE(one.filename().string().starts_with("VBN"));
    EXPECT_TRUE(std::filesystem::exists(one));
    EXPECT_EQ(one.parent_path(), std::filesystem::path(QDir::tempPath().toStdString()));
    std::filesystem::remove(one);
    std::filesystem::remove(two);
}

TEST(QtDesktop, WithoutAFolderForTemporaryFilesTheNameIsEmpty) {
    QtDesktop desk;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/nowhere/at/all");
    EXPECT_EQ(desk.TempFileName("VBN"), "");
    if (before.isNull()) {
        qunsetenv("TMPDIR");
    } else {
        qputenv("TMPDIR", before);
    }
}

TEST(QtDesktop, OnlyTheFirstInstanceGetsTheLock) {
    QTemporaryDir folder;
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    {
        QtDesktop first;
        QtDesktop second;
        EXPECT_TRUE(first.ClaimInstance());
        EXPECT_FALSE(second.ClaimInstance());
    }
    QtDesktop third;
    EXPECT_TRUE(third.ClaimInstance());
    before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
}

/// A folder of its own for locks, in place of the user's.
struct RuntimeFolder {
    QTemporaryDir Folder;
    QByteArray Before = qgetenv("XDG_RUNTIME_DIR");
    RuntimeFolder() { qputenv("XDG_RUNTIME_DIR", Folder.path().toUtf8()); }
    ~RuntimeFolder() { Before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", Before); }
};

TEST(QtDesktop, ASecondStartBringsTheMinimisedWindowOfTheFirstBack) {
    const RuntimeFolder folder;
    QWidget window;
    QtDesktop first;
    first.Attach(&window);
    ASSERT_TRUE(first.ClaimInstance());
    window.showMinimized();
    ASSERT_TRUE(window.isMinimized());
    {
        QtDesktop second;
        EXPECT_FALSE(second.ClaimInstance());
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(window.isVisible());
    first.Attach(nullptr);
}

TEST(QtDesktop, ASecondStartBeforeTheFirstShowsItsWindowChangesNothing) {
    const RuntimeFolder folder;
    QWidget window;
    QtDesktop first;
    ASSERT_TRUE(first.ClaimInstance());
    QtDesktop second;
    EXPECT_FALSE(second.ClaimInstance());
    first.Attach(&window);
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isVisible());
    first.Attach(nullptr);
}

TEST(QtDesktop, TheCallOfASecondStartIsHeardAlsoAfterAFirstOneThatDied) {
    const RuntimeFolder folder;
    const QString path = folder.Folder.filePath("marvolin.front");
    // What a process that died leaves behind.
    const int dead = socket(AF_UNIX, SOCK_DGRAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.toUtf8().constData(), sizeof address.sun_path);
    ASSERT_EQ(bind(dead, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    close(dead);
    QByteArray heard = "nothing";
    const FrontCall call(path, [&](const QByteArray& token) { heard = token; });
    FrontCall::Send(path, "token");
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, "token");
    FrontCall::Send(path, "");
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, "");
    FrontCall::Send(folder.Folder.filePath("nobody"), "token");
}

TEST(QtDesktop, TheBusyPointerIsSetOnceHoweverOftenItIsAskedFor) {
    QtDesktop desk;
    desk.SetBusyPointer(true);
    desk.SetBusyPointer(true);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desk.SetBusyPointer(false);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(QtDesktop, ABoxShowsItsTextWithoutMarkupAndReturnsTheAnswer) {
    QtDesktop desk;
    QString text;
    QString title;
    const auto answer = [&](QMessageBox::StandardButton button) {
        QTimer::singleShot(0, [&text, &title, button] {
            auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            text = box->text();
            title = box->windowTitle();
            box->button(button)->click();
        });
    };
    answer(QMessageBox::Ok);
    EXPECT_TRUE(desk.MessageBox("Error <b>playing</b>", "", BoxStyle::Plain));
    EXPECT_EQ(text, "Error <b>playing</b>");
    EXPECT_EQ(title, "marvolin");
    answer(QMessageBox::Cancel);
    EXPECT_FALSE(desk.MessageBox("Sure?", "Question", BoxStyle::Question));
    EXPECT_EQ(title, "Question");
}

TEST(QtDesktop, ABoxIsShownOverTheActiveDialogueOrFormAndOtherwiseOverTheMainWindow) {
    QtDesktop desk;
    QWidget main;
    main.show();
    desk.Attach(&main);
    QWidget* over = nullptr;
    const auto show = [&] {
        QTimer::singleShot(0, [&over] {
            auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            over = box->parentWidget();
            box->button(QMessageBox::Ok)->click();
        });
        desk.MessageBox("There is no such folder", "", BoxStyle::Plain);
    };
    show();
    EXPECT_EQ(over, &main);
    QDialog dialogue(&main);
    QTimer::singleShot(0, [&] {
        show();
        dialogue.accept();
    });
    dialogue.exec();
    EXPECT_EQ(over, &dialogue);
    for (const char* name : {"frmSave", "frmBrowse", "frmSplash"}) {
        QWidget window;
        window.setObjectName(name);
        window.show();
        window.activateWindow();
        QCoreApplication::processEvents();
        ASSERT_EQ(QApplication::activeWindow(), &window);
        show();
        EXPECT_EQ(over, std::string(name) == "frmSplash" ? &main : &window) << name;
    }
}

TEST(QtDesktop, KnowsTheScreen) {
    QtDesktop desk;
    EXPECT_GT(desk.BitsPerPixel(), 8);
    const PixelRect area = desk.WorkArea();
    EXPECT_GT(area.Right, area.Left);
    EXPECT_EQ(desk.TwipsPerPixelX(), 15);
    EXPECT_GT(desk.TextWidth("a longer text"), desk.TextWidth("a text"));
    EXPECT_EQ(std::filesystem::path(desk.ProgramFolder()),
              std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()));
}

TEST(QtDesktop, TheProgramsFolderIsTheOneThatTheStartUsesAndTheProgramStaysWhereItIs) {
    QtDesktop desk;
    const std::string installed = desk.InstalledFolder();
    EXPECT_EQ(desk.ProgramFolder(), installed);
    desk.UseFolder("/home/player/.local/share/marvolin");
    EXPECT_EQ(desk.ProgramFolder(), "/home/player/.local/share/marvolin");
    EXPECT_EQ(desk.InstalledFolder(), installed);
}

}  // namespace
}  // namespace marvolin
