#include "browser/clipboard.h"

#include <gtest/gtest.h>

#include "fakes/file_bytes.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using namespace test;

struct Clips : Instrument {
    TempFolder Folder;
    std::string Sample = Folder / "Drum.wav";
    Clips() { WriteBytes(Sample, ""); }
    void Add(const std::string& path) {
        s.Clips.ClipStaging.FileName = path;
        AddNewClip(s);
    }
};

TEST(ClipBoard, ThreeClipsOfOneSampleAreNumbered) {
    Clips c;
    for (int k = 0; k < 3; ++k) c.Add("/a/Drum.wav");
    c.Add("/b/Drum.wav");
    EXPECT_EQ(c.Screen.Count("ShowClips"), 4);
    EXPECT_EQ(c.s.Clips.List, (std::vector<std::string>{"Drum", "(2) Drum", "(3) Drum", "Drum"}));
    EXPECT_EQ(c.s.Clips.ClipTop, 3);
}

TEST(ClipBoard, DeletingMovesTheLaterClipsDownAndKeepsTheirTexts) {
    Clips c;
    for (int k = 0; k < 3; ++k) c.Add("/a/Drum.wav");
    c.s.Clips.Selected = 0;
    c.Screen.Log.clear();
    DeleteClip(c.s, 0);
    EXPECT_EQ(c.s.Clips.List, (std::vector<std::string>{"(2) Drum", "(3) Drum"}));
    EXPECT_EQ(c.s.Clips.Selected, -1) << "the next clip has not been chosen";
    EXPECT_EQ(c.Screen.Count("ShowClips"), 1);
    DeleteClip(c.s, 5);
    DeleteClip(c.s, -1);
    DeleteClip(c.s, 0);
    DeleteClip(c.s, 0);
    EXPECT_EQ(c.s.Clips.ClipTop, -1);
    EXPECT_TRUE(c.s.Clips.ClipStore.empty());
}

TEST(ClipBoard, The2002ndClipIsRefused) {
    Clips c;
    for (int k = 0; k < 2001; ++k) c.Add(std::to_string(k));
    EXPECT_EQ(c.s.Clips.ClipTop, 2000);
    EXPECT_TRUE(c.Desk.Boxes.empty());
    c.Add("one more");
    EXPECT_EQ(c.Desk.LastBox(), "Too many LoopTracks on ClipBoard.");
    EXPECT_EQ(c.s.Clips.ClipTop, 2000);
}

TEST(ClipBoard, ADropOfALoadedLoopTrackAddsItAndOfAnEmptyOneNothing) {
    Clips c;
    c.Fill(1, "/a/Bass.wav");
    ClipBoardList_DragDrop(c.s, {"DropDown", 0, ""});
    EXPECT_EQ(c.s.Clips.ClipTop, -1);
    ClipBoardList_DragDrop(c.s, {"DropDown", 1, ""});
    EXPECT_EQ(c.s.Clips.List, std::vector<std::string>{"Bass"});
    EXPECT_EQ(c.s.Clips.ClipStore[0], c.s.Set[1]);
    for (const DragSource& other :
         {DragSource{"Letr", 1, ""}, {"DropDown", 5, ""}, {"DropDown", 6, ""}, {"DropDown", -1, ""}}) {
        ClipBoardList_DragDrop(c.s, other);
    }
    EXPECT_EQ(c.s.Clips.ClipTop, 0);
}

TEST(ClipBoard, ADropOfTheSelectionRowWhileNothingIsSelectedAddsNothing) {
    Clips c;
    c.Fill(1);
    ClipBoardList_DragDrop(c.s, {"DropDown", 4, ""});
    EXPECT_EQ(c.s.Clips.ClipTop, -1);
    c.Select(1);
    c.Select(2);
    ClipBoardList_DragDrop(c.s, {"DropDown", 4, ""});
    EXPECT_EQ(c.s.Clips.ClipTop, 0);
}

TEST(ClipBoard, ADropOfTheSelectionRowTakesTheSelectedRowsAlsoOutOfControl) {
    Clips c;
    c.Fill(1, "/a/selected.wav");
    c.Fill(2, "/a/in a band.wav");
    c.Select(1);
    c.s.SelectionControlled = false;
    c.MakeBand(1, 2, 2);
    c.s.BandTable[1].Controlled = True;
    ClipBoardList_DragDrop(c.s, {"DropDown", 4, ""});
    EXPECT_EQ(c.s.Clips.List, std::vector<std::string>{"selected"});
}

TEST(ClipBoard, TrashRemovesTheChosenClipAndNothingElse) {
    Clips c;
    c.Add("/a/x.wav");
    c.Add("/a/y.wav");
    EXPECT_EQ(ClipBoardList_MouseDown(c.s, 0, kLeftButton), (DragSource{"ClipBoardList", 0, "1"}));
    Trash_DragDrop(c.s, {"DropDown", 0, ""});
    EXPECT_EQ(c.s.Clips.ClipTop, 1);
    Trash_DragDrop(c.s, {"ClipBoardList", 0, "1"});
    EXPECT_EQ(c.s.Clips.List, std::vector<std::string>{"y"});
}

TEST(ClipBoard, ClearAllAsksFirst) {
    Clips c;
    c.Add("/a/x.wav");
    c.Desk.Answers = {false, true};
    ClearClip_Click(c.s);
    EXPECT_EQ(c.s.Clips.ClipTop, 0);
    EXPECT_EQ(c.Desk.LastBox(), "Clear all items from clipboard?");
    EXPECT_EQ(c.Desk.Boxes[0].Title, "Clear?");
    EXPECT_EQ(c.Desk.Boxes[0].Style, BoxStyle::Question);
    c.Screen.Log.clear();
    ClearClip_Click(c.s);
    EXPECT_EQ(c.s.Clips.ClipTop, -1);
    EXPECT_TRUE(c.s.Clips.List.empty());
    EXPECT_EQ(c.Screen.Count("ShowClips"), 1);
}

}  // namespace
}  // namespace marvolin
