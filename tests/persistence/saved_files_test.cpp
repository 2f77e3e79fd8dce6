// What a save does to the files that are there.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>

#include "fakes/file_bytes.h"
#include "fakes/limits.h"
#include "fakes/temp_folder.h"
#include "persistence/session_format.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using namespace test;

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

TEST(SavedFiles, ALinkToASetThatIsNotThereYetStaysALink) {
    Saver i;
    std::filesystem::create_directory(i.Sets / "real");
    std::filesystem::create_symlink("real/x.mvn", i.Sets / "link.mvn");
    ASSERT_TRUE(i.SaveTo("link.mvn"));
    EXPECT_TRUE(std::filesystem::is_symlink(i.Sets / "link.mvn"));
    EXPECT_TRUE(std::filesystem::is_regular_file(i.Sets / "real/x.mvn"));
}

TEST(SavedFiles, ALinkIntoAFolderThatHasGoneOrInACircleIsAnErrorCreating) {
    Saver i;
    std::filesystem::create_symlink("gone/x.mvn", i.Sets / "link.mvn");
    std::filesystem::create_symlink("circle.mvn", i.Sets / "circle.mvn");
    for (const char* name : {"link.mvn", "circle.mvn"}) {
        EXPECT_FALSE(i.SaveTo(name));
        EXPECT_EQ(i.Desk.LastBox(), "Error Creating File: " + (i.Sets / name));
        EXPECT_TRUE(std::filesystem::is_symlink(i.Sets / name));
    }
}

TEST(SavedFiles, ASetWithBytesBehindItsEndIsWholeAndOneOfAnotherFormatIsNot) {
    Saver i;
    const std::string older = SetOfPitch(400);
    const std::string set = SetOfPitch(500);
    WriteBytes(i.Sets / "x.mvn", set + std::string(100000, 'x'));
    WriteBytes(i.Sets / "x.mvn~", older);
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    EXPECT_EQ(ReadBytes(i.Sets / "x.mvn~"), set + std::string(100000, 'x'));
    std::string other = set;
    ++other[2 + kHeaderText.size()];
    WriteBytes(i.Sets / "x.mvn", other);
    WriteBytes(i.Sets / "x.mvn~", older);
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    EXPECT_EQ(ReadBytes(i.Sets / "x.mvn~"), older);
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

/// Leaves the process with 7 as the lowest number that a file can get.
void OccupyFilesBelowSeven() {
    constexpr int kMost = 256;
    for (int file = 3; file < kMost; ++file) ::close(file);
    while (::open("/dev/null", O_RDONLY | O_CLOEXEC) < 6) {
    }
}

TEST(SavedFiles, WhenTheNamesCannotBePutOnTheDiskAllFilesAreAsTheyWere) {
    Saver i;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    i.s.Set[0].Hz = 700;
    ASSERT_TRUE(i.SaveTo("x.mvn"));
    const auto before = i.Files();
    const pid_t child = ::fork();
    if (child == 0) {
        OccupyFilesBelowSeven();
        // The set is file 7, and the folder one of the numbers from 8 to 15.
        RefuseCalls({{__NR_fsync, EIO, 0, 8}});
        i.s.Set[0].Hz = 1234;
        ::_exit(!i.SaveTo("x.mvn") && i.Desk.LastBox() == "Error Saving Device I/O error" ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(i.Files(), before);
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

TEST(SavedPackage, LeavesOutASampleThatWaitsForADeviceWhileItsFileIsAway) {
    Saver i;
    i.s.Run[0].InHand.FileName = i.Folder / "gone.wav";
    i.s.Run[1].InHand.FileName = i.Folder / "b.wav";
    WriteBytes(i.Folder / "b.wav", "b");
    ASSERT_TRUE(i.SaveTo("set.mvp")) << i.Desk.LastBox();
    EXPECT_TRUE(i.Files().contains("b.wav"));
    EXPECT_FALSE(i.Files().contains("gone.wav"));
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

/// A folder whose path is so long that a file of a short name can be made in it, and none of a long name.
std::string DeepFolder(std::string path) {
    constexpr std::size_t kDeep = 3900;
    constexpr std::size_t kPart = 200;
    while (path.size() + 2 < kDeep) {
        path += "/" + std::string(std::min(kPart, kDeep - path.size() - 1), 'f');
        std::filesystem::create_directory(path);
    }
    return path;
}

TEST(SavedPackage, ASampleThatCannotTakeItsNameGivesBackThoseBeforeIt) {
    Saver i;
    const std::string deep = DeepFolder(i.Sets.Path());
    const std::string set = deep + "/set.mvp";
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(SaveSession(i.s, set, LoopsSaved::All, All()));
    WriteBytes(i.Folder / "a.wav", "changed");
    const std::string longName = i.Folder / (std::string(240, 'n') + ".wav");
    WriteBytes(longName, "long");
    i.Fill(1, i.Folder / "b.wav");
    i.Fill(2, longName);
    i.Fill(3, i.Folder / "c.wav");
    const auto before = FilesIn(deep);
    EXPECT_FALSE(SaveSession(i.s, set, LoopsSaved::All, All()));
    EXPECT_EQ(i.Desk.LastBox(), "Error Saving Bad file name or number");
    EXPECT_EQ(FilesIn(deep), before);
}

TEST(SavedPackage, ThePackageUnderTheTildeOpensAsAPackage) {
    Saver i;
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    WriteBytes(i.Folder / "a.wav", "changed");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    std::filesystem::remove(i.Folder / "a.wav");
    SetInstrument other;
    ASSERT_TRUE(LoadSession(other.s, i.Sets / "set.mvp~", SetAsCurrent::No, All(), AdoptSwitches::No));
    EXPECT_EQ(other.s.Set[0].FileName, i.Sets / "a.wav");
    EXPECT_NE(other.s.Run[0].Loaded, False);
    EXPECT_EQ(ReadBytes(i.Sets / "a.wav"), "changed") << "the two share their samples";
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

TEST(SavedPackage, ThatIsSavedThroughALinkHasItsSamplesBesideTheFileAndOpensThroughBothNames) {
    Saver i;
    std::filesystem::create_directory(i.Sets / "real");
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.SaveTo("real/set.mvp"));
    std::filesystem::create_symlink("real/set.mvp", i.Sets / "link.mvp");
    WriteBytes(i.Folder / "a.wav", "changed");
    ASSERT_TRUE(i.SaveTo("link.mvp"));
    EXPECT_EQ(ReadBytes(i.Sets / "real/a.wav"), "changed");
    EXPECT_EQ(FilesIn(i.Sets.Path()).size(), 2U) << "the folder and the link";
    std::filesystem::remove(i.Folder / "a.wav");
    for (const char* name : {"link.mvp", "real/set.mvp"}) {
        SetInstrument other;
        ASSERT_TRUE(LoadSession(other.s, i.Sets / name, SetAsCurrent::Yes, All(), AdoptSwitches::No));
        EXPECT_NE(other.s.Run[0].Loaded, False);
        EXPECT_TRUE(std::filesystem::equivalent(other.s.Set[0].FileName, i.Sets / "real/a.wav"));
        EXPECT_EQ(i.Sets / name, other.s.CurrentFolder + other.s.CurrentFile);
    }
}

TEST(SavedPackage, ASampleWithABackslashInItsNameKeepsItBesideOneOfTheNameBehindIt) {
    Saver i;
    for (const char* name : {"c\\d.WAV", "d.WAV"}) WriteBytes(i.Folder / name, name);
    i.Fill(0, i.Folder / "c\\d.WAV");
    i.Fill(1, i.Folder / "d.WAV");
    ASSERT_TRUE(i.SaveTo("set.mvp"));
    EXPECT_EQ(ReadBytes(i.Sets / "c\\d.WAV"), "c\\d.WAV");
    EXPECT_EQ(ReadBytes(i.Sets / "d.WAV"), "d.WAV");
    SetInstrument other;
    ASSERT_TRUE(LoadSession(other.s, i.Sets / "set.mvp", SetAsCurrent::No, All(), AdoptSwitches::No));
    EXPECT_EQ(other.s.Set[0].FileName, i.Sets / "c\\d.WAV");
    EXPECT_EQ(other.s.Set[1].FileName, i.Sets / "d.WAV");
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
