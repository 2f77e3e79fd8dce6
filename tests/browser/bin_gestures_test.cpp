#include "browser/bin_gestures.h"

#include <gtest/gtest.h>

#include "browser/browser.h"
#include "browser/destinations.h"

namespace marvolin {
namespace {

using namespace test;

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

TEST(BinGestures, TwoSamplesThatDifferInCaseOnlyEachLoadTheFileThatWasChosen) {
    Browser b;
    const std::string upper = b.Folder.Touch("a.WAV");
    const std::string lower = b.Folder.Touch("a.wav");
    UpdatePickFile(b.s, 0);
    ASSERT_EQ(b.Names(), (std::vector<std::string>{"a.WAV", "a.wav"})) << "rows that would look alike";
    b.s.Bins[0].Destination = 1;
    PickFile_MouseUp(b.s, 0, kLeftButton, 1);
    EXPECT_EQ(b.s.Set[1].FileName, lower);
    DropFromBin(b.s, 2, {"PickFile", 0, ""});
    EXPECT_EQ(b.s.Set[2].FileName, lower);
    PickFile_MouseUp(b.s, 0, kLeftButton, 0);
    EXPECT_EQ(b.s.Set[1].FileName, upper);
    PickFile_MouseUp(b.s, 0, kLeftButton, 1);
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Selected, 1) << "a rescan keeps the chosen one of the two";
}

TEST(BinGestures, ARowBeyondTheRangeOfAnIntegerIsChosenAndLoaded) {
    Browser b;
    b.FillBin(1);
    constexpr int kFar = 39999;
    b.s.Bins[0].Rows.insert(b.s.Bins[0].Rows.begin(), kFar, BinRow{"absent", "1", "", "absent.wav"});
    b.s.Bins[0].Destination = kDragDestination;
    ASSERT_TRUE(PickFile_MouseDown(b.s, 0, kLeftButton, kFar, 10, 300));
    EXPECT_EQ(b.s.Bins[0].Selected, kFar);
    DropFromBin(b.s, 2, {"PickFile", 0, ""});
    EXPECT_EQ(b.s.Set[2].FileName, SampleAt(b.s, 0, kFar));
    EXPECT_NE(b.s.Run[2].Loaded, False);
    b.s.Bins[0].Destination = 1;
    PickFile_MouseUp(b.s, 0, kLeftButton, kFar);
    EXPECT_EQ(b.s.Bins[0].Selected, kFar);
    UpdatePickFile(b.s, 0);
    EXPECT_EQ(b.s.Bins[0].Selected, 0);
}

TEST(BinGestures, AShortcutLoadsItsTargetAsItIsSpelled) {
    Browser b;
    TempFolder samples;
    b.Folder.Touch("x.wav.lnk");
    samples.Touch("deep.WAV");
    const std::string target = samples.Touch("deep.waV");
    b.s.World.ResolveShortcut = [&](const std::string&) { return target; };
    UpdatePickFile(b.s, 0);
    b.s.Bins[0].Destination = 3;
    PickFile_MouseUp(b.s, 0, kLeftButton, 0);
    EXPECT_EQ(b.s.Set[3].FileName, target);
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

}  // namespace
}  // namespace marvolin
