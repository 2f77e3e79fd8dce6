#include "window/screens/window_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace marvolin {
namespace {

struct WindowFile : testing::Test {
    QTemporaryDir Folder;
    QString Path = Folder.filePath("marvolin.windows");

    WindowRecord Read(const QByteArray& bytes) {
        QFile file(Path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return ReadWindowFile(Path);
    }
};

TEST_F(WindowFile, BringsBackWhatWasWritten) {
    const WindowRecord record{125, true, {{"frmMain", {{-30, 12}, {1040, 740}}}, {"frmBrowse", {{0, 20}, {780, 520}}}}};
    ASSERT_TRUE(WriteWindowFile(Path, record));
    EXPECT_EQ(ReadWindowFile(Path), record);
    ASSERT_TRUE(WriteWindowFile(Path, {}));
    EXPECT_EQ(ReadWindowFile(Path), WindowRecord{});
}

TEST_F(WindowFile, HeadphonesAreRemembered) {
    const WindowRecord record{.Places = {{"frmMain", {{1, 2}, {300, 400}}}}, .Headphones = true};
    ASSERT_TRUE(WriteWindowFile(Path, record));
    EXPECT_EQ(ReadWindowFile(Path), record);
    EXPECT_TRUE(Read("marvolin windows 1\nheadphones 1\n").Headphones);
    for (const char* line : {"headphones 0", "headphones", "headphones on", "headphones 1 1"}) {
        EXPECT_EQ(Read(QByteArray("marvolin windows 1\n") + line + "\n"), WindowRecord{}) << line;
    }
}

TEST_F(WindowFile, WithoutItNothingIsKnown) { EXPECT_EQ(ReadWindowFile(Path), WindowRecord{}); }

TEST_F(WindowFile, AnotherFileIsNotRead) {
    EXPECT_EQ(Read("size 125\nfrmMain 1 2 300 400\n"), WindowRecord{});
    EXPECT_EQ(Read("marvolin windows 2\nsize 125\n"), WindowRecord{});
    EXPECT_EQ(Read(QByteArray("marvolin windows 1\nsize 125\n") + QByteArray(5000, 'x')), WindowRecord{});
    EXPECT_EQ(Read(QByteArray(300, '\0')), WindowRecord{});
    EXPECT_EQ(Read(""), WindowRecord{});
    EXPECT_EQ(ReadWindowFile(Folder.path()), WindowRecord{}) << "a folder";
}

TEST_F(WindowFile, ASizeThatCannotBeChosenIsLeftOut) {
    for (const char* size : {"0", "-100", "101", "1000", "99999999999", "x", "", "125 125"}) {
        EXPECT_EQ(Read(QByteArray("marvolin windows 1\nsize ") + size + "\n").Size, 0) << size;
    }
    EXPECT_EQ(Read("marvolin windows 1\nsize 175\n").Size, 175);
}

TEST_F(WindowFile, OnlyElementsThatAreUnfoldedAreWritten) {
    EXPECT_TRUE(Read("marvolin windows 1\nelements 1\n").Elements);
    for (const char* value : {"0", "2", "-1", "yes", "", "1 1"}) {
        EXPECT_FALSE(Read(QByteArray("marvolin windows 1\nelements ") + value + "\n").Elements) << value;
    }
    ASSERT_TRUE(WriteWindowFile(Path, {}));
    QFile file(Path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("marvolin windows 1\n"));
}

TEST_F(WindowFile, APlaceThatCannotBeMeantIsLeftOutAndTheOthersStay) {
    for (const char* place : {"1 2 3", "1 2 300 400 5", "a 2 300 400", "1 2 300 0", "1 2 -300 400", "100000 2 300 400",
                              "1 -100000 300 400", "1 2 300 20001", "1 2 49 400", "1e3 2 300 400"}) {
        const WindowRecord read =
            Read(QByteArray("marvolin windows 1\nfrmMain ") + place + "\nsize 80\nfrmHelp 7 8 300 400\n");
        EXPECT_EQ(read, (WindowRecord{80, false, {{"frmHelp", {{7, 8}, {300, 400}}}}})) << place;
    }
}

TEST_F(WindowFile, AWindowThatFilledTheScreenIsKeptSo) {
    const WindowRecord record{0, false, {{"frmHelp", {{7, 8}, {300, 400}, true}}, {"frmMain", {{1, 2}, {300, 400}}}}};
    ASSERT_TRUE(WriteWindowFile(Path, record));
    EXPECT_EQ(ReadWindowFile(Path), record);
    EXPECT_EQ(Read("marvolin windows 1\nfrmHelp 7 8 300 400 maximal\nfrmMain 1 2 maximised\n"), WindowRecord{});
}

TEST_F(WindowFile, AFolderThatCannotBeWrittenIsNoError) {
    EXPECT_FALSE(WriteWindowFile(Folder.filePath("nowhere/marvolin.windows"), {}));
    EXPECT_FALSE(WriteWindowFile(Folder.path(), {})) << "the name is a folder's";
}

TEST_F(WindowFile, NothingElseIsLeftInTheFolder) {
    ASSERT_TRUE(WriteWindowFile(Path, {100, false, {}}));
    ASSERT_TRUE(WriteWindowFile(Path, {110, false, {}}));
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"marvolin.windows"});
}

}  // namespace
}  // namespace marvolin
