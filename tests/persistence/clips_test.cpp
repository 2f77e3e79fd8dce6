#include "persistence/clips.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "browser/clipboard.h"
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

TEST(CopyIt, PutsAWholeClipOnALoopTrackAndPlaysItWhenAsked) {
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

TEST(ClipFile, AnEmptyStoreIsTheCountZero) {
    Clips c;
    RecordWriter out(c.Folder / "clips");
    WriteClipBoard(c.s, out);
    out.Close();
    EXPECT_EQ(ReadBytes(c.Folder / "clips"), Bytes().I16(0).Str());
}

}  // namespace
}  // namespace marvolin
