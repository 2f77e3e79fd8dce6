#include "core/files/new_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/files/hidden_names.h"
#include "fakes/file_bytes.h"
#include "fakes/limits.h"
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

TEST(NewFile, CanBecomeAFurtherNameOfAnotherFile) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    WriteBytes(folder / "f~", "older");
    NewFile copy(folder / "f~");
    copy.BecomeNameOf(folder / "f");
    copy.TakeName();
    EXPECT_TRUE(std::filesystem::equivalent(folder / "f", folder / "f~"));
    copy.Undo();
    EXPECT_EQ(ReadBytes(folder / "f~"), "older");
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"f", "f~"}));
}

TEST(NewFile, TheNameMayAlreadyBeOneOfThatFile) {
    for (const bool undo : {false, true}) {
        TempFolder folder;
        WriteBytes(folder / "f", "old");
        std::filesystem::create_hard_link(folder / "f", folder / "f~");
        {
            NewFile copy(folder / "f~");
            copy.BecomeNameOf(folder / "f");
            copy.TakeName();
            if (undo) copy.Undo();
        }
        EXPECT_TRUE(std::filesystem::equivalent(folder / "f", folder / "f~"));
        EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"f", "f~"}));
    }
}

/// Runs `act` in a child process; true when it ends without an error.
bool InChild(const std::function<void()>& act) {
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            act();
        } catch (const RuntimeError&) {
            ::_exit(1);
        }
        ::_exit(0);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(NewFile, WithoutSecondNamesItBecomesACopyWithThePermissions) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    std::filesystem::permissions(folder / "f", std::filesystem::perms(0600));
    ASSERT_TRUE(InChild([&] {
        std::vector<RefusedCall> refused = Links(EPERM);
        refused.push_back({__NR_openat, EOPNOTSUPP, 2, O_TMPFILE & ~O_DIRECTORY});
        RefuseCalls(refused);
        NewFile copy(folder / "f~");
        copy.BecomeNameOf(folder / "f");
        copy.TakeName();
    }));
    EXPECT_EQ(ReadBytes(folder / "f~"), "old");
    EXPECT_EQ(std::filesystem::status(folder / "f~").permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"f", "f~"}));
}

TEST(NewFile, WhereANamelessFileGetsNoNameItsContentIsCopied) {
    TempFolder folder;
    const std::string big(700000, 'x');
    ASSERT_TRUE(InChild([&] {
        RefuseCalls(Links(ENOENT));
        NewFile file(folder / "f");
        file.Write(big);
        file.TakeName();
    }));
    EXPECT_EQ(ReadBytes(folder / "f"), big);
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"f"});
}

TEST(NewFile, WhenUndoFailsTheReplacedFileStaysUnderItsHiddenName) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    ASSERT_TRUE(InChild([&] {
        NewFile file(folder / "f");
        file.Write("new");
        file.TakeName();
        RefuseCalls(Renames(EIO));
        file.Undo();
    }));
    EXPECT_EQ(ReadBytes(folder / "f"), "new");
    const std::set<std::string> names = NamesIn(folder);
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(ReadBytes(folder / *names.begin()), "old");
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

/// The hidden name that a process which has ended leaves.
std::string Leave(const TempFolder& folder) {
    EXPECT_TRUE(InChild([&] {
        RefuseCalls({{__NR_openat, EOPNOTSUPP, 2, O_TMPFILE & ~O_DIRECTORY}});
        NewFile file(folder / "g");
        ::_exit(0);
    }));
    return *NamesIn(folder).begin();
}

TEST(RemoveLeftovers, WhatAKilledProgramLeftIsRemovedAndWhatARunningOneWritesIsNot) {
    TempFolder folder;
    const std::string left = Leave(folder);
    ASSERT_TRUE(left.starts_with(".marvolin-"));
    const std::size_t process = left.find('-', left.find('-', 10) + 1) + 1;
    const std::string running = left.substr(0, process) + std::to_string(::getpid()) + "-1";
    WriteBytes(folder / running, "");
    RemoveLeftovers(folder.Path(), std::time(nullptr));
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{running});
}

TEST(RemoveLeftovers, FilesOfThePlayerStayWhateverTheirAge) {
    TempFolder folder;
    const std::string left = Leave(folder);
    std::set<std::string> names{".marvolin-2024-backup",
                                ".marvolin-2024-1",
                                ".marvolin-x",
                                "f",
                                left + "x",
                                left + "-",
                                left + "-1",
                                "x" + left};
    for (const std::string& name : names) WriteBytes(folder / name, "");
    RemoveLeftovers(folder.Path(), std::time(nullptr) + 1000000);
    EXPECT_EQ(NamesIn(folder), names);
}

TEST(RemoveLeftovers, FilesOfAnotherMachineGoWhenTheyAreOverADayOld) {
    TempFolder folder;
    const std::string left = Leave(folder);
    std::string other = left;
    other[10] = other[10] == 'a' ? 'b' : 'a';
    std::filesystem::rename(folder / left, folder / other);
    // The age of the name counts, not that of the file.
    std::filesystem::last_write_time(folder / other, std::filesystem::file_time_type());
    constexpr std::time_t kHour = 3600;
    RemoveLeftovers(folder.Path(), std::time(nullptr) + 23 * kHour);
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{other});
    RemoveLeftovers(folder.Path(), std::time(nullptr) + 25 * kHour);
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{});
}

TEST(BehindLinks, AreTheFileAlsoOneThatIsNotThereYetAndTheLinkItselfInACircle) {
    TempFolder folder;
    WriteBytes(folder / "f", "");
    std::filesystem::create_symlink("f", folder / "one");
    std::filesystem::create_symlink(folder / "one", folder / "two");
    std::filesystem::create_symlink("none", folder / "broken");
    std::filesystem::create_symlink("circle", folder / "circle");
    EXPECT_EQ(BehindLinks(folder / "f"), folder / "f");
    EXPECT_EQ(BehindLinks(folder / "two"), std::filesystem::canonical(folder / "f").string());
    EXPECT_EQ(BehindLinks(folder / "broken"), folder / "none");
    EXPECT_EQ(BehindLinks(folder / "circle"), folder / "circle");
}

}  // namespace
}  // namespace marvolin
