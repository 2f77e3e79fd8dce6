#include "performance/drops/palette.h"

#include <gtest/gtest.h>

#include "fakes/file_bytes.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using namespace test;

constexpr double kDragEdge = 8 * 15;

struct Palette : Instrument {
    TempFolder Folder;
    Palette() {
        for (const char* name : {"new.wav", "old.wav"}) WriteBytes(Folder / name, "");
        s.History[1] = {Folder / "new.wav", Folder / "old.wav"};
        for (SampleBin& bin : s.Bins) bin.ClickPlay = 0;
    }
    void Open(Row row) { DropDown_MouseUp(s, row, kDragEdge + 1); }
};

TEST(DropDown, ItsUpperEightPixelsDragAndBelowThemItOpens) {
    Palette p;
    EXPECT_EQ(DropDown_MouseDown(p.s, 2, kDragEdge), (DragSource{"DropDown", 2, ""}));
    EXPECT_FALSE(DropDown_MouseDown(p.s, 2, kDragEdge + 1));
    EXPECT_TRUE(DropDownDragsAt(p.s, 0));
    EXPECT_FALSE(DropDownDragsAt(p.s, kDragEdge + 1));
    DropDown_MouseUp(p.s, 2, kDragEdge);
    EXPECT_EQ(p.Screen.Count("ShowHistoryList open"), 0);
}

TEST(HistoryList, ShowsTheThreeFixedEntriesAndTheSamplesNewestFirst) {
    Palette p;
    p.Open(1);
    EXPECT_EQ(p.s.HistoryEntries,
              (std::vector<std::string>{"<Close>", "<Empty Looptrack>", "<Reverse Looptrack>", "new", "old"}));
    EXPECT_EQ(p.s.HistoryRow, 1);
    EXPECT_EQ(p.s.LoopDropTarget, 1);
    EXPECT_EQ(p.Screen.Count("ShowHistoryList open"), 1);
}

TEST(HistoryList, ALoopTrackWithAnEmptyHistoryShowsTheThreeFixedEntries) {
    Palette p;
    p.Open(0);
    EXPECT_EQ(p.s.HistoryEntries.size(), 3U);
}

TEST(HistoryList, CloseHidesAndAnyOtherEntryStartsADrag) {
    Palette p;
    p.Open(1);
    EXPECT_FALSE(HistoryList_MouseDown(p.s, 0));
    EXPECT_EQ(p.Screen.Count("ShowHistoryList hide"), 1);
    EXPECT_EQ(HistoryList_MouseDown(p.s, 4), (DragSource{"HistoryList", 1, ""}));
    EXPECT_EQ(p.Screen.Count("ShowHistoryList hide"), 1);
}

TEST(HistoryList, AnEntryLoadsIntoTheLoopTrackOnWhichItIsDropped) {
    Palette p;
    p.Open(1);
    const auto drag = HistoryList_MouseDown(p.s, 4);
    DropHistory(p.s, 3, *drag);
    EXPECT_EQ(p.s.Set[3].FileName, p.Folder / "old.wav");
    EXPECT_EQ(p.s.Run[3].Playing, False);
    EXPECT_EQ(p.Screen.Count("ShowHistoryList hide"), 1);
}

TEST(HistoryList, AnEntryLoadsTheFileThatItsLoopTrackHeldWhateverItsName) {
    Palette p;
    p.Folder.Touch("a.WAV");
    for (const char* name : {"a.wav", "kick", "kick.pcm", "c\\d.WAV"}) {
        const std::string path = p.Folder.Touch(name);
        p.s.History[1] = {path};
        p.Open(1);
        HistoryList_MouseDown(p.s, kHistorySamples);
        DropHistory(p.s, 3, {"HistoryList", 1, ""});
        EXPECT_EQ(p.s.Set[3].FileName, path);
    }
    EXPECT_TRUE(p.Desk.Boxes.empty());
}

TEST(HistoryList, AnEntryLetGoOnTheListLoadsIntoTheRowThatOpenedIt) {
    Palette p;
    p.s.PlayOnLoad = true;
    p.Open(1);
    HistoryList_MouseDown(p.s, 3);
    HistoryList_DragDrop(p.s);
    EXPECT_EQ(p.s.Set[1].FileName, p.Folder / "new.wav");
    EXPECT_NE(p.s.Run[1].Playing, False);
}

TEST(HistoryList, CloseDroppedOnALoopTrackOnlyClosesTheList) {
    Palette p;
    p.Fill(2, p.Folder / "new.wav");
    p.Open(1);
    HistoryList_MouseDown(p.s, 0);
    p.Screen.Log.clear();
    DropHistory(p.s, 2, {"HistoryList", 1, ""});
    EXPECT_NE(p.s.Run[2].Loaded, False);
    EXPECT_EQ(p.Screen.Count("ShowHistoryList hide"), 1);
}

TEST(HistoryList, ADropBringsTheBallOfItsTargetToTheFrontButNotForRowFour) {
    Palette p;
    p.s.ActiveTab = kMapTab;
    p.Open(1);
    HistoryList_MouseDown(p.s, kHistoryEmpty);
    DropHistory(p.s, 2, {"HistoryList", 1, ""});
    EXPECT_EQ(p.s.PosHighlight, 2);
    DropHistory(p.s, kSelectionRow, {"HistoryList", 1, ""});
    EXPECT_EQ(p.s.PosHighlight, 2);
}

TEST(HistoryList, EmptyAndReverseActOnTheTarget) {
    Palette p;
    p.Fill(2, p.Folder / "new.wav");
    p.Open(1);
    HistoryList_MouseDown(p.s, 2);
    DropHistory(p.s, 2, {"HistoryList", 1, ""});
    EXPECT_EQ(p.Sound.Count("WriteBuffer"), 1);
    HistoryList_MouseDown(p.s, 1);
    DropHistory(p.s, 2, {"HistoryList", 1, ""});
    EXPECT_EQ(p.s.Run[2].Loaded, False);
}

TEST(HistoryList, AnEntryThatIsNotThereDoesNothing) {
    Palette p;
    p.Open(1);
    for (const std::int16_t entry : {std::int16_t{5}, std::int16_t{-1}}) {
        HistoryList_MouseDown(p.s, entry);
        DropHistory(p.s, 0, {"HistoryList", 1, ""});
        EXPECT_EQ(p.s.Run[0].Loaded, False);
    }
    EXPECT_TRUE(p.Desk.Boxes.empty());
}

}  // namespace
}  // namespace marvolin
