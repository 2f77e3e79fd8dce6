#include "browser/sample_bins.h"

#include <gtest/gtest.h>

#include <filesystem>

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

TEST(UpdatePickFile, TenThousandFilesAreListedInOrder) {
    Browser b;
    for (int i = 0; i < 10000; ++i) WriteBytes(b.Folder / (std::to_string(i) + ".wav"), "");
    UpdatePickFile(b.s, 0);
    ASSERT_EQ(b.s.Bins[0].Rows.size(), 10000U);
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(b.s.Bins[0].Rows[static_cast<std::size_t>(i)].Name, std::to_string(i));
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
