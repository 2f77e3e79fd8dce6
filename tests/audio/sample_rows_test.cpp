#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/loader.h"
#include "audio/sample_loading.h"

namespace marvolin {
namespace {

using test::Instrument;
using test::Loader;

TEST(LoadSample, ALoopTrackAloneLeavesItsBandAndTheMapUntouched) {
    Loader i;
    i.MakeBand(2, 1, 2);
    i.s.ActiveTab = kMapTab;
    const std::string path = i.Make("a.WAV");
    LoadSample(i.s, {.Path = path, .Target = 2, .Rows = Reach::Alone, .Play = true});
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(i.s.Set[2].FileName, path);
    EXPECT_EQ(i.s.Run[2].Playing, True);
    EXPECT_EQ(i.s.PosHighlight, -1);
}

TEST(LoadSample, ThePathIsTakenAsItIsSpelled) {
    Loader i;
    i.Make("a.WAV");
    for (const char* name : {"a.wav", "a", "c\\d.pcm"}) {
        const std::string path = i.Make(name);
        LoadSample(i.s, {.Path = path, .Target = 1});
        EXPECT_EQ(i.s.Set[1].FileName, path);
    }
}

TEST(LoadSample, AnEmptyPathAndAMissingFileShowTheirMessagesForEachRow) {
    Loader i;
    i.Select(0);
    i.Select(3);
    LoadSample(i.s, {.Path = "", .Target = kSelectionRow});
    LoadSample(i.s, {.Path = i.Folder / "gone.wav", .Target = kSelectionRow});
    ASSERT_EQ(i.Desk.Boxes.size(), 4U);
    EXPECT_EQ(i.Desk.Boxes[0].Text, "No File Name!!");
    EXPECT_EQ(i.Desk.Boxes[1].Text, "No File Name!!");
    EXPECT_EQ(i.Desk.Boxes[2].Text, "File Doesn't Exist !!");
    EXPECT_EQ(i.Desk.Boxes[3].Text, "File Doesn't Exist !!");
}

TEST(LoopLoadRows, AppendsTheExtensionAndLoadsTheRowAlone) {
    Loader i;
    const std::string path = i.Make("beat.WAV");
    LoopLoadRows(i.s, i.Folder.Path(), "beat", 2, false);
    EXPECT_EQ(i.s.Set[2].FileName, path);
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    LoopLoadRows(i.s, i.Folder.Path(), "beat", 1, true);
    EXPECT_EQ(i.s.Run[1].Playing, True);
}

TEST(LoopLoadRows, FindsAnExtensionInAnotherCaseOnDisk) {
    Loader i;
    for (const char* extension : {"wav", "Wav", "wAV"}) {
        const std::string path = i.Make(std::string("x_") + extension + "." + extension);
        LoopLoadRows(i.s, i.Folder.Path(), std::string("x_") + extension, 0, false);
        EXPECT_EQ(i.s.Set[0].FileName, path);
    }
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(LoopLoadRows, PrefersTheSpellingInCapitalsAndReportsAMissingFile) {
    Loader i;
    i.Make("a.wav");
    const std::string path = i.Make("a.WAV");
    LoopLoadRows(i.s, i.Folder.Path(), "a", 0, false);
    EXPECT_EQ(i.s.Set[0].FileName, path);
    LoopLoadRows(i.s, i.Folder.Path(), "gone", 0, true);
    EXPECT_EQ(i.Desk.LastBox(), "File Doesn't Exist !!");
    EXPECT_EQ(i.s.Set[0].FileName, path);
}

TEST(LoopLoadRows, RowFourLoadsAllControlledRowsBeforeItPlaysThem) {
    Loader i;
    i.Make("a.WAV");
    i.Select(1);
    i.Select(3);
    i.s.ActiveTab = kMapTab;
    LoopLoadRows(i.s, i.Folder.Path(), "a", kSelectionRow, true);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    EXPECT_EQ(i.s.Run[3].Playing, True);
    const auto& log = i.Sound.Log;
    EXPECT_LT(std::find(log.begin(), log.end(), "DuplicateSoundBuffer b0"),
              std::find(log.begin(), log.end(), "Play b0 1"));
    EXPECT_EQ(i.s.PosHighlight, -1);
}

TEST(LoopLoadRows, ARowInABandLoadsAndPlaysTheWholeBandAndIsHighlightedOnTheMap) {
    Loader i;
    i.Make("a.WAV");
    i.MakeBand(2, 1, 2);
    i.s.ActiveTab = kMapTab;
    LoopLoadRows(i.s, i.Folder.Path(), "a", 2, true);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    EXPECT_EQ(i.s.Run[2].Playing, True);
    EXPECT_EQ(i.s.Run[3].Loaded, False);
    EXPECT_EQ(i.s.PosHighlight, 2);
}

TEST(LoopLoadRows, ARowOutsideZeroToFourDoesNothing) {
    Loader i;
    i.Make("a.WAV");
    for (const Row row : std::initializer_list<Row>{-1, 5, 6, 100}) LoopLoadRows(i.s, i.Folder.Path(), "a", row, true);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(LoopFileName, IsTheNameWithoutFolderAndExtension) {
    Instrument i;
    i.Fill(0, "/samples/drums/kick 1.WAV");
    EXPECT_EQ(LoopFileName(i.s, 0), "kick 1");
    EXPECT_EQ(LoopFileName(i.s, 1), "");
}

}  // namespace
}  // namespace marvolin
