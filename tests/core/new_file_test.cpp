#include "core/files/new_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <filesystem>
#include <set>
#include <string>

#include "core/errors.h"
#include "fakes/file_bytes.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

using namespace test;

std::set<std::string> NamesIn(const TempFolder& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        names.insert(entry.path().filename().string());
    return names;
}

TEST(NewFile, TheFileOfTheNameStaysUntilTheNewOneTakesIt) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    NewFile file(folder / "f");
    file.Write("new");
    file.Sync();
    EXPECT_EQ(ReadBytes(folder / "f"), "old");
    file.TakeName();
    EXPECT_EQ(ReadBytes(folder / "f"), "new");
    file.DropReplaced();
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"f"});
}

TEST(NewFile, WithoutTakingItsNameNothingIsLeftOfIt) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    {
        NewFile file(folder / "f");
        file.Write("new");
    }
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"f"});
    EXPECT_EQ(ReadBytes(folder / "f"), "old");
}

TEST(NewFile, TheReplacedFileCanHaveAnotherName) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    WriteBytes(folder / "f~", "older");
    NewFile file(folder / "f");
    file.Write("new");
    file.TakeName();
    file.NameReplaced(folder / "f~");
    EXPECT_EQ(ReadBytes(folder / "f"), "new");
    EXPECT_EQ(ReadBytes(folder / "f~"), "old");
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"f", "f~"}));
}

TEST(NewFile, TheOtherNameMayAlreadyBeOneOfTheReplacedFile) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    std::filesystem::create_hard_link(folder / "f", folder / "f~");
    NewFile file(folder / "f");
    file.Write("new");
    file.TakeName();
    file.NameReplaced(folder / "f~");
    EXPECT_EQ(ReadBytes(folder / "f"), "new");
    EXPECT_EQ(ReadBytes(folder / "f~"), "old");
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"f", "f~"}));
}

TEST(NewFile, UndoGivesTheNameBack) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    NewFile file(folder / "f");
    file.TakeName();
    NewFile first(folder / "g");
    first.TakeName();
    EXPECT_EQ(NamesIn(folder).count("g"), 1U);
    file.Undo();
    first.Undo();
    EXPECT_EQ(ReadBytes(folder / "f"), "old");
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"f"});
}

TEST(NewFile, AFolderOfItsNameStaysAndItsContent) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "f");
    {
        NewFile file(folder / "f");
        EXPECT_THROW(file.TakeName(), RuntimeError);
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder / "f"));
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"f"});
}

TEST(NewFile, TakesOverThePermissionsOfTheFileThatHasTheName) {
    TempFolder folder;
    WriteBytes(folder / "f", "private");
    std::filesystem::permissions(folder / "f", std::filesystem::perms(0600));
    NewFile file(folder / "f");
    file.TakeName();
    EXPECT_EQ(std::filesystem::status(folder / "f").permissions(), std::filesystem::perms(0600));
}

TEST(NewFile, ACopyHasTheContentAndNotThePermissionsOfItsSource) {
    TempFolder folder;
    const std::string big(700000, 'x');
    WriteBytes(folder / "source", big);
    std::filesystem::permissions(folder / "source", std::filesystem::perms(0444));
    NewFile file(folder / "copy");
    file.WriteCopyOf(folder / "source");
    file.TakeName();
    EXPECT_EQ(ReadBytes(folder / "copy"), big);
    EXPECT_NE(std::filesystem::status(folder / "copy").permissions() & std::filesystem::perms::owner_write,
              std::filesystem::perms::none);
}

TEST(NewFile, OnlyPlainFilesAreCopied) {
    TempFolder folder;
    NewFile file(folder / "copy");
    EXPECT_THROW(file.WriteCopyOf(folder.Path()), RuntimeError);
    EXPECT_THROW(file.WriteCopyOf(folder / "none"), RuntimeError);
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_THROW(file.WriteCopyOf(folder / "pipe"), RuntimeError);
}

TEST(NewFile, WhatAKilledProgramLeftIsRemovedAndWhatARunningOneWritesIsNot) {
    TempFolder folder;
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    const std::string left = ".marvolin-" + std::to_string(child) + "-1";
    const std::string running = ".marvolin-" + std::to_string(::getpid()) + "-1";
    for (const std::string& name : {left, running, std::string(".marvolin-x"), std::string("f")})
        WriteBytes(folder / name, "");
    RemoveLeftovers(folder.Path());
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{running, ".marvolin-x", "f"}));
}

}  // namespace
}  // namespace marvolin
