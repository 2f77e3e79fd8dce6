// A sample that is missing when a set is opened keeps its place.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>

#include "audio/carrying.h"
#include "audio/loop_clearing.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "browser/clipboard.h"
#include "core/files/paths.h"
#include "fakes/file_bytes.h"
#include "kept/kept_rig.h"
#include "parameters/setters.h"
#include "persistence/clips.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/missing/sample_choice.h"
#include "persistence/missing/sample_search.h"
#include "persistence/save_open.h"
#include "persistence/session_writer.h"
#include "persistence/undo/undo_commands.h"

namespace marvolin {
namespace {

using namespace test;
namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

clsSwitchRecord Only(std::initializer_list<Element> elements) {
    clsSwitchRecord switches;
    for (const Element element : elements) switches.Put(element, true);
    return switches;
}

/// A set "set.mvn" whose samples of A and C have gone to the folder "moved"; B is there. D is empty.
struct TwoMissing : KeptRig {
    std::string Written;  ///< the bytes of the set
    TwoMissing() {
        Load(0, "a.wav");
        Load(1, "b.wav");
        Load(2, "c.wav");
        for (Row row = 0; row < 3; ++row) {
            std::int16_t vol = static_cast<std::int16_t>(100 + row);
            LoopVolChange(s, row, vol, TakeHold::Yes, UpdateDisplay::Yes);
        }
        LoopClear(s, 3);
        LoopPlay(s, 2, true);
        EXPECT_TRUE(Save("set.mvn"));
        Written = ReadBytes(Folder / "set.mvn");
        for (Row row = 0; row < kLoopTracks; ++row) LoopClear(s, row);
        Move("moved");
        s.EmptyBlankSetting = 1;
        Desk.Boxes.clear();
    }
    void Move(const std::string& folder) const {
        fs::create_directories(Folder / folder);
        for (const char* name : {"a.wav", "c.wav"}) fs::rename(Folder / name, Folder / folder + "/" + name);
    }
    /// LoopTrack A in what a save writes now.
    LoopTrackSet SavedA() {
        EXPECT_TRUE(SaveSession(s, Folder / "saved.mvn", LoopsSaved::All, AllSwitches()));
        KeptRig reader;
        EXPECT_TRUE(OpenBesideDialogue(reader.s, Folder / "saved.mvn"));
        return reader.s.Run[0].Missing ? reader.s.Run[0].Missing->Loop.Set : LoopTrackSet();
    }
    FoundSamples Both() const { return {{"a.wav", {Folder / "moved/a.wav"}}, {"c.wav", {Folder / "moved/c.wav"}}}; }
};

TEST(MissingSamples, KeepTheirPlacesAndAreNamed) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_THAT(MissingNames(i.s), ElementsAre("a.wav", "c.wav"));
    EXPECT_EQ(MissingName(i.s, 0), "a.wav");
    EXPECT_EQ(MissingName(i.s, 1), "");
    EXPECT_EQ(i.s.StatusText, "Not loaded: a.wav, c.wav");
    EXPECT_THAT(i.Desk.LastBox(), HasSubstr("File Doesn't Exist"));
    EXPECT_EQ(i.s.Run[1].Loaded, True);
}

TEST(MissingSamples, ASaveWritesTheirRowsAsTheyWereRead) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    std::int16_t vol = 7;
    LoopVolChange(i.s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes);
    i.s.History[0] = {i.Folder / "a.wav"};
    ASSERT_TRUE(SaveSession(i.s, i.Folder / "again.mvn", LoopsSaved::All, AllSwitches()));
    EXPECT_TRUE(ReadBytes(i.Folder / "again.mvn") == i.Written);
}

TEST(MissingSamples, ASaveWritesThePatternsThatTheSetWasNotAskedFor) {
    TwoMissing i;
    i.s.EmptyBlankSetting = 0;
    i.Load(0, "d.wav");
    i.s.Set[0].Pattern[kVolPattern][5] = 77;
    i.s.Set[0].NSteps = 11;
    i.s.SaveOpenSwitches[kWhenOpening] = Only({Element::LoopTrack});
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(MissingName(i.s, 0), "a.wav");
    i.s.Set[0].Pattern[kVolPattern][6] = 78;
    const LoopTrackSet saved = i.SavedA();
    EXPECT_EQ(saved.Pattern[kVolPattern][5], 77);
    EXPECT_EQ(saved.Pattern[kVolPattern][6], 78);
    EXPECT_EQ(saved.NSteps, 11);
    EXPECT_EQ(saved.FileName, i.Folder / "a.wav");
    EXPECT_EQ(saved.Vol, kVolFull);
}

TEST(MissingSamples, APlayStateThatWasNotAskedForIsNotSaved) {
    TwoMissing i;
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::PlayState, false);
    ASSERT_TRUE(i.Open("set.mvn"));
    ASSERT_TRUE(SaveSession(i.s, i.Folder / "again.mvn", LoopsSaved::All, AllSwitches()));
    i.s.SaveOpenSwitches[kWhenOpening].SetSwitch(true);
    fs::rename(i.Folder / "moved/c.wav", i.Folder / "c.wav");
    ASSERT_TRUE(i.Open("again.mvn"));
    EXPECT_EQ(i.s.Run[2].Loaded, True);
    EXPECT_EQ(i.s.Run[2].Playing, False);
}

TEST(MissingSamples, TakeThePatternsOfAnotherSetWhichASaveWrites) {
    TwoMissing i;
    i.s.EmptyBlankSetting = 0;
    KeptRig other;
    other.Load(0, "d.wav");
    other.s.Set[0].Pattern[kHzPattern][4] = 333;
    other.s.Set[0].Swing = 9;
    other.s.Set[0].Vol = 55;
    ASSERT_TRUE(other.Save("other.mvn"));
    ASSERT_TRUE(i.Open("set.mvn"));
    i.s.SaveOpenSwitches[kWhenOpening] = Only({Element::FreqPattern});
    ASSERT_TRUE(OpenBesideDialogue(i.s, other.Folder / "other.mvn"));
    const LoopTrackSet saved = i.SavedA();
    EXPECT_EQ(saved.FileName, i.Folder / "a.wav");
    EXPECT_EQ(saved.Pattern[kHzPattern][4], 333);
    EXPECT_EQ(saved.Swing, 9);
    EXPECT_EQ(saved.Vol, 100) << "not asked for";
}

TEST(MissingSamples, TakeThePatternsOfAClipAndKeepThemWhenTheyAreFound) {
    TwoMissing i;
    StartUndo(i.s);
    i.s.Clips.ClipStaging.Pattern[kVolPattern][3] = 44;
    i.s.Clips.ClipStaging.Pan = 123;
    AddNewClip(i.s);
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::ClipBoard, false);
    ASSERT_TRUE(i.Open("set.mvn"));
    const auto opened = i.SavedA();
    std::fill(i.s.Clips.Components.begin(), i.s.Clips.Components.end(), false);
    i.s.Clips.Components[4] = true;
    CopyIt(i.s, 0, i.s.Clips.ClipTop, false);
    EXPECT_EQ(i.SavedA().Pattern[kVolPattern][3], 44);
    EXPECT_EQ(i.SavedA().Pan, kPanCentre) << "not asked for";
    Undo_Click(i.s);
    EXPECT_EQ(i.SavedA(), opened);
    Redo_Click(i.s);
    EXPECT_EQ(i.SavedA().Pattern[kVolPattern][3], 44);
    LoadFound(i.s, i.Both());
    EXPECT_EQ(i.s.Set[0].Pattern[kVolPattern][3], 44);
    EXPECT_EQ(i.s.Set[0].Vol, 100);
}

TEST(MissingSamples, WhatTheRowHeldBeforeStaysInIt) {
    TwoMissing i;
    i.s.EmptyBlankSetting = 0;
    i.Load(0, "d.wav");
    LoopPlay(i.s, 0, true);
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "d.wav");
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(MissingName(i.s, 0), "a.wav");
    ASSERT_TRUE(SaveSession(i.s, i.Folder / "again.mvn", LoopsSaved::All, AllSwitches()));
    EXPECT_EQ(ReadBytes(i.Folder / "again.mvn").find(i.Folder / "d.wav"),
              ReadBytes(i.Folder / "again.mvn").rfind(i.Folder / "d.wav"))
        << "only the palette knows it";
}

TEST(MissingSamples, ALoadEndsIt) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    i.Load(0, "d.wav");
    EXPECT_THAT(MissingNames(i.s), ElementsAre("c.wav"));
}

TEST(MissingSamples, ALoadOfWhatTheRowHoldsAlreadyEndsItToo) {
    TwoMissing i;
    i.s.EmptyBlankSetting = 0;
    i.Load(0, "d.wav");
    ASSERT_TRUE(i.Open("set.mvn"));
    i.Load(0, "d.wav");
    EXPECT_EQ(MissingName(i.s, 0), "");
}

TEST(MissingSamples, ALoadThatFailsLeavesIt) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    i.Load(0, "nowhere.wav");
    EXPECT_EQ(MissingName(i.s, 0), "a.wav");
}

TEST(MissingSamples, AClearEndsIt) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    LoopClearRows(i.s, 0);
    EXPECT_THAT(MissingNames(i.s), ElementsAre("c.wav"));
}

TEST(MissingSamples, AStepBackBringsThePlaceBack) {
    TwoMissing i;
    StartUndo(i.s);
    ASSERT_TRUE(i.Open("set.mvn"));
    LoopClearRows(i.s, 0);
    Undo_Click(i.s);
    EXPECT_EQ(MissingName(i.s, 0), "a.wav");
    Undo_Click(i.s);
    EXPECT_THAT(MissingNames(i.s), IsEmpty()) << "before the set was opened nothing was missing";
}

TEST(MissingSamples, ALaterSetTakesThePlace) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    KeptRig other;
    other.Load(0, "d.wav");
    ASSERT_TRUE(other.Save("other.mvn"));
    EXPECT_TRUE(OpenBesideDialogue(i.s, other.Folder / "other.mvn"));
    EXPECT_THAT(MissingNames(i.s), IsEmpty());
}

TEST(MissingSamples, AreLookedForBesideTheSetAndThenInTheFoldersOfTheBins) {
    TwoMissing i;
    fs::create_directories(i.Folder / "sets");
    fs::rename(i.Folder / "set.mvn", i.Folder / "sets/set.mvn");
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::PickLists, false);
    i.s.Bins[2].Folder = i.Folder / "moved";
    WriteBytes(i.Folder / "sets/a.wav", "beside the set");
    ASSERT_TRUE(i.Open("sets/set.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "sets/a.wav") << "beside the set first";
    EXPECT_EQ(i.s.Set[2].FileName, i.Folder / "moved/c.wav");
    EXPECT_EQ(i.s.Set[2].Vol, 102);
    EXPECT_EQ(i.s.Run[2].Playing, True);
    EXPECT_THAT(MissingNames(i.s), IsEmpty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(MissingSamples, AreTakenFromTheirStoredPathWhereverElseTheyAre) {
    TwoMissing i;
    fs::rename(i.Folder / "moved/a.wav", i.Folder / "a.wav");
    i.s.Bins[0].Folder = i.Folder / "moved";
    WriteBytes(i.Folder / "moved/a.wav", "another");
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "a.wav");
}

/// A set whose LoopTracks A and B hold "kit1/kick.wav" and "kit2/kick.wav", which have gone to `folder`.
struct TwoKits : KeptRig {
    explicit TwoKits(const std::string& folder) {
        for (const char* kit : {"kit1", "kit2"}) {
            fs::create_directories(Folder / kit);
            WriteBytes(Folder / kit + "/kick.wav", kit);
        }
        Load(0, "kit1/kick.wav");
        Load(1, "kit2/kick.wav");
        EXPECT_TRUE(Save("set.mvn"));
        for (Row row = 0; row < kLoopTracks; ++row) LoopClear(s, row);
        fs::create_directories(Folder / folder);
        for (const char* kit : {"kit1", "kit2"}) fs::rename(Folder / kit, Folder / folder + "/" + kit);
        s.SaveOpenSwitches[kWhenOpening].Put(Element::PickLists, false);
    }
};

TEST(MissingSamples, OfOneNameAreEachFoundInAFolderOfTheirOwn) {
    TwoKits i("new");
    ASSERT_TRUE(i.Open("set.mvn"));
    WriteBytes(i.Folder / "new/kick.wav", "near");
    SampleSearch search(i.Folder / "new", MissingNames(i.s));
    while (!search.Step(10)) {
    }
    LoadFound(i.s, search.Found());
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "new/kit1/kick.wav");
    EXPECT_EQ(i.s.Set[1].FileName, i.Folder / "new/kit2/kick.wav");
}

TEST(MissingSamples, OfOneNameAreEachTakenFromTheBinOfTheirFolder) {
    TwoKits i("new");
    i.s.Bins[0].Folder = i.Folder / "new/kit2";
    i.s.Bins[1].Folder = i.Folder / "new/kit1/";
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "new/kit1/kick.wav");
    EXPECT_EQ(i.s.Set[1].FileName, i.Folder / "new/kit2/kick.wav");
}

TEST(MissingSamples, AreTakenFromABinInOtherLettersWhenNoneIsSpelledAlike) {
    TwoMissing i;
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::PickLists, false);
    for (const char* bin : {"one", "two"}) fs::create_directories(i.Folder / bin);
    i.s.Bins[0].Folder = i.Folder / "one";
    i.s.Bins[1].Folder = i.Folder / "two";
    WriteBytes(i.Folder / "one/A.WAV", "other");
    WriteBytes(i.Folder / "one/C.wav", "alike");
    WriteBytes(i.Folder / "two/a.wav", "same");
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "two/a.wav");
    EXPECT_EQ(i.s.Set[2].FileName, i.Folder / "one/C.wav");
}

TEST(BestMatch, SharesTheLongestEndWithTheStoredPath) {
    EXPECT_EQ(BestMatch("/old/x/kit1/kick.wav", {"/new/kit1/kick.wav", "/new/x/kit1/kick.wav"}),
              "/new/x/kit1/kick.wav");
    EXPECT_EQ(BestMatch("C:\\x\\KIT1\\kick.wav", {"/new/kick.wav", "/new/kit1/kick.wav"}), "/new/kit1/kick.wav");
    EXPECT_EQ(BestMatch("/a/kick.wav", {"/b/kick.wav", "/c/kick.wav"}), "/b/kick.wav") << "the first of equals";
    EXPECT_EQ(BestMatch("/a/kick.wav", {}), "");
    EXPECT_EQ(BestMatch("kick.wav", {"kick.wav"}), "kick.wav");
}

TEST(MissingSamples, ThatAreFoundAreLoadedAsTheSetTold) {
    TwoMissing i;
    StartUndo(i.s);
    ASSERT_TRUE(i.Open("set.mvn"));
    LoadFound(i.s, i.Both());
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "moved/a.wav");
    EXPECT_EQ(i.s.Set[0].Vol, 100);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Set[2].FileName, i.Folder / "moved/c.wav");
    EXPECT_EQ(i.s.Set[2].Vol, 102);
    EXPECT_EQ(i.s.Run[2].Playing, True);
    EXPECT_THAT(MissingNames(i.s), IsEmpty());
    EXPECT_EQ(i.s.StatusText, "Found: a.wav, c.wav");
    Undo_Click(i.s);
    EXPECT_THAT(MissingNames(i.s), ElementsAre("a.wav", "c.wav")) << "one step";
}

TEST(MissingSamples, OnlyTheElementsThatWereAskedForAreGiven) {
    TwoMissing i;
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::Vol, false);
    i.s.SaveOpenSwitches[kWhenOpening].Put(Element::PlayState, false);
    ASSERT_TRUE(i.Open("set.mvn"));
    LoadFound(i.s, i.Both());
    EXPECT_EQ(i.s.Set[2].Vol, kVolFull);
    EXPECT_EQ(i.s.Run[2].Playing, False);
}

TEST(MissingSamples, WhatIsStillMissingIsTold) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    LoadFound(i.s, {});
    EXPECT_EQ(i.s.StatusText, "Not found: a.wav, c.wav");
    LoadFound(i.s, {{"c.wav", {i.Folder / "moved/c.wav"}}});
    EXPECT_EQ(i.s.StatusText, "Found: c.wav; still missing: a.wav");
    EXPECT_EQ(i.s.Run[2].Loaded, True);
}

/// Each of the stored paths may get each of the files.
std::vector<std::string> Shares(const std::vector<std::string>& stored, const std::vector<std::string>& paths) {
    std::vector<WantedFile> wanted;
    for (const std::string& path : stored) wanted.push_back({path, paths});
    return ShareOut(wanted);
}

TEST(ShareOut, GivesEachStoredPathTheFileThatMatchesItBestAndNoFileToTwo) {
    const std::vector<std::string> wanted{"/x/kick/1.wav", "/y/snare/1.wav"};
    EXPECT_THAT(Shares(wanted, {"/new/snare/1.wav", "/new/kick/1.wav"}),
                ElementsAre("/new/kick/1.wav", "/new/snare/1.wav"));
    EXPECT_THAT(Shares(wanted, {"/new/snare/1.wav"}), ElementsAre("", "/new/snare/1.wav"));
    EXPECT_THAT(Shares(wanted, {"/new/1.wav"}), ElementsAre("/new/1.wav", "")) << "the first of equals";
    EXPECT_THAT(Shares(wanted, {"/new/snare/1.wav", "/new/1.wav"}), ElementsAre("/new/1.wav", "/new/snare/1.wav"));
    EXPECT_THAT(Shares(wanted, {}), ElementsAre("", ""));
    EXPECT_THAT(Shares({"/x/1.wav", "/y/1.wav", "/x/1.wav"}, {"/new/1.wav"}),
                ElementsAre("/new/1.wav", "", "/new/1.wav"))
        << "those that want the same get the same";
}

TEST(ShareOut, GivesAFileToOneAlsoWhenTwoAskForItByOtherLetters) {
    EXPECT_THAT(ShareOut({{"/x/Kick.wav", {"/new/KICK.wav"}}, {"/y/kick.wav", {"/new/KICK.wav"}}}),
                ElementsAre("/new/KICK.wav", ""));
}

/// A and C want "kick/1.wav", B "snare/1.wav"; both are gone, and "new/1.wav" is there.
struct OneForTwo : KeptRig {
    OneForTwo() {
        for (const char* folder : {"kick", "snare", "new"}) {
            fs::create_directories(Folder / folder);
            WriteBytes(Folder / folder + "/1.wav", folder);
        }
        Load(0, "kick/1.wav");
        Load(1, "snare/1.wav");
        Load(2, "kick/1.wav");
        EXPECT_TRUE(Save("set.mvn"));
        for (Row row = 0; row < kLoopTracks; ++row) LoopClear(s, row);
        for (const char* folder : {"kick", "snare"}) fs::remove_all(Folder / folder);
        s.EmptyBlankSetting = 1;
        s.SaveOpenSwitches[kWhenOpening].Put(Element::PickLists, false);
    }
};

TEST(MissingSamples, OneFileNearbyIsNotGivenToRowsThatWantTwo) {
    OneForTwo i;
    i.s.Bins[0].Folder = i.Folder / "new";
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "new/1.wav");
    EXPECT_EQ(i.s.Set[2].FileName, i.Folder / "new/1.wav");
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(MissingName(i.s, 1), "1.wav");
}

TEST(MissingSamples, OneFileIsNotGivenToRowsThatWantTwo) {
    OneForTwo i;
    ASSERT_TRUE(i.Open("set.mvn"));
    LoadFound(i.s, {{"1.wav", {i.Folder / "new/1.wav"}}});
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "new/1.wav");
    EXPECT_EQ(i.s.Set[2].FileName, i.Folder / "new/1.wav");
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(MissingName(i.s, 1), "1.wav");
    EXPECT_EQ(i.s.StatusText, "Found: 1.wav; still missing: 1.wav of B");
}

TEST(MissingSamples, AFileThatOneFindHasWithheldIsWithheldByTheNextInTheSameFolder) {
    OneForTwo i;
    StartUndo(i.s);
    ASSERT_TRUE(i.Open("set.mvn"));
    const FoundSamples found{{"1.wav", {i.Folder / "new/1.wav"}}};
    LoadFound(i.s, found);
    LoadFound(i.s, found);
    EXPECT_EQ(MissingName(i.s, 1), "1.wav");
    EXPECT_EQ(i.s.StatusText, "Not found: 1.wav");
    Undo_Click(i.s);
    EXPECT_THAT(i.s.Run[0].Missing, testing::NotNull());
    LoadFound(i.s, found);
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "new/1.wav") << "after a step back it is as it was";
    EXPECT_EQ(MissingName(i.s, 1), "1.wav");
}

TEST(MissingSamples, AFileThatWasWithheldIsGivenOnceNoRowHoldsIt) {
    OneForTwo i;
    ASSERT_TRUE(i.Open("set.mvn"));
    const FoundSamples found{{"1.wav", {i.Folder / "new/1.wav"}}};
    LoadFound(i.s, found);
    LoopClearRows(i.s, 0);
    LoopClearRows(i.s, 2);
    LoadFound(i.s, found);
    EXPECT_EQ(i.s.Set[1].FileName, i.Folder / "new/1.wav");
    EXPECT_THAT(MissingNames(i.s), IsEmpty());
}

TEST(MissingSamples, AFileThatTheOpeningHasWithheldIsWithheldByAFind) {
    OneForTwo i;
    i.s.Bins[0].Folder = i.Folder / "new";
    ASSERT_TRUE(i.Open("set.mvn"));
    LoadFound(i.s, {{"1.wav", {i.Folder / "new/1.wav"}}});
    EXPECT_EQ(MissingName(i.s, 1), "1.wav");
}

/// Gives the block of LoopTrack `from` in a set to LoopTrack `to`, as damage does; `sample` is its path.
void GiveBlock(const std::string& set, const std::string& sample, char from, char to) {
    std::string bytes = ReadBytes(set);
    const std::string length{static_cast<char>(sample.size()), 0};
    const std::size_t at = bytes.find(std::string{from, 0} + length + sample);
    ASSERT_NE(at, std::string::npos);
    bytes[at] = to;
    WriteBytes(set, bytes);
}

TEST(MissingSamples, AFileThatTheFirstOfTwoBlocksOfARowGotIsWithheldByAFind) {
    OneForTwo i;
    i.s.EmptyBlankSetting = 0;
    for (const char* folder : {"kick", "snare"}) fs::create_directories(i.Folder / folder);
    WriteBytes(i.Folder / "kick/1.wav", "kick");
    WriteBytes(i.Folder / "snare/1.wav", "snare");
    i.Load(0, "kick/1.wav");
    i.Load(1, "snare/1.wav");
    i.Load(2, "d.wav");
    ASSERT_TRUE(i.Save("set.mvn"));
    GiveBlock(i.Folder / "set.mvn", i.Folder / "d.wav", 2, 0);
    for (Row row = 0; row < kLoopTracks; ++row) LoopClear(i.s, row);
    for (const char* gone : {"kick", "snare", "d.wav"}) fs::remove_all(i.Folder / gone);
    i.s.Bins[0].Folder = i.Folder / "new";
    ASSERT_TRUE(i.Open("set.mvn"));
    ASSERT_EQ(i.s.Set[0].FileName, i.Folder / "new/1.wav") << "of its first block";
    ASSERT_EQ(MissingName(i.s, 0), "d.wav") << "of its second";
    ASSERT_EQ(MissingName(i.s, 1), "1.wav");
    LoadFound(i.s, {{"1.wav", {i.Folder / "new/1.wav"}}});
    EXPECT_EQ(MissingName(i.s, 1), "1.wav");
}

TEST(MissingSamples, AnotherFileIsFoundForTheRowFromWhichOneWasWithheld) {
    OneForTwo i;
    fs::create_directories(i.Folder / "new/snare");
    WriteBytes(i.Folder / "new/snare/1.wav", "snare");
    i.s.Bins[0].Folder = i.Folder / "new";
    ASSERT_TRUE(i.Open("set.mvn"));
    ASSERT_EQ(MissingName(i.s, 1), "1.wav");
    LoadFound(i.s, {{"1.wav", {i.Folder / "new/1.wav", i.Folder / "new/snare/1.wav"}}});
    EXPECT_EQ(i.s.Set[1].FileName, i.Folder / "new/snare/1.wav");
}

TEST(MissingSamples, OfTwoOfOneNameTheOneThatMatchesBetterGetsTheFileNearby) {
    OneForTwo i;
    fs::create_directories(i.Folder / "new/snare");
    fs::rename(i.Folder / "new/1.wav", i.Folder / "new/snare/1.wav");
    i.s.Bins[0].Folder = i.Folder / "new/snare";
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(i.s.Set[1].FileName, i.Folder / "new/snare/1.wav") << "though A comes first";
    EXPECT_EQ(MissingName(i.s, 0), "1.wav");
    EXPECT_EQ(MissingName(i.s, 2), "1.wav");
}

TEST(MissingSamples, TheSampleOfARowThatIsInItsPlaceIsGivenToNoOtherAtOpening) {
    OneForTwo i;
    i.s.Bins[0].Folder = i.Folder / "new";
    ASSERT_TRUE(i.Open("set.mvn"));
    ASSERT_EQ(i.s.Set[0].FileName, i.Folder / "new/1.wav");
    ASSERT_TRUE(i.Save("again.mvn"));
    ASSERT_TRUE(i.Open("again.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "new/1.wav");
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(MissingName(i.s, 1), "1.wav");
}

TEST(MissingSamples, ARowThatWasFilledDuringTheSearchIsLeftAlone) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    i.Load(0, "d.wav");
    LoadFound(i.s, i.Both());
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "d.wav");
}

TEST(MissingSamples, APackageIsSavedWithoutThemAndNamesThem) {
    TwoMissing i;
    i.s.EmptyBlankSetting = 0;
    i.Load(0, "d.wav");
    ASSERT_TRUE(i.Open("set.mvn"));
    fs::create_directories(i.Folder / "pack");
    ASSERT_TRUE(SaveSession(i.s, i.Folder / "pack/set.mvp", LoopsSaved::All, AllSwitches()));
    EXPECT_TRUE(FileExists(i.Folder / "pack/b.wav"));
    EXPECT_FALSE(FileExists(i.Folder / "pack/d.wav"));
    EXPECT_THAT(ReadBytes(i.Folder / "pack/set.mvp"), HasSubstr(i.Folder / "a.wav"));
}

TEST(MissingSamples, ASampleThatIsLoadedWhileItsFileIsGoneIsNotMissing) {
    TwoMissing i;
    i.Load(1, "b.wav");
    fs::remove(i.Folder / "b.wav");
    ASSERT_TRUE(i.Open("set.mvn"));
    EXPECT_EQ(MissingName(i.s, 1), "");
    EXPECT_EQ(i.s.Run[1].Loaded, True);
}

TEST(MissingSamples, AChangeOfDeviceKeepsTheirPlacesAndWhatIsInThem) {
    TwoMissing i;
    i.s.EmptyBlankSetting = 0;
    i.Load(0, "d.wav");
    ASSERT_TRUE(i.Open("set.mvn"));
    i.Desk.TempFile = i.Folder / "VBN1.tmp";
    i.Desk.Boxes.clear();
    ASSERT_TRUE(CarryAcross(i.s, [] {}));
    EXPECT_THAT(MissingNames(i.s), ElementsAre("a.wav", "c.wav"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "d.wav");
    EXPECT_TRUE(i.Desk.Boxes.empty()) << "nothing is asked for again";
}

TEST(MissingSamples, AChangeOfDeviceTakesNoSampleOfTheSameNameFromABin) {
    TwoMissing i;
    fs::rename(i.Folder / "moved/a.wav", i.Folder / "a.wav");
    i.Load(0, "a.wav");
    LoopPlay(i.s, 0, true);
    fs::rename(i.Folder / "a.wav", i.Folder / "moved/a.wav");
    i.s.Bins[1].Folder = i.Folder / "moved";
    i.Desk.TempFile = i.Folder / "VBN1.tmp";
    ASSERT_TRUE(CarryAcross(i.s, [&] { LoopUnload(i.s, 0); }));
    EXPECT_EQ(i.s.Set[0].FileName, "");
    EXPECT_EQ(i.s.Run[0].InHand.FileName, i.Folder / "a.wav");
    EXPECT_TRUE(i.s.Run[0].InHand.Playing);
    fs::rename(i.Folder / "moved/a.wav", i.Folder / "a.wav");
    ASSERT_TRUE(CarryAcross(i.s, [] {}));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "a.wav");
    EXPECT_EQ(i.s.Run[0].Playing, True);
}

TEST(MissingSamples, AreNamedAlsoWhileNoDeviceIsOpen) {
    TwoMissing i;
    i.s.DSReady = false;
    for (int opening = 0; opening < 2; ++opening) {
        i.s.StatusText.clear();
        ASSERT_TRUE(i.Open("set.mvn"));
        EXPECT_THAT(MissingNames(i.s), ElementsAre("a.wav", "c.wav"));
        EXPECT_EQ(i.s.StatusText, "Not loaded: a.wav, c.wav") << "B waits";
    }
    EXPECT_EQ(i.SavedA().FileName, i.Folder / "a.wav");
    LoadFound(i.s, {{"a.wav", {i.Folder / "moved/a.wav"}}});
    EXPECT_THAT(MissingNames(i.s), ElementsAre("c.wav"));
    EXPECT_EQ(i.s.Run[0].InHand.FileName, i.Folder / "moved/a.wav");
    fs::rename(i.Folder / "moved/c.wav", i.Folder / "c.wav");
    i.Desk.TempFile = i.Folder / "VBN1.tmp";
    ASSERT_TRUE(CarryAcross(i.s, [&] { i.s.DSReady = true; }));
    EXPECT_EQ(i.s.Set[2].FileName, i.Folder / "c.wav");
    EXPECT_EQ(i.s.Run[2].Playing, True);
    EXPECT_THAT(MissingNames(i.s), IsEmpty());
}

TEST(MissingSamples, AClipThatWaitsForADeviceTakesThePlace) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    i.s.DSReady = false;
    i.s.Clips.ClipStaging.FileName = i.Folder / "d.wav";
    AddNewClip(i.s);
    CopyIt(i.s, 0, i.s.Clips.ClipTop, false);
    EXPECT_THAT(MissingNames(i.s), ElementsAre("c.wav"));
    ASSERT_TRUE(SaveSession(i.s, i.Folder / "again.mvn", LoopsSaved::All, AllSwitches()));
    i.s.DSReady = true;
    ASSERT_TRUE(i.Open("again.mvn"));
    EXPECT_EQ(i.s.Set[0].FileName, i.Folder / "d.wav");
}

TEST(MissingSamples, AClipWhoseSampleIsMissingTooLeavesThePlaceWhileNoDeviceIsOpen) {
    TwoMissing i;
    ASSERT_TRUE(i.Open("set.mvn"));
    i.s.DSReady = false;
    i.s.Clips.ClipStaging.FileName = i.Folder / "nowhere.wav";
    AddNewClip(i.s);
    CopyIt(i.s, 0, i.s.Clips.ClipTop, false);
    EXPECT_EQ(MissingName(i.s, 0), "a.wav");
}

TEST(MissingSamples, APathOfAnotherSystemHasTheNameOfItsFile) {
    EXPECT_EQ(NameOfSample("C:\\Samples\\kick.wav"), "kick.wav");
    EXPECT_EQ(NameOfSample("/home/x/a\\b.wav"), "a\\b.wav");
}

}  // namespace
}  // namespace marvolin
