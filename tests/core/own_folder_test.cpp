#include "core/files/own_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "core/files/file_list.h"
#include "fakes/file_bytes.h"
#include "fakes/limits.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;
using test::FullDisk;
using test::OrdinaryUser;
using test::ReadBytes;
using test::TempFolder;
using test::WriteBytes;

/// A system on which the program is installed, and a player with a folder of their own.
struct System {
    TempFolder Root;
    std::string Installed = Root / "lib/marvolin";
    std::string Own = Root / "home/.local/share/marvolin";

    System() {
        Come("startup.mvp", "demo");
        Come("Samples/Bass/deep.wav", "bass");
        Come("Samples/Beats/slow.wav", "beat");
        Come("Scripts/walk.mvs", "walk");
        WriteBytes(Installed + "/marvolin", "program");
        WriteBytes(Installed + "/marvolin-editor.so", "module");
        fs::create_directory(Installed + "/Help");
        WriteBytes(Installed + "/Help/marvolin.chm", "help");
        Pack();
    }
    ~System() { Protect(true); }

    /// Puts a file among those that come with the program.
    void Come(const std::string& name, const std::string& content) const {
        fs::create_directories(fs::path(Installed + "/" + name).parent_path());
        WriteBytes(Installed + "/" + name, content);
    }
    /// Lists what comes, as a package does when it is made, and takes the right to write there.
    void Pack() const {
        Protect(true);
        WriteBytes(Installed + "/marvolin.files", ListText(ListFolder(Installed)));
        Protect(false);
    }
    void Protect(bool writable) const { ::chmod(Installed.c_str(), writable ? 0755 : 0555); }
    ProgramFolders Start() const { return PrepareFolders(Installed, Own); }
    std::string OfPlayer(const std::string& name) const { return ReadBytes(Own + "/" + name); }
    bool Has(const std::string& name) const { return fs::exists(Own + "/" + name); }
    std::set<std::string> NamesOfPlayer() const {
        std::set<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(Own)) {
            if (entry.is_regular_file()) names.insert(entry.path().lexically_relative(Own).string());
        }
        return names;
    }
};

TEST(PlayersFolder, IsInTheFolderOfDataOrElseAtHome) {
    EXPECT_EQ(PlayersFolder("/data", "/home/p"), "/data/marvolin");
    EXPECT_EQ(PlayersFolder(nullptr, "/home/p"), "/home/p/.local/share/marvolin");
    EXPECT_EQ(PlayersFolder("", "/home/p"), "/home/p/.local/share/marvolin");
    EXPECT_EQ(PlayersFolder("no/whole/path", "/home/p"), "/home/p/.local/share/marvolin");
    EXPECT_EQ(PlayersFolder(nullptr, nullptr), "");
    EXPECT_EQ(PlayersFolder(nullptr, ""), "");
}

TEST(PrepareFolders, ACopyThatCanWriteItsFolderKeepsEverythingInIt) {
    const System system;
    fs::remove(system.Installed + "/marvolin.files");
    system.Protect(true);
    const ProgramFolders folders = system.Start();
    EXPECT_EQ(folders.Own, system.Installed);
    EXPECT_EQ(folders.Installed, system.Installed);
    EXPECT_EQ(folders.Trouble, "");
    EXPECT_FALSE(fs::exists(system.Root / "home"));
}

TEST(IsSelfContained, AnInstalledCopyThatThePlayerMayWriteIsTheirOwn) {
    const System system;
    fs::permissions(system.Root.Path(), fs::perms::all);
    ASSERT_EQ(::chmod(system.Installed.c_str(), 0777), 0);
    std::unique_ptr<OrdinaryUser> user;
    if (::geteuid() == 0) user = std::make_unique<OrdinaryUser>();
    EXPECT_TRUE(IsSelfContained(system.Installed));
}

TEST(IsSelfContained, TheSuperuserAloneDoesNotWriteIntoACopyWithAList) {
    const System system;
    system.Protect(true);
    const bool superuser = ::geteuid() == 0;
    EXPECT_EQ(IsSelfContained(system.Installed), !superuser);
    fs::remove(system.Installed + "/marvolin.files");
    EXPECT_TRUE(IsSelfContained(system.Installed));
}

TEST(PrepareFolders, TheFirstStartFillsTheFolderOfThePlayerAlone) {
    const System system;
    const ProgramFolders folders = system.Start();
    EXPECT_EQ(folders.Own, system.Own);
    EXPECT_EQ(folders.Installed, system.Installed);
    EXPECT_EQ(folders.Trouble, "");
    EXPECT_EQ(system.NamesOfPlayer(), (std::set<std::string>{"Samples/Bass/deep.wav", "Samples/Beats/slow.wav",
                                                             "Scripts/walk.mvs", "marvolin.files", "startup.mvp"}));
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav"), "bass");
    struct stat state {};
    ASSERT_EQ(::stat(system.Own.c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0700U);
}

TEST(PrepareFolders, WhatIsLaidCanBeWrittenAlthoughItCouldNotBeBefore) {
    const System system;
    ASSERT_EQ(::chmod((system.Installed + "/startup.mvp").c_str(), 0444), 0);
    system.Start();
    struct stat state {};
    ASSERT_EQ(::stat((system.Own + "/startup.mvp").c_str(), &state), 0);
    EXPECT_NE(state.st_mode & S_IWUSR, 0U);
}

TEST(PrepareFolders, AFolderThatIsFilledIsNotReadAgain) {
    const System system;
    system.Start();
    const auto times = [&] {
        struct stat state {};
        EXPECT_EQ(::stat((system.Own + "/marvolin.files").c_str(), &state), 0);
        return state.st_ino;
    };
    const auto before = times();
    // Were the list compared file by file, this would be found.
    system.Protect(true);
    system.Come("Samples/Bass/new.wav", "not in the list");
    system.Protect(false);
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_EQ(times(), before);
    EXPECT_FALSE(system.Has("Samples/Bass/new.wav"));
}

TEST(PrepareFolders, WhatThePlayerHasRenamedOrRemovedDoesNotComeBack) {
    const System system;
    system.Start();
    fs::rename(system.Own + "/startup.mvp", system.Own + "/disabledstartup.mvp");
    fs::remove(system.Own + "/Scripts/walk.mvs");
    system.Come("startup.mvp", "a better demo");
    system.Come("Scripts/walk.mvs", "a better walk");
    for (int version = 0; version < 3; ++version) {
        system.Come("Samples/Bass/deep.wav", "bass of " + std::to_string(version));
        system.Pack();
        EXPECT_EQ(system.Start().Trouble, "");
        EXPECT_FALSE(system.Has("startup.mvp"));
        EXPECT_FALSE(system.Has("Scripts/walk.mvs"));
    }
    EXPECT_EQ(system.OfPlayer("disabledstartup.mvp"), "demo");
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav"), "bass of 2");
}

TEST(PrepareFolders, AnUpgradeRenewsWhatIsAsItWasLaidAndLeavesWhatThePlayerHasChanged) {
    const System system;
    system.Start();
    WriteBytes(system.Own + "/Scripts/walk.mvs", "my walk");
    WriteBytes(system.Own + "/preferences.mvn", "mine");
    system.Come("Scripts/walk.mvs", "a better walk");
    system.Come("Samples/Bass/deep.wav", "a better bass");
    system.Come("Samples/Tones/new.wav", "new");
    system.Pack();
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_EQ(system.OfPlayer("Scripts/walk.mvs"), "my walk");
    EXPECT_EQ(system.OfPlayer("preferences.mvn"), "mine");
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav"), "a better bass");
    EXPECT_EQ(system.OfPlayer("Samples/Tones/new.wav"), "new");

    // Changed once, it is the player's for good; renewed once, it is renewed again.
    system.Come("Scripts/walk.mvs", "the best walk");
    system.Come("Samples/Bass/deep.wav", "the best bass");
    system.Pack();
    system.Start();
    EXPECT_EQ(system.OfPlayer("Scripts/walk.mvs"), "my walk");
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav"), "the best bass");
}

TEST(PrepareFolders, AFileThatThePlayerHadBeforeItCameIsTheirs) {
    const System system;
    system.Start();
    fs::create_directories(system.Own + "/Samples/Tones");
    WriteBytes(system.Own + "/Samples/Tones/new.wav", "mine");
    system.Come("Samples/Tones/new.wav", "new");
    system.Pack();
    system.Start();
    EXPECT_EQ(system.OfPlayer("Samples/Tones/new.wav"), "mine");
}

TEST(PrepareFolders, AFileThatThePlayerHasLinkedElsewhereStays) {
    const System system;
    fs::permissions(system.Root.Path(), fs::perms::all);
    system.Start();
    WriteBytes(system.Root / "elsewhere.wav", "beat");
    fs::remove(system.Own + "/Samples/Beats/slow.wav");
    fs::create_symlink(system.Root / "elsewhere.wav", system.Own + "/Samples/Beats/slow.wav");
    system.Come("Samples/Beats/slow.wav", "a better beat");
    system.Pack();
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_TRUE(fs::is_symlink(system.Own + "/Samples/Beats/slow.wav"));
    EXPECT_EQ(ReadBytes(system.Root / "elsewhere.wav"), "beat");
}

TEST(PrepareFolders, AFileThatThePlayerHasProtectedStays) {
    const System system;
    fs::permissions(system.Root.Path(), fs::perms::all);
    system.Start();
    for (fs::path folder = system.Own + "/Samples/Beats"; folder != system.Root.Path(); folder = folder.parent_path()) {
        ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
    }
    ASSERT_EQ(::chmod((system.Own + "/Samples/Beats/slow.wav").c_str(), 0444), 0);
    system.Come("Samples/Beats/slow.wav", "a better beat");
    system.Pack();
    std::unique_ptr<OrdinaryUser> user;
    if (::geteuid() == 0) user = std::make_unique<OrdinaryUser>();
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_EQ(system.OfPlayer("Samples/Beats/slow.wav"), "beat");
}

TEST(PrepareFolders, WhatAVersionNoLongerBringsStaysWithThePlayer) {
    const System system;
    system.Start();
    system.Protect(true);
    fs::remove(system.Installed + "/Samples/Bass/deep.wav");
    system.Pack();
    system.Start();
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav"), "bass");
    fs::remove(system.Own + "/Samples/Bass/deep.wav");
    system.Come("Samples/Bass/deep.wav", "bass again");
    system.Pack();
    system.Start();
    EXPECT_FALSE(system.Has("Samples/Bass/deep.wav"));
}

TEST(PrepareFolders, AFirstStartThatWasKilledIsCompletedByTheNext) {
    const System system;
    // Nothing is noted before all is laid, in whatever order.
    for (const char* name : {"startup.mvp", "Samples/Bass/deep.wav", "Samples/Beats/slow.wav", "Scripts/walk.mvs"}) {
        fs::remove_all(system.Own);
        fs::create_directories(fs::path(system.Own + "/" + name).parent_path());
        fs::copy_file(system.Installed + "/" + name, system.Own + "/" + name);
        EXPECT_EQ(system.Start().Trouble, "");
        EXPECT_EQ(system.NamesOfPlayer().size(), 5U) << name;
        EXPECT_EQ(ListIdOf(system.Own), ListIdOf(system.Installed)) << name;
    }
}

TEST(PrepareFolders, AnUpgradeThatWasKilledIsCompletedByTheNext) {
    const System system;
    system.Start();
    fs::remove(system.Own + "/startup.mvp");
    system.Come("startup.mvp", "a better demo");
    system.Come("Scripts/walk.mvs", "a better walk");
    system.Come("Samples/Bass/deep.wav", "a better bass");
    system.Pack();
    WriteBytes(system.Own + "/Scripts/walk.mvs", "a better walk");
    system.Start();
    EXPECT_FALSE(system.Has("startup.mvp"));
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav"), "a better bass");
    // What was laid before the end is no change of the player's.
    system.Come("Scripts/walk.mvs", "the best walk");
    system.Pack();
    system.Start();
    EXPECT_EQ(system.OfPlayer("Scripts/walk.mvs"), "the best walk");
}

TEST(PrepareFolders, OnAFullDiskThePlayerIsToldAndTheNextStartCompletesIt) {
    const System system;
    system.Come("Samples/Bass/long.wav", std::string(100000, 'x'));
    system.Pack();
    {
        const FullDisk disk(5000);
        const ProgramFolders folders = system.Start();
        EXPECT_EQ(folders.Own, system.Own);
        EXPECT_EQ(folders.Trouble, "Not everything that comes with Marvolin could be put into your own folder, " +
                                       system.Own + ": Disk full.\nThe next start tries again.");
    }
    EXPECT_EQ(system.OfPlayer("startup.mvp"), "demo");
    EXPECT_FALSE(system.Has("Samples/Bass/long.wav"));
    fs::rename(system.Own + "/startup.mvp", system.Own + "/disabledstartup.mvp");
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_EQ(system.OfPlayer("Samples/Bass/long.wav").size(), 100000U);
    // The demo was disabled in between.
    EXPECT_FALSE(system.Has("startup.mvp"));
}

TEST(PrepareFolders, AnUpgradeOnAFullDiskKeepsTheFormerFileAndRenewsItLater) {
    const System system;
    system.Start();
    system.Come("Samples/Bass/deep.wav", std::string(100000, 'x'));
    system.Pack();
    {
        const FullDisk disk(5000);
        EXPECT_NE(system.Start().Trouble, "");
    }
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav"), "bass");
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_EQ(system.OfPlayer("Samples/Bass/deep.wav").size(), 100000U);
}

TEST(PrepareFolders, WithoutAHomeTheProgramStartsInItsFolderAndThePlayerIsTold) {
    const System system;
    const ProgramFolders folders = PrepareFolders(system.Installed, "");
    EXPECT_EQ(folders.Own, system.Installed);
    EXPECT_NE(folders.Trouble.find("HOME is not set"), std::string::npos);
}

TEST(PrepareFolders, WhereTheHomeCannotBeWrittenTheProgramStartsInItsFolderAndThePlayerIsTold) {
    const System system;
    const std::string own = system.Root.Touch("file") + "/marvolin";
    const ProgramFolders folders = PrepareFolders(system.Installed, own);
    EXPECT_EQ(folders.Own, system.Installed);
    EXPECT_NE(folders.Trouble.find(own + ", cannot be written"), std::string::npos) << folders.Trouble;
}

TEST(PrepareFolders, AFolderFilledBeforeIsReadWhereItCanNoLongerBeWritten) {
    const System system;
    fs::permissions(system.Root.Path(), fs::perms::all);
    system.Start();
    for (fs::path folder = system.Own; folder != system.Root.Path(); folder = folder.parent_path()) {
        ASSERT_EQ(::chmod(folder.c_str(), 0555), 0);
    }
    {
        std::unique_ptr<OrdinaryUser> user;
        if (::geteuid() == 0) user = std::make_unique<OrdinaryUser>();
        const ProgramFolders folders = system.Start();
        EXPECT_EQ(folders.Own, system.Own);
        EXPECT_NE(folders.Trouble.find("Permission denied"), std::string::npos) << folders.Trouble;
    }
    for (fs::path folder = system.Own; folder != system.Root.Path(); folder = folder.parent_path()) {
        ASSERT_EQ(::chmod(folder.c_str(), 0755), 0);
    }
}

TEST(PrepareFolders, AFolderWithoutAListThatCannotBeWrittenIsListedByTheStart) {
    System system;
    fs::permissions(system.Root.Path(), fs::perms::all);
    system.Protect(true);
    fs::remove(system.Installed + "/marvolin.files");
    system.Protect(false);
    fs::create_directories(system.Own);
    ASSERT_EQ(::chmod(system.Own.c_str(), 0777), 0);
    std::unique_ptr<OrdinaryUser> user;
    if (::geteuid() == 0) user = std::make_unique<OrdinaryUser>();
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_EQ(system.NamesOfPlayer().size(), 5U);
    fs::remove(system.Own + "/startup.mvp");
    EXPECT_EQ(system.Start().Own, system.Own);
    EXPECT_FALSE(system.Has("startup.mvp"));
}

TEST(PrepareFolders, TwoPlayersDoNotMeet) {
    const System system;
    const std::string other = system.Root / "other/.local/share/marvolin";
    system.Start();
    PrepareFolders(system.Installed, other);
    fs::rename(system.Own + "/startup.mvp", system.Own + "/disabledstartup.mvp");
    EXPECT_EQ(ReadBytes(other + "/startup.mvp"), "demo");
    EXPECT_EQ(PrepareFolders(system.Installed, other).Own, other);
}

TEST(PrepareFolders, WhatTheInstallationHasLeftOutIsNotMissed) {
    const System system;
    system.Protect(true);
    fs::remove_all(system.Installed + "/Samples");
    system.Protect(false);
    EXPECT_EQ(system.Start().Trouble, "");
    EXPECT_EQ(system.NamesOfPlayer(), (std::set<std::string>{"Scripts/walk.mvs", "marvolin.files", "startup.mvp"}));
}

}  // namespace
}  // namespace marvolin
