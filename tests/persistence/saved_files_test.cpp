// What a save does to the files that are there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>

#include "fakes/file_bytes.h"
#include "fakes/limits.h"
#include "fakes/temp_folder.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using namespace test;
using ::testing::HasSubstr;

/// A set of this pitch in all LoopTracks, as bytes.
std::string SetOfPitch(std::int16_t hz) {
    SetInstrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.s.Set[row].Hz = hz;
    if (!i.Save("x.mvn")) throw std::runtime_error("not saved");
    return ReadBytes(i.Folder / "x.mvn");
}

/// Every file of a folder with its content; of a folder in it the name alone.
std::map<std::string, std::string> FilesIn(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files[entry.path().filename().string()] = entry.is_directory() ? "/" : ReadBytes(entry.path().string());
    return files;
}

/// An instrument and a folder of its own for its sets.
struct Saver : SetInstrument {
    TempFolder Sets;
    bool SaveTo(const std::string& name) { return SaveSession(s, Sets / name, LoopsSaved::All, All()); }
    std::map<std::string, std::string> Files() const { return FilesIn(Sets.Path()); }
    /// A save under `name` fails with a message that holds `words`, and changes no file.
    void ExpectFailure(const std::string& name, const std::string& words) {
        const auto before = Files();
        const std::size_t boxes = Desk.Boxes.size();
        EXPECT_FALSE(SaveTo(name));
        ASSERT_EQ(Desk.Boxes.size(), boxes + 1);
        EXPECT_EQ(Desk.LastBox(), words);
        EXPECT_EQ(Files(), before);
    }
};

TEST(SavedFiles, TheSetThatASaveReplacesIsKeptUnderATilde) {
    Saver i;
    const std::string before = SetOfPitch(500);
    WriteBytes(i.Sets / "x.mvn", before);
    WriteBytes(i.Sets / "x.mvn~", SetOfPitch(400));
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    EXPECT_EQ(ReadBytes(i.Sets / "x.mvn~"), before);
    EXPECT_EQ(i.Files().size(), 2U);
    EXPECT_TRUE(LoadSession(i.s, i.Sets / "x.mvn", SetAsCurrent::No, All(), AdoptSwitches::No));
}

TEST(SavedFiles, ASetThatWasCutShortDoesNotReplaceTheWholeOneUnderTheTilde) {
    Saver i;
    const std::string whole = SetOfPitch(400);
    const std::string other = SetOfPitch(500);
    for (const std::string& broken : {other.substr(0, other.size() - 1), other.substr(0, 20), std::string("text"),
                                      std::string(), other.substr(0, 60) + "END"}) {
        WriteBytes(i.Sets / "x.mvn", broken);
        WriteBytes(i.Sets / "x.mvn~", whole);
        ASSERT_TRUE(i.SaveTo("x.mvn"));
        EXPECT_EQ(ReadBytes(i.Sets / "x.mvn~"), whole);
    }
}

TEST(SavedFiles, AReservedEmptyFileLeavesNoCopy) {
    Saver i;
    WriteBytes(i.Sets / "VBN1.tmp", "");
    ASSERT_TRUE(i.SaveTo("VBN1.tmp"));
    EXPECT_EQ(i.Files().size(), 1U);
}

TEST(SavedFiles, AFileThatCannotBeMadeIsAnErrorCreating) {
    Saver i;
    i.ExpectFailure("no/such/folder.mvn", "Error Creating File: " + (i.Sets / "no/such/folder.mvn"));
    std::filesystem::create_directory(i.Sets / "folder.mvn");
    i.ExpectFailure("folder.mvn", "Error Creating File: " + (i.Sets / "folder.mvn"));
    ASSERT_EQ(::mkfifo((i.Sets / "pipe.mvn").c_str(), 0600), 0);
    EXPECT_FALSE(i.SaveTo("pipe.mvn"));
    EXPECT_TRUE(std::filesystem::is_fifo(i.Sets / "pipe.mvn"));
}

TEST(SavedFiles, AFolderThatHasGoneAwayIsAnErrorCreating) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    std::filesystem::remove_all(i.Sets.Path());
    EXPECT_FALSE(i.SaveTo("x.mvn"));
    EXPECT_EQ(i.Desk.LastBox(), "Error Creating File: " + (i.Sets / "x.mvn"));
}

TEST(SavedFiles, AReadOnlyFolderIsAnErrorCreating) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    std::filesystem::permissions(i.Sets.Path(), std::filesystem::perms(0555));
    {
        const OrdinaryUser user;
        i.ExpectFailure("x.mvn", "Error Creating File: " + (i.Sets / "x.mvn"));
        i.ExpectFailure("new.mvn", "Error Creating File: " + (i.Sets / "new.mvn"));
    }
    std::filesystem::permissions(i.Sets.Path(), std::filesystem::perms(0755));
}

TEST(SavedFiles, AReadOnlySetIsNotReplaced) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    std::filesystem::permissions(i.Sets.Path(), std::filesystem::perms(0777));
    std::filesystem::permissions(i.Sets / "x.mvn", std::filesystem::perms(0444));
    const OrdinaryUser user;
    i.ExpectFailure("x.mvn", "Error Creating File: " + (i.Sets / "x.mvn"));
}

TEST(SavedFiles, WhenNoFileCanBeOpenedNothingChanges) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    const auto before = i.Files();
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    const rlimit none{0, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const bool saved = i.SaveTo("x.mvn");
    ::setrlimit(RLIMIT_NOFILE, &limit);
    EXPECT_FALSE(saved);
    EXPECT_EQ(i.Desk.LastBox(), "Error Creating File: " + (i.Sets / "x.mvn"));
    EXPECT_EQ(i.Files(), before);
}

TEST(SavedFiles, ATildeThatIsAFolderIsAnErrorCreating) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    std::filesystem::create_directory(i.Sets / "x.mvn~");
    i.ExpectFailure("x.mvn", "Error Creating File: " + (i.Sets / "x.mvn"));
}

TEST(SavedFiles, ANameTooLongForATildeIsSavedOnceAndThenLeftAsItIs) {
    Saver i;
    const std::string name = std::string(251, 'n') + ".mvn";
    ASSERT_TRUE(i.SaveTo(name));
    i.ExpectFailure(name, "Error Creating File: " + (i.Sets / name));
    i.ExpectFailure("n" + name, "Error Creating File: " + (i.Sets / ("n" + name)));
    const std::string shorter = name.substr(1);
    ASSERT_TRUE(i.SaveTo(shorter));
    ASSERT_TRUE(i.SaveTo(shorter));
    EXPECT_TRUE(std::filesystem::exists(i.Sets / (shorter + "~")));
}

TEST(SavedFiles, NamesWithABackslashANewlineAndOtherBytesAreKept) {
    for (const char* name : {"a\\b.mvn", "a\nb.mvn", "caf\xE9.mvn", "a\\b.mvp", "a\nb.mvp", "caf\xE9.mvp"}) {
        SCOPED_TRACE(name);
        Saver i;
        i.Fill(0, i.Folder / "a.wav");
        i.s.Set[0].Hz = 1234;
        ASSERT_TRUE(i.SaveTo(name));
        ASSERT_TRUE(i.SaveTo(name));
        EXPECT_TRUE(std::filesystem::exists(i.Sets / (std::string(name) + "~")));
        SetInstrument other;
        ASSERT_TRUE(LoadSession(other.s, i.Sets / name, SetAsCurrent::Yes, All(), AdoptSwitches::No));
        EXPECT_EQ(other.s.Set[0].Hz, 1234);
        EXPECT_NE(other.s.Run[0].Loaded, False);
        EXPECT_EQ(other.s.CurrentFolder, i.Sets.Path() + "/");
        EXPECT_EQ(other.s.CurrentFile, name);
        EXPECT_TRUE(other.Desk.Boxes.empty());
    }
}

TEST(SavedFiles, ALinkStaysALinkAndItsSetIsReplaced) {
    Saver i;
    std::filesystem::create_directory(i.Sets / "real");
    ASSERT_TRUE(i.SaveTo("real/x.mvn"));
    const std::string before = ReadBytes(i.Sets / "real/x.mvn");
    std::filesystem::create_symlink(i.Sets / "real/x.mvn", i.Sets / "link.mvn");
    i.s.Set[0].Hz = 1234;
    ASSERT_TRUE(i.SaveTo("link.mvn"));
    EXPECT_TRUE(std::filesystem::is_symlink(i.Sets / "link.mvn"));
    EXPECT_NE(ReadBytes(i.Sets / "real/x.mvn"), before);
    EXPECT_EQ(ReadBytes(i.Sets / "real/x.mvn~"), before);
}

TEST(SavedFiles, OnAFullDiskTwoSavesInARowLeaveTheSetAndItsCopyAsTheyWere) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    const std::size_t size = ReadBytes(i.Sets / "x.mvn").size();
    i.s.Set[0].Hz = 1234;
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{100}, size - 1}) {
        SCOPED_TRACE(room);
        const FullDisk full(room);
        i.ExpectFailure("x.mvn", "Error Saving Disk full");
        i.ExpectFailure("x.mvn", "Error Saving Disk full");
        i.ExpectFailure("new.mvn", "Error Saving Disk full");
    }
    EXPECT_TRUE(i.SaveTo("x.mvn"));
}

TEST(SavedFiles, OnAFullDiskTwoSavesOfAPackageLeaveItAndItsSamplesAsTheyWere) {
    Saver i;
    const std::string longSample(20000, 'w');
    WriteBytes(i.Folder / "a.wav", "short");
    WriteBytes(i.Folder / "b.wav", longSample);
    i.Fill(0, i.Folder / "a.wav");
    i.Fill(1, i.Folder / "b.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    WriteBytes(i.Folder / "a.wav", "changed");
    WriteBytes(i.Folder / "b.wav", longSample + "changed");
    i.Fill(2, i.Folder / "c.wav");
    for (const std::size_t room : {0, 3, 6, 10000, 20000}) {
        SCOPED_TRACE(room);
        const FullDisk full(room);
        i.ExpectFailure("set.mvp", "Error Saving Disk full");
        i.ExpectFailure("set.mvp", "Error Saving Disk full");
    }
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    EXPECT_EQ(ReadBytes(i.Sets / "b.wav"), longSample + "changed");
    EXPECT_EQ(ReadBytes(i.Sets / "c.wav"), "c.wav");
}

TEST(SavedFiles, TheFileIsClosedAndGoneBeforeTheMessageIsShown) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    const auto before = i.Files();
    const auto open = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    const auto openBefore = open();
    i.Desk.WhenReported = [&] {
        EXPECT_EQ(open(), openBefore);
        EXPECT_EQ(i.Files(), before);
    };
    const FullDisk full(100);
    EXPECT_FALSE(i.SaveTo("x.mvn"));
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
}

TEST(SavedPackage, AMissingSampleFailsItTwiceAndLeavesEverythingAsItWas) {
    Saver i;
    i.Fill(0, i.Folder / "a.wav");
    i.Fill(1, i.Folder / "b.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    WriteBytes(i.Folder / "a.wav", "changed");
    std::filesystem::remove(i.Folder / "b.wav");
    i.ExpectFailure("set.mvp", "Error Saving File not found");
    i.ExpectFailure("set.mvp", "Error Saving File not found");
    i.ExpectFailure("new.mvp", "Error Saving File not found");
}

TEST(SavedPackage, AReadOnlySampleIsSavedAgainAndAgain) {
    Saver i;
    std::filesystem::permissions(i.Sets.Path(), std::filesystem::perms(0777));
    std::filesystem::permissions(i.Folder.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(i.Folder / "a.wav", std::filesystem::perms(0444));
    i.Fill(0, i.Folder / "a.wav");
    const OrdinaryUser user;
    for (int save = 0; save < 3; ++save) EXPECT_TRUE(i.SaveTo("set.mvp")) << i.Desk.LastBox();
    EXPECT_EQ(ReadBytes(i.Sets / "a.wav"), "a.wav");
    // A copy that an older program left read-only.
    std::filesystem::permissions(i.Sets / "a.wav", std::filesystem::perms(0444));
    i.Fill(1, i.Sets / "a.wav");
    i.s.Set[0].FileName = i.Folder / "b.wav";
    EXPECT_TRUE(i.SaveTo("set.mvp")) << i.Desk.LastBox();
    EXPECT_TRUE(std::filesystem::exists(i.Sets / "set.mvp~"));
}

TEST(SavedPackage, AReadOnlyCopyOfAnotherContentIsReplaced) {
    Saver i;
    std::filesystem::permissions(i.Sets.Path(), std::filesystem::perms(0777));
    std::filesystem::permissions(i.Folder.Path(), std::filesystem::perms(0755));
    i.Fill(0, i.Folder / "a.wav");
    WriteBytes(i.Sets / "a.wav", "other");
    std::filesystem::permissions(i.Sets / "a.wav", std::filesystem::perms(0444));
    const OrdinaryUser user;
    EXPECT_TRUE(i.SaveTo("set.mvp")) << i.Desk.LastBox();
    EXPECT_EQ(ReadBytes(i.Sets / "a.wav"), "a.wav");
}

TEST(SavedPackage, ASampleThatIsThereAlreadyIsNotWrittenAgain) {
    Saver i;
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    struct stat before {};
    ASSERT_EQ(::stat((i.Sets / "a.wav").c_str(), &before), 0);
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    struct stat after {};
    ASSERT_EQ(::stat((i.Sets / "a.wav").c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST(SavedPackage, AChangedSampleIsReplacedAndTheFileThatOthersShareStaysAsItWas) {
    Saver i;
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    std::filesystem::create_hard_link(i.Sets / "a.wav", i.Sets / "shared.wav");
    WriteBytes(i.Folder / "a.wav", "changed");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    EXPECT_EQ(ReadBytes(i.Sets / "a.wav"), "changed");
    EXPECT_EQ(ReadBytes(i.Sets / "shared.wav"), "a.wav");
}

TEST(SavedPackage, AFolderInPlaceOfASampleFailsItAndLeavesTheOtherSamplesAsTheyWere) {
    Saver i;
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    WriteBytes(i.Folder / "a.wav", "changed");
    i.Fill(1, i.Folder / "b.wav");
    std::filesystem::create_directory(i.Sets / "b.wav");
    i.ExpectFailure("set.mvp", "Error Saving Path/File access error");
}

TEST(SavedPackage, ASampleThatCannotTakeItsNameGivesBackThoseBeforeIt) {
    Saver i;
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    WriteBytes(i.Folder / "a.wav", "changed");
    WriteBytes(i.Sets / "b.wav", "another user's");
    i.Fill(1, i.Folder / "b.wav");
    i.Fill(2, i.Folder / "c.wav");
    // In a folder like the system's temporary one nobody may replace the files of another user.
    std::filesystem::permissions(i.Sets.Path(), std::filesystem::perms(01777));
    std::filesystem::permissions(i.Folder.Path(), std::filesystem::perms(0755));
    constexpr uid_t kNobody = 65534;
    constexpr uid_t kOther = 65533;
    if (::geteuid() == 0) {
        for (const char* mine : {"a.wav", "set.mvp"}) ASSERT_EQ(::chown((i.Sets / mine).c_str(), kNobody, kNobody), 0);
        ASSERT_EQ(::chown((i.Sets / "b.wav").c_str(), kOther, kOther), 0);
        ASSERT_EQ(::chown(i.Sets.Path().c_str(), kOther, kOther), 0);
        const OrdinaryUser user;
        i.ExpectFailure("set.mvp", "Error Saving Permission denied");
    } else {
        std::filesystem::remove(i.Sets / "b.wav");
        std::filesystem::create_directory(i.Sets / "b.wav");
        i.ExpectFailure("set.mvp", "Error Saving Path/File access error");
    }
}

TEST(SavedPackage, ThePackageUnderTheTildeOpensAsAPackage) {
    Saver i;
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    std::filesystem::remove(i.Folder / "a.wav");
    SetInstrument other;
    ASSERT_TRUE(LoadSession(other.s, i.Sets / "set.mvp~", SetAsCurrent::No, All(), AdoptSwitches::No));
    EXPECT_EQ(other.s.Set[0].FileName, i.Sets / "a.wav");
    EXPECT_NE(other.s.Run[0].Loaded, False);
}

TEST(SavedPackage, SamplesWithABackslashANewlineAndOtherBytesInTheirNamesAreFoundInIt) {
    for (const char* name : {"c\\d.wav", "a\nb.wav", "caf\xE9.wav"}) {
        SCOPED_TRACE(name);
        Saver i;
        const std::string sample = i.Folder.Touch(name, "sample");
        i.Fill(0, sample);
        ASSERT_TRUE(i.SaveTo("set.mvp"));
        std::filesystem::remove(sample);
        SetInstrument other;
        ASSERT_TRUE(LoadSession(other.s, i.Sets / "set.mvp", SetAsCurrent::No, All(), AdoptSwitches::No));
        EXPECT_NE(other.s.Run[0].Loaded, False);
        EXPECT_EQ(ReadBytes(other.s.Set[0].FileName), "sample");
        EXPECT_TRUE(other.Desk.Boxes.empty());
    }
}

TEST(SavedPackage, OfTwoSamplesOfOneNameTheLaterWinsAlsoWhenItIsThereAlready) {
    Saver i;
    WriteBytes(i.Sets / "a.wav", "here");
    i.Fill(0, i.Folder / "a.wav");
    i.Fill(2, i.Sets / "a.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    EXPECT_EQ(ReadBytes(i.Sets / "a.wav"), "here");
}

}  // namespace
}  // namespace marvolin
