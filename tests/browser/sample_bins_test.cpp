#include "browser/sample_bins.h"

#include <gtest/gtest.h>

#include "browser/bin_gestures.h"
#include "browser/clipboard.h"
#include "browser/destinations.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using namespace test;

struct Browser : Instrument {
    TempFolder Folder;
    Browser() {
        Desk.Folder = Folder.Path();
        for (SampleBin& bin : s.Bins) bin.Folder = Folder.Path();
    }
    std::vector<std::string> Names(int bin = 0) {
        std::vector<std::string> names;
        for (const BinRow& row : s.Bins[bin].Rows) names.push_back(row.Name);
        return names;
    }
    /// Bin 0 with the samples "one" and "two", loading into LoopTrack `destination`.
    void FillBin(std::int16_t destination) {
        WriteBytes(Folder / "one.wav", "");
        WriteBytes(Folder / "two.WAV", "");
        UpdatePickFile(s, 0);
        s.Bins[0].Destination = destination;
        Screen.Log.clear();
    }
};

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
    const auto sample = SampleAt(b.s, 0, 0);
    ASSERT_TRUE(sample);
    EXPECT_EQ(sample->Folder, samples.Path() + "/");
    EXPECT_EQ(sample->Name, "deep");
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

TEST(Destinations, TheNineRowsNameTheLoopTracksAndTheCommands) {
    Browser b;
    b.s.Set[1].FileName = "/s/Kick.wav";
    const auto texts = DestinationTexts(b.s);
    EXPECT_EQ(texts[0], "A: ");
    EXPECT_EQ(texts[1], "B: Kick");
    const std::array<std::string, 5> rest{"> Gang", "Drg Drp", "Drg Drp (All)", "Distribute (All)", "Gang (All)"};
    for (std::size_t k = 0; k < rest.size(); ++k) EXPECT_EQ(texts[4 + k], rest[k]);
}

TEST(Destinations, TheCommandsSetAllBinsAndAreNeverAState) {
    Browser b;
    const auto destinations = [&] {
        return std::array<int, 3>{b.s.Bins[0].Destination, b.s.Bins[1].Destination, b.s.Bins[2].Destination};
    };
    ChooseDestination(b.s, 1, kAllDistribute);
    EXPECT_EQ(destinations(), (std::array<int, 3>{0, 1, 2}));
    ChooseDestination(b.s, 2, kAllGang);
    EXPECT_EQ(destinations(), (std::array<int, 3>{4, 4, 4}));
    ChooseDestination(b.s, 0, kAllDrag);
    EXPECT_EQ(destinations(), (std::array<int, 3>{5, 5, 5}));
    EXPECT_EQ(BinColour(b.s, 1), (Colour{227, 232, 223}));
    b.Screen.Log.clear();
    ChooseDestination(b.s, 1, 3);
    EXPECT_EQ(b.Screen.Log, (std::vector<std::string>{"ShowDestinations", "ShowBin 1"}));
    EXPECT_EQ(destinations(), (std::array<int, 3>{5, 3, 5}));
    EXPECT_EQ(BinColour(b.s, 1), (Colour{200, 203, 198}));
    ChooseDestination(b.s, 1, 9);
    ChooseDestination(b.s, 1, -1);
    EXPECT_EQ(b.s.Bins[1].Destination, 3);
}

TEST(BinGestures, ALeftClickLoadsIntoTheDestinationAndPlaysWithAutoPlay) {
    Browser b;
    b.FillBin(1);
    EXPECT_FALSE(PickFile_MouseDown(b.s, 0, kLeftButton, 1, 10, 300));
    PickFile_MouseUp(b.s, 0, kLeftButton, 1);
    EXPECT_EQ(b.s.Set[1].FileName, b.Folder / "two.WAV");
    EXPECT_NE(b.s.Run[1].Playing, False);
    EXPECT_EQ(b.s.Bins[0].Selected, 1);
    EXPECT_EQ(b.Screen.Count("ShowFolderTree hide"), 1);
    b.s.Bins[0].ClickPlay = 0;
    b.s.Bins[0].Destination = 2;
    PickFile_MouseUp(b.s, 0, kLeftButton, 0);
    EXPECT_NE(b.s.Run[2].Loaded, False);
    EXPECT_EQ(b.s.Run[2].Playing, False);
}

TEST(BinGestures, ARightClickTogglesTheDestination) {
    Browser b;
    b.FillBin(1);
    b.Fill(1);
    PickFile_MouseUp(b.s, 0, kRightButton, 0);
    EXPECT_NE(b.s.Run[1].Playing, False);
    PickFile_MouseUp(b.s, 0, kRightButton, 0);
    EXPECT_EQ(b.s.Run[1].Playing, False);
    EXPECT_EQ(b.Screen.Count("ShowFolderTree hide"), 2);
    PickFile_MouseUp(b.s, 0, kMiddleButton, 0);
    EXPECT_EQ(b.s.Run[1].Playing, False);
}

TEST(BinGestures, ARightClickInAGangBinTogglesTheSelection) {
    Browser b;
    b.FillBin(kGangDestination);
    for (const Row row : {Row{0}, Row{1}, Row{3}}) b.Fill(row);
    b.Select(0);
    b.Select(3);
    PickFile_MouseUp(b.s, 0, kRightButton, 0);
    EXPECT_NE(b.s.Run[0].Playing, False);
    EXPECT_EQ(b.s.Run[1].Playing, False);
    EXPECT_NE(b.s.Run[3].Playing, False);
}

TEST(BinGestures, TheGangDestinationLoadsIntoTheSelection) {
    Browser b;
    b.FillBin(kGangDestination);
    b.Select(0);
    b.Select(3);
    PickFile_MouseUp(b.s, 0, kLeftButton, 1);
    EXPECT_NE(b.s.Run[0].Loaded, False);
    EXPECT_EQ(b.s.Run[1].Loaded, False);
    EXPECT_NE(b.s.Run[3].Loaded, False);
}

TEST(BinGestures, ADragOnlyBinDragsByLeftOrRightAndAClickDoesNotLoad) {
    Browser b;
    b.FillBin(kDragDestination);
    for (const std::int16_t button : {kLeftButton, kRightButton}) {
        const auto drag = PickFile_MouseDown(b.s, 0, button, 1, 10, 300);
        ASSERT_TRUE(drag);
        EXPECT_EQ(*drag, (DragSource{"PickFile", 0, ""}));
        EXPECT_EQ(b.s.Bins[0].Selected, 1);
    }
    EXPECT_FALSE(PickFile_MouseDown(b.s, 0, kMiddleButton, 1, 10, 300));
    PickFile_MouseUp(b.s, 0, kLeftButton, 1);
    EXPECT_EQ(b.s.Run[0].Loaded, False);
}

TEST(BinGestures, ADragRemembersItsBinAndHidesTheTree) {
    Browser b;
    WriteBytes(b.Folder / "one.wav", "");
    UpdatePickFile(b.s, 2);
    PickDir_Click(b.s, 2);
    ASSERT_TRUE(PickFile_MouseDown(b.s, 2, kLeftButton, 0, 10, 300));
    EXPECT_EQ(b.s.DragBin, 2);
    EXPECT_EQ(b.Screen.Count("ShowFolderTree hide"), 1);
}

TEST(BinGestures, TheRightThirdDragsByAnyButtonAndAPressBesideARowDoesNot) {
    Browser b;
    b.FillBin(0);
    EXPECT_FALSE(PickFile_MouseDown(b.s, 0, kLeftButton, 0, 199, 300));
    EXPECT_TRUE(PickFile_MouseDown(b.s, 0, kMiddleButton, 0, 200, 300));
    EXPECT_FALSE(PickFile_MouseDown(b.s, 0, kLeftButton, -1, 250, 300));
    EXPECT_FALSE(PickFile_MouseDown(b.s, 0, kLeftButton, 2, 250, 300));
    EXPECT_TRUE(BinDragsAt(b.s, 0, 200, 300));
    EXPECT_FALSE(BinDragsAt(b.s, 0, 199, 300));
    b.s.Bins[0].Destination = kDragDestination;
    EXPECT_TRUE(BinDragsAt(b.s, 0, 0, 300));
}

TEST(BinGestures, APressOnAnEmptyListOpensTheTreeOnTheBinsFolder) {
    Browser b;
    EXPECT_FALSE(PickFile_MouseDown(b.s, 2, kLeftButton, -1, 10, 300));
    EXPECT_EQ(b.s.TreeFolder, b.Folder.Path());
    EXPECT_EQ(b.Screen.Count("ShowFolderTree open"), 1);
    FolderTree_MouseUp(b.s, kLeftButton);
    EXPECT_EQ(b.Screen.Count("ShowFolderTree hide"), 0);
    FolderTree_MouseUp(b.s, kRightButton);
    EXPECT_EQ(b.Screen.Count("ShowFolderTree hide"), 1);
}

TEST(BinGestures, AFolderButtonTakesTheFolderOfAnotherOrOfTheTreeAndIgnoresTheRest) {
    Browser b;
    TempFolder other;
    WriteBytes(other / "x.wav", "");
    PickDir_DropFolder(b.s, 1, other.Path());
    EXPECT_EQ(b.Names(1), std::vector<std::string>{"x"});
    PickDir_DragDrop(b.s, 0, {"PickDir", 1, ""});
    EXPECT_EQ(b.s.Bins[0].Folder, other.Path());
    EXPECT_EQ(b.Names(0), std::vector<std::string>{"x"});
    for (const char* name : {"PickFile", "Letr", ""}) PickDir_DragDrop(b.s, 2, {name, 1, ""});
    PickDir_DragDrop(b.s, 2, {"PickDir", 3, ""});
    EXPECT_EQ(b.s.Bins[2].Folder, b.Folder.Path());
}

TEST(BinHint, NamesTheSampleAndWhatTheMouseDoes) {
    Browser b;
    b.FillBin(0);
    EXPECT_EQ(BinHint(b.s, 0, 0), "one (0k) clk Ld->Dest; rtclk Stp/Ply Dest; rt margin drg to Target");
    b.s.Bins[0].Destination = kDragDestination;
    EXPECT_EQ(BinHint(b.s, 0, 1), "two (0k) drg to Target");
    EXPECT_EQ(BinHint(b.s, 0, 2), "");
}

}  // namespace
}  // namespace marvolin
