#include <gtest/gtest.h>

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

}  // namespace
}  // namespace marvolin
