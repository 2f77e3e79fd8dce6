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
    /// A clip of the sample that differs from every default.
    void AddWild() {
        LoopTrackSet& clip = s.Clips.ClipStaging;
        clip.FileName = Sample;
        clip.Vol = 100;
        clip.Hz = 2000;
        clip.Pan = 200;
        clip.Channel = 4;
        clip.NSteps = 9;
        for (PatternBlock& row : clip.Pattern) row[0] = 42;
        clip.PositionX = 0.5F;
        AddNewClip(s);
        s.Clips.Selected = s.Clips.ClipTop;
        s.ResetVars = false;
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

TEST(CopyIt, PutsAWholeClipOnALoopTrackAndPlaysItWhenTold) {
    Clips c;
    c.AddWild();
    CopyIt(c.s, 2, 0, true);
    EXPECT_EQ(c.s.Set[2].FileName, c.Sample);
    EXPECT_EQ(c.s.Set[2].Vol, 100);
    EXPECT_EQ(c.s.Set[2].Hz, 2000);
    EXPECT_EQ(c.s.Set[2].Channel, 4);
    EXPECT_NE(c.s.Run[2].Playing, False);
    CopyIt(c.s, 1, 0, false);
    EXPECT_EQ(c.s.Run[1].Playing, False);
    CopyIt(c.s, kSelectionRow, 0, true);
    EXPECT_EQ(c.s.Set[4].Hz, 1000);
    CopyIt(c.s, 0, 7, true);
    EXPECT_EQ(c.s.Set[0].Hz, 1000);
}

TEST(CopyIt, ALoadedSampleShowsItsRowAgain) {
    Clips c;
    c.AddWild();
    c.Screen.Log.clear();
    for (bool& box : c.s.Clips.Components) box = false;
    CopyIt(c.s, 2, 0, true);
    EXPECT_EQ(c.Screen.Count("ShowWire 2"), 0);
    EXPECT_EQ(c.s.Run[2].Playing, False);
    c.s.Clips.Components[0] = true;
    CopyIt(c.s, 2, 0, false);
    EXPECT_EQ(c.Screen.Count("ShowWire 2"), 1);
}

TEST(CopyIt, EachBoxTurnsItsOwnElementsOff) {
    for (int box = 0; box < 7; ++box) {
        SCOPED_TRACE(kComponentTexts[static_cast<std::size_t>(box)]);
        Clips c;
        c.AddWild();
        c.s.Clips.Components[box] = false;
        CopyIt(c.s, 2, 0, false);
        const LoopTrackSet& set = c.s.Set[2];
        EXPECT_EQ(set.FileName, box == 0 ? "" : c.Sample);
        EXPECT_EQ(set.Vol, box == 1 ? 500 : 100);
        EXPECT_EQ(set.Hz, box == 2 ? 1000 : 2000);
        EXPECT_EQ(set.Pan, box == 3 ? 500 : 200);
        EXPECT_EQ(set.NSteps, box == 4 ? 3 : 9);
        for (const PatternBlock& row : set.Pattern) EXPECT_EQ(row[0] == 42, box != 4);
        EXPECT_EQ(set.Channel, box == 6 ? 3 : 4);
    }
}

TEST(CopyIt, PlacesComeWith3DOnUnlessTheirBoxIsOff) {
    for (const bool on : {true, false}) {
        Clips c;
        c.AddWild();
        c.s.Use3D = true;
        c.s.Clips.Components[0] = false;
        c.s.Clips.Components[5] = on;
        CopyIt(c.s, 2, 0, false);
        EXPECT_EQ(c.s.Set[2].PositionX, on ? 0.5F : 0.0F);
    }
}

TEST(CopyIt, AClipWhoseSampleHasGoneFailsLikeAnyMissingSample) {
    Clips c;
    c.AddWild();
    std::filesystem::remove(c.Sample);
    CopyIt(c.s, 2, 0, true);
    EXPECT_EQ(c.Desk.LastBox(), "File Doesn't Exist !!");
    EXPECT_EQ(c.s.Run[2].Playing, False);
}

TEST(CopyIt, AMissingSampleDoesNotStartTheOneThatIsThere) {
    Clips c;
    c.AddWild();
    std::filesystem::remove(c.Sample);
    c.Fill(2, "/samples/mine.WAV");
    CopyIt(c.s, 2, 0, true);
    EXPECT_EQ(c.s.Set[2].FileName, "/samples/mine.WAV");
    EXPECT_EQ(c.s.Run[2].Playing, False);
}

TEST(CopyIt, ThePatternsOfTheLoopTrackInFrontAreShownAgain) {
    Clips c;
    c.AddWild();
    c.s.ActiveTab = kPatternTab;
    c.s.Clips.Components[0] = false;
    c.s.CurrentLoop = 2;
    CopyIt(c.s, 2, 0, false);
    EXPECT_EQ(c.s.StepsShown, 10);
}

TEST(DropClip, ALeftDragCopiesAllWhateverTheBoxesSayAndARightDragByTheBoxes) {
    Clips c;
    c.AddWild();
    c.s.Clips.Components[1] = false;
    DropClip(c.s, 1, {"ClipBoardList", 0, "1"});
    EXPECT_EQ(c.s.Set[1].Vol, 100);
    EXPECT_NE(c.s.Run[1].Playing, False);
    EXPECT_FALSE(c.s.Clips.Components[1]);
    DropClip(c.s, 2, {"ClipBoardList", 0, "2"});
    EXPECT_EQ(c.s.Set[2].Vol, 500);
    EXPECT_EQ(c.s.Set[2].Hz, 2000);
    EXPECT_EQ(c.s.Run[2].Playing, False);
}

TEST(ClipFile, OpeningTheSameClipsTwiceDoublesThemNumbered) {
    Clips c;
    c.Add("/a/x.wav");
    c.Add("/a/y.wav");
    RecordWriter out(c.Folder / "clips");
    WriteClipBoard(c.s, out);
    out.Close();
    RecordReader in(c.Folder / "clips");
    c.Screen.Log.clear();
    ReadClipBoard(c.s, in, true);
    EXPECT_EQ(c.Screen.Count("ShowClips"), 1);
    EXPECT_EQ(c.s.Clips.List, (std::vector<std::string>{"x", "y", "(2) x", "(2) y"}));
    RecordReader again(c.Folder / "clips");
    ReadClipBoard(c.s, again, false);
    EXPECT_EQ(c.s.Clips.ClipTop, 3);
    EXPECT_EQ(again.Left(), 0U);
}

TEST(ClipFile, AnEmptyStoreIsTheCountNull) {
    Clips c;
    RecordWriter out(c.Folder / "clips");
    WriteClipBoard(c.s, out);
    out.Close();
    EXPECT_EQ(ReadBytes(c.Folder / "clips"), Bytes().I16(0).Str());
}

}  // namespace
}  // namespace marvolin
