#include "browser/sample_bins.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "browser/bin_gestures.h"
#include "browser/browser.h"
#include "browser/clipboard.h"
#include "browser/destinations.h"

namespace marvolin {
namespace {

using namespace test;

TEST(UpdatePickFile, AnEmptyFolderGivesAnEmptyListAndAFirstColumnOf100) {
    Browser b;
    UpdatePickFile(b.s, 0);
    EXPECT_TRUE(b.s.Bins[0].Rows.empty());
    EXPECT_EQ(b.s.Bins[0].FirstColumn, 100);
}

TEST(UpdatePickFile, LowerCaseWavIsFoundAndNamesSortAsAPersonExpects) {
    Browser b;
    for (const char* name : {"Kick 10.wav", "kick 2.WAV", "a.Wav", "no.txt", "wav", "x.wave"}) {
        WriteBytes(b.Folder / name, "");
    }
    std::filesystem::create_directory(b.Folder / "folder.wav");
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.Names(), (std::vector<std::string>{"a", "kick 2", "Kick 10"}));
}

TEST(UpdatePickFile, SizesAreKilobytesTruncatedAndTheWidestNamePlus100IsTheColumn) {
    Browser b;
    WriteBytes(b.Folder / "a.wav", std::string(1023, 'x'));
    WriteBytes(b.Folder / "long.wav", std::string(2047, 'x'));
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Rows[0].Size, "0");
    EXPECT_EQ(b.s.Bins[0].Rows[1].Size, "1");
    EXPECT_EQ(b.s.Bins[0].FirstColumn, 500);
}

TEST(UpdatePickFile, NamesWithBlanksQuotesNonAsciiAnd200CharactersAreListed) {
    Browser b;
    const std::vector<std::string> names{" a b ", "\"q\"'", "\xC3\xA9\xE6\x97\xA5", std::string(200, 'z'), "\xFF"};
    for (const std::string& name : names) WriteBytes(b.Folder / (name + ".wav"), "");
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Rows.size(), names.size());
}

TEST(UpdatePickFile, AShortcutIsTakenOnlyWithTheDoubleExtensionAndAWavTargetThatExists) {
    Browser b;
    TempFolder samples;
    WriteBytes(samples / "deep.WaV", std::string(4096, 'x'));
    WriteBytes(samples / "deep.txt", "");
    std::map<std::string, std::string> targets{
        {"good.wav.lnk", samples / "deep.WaV"}, {"GOOD2.WAV.LNK", samples / "deep.WaV"},
        {"plain.lnk", samples / "deep.WaV"},    {"text.wav.lnk", samples / "deep.txt"},
        {"gone.wav.lnk", samples / "gone.wav"}, {"unreadable.wav.lnk", ""}};
    for (const auto& [name, target] : targets) WriteBytes(b.Folder / name, "");
    b.s.World.ResolveShortcut = [&](const std::string& path) {
        return targets.at(std::filesystem::path(path).filename().string());
    };
    UpdatePickFile(b.s, 0);
    ASSERT_EQ(b.Names(), (std::vector<std::string>{"good", "GOOD2"}));
    EXPECT_EQ(b.s.Bins[0].Rows[0].Target, samples / "deep.WaV");
    EXPECT_EQ(b.s.Bins[0].Rows[0].Size, "4");
    EXPECT_EQ(SampleAt(b.s, 0, 0), samples / "deep.WaV");
}

TEST(UpdatePickFile, AFolderThatHasGoneAwayFallsBackToTheProgramsFolder) {
    Browser b;
    WriteBytes(b.Folder / "own.wav", "");
    b.s.Bins[1].Folder = "/nowhere/samples/";
    UpdatePickFile(b.s, 1);
    EXPECT_EQ(b.s.Bins[1].Folder, b.Folder.Path());
    EXPECT_EQ(b.Names(1), std::vector<std::string>{"own"});
    UpdatePickFile(b.s, 3);
    UpdatePickFile(b.s, -1);
}

TEST(UpdatePickFile, TheChosenSampleStaysChosenOverARescanAndNotOverAnotherFolder) {
    Browser b;
    TempFolder other;
    WriteBytes(other / "one.wav", "");
    b.FillBin(kDragDestination);
    ASSERT_TRUE(PickFile_MouseDown(b.s, 0, kLeftButton, 1, 10, 300));
    WriteBytes(b.Folder / "new.wav", "");
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Selected, 2);
    std::filesystem::remove(b.Folder / "two.WAV");
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Selected, -1);
    ASSERT_TRUE(PickFile_MouseDown(b.s, 0, kLeftButton, 1, 10, 300));
    PickDir_DropFolder(b.s, 0, other.Path());
    EXPECT_EQ(b.Names(), std::vector<std::string>{"one"}) << "the name that was chosen, of another sample";
    EXPECT_EQ(b.s.Bins[0].Selected, -1);
}

TEST(UpdatePickFile, ShowsTheBin) {
    Browser b;
    b.Screen.Log.clear();
    UpdatePickFile(b.s, 1);
    EXPECT_EQ(b.Screen.Log, std::vector<std::string>{"ShowBin 1"});
}

TEST(UpdatePickFile, AFolderWhoseNameBeginsAndEndsInBlanksAndTheRootAreFolders) {
    Browser b;
    std::filesystem::create_directory(b.Folder / " loops ");
    WriteBytes(b.Folder / " loops /x.wav", "");
    for (const char* end : {"", "/"}) {
        SetPickDir(b.s, 0, b.Folder / (" loops " + std::string(end)));
        UpdatePickFile(b.s, 0);
        EXPECT_EQ(b.Names(), std::vector<std::string>{"x"});
        EXPECT_EQ(b.s.Bins[0].Caption, " loops ");
    }
    SetPickDir(b.s, 0, "/");
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Folder, "/");
    EXPECT_EQ(b.s.Bins[0].Caption, "/");
}

TEST(UpdatePickFile, ABackslashAtTheEndOfAFolderBelongsToItsNameWhereThereIsSuchAFolder) {
    Browser b;
    for (const char* name : {"kicks\\", "snares"}) std::filesystem::create_directory(b.Folder / name);
    WriteBytes(b.Folder / "kicks\\/boom.wav", std::string(2048, 'x'));
    WriteBytes(b.Folder / "snares/crack.wav", "");
    b.s.Bins[0].Destination = 1;
    for (const char* end : {"", "/"}) {
        PickDir_DropFolder(b.s, 0, b.Folder / ("kicks\\" + std::string(end)));
        ASSERT_EQ(b.Names(), std::vector<std::string>{"boom"});
        EXPECT_EQ(b.s.Bins[0].Rows[0].Size, "2");
        EXPECT_EQ(SampleAt(b.s, 0, 0), b.Folder / "kicks\\/boom.wav");
        PickFile_MouseUp(b.s, 0, kLeftButton, 0);
        EXPECT_EQ(b.s.Set[1].FileName, b.Folder / "kicks\\/boom.wav");
    }
    LookAtPickFiles(b.s);
    EXPECT_FALSE(CheckPickFiles(b.s, 100));
    EXPECT_EQ(b.Names(), std::vector<std::string>{"boom"});
    PickDir_DropFolder(b.s, 0, b.Folder / "snares\\");
    ASSERT_EQ(b.Names(), std::vector<std::string>{"crack"});
    EXPECT_EQ(SampleAt(b.s, 0, 0), b.Folder / "snares/crack.wav");
    SetPickDir(b.s, 0, "");
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Folder, b.Folder.Path()) << "no folder is not the root";
}

TEST(UpdatePickFile, TenThousandFilesAreListedInOrder) {
    Browser b;
    for (int i = 0; i < 10000; ++i) WriteBytes(b.Folder / (std::to_string(i) + ".wav"), "");
    UpdatePickFile(b.s, 0);
    ASSERT_EQ(b.s.Bins[0].Rows.size(), 10000U);
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(b.s.Bins[0].Rows[static_cast<std::size_t>(i)].Name, std::to_string(i));
}

/// A browser whose folder has not been touched for a while.
struct QuietBrowser : Browser {
    QuietBrowser() {
        WriteBytes(Folder / "one.wav", "");
        WriteBytes(Folder / "two.wav", std::string(1500, 'x'));
        Quieten();
        for (int bin = 0; bin < kBins; ++bin) UpdatePickFile(s, bin);
        Forget();
    }
    void Quieten() {
        std::filesystem::last_write_time(Folder.Path(), std::filesystem::file_time_type::clock::now() - kLongAgo);
    }
    void Forget() {
        Screen.Log.clear();
        Desk.Measured.clear();
    }
    void CheckAll() {
        while (CheckPickFiles(s, 1)) {
        }
    }
    static constexpr std::chrono::seconds kLongAgo{60};
};

TEST(LookAtPickFiles, AFolderThatHasNotChangedIsNotReadAgain) {
    QuietBrowser b;
    // The rows show whether the folder was read.
    b.s.Bins[0].Rows.clear();
    LookAtPickFiles(b.s);
    EXPECT_TRUE(b.Names(0).empty());
    EXPECT_TRUE(b.Screen.Log.empty());
    EXPECT_TRUE(b.Desk.Measured.empty());
}

TEST(LookAtPickFiles, ASampleThatHasComeOrGoneOrGotAnotherNameIsSeen) {
    QuietBrowser b;
    WriteBytes(b.Folder / "new.wav", "");
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.Names(1), (std::vector<std::string>{"new", "one", "two"}));
    b.Quieten();
    LookAtPickFiles(b.s);
    std::filesystem::remove(b.Folder / "one.wav");
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.Names(1), (std::vector<std::string>{"new", "two"}));
    b.Quieten();
    LookAtPickFiles(b.s);
    std::filesystem::rename(b.Folder / "two.wav", b.Folder / "a.wav");
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.Names(1), (std::vector<std::string>{"a", "new"}));
}

TEST(LookAtPickFiles, AFolderThatChangedAMomentAgoIsReadAgainAsASecondChangeMayShowTheSameTime) {
    QuietBrowser b;
    const auto moment = std::filesystem::file_time_type::clock::now() + std::chrono::seconds(1);
    WriteBytes(b.Folder / "new.wav", "");
    std::filesystem::last_write_time(b.Folder.Path(), moment);
    LookAtPickFiles(b.s);
    b.s.Bins[0].Rows.clear();
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.Names(0), (std::vector<std::string>{"new", "one", "two"}));
}

TEST(LookAtPickFiles, AFolderWhoseTimeLiesInTheFutureIsNotReadAgainUntilItChanges) {
    QuietBrowser b;
    std::filesystem::last_write_time(b.Folder.Path(),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
    LookAtPickFiles(b.s);
    b.s.Bins[0].Rows.clear();
    LookAtPickFiles(b.s);
    EXPECT_TRUE(b.Names(0).empty());
    WriteBytes(b.Folder / "new.wav", "");
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.Names(0), (std::vector<std::string>{"new", "one", "two"}));
}

TEST(LookAtPickFiles, AnotherFolderOfTheSameNameAndTimeIsSeen) {
    QuietBrowser b;
    const std::string folder = b.Folder / "loops";
    const auto make = [&](const char* sample) {
        std::filesystem::create_directory(folder);
        WriteBytes(folder + "/" + sample, "");
        std::filesystem::last_write_time(folder, std::filesystem::file_time_type(QuietBrowser::kLongAgo));
    };
    make("first.wav");
    SetPickDir(b.s, 2, folder);
    UpdatePickFile(b.s, 2);
    std::filesystem::rename(folder, b.Folder / "aside");
    make("second.wav");
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.Names(2), std::vector<std::string>{"second"});
}

TEST(LookAtPickFiles, AVanishedFolderGivesWayToTheProgramsFolder) {
    QuietBrowser b;
    std::filesystem::create_directory(b.Folder / "loops");
    SetPickDir(b.s, 2, b.Folder / "loops");
    UpdatePickFile(b.s, 2);
    std::filesystem::remove(b.Folder / "loops");
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.s.Bins[2].Folder, b.Folder.Path());
    EXPECT_EQ(b.Names(2), (std::vector<std::string>{"one", "two"}));
}

TEST(LookAtPickFiles, ABinThatHasGotAnotherFolderIsReadAgain) {
    QuietBrowser b;
    TempFolder other;
    SetPickDir(b.s, 0, other.Path());
    SetPickDir(b.s, 0, b.Folder.Path());
    b.s.Bins[0].Rows.clear();
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.Names(0), (std::vector<std::string>{"one", "two"}));
}

TEST(CheckPickFiles, ASampleThatWasWrittenInPlaceShowsItsNewSize) {
    QuietBrowser b;
    std::ofstream(b.Folder / "two.wav", std::ios::app) << std::string(2048, 'x');
    LookAtPickFiles(b.s);
    EXPECT_EQ(b.s.Bins[0].Rows[1].Size, "1");
    b.CheckAll();
    EXPECT_EQ(b.s.Bins[0].Rows[1].Size, "3");
    EXPECT_EQ(b.s.Bins[2].Rows[1].Size, "3");
}

TEST(CheckPickFiles, SamplesOfShortcutsThatComeOrGoAreSeen) {
    Browser b;
    TempFolder samples;
    const std::string target = samples / "deep.wav";
    b.s.World.ResolveShortcut = [&](const std::string&) { return std::filesystem::exists(target) ? target : ""; };
    WriteBytes(b.Folder / "link.wav.lnk", "");
    std::filesystem::last_write_time(b.Folder.Path(), std::filesystem::file_time_type(QuietBrowser::kLongAgo));
    UpdatePickFile(b.s, 0);
    EXPECT_TRUE(b.Names().empty());
    const auto lookAndCheck = [&] {
        LookAtPickFiles(b.s);
        while (CheckPickFiles(b.s, 1)) {
        }
    };
    WriteBytes(target, "");
    lookAndCheck();
    EXPECT_EQ(b.Names(), std::vector<std::string>{"link"});
    std::filesystem::remove(target);
    lookAndCheck();
    EXPECT_TRUE(b.Names().empty());
}

TEST(CheckPickFiles, ComparesAsManyFilesAsItIsToldAndEndsWhenAllAreAsShown) {
    QuietBrowser b;
    LookAtPickFiles(b.s);
    EXPECT_TRUE(CheckPickFiles(b.s, 5));
    EXPECT_EQ(b.s.Bins[0].Checked + b.s.Bins[1].Checked + b.s.Bins[2].Checked, 5U);
    EXPECT_FALSE(CheckPickFiles(b.s, 1));
    EXPECT_FALSE(CheckPickFiles(b.s, 1));
    EXPECT_TRUE(b.Screen.Log.empty());
    EXPECT_FALSE(CheckPickFiles(b.s, 0)) << "nothing is left to compare";
}

TEST(UpdatePickFile, ANameIsMeasuredOnce) {
    QuietBrowser b;
    WriteBytes(b.Folder / "a longer name.wav", "");
    for (int bin = 0; bin < kBins; ++bin) UpdatePickFile(b.s, bin);
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.Desk.Measured, std::vector<std::string>{"a longer name"});
    EXPECT_EQ(b.s.Bins[2].FirstColumn, 1400);
}

TEST(UpdatePickFile, WidthsOfNamesAreForgottenWhenTheyAreTooMany) {
    QuietBrowser b;
    for (int name = 0; name < 60000; ++name) b.s.NameWidths[std::to_string(name)] = 1;
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.NameWidths.size(), 2U);
    EXPECT_EQ(b.Desk.Measured, (std::vector<std::string>{"one", "two"}));
}

TEST(SetPickDirCaption, AFolderNameLongerThan10CharactersIsCutAndTheToolTipKeepsThePath) {
    Browser b;
    SetPickDir(b.s, 0, "/x/abcdefghijklm/");
    EXPECT_EQ(b.s.Bins[0].Caption, "abcdefghij");
    EXPECT_EQ(b.s.Bins[0].Folder, "/x/abcdefghijklm/");
    SetPickDirCaption(b.s, 0, "/x/\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9x");
    EXPECT_EQ(b.s.Bins[0].Caption.size(), 20U);
}

TEST(InitPicks, StartsTheBinsOnTheFoldersOfTheLibraryInDragDropWithAutoPlay) {
    Browser b;
    for (const char* name : {"Samples/Bass 2", "Samples/bass 10", "Samples/Drums", "Samples/Tones"}) {
        std::filesystem::create_directories(b.Folder / name);
    }
    WriteBytes(b.Folder / "Samples/Drums/kick.wav", "");
    for (SampleBin& bin : b.s.Bins) bin.ClickPlay = 0;
    b.s.Clips.ClipStaging.FileName = "/a/left.wav";
    AddNewClip(b.s);
    InitPicks(b.s);
    EXPECT_EQ(b.Names(2), std::vector<std::string>{"kick"});
    EXPECT_EQ(b.s.Bins[0].Folder, b.Folder / "Samples/Bass 2");
    EXPECT_EQ(b.s.Bins[1].Folder, b.Folder / "Samples/bass 10");
    EXPECT_EQ(b.s.Bins[2].Folder, b.Folder / "Samples/Drums");
    for (const SampleBin& bin : b.s.Bins) {
        EXPECT_EQ(bin.Destination, kDragDestination);
        EXPECT_EQ(bin.ClickPlay, 1);
    }
    EXPECT_EQ(b.s.Clips.ClipTop, -1);
}

TEST(InitPicks, WithoutALibraryTheBinsStartOnTheProgramsFolder) {
    Browser b;
    InitPicks(b.s);
    EXPECT_EQ(b.s.Bins[2].Folder, b.Folder.Path());
}

}  // namespace
}  // namespace marvolin
