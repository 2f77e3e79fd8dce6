#include "persistence/session_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/routines.h"
#include "parameters/position.h"
#include "persistence/golden.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using namespace test;

std::string FileOf(const std::function<void(Bytes&)>& sections, const std::string& off = "") {
    Bytes b;
    PutHeader(b);
    PutSwitches(b, off);
    sections(b);
    return b.TagText("END").Str();
}

TEST(LoadSession, AGoldenSessionWrittenByteByByteIsRead) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path()))) << i.Desk.LastBox();
    const LoopTrackSet& a = i.s.Set[0];
    EXPECT_EQ(a.FileName, i.Folder / "a.wav");
    EXPECT_EQ(a.Hz, 1234);
    EXPECT_EQ(a.Vol, 321);
    EXPECT_EQ(a.Pan, 654);
    EXPECT_EQ(a.Thinnable, False);
    EXPECT_EQ(a.StepDuration, 25);
    EXPECT_EQ(a.Swing, 3);
    EXPECT_EQ(a.BeatStart, 50);
    EXPECT_EQ(a.PlayMode, kTrack);
    EXPECT_EQ(a.NSteps, 7);
    EXPECT_EQ(a.Channel, 4);
    for (int row = 0; row < 3; ++row) {
        for (int k = 0; k < 33; ++k) EXPECT_EQ(a.Pattern[row][k], 100 + 100 * row + k);
    }
    EXPECT_EQ(i.s.Set[1].FileName, "");
    EXPECT_EQ(i.s.Set[1].Hz, 1235);
    EXPECT_NE(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[1].Playing, False);
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_NE(i.s.Run[3].Playing, False);
    EXPECT_EQ(i.s.Limit, 3);
    EXPECT_FALSE(i.s.ResetVars);
    EXPECT_EQ(i.s.Driver, 1);
    EXPECT_EQ(i.s.Joy.Factor[1], 700);
    EXPECT_EQ(i.s.Joy.Relative[0], True);
    EXPECT_EQ(i.s.Joy.Relative[1], False);
    EXPECT_EQ(i.s.Joy.Button[0], 0) << "without a joystick its assignments stay";
    EXPECT_EQ(i.s.Joy.Waiting.Button[0], 1) << "and those of the set wait for one";
    EXPECT_EQ(i.s.PadTable[1].Function, 2);
    EXPECT_EQ(i.s.FadeStep, 0.5);
    EXPECT_EQ(i.s.ActiveTab, kPatternTab);
    EXPECT_EQ(i.s.DragAxis, 0);
    EXPECT_FALSE(i.s.PositionUpdate[0]);
    EXPECT_TRUE(i.s.PositionUpdate[2]);
    EXPECT_EQ(i.s.TimingRes, 20);
    EXPECT_EQ(i.s.MapRange, 2.0);
    EXPECT_EQ(i.s.Bins[0].Folder, i.Folder.Path());
    EXPECT_EQ(i.s.Bins[0].Destination, 2);
    EXPECT_EQ(i.s.Bins[1].Destination, 4);
    EXPECT_EQ(i.s.Bins[1].ClickPlay, 0);
    EXPECT_EQ(i.s.Bins[2].Destination, 5);
    EXPECT_EQ(i.s.Bins[2].Rows.size(), 5U);
    EXPECT_EQ(i.s.History[0], (std::vector<std::string>{"/h/new.wav", "/h/old.wav"}));
    EXPECT_TRUE(i.s.History[3].empty());
    EXPECT_EQ(i.s.Clips.List, std::vector<std::string>{"clip"});
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(LoadSession, ALoadNeverChangesTheBands) {
    SetInstrument i;
    const auto before = i.s.BandTable;
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    EXPECT_EQ(i.s.BandTable, before);
}

TEST(LoadSession, TheOrderOfTheSectionsDoesNotMatter) {
    SetInstrument i;
    GoldenLoop loop;
    loop.FileName = i.Folder / "a.wav";
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) {
        PutClips(b, {loop});
        PutBands(b);
        PutLoops(b, {loop});
        PutHistory(b);
        PutSettings(b);
    })));
    EXPECT_EQ(i.s.Set[0].Hz, 1234);
    EXPECT_EQ(i.s.Limit, 3);
    EXPECT_EQ(i.s.History[0].size(), 2U);
}

TEST(LoadSession, AValueThatIsNoKnownTagIsIgnored) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) {
        b.TagText("Settingsx").TagI16(3).TagF64(0.5).TagBool(true).TagI32(7);
        PutHistory(b);
    })));
    EXPECT_EQ(i.s.History[0].size(), 2U);
}

TEST(LoadSession, AMissingFileIsFalseWithoutAMessage) {
    SetInstrument i;
    EXPECT_FALSE(i.Load("none.mvn"));
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(LoadSession, AFileWhoseNumberIsNot12IsRefusedAlthoughItsTextIsRight) {
    SetInstrument i;
    for (const int number : {11, 13, 0, -1}) {
        Bytes b;
        PutHeader(b, number);
        PutSwitches(b);
        EXPECT_FALSE(i.LoadBytes(b.TagText("END").Str()));
        ASSERT_FALSE(i.Desk.Boxes.empty());
        EXPECT_EQ(i.Desk.LastBox(), "File Format Error on Open in " + (i.Folder / "given.mvn"));
        EXPECT_EQ(i.Desk.Boxes.back().Style, BoxStyle::Critical);
    }
}

TEST(LoadSession, AnotherTextIsAFormatErrorAndChangesNothing) {
    SetInstrument i;
    std::string bytes = GoldenSession(i.Folder.Path());
    bytes[10] = 'x';
    EXPECT_FALSE(i.LoadBytes(bytes));
    EXPECT_EQ(i.Desk.LastBox(), "File Format Error on Open in " + (i.Folder / "given.mvn"));
    EXPECT_EQ(i.s.Set[0].Hz, 1000);
    EXPECT_FALSE(i.LoadBytes("RIFF, or anything else that is longer than a header and no session at all"));
    EXPECT_EQ(i.Desk.LastBox(), "File Format Error on Open in " + (i.Folder / "given.mvn"));
}

TEST(LoadSession, AFileWithoutAnEndFailsAndKeepsWhatWasAppliedButNotTitleAndSwitches) {
    SetInstrument i;
    i.s.SaveOpenSwitches[kWhenSaving] = All();
    std::string bytes = GoldenSession(i.Folder.Path(), "Vol");
    bytes.resize(bytes.size() - 7);
    WriteBytes(i.Folder / "cut.mvn", bytes);
    EXPECT_FALSE(LoadSession(i.s, i.Folder / "cut.mvn", SetAsCurrent::Yes, All(), AdoptSwitches::Yes));
    EXPECT_EQ(i.Desk.LastBox(), "Error Opening Input past end of file");
    EXPECT_EQ(i.s.Set[0].Hz, 1234);
    EXPECT_EQ(i.s.Title, "marvolin");
    EXPECT_EQ(i.s.CurrentFile, "");
    EXPECT_EQ(i.s.SaveOpenSwitches[kWhenSaving], All());
}

TEST(LoadSession, SetAsCurrentMakesTheTitleAndAdoptSwitchesTheNextSave) {
    SetInstrument i;
    WriteBytes(i.Folder / "live.mvn", GoldenSession(i.Folder.Path(), "Vol"));
    ASSERT_TRUE(LoadSession(i.s, i.Folder / "live.mvn", SetAsCurrent::Yes, All(), AdoptSwitches::Yes));
    EXPECT_EQ(i.s.Title, "marvolin-live.mvn");
    EXPECT_EQ(i.s.CurrentFolder, i.Folder.Path() + "/");
    EXPECT_EQ(i.s.CurrentFile, "live.mvn");
    EXPECT_EQ(i.s.SaveOpenSwitches[kWhenSaving], AllBut(Element::Vol));
    EXPECT_EQ(i.Screen.Count("ShowTitle"), 1);
}

TEST(LoadSession, WithoutSetAsCurrentAndAdoptSwitchesTitleFileAndTheNextSaveStay) {
    SetInstrument i;
    const std::string folder = i.s.CurrentFolder;
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    EXPECT_EQ(i.s.Title, "marvolin");
    EXPECT_EQ(i.s.CurrentFolder, folder);
    EXPECT_EQ(i.s.CurrentFile, "");
    EXPECT_EQ(i.s.SaveOpenSwitches[kWhenSaving], clsSwitchRecord{});
    EXPECT_EQ(i.Screen.Count("ShowTitle"), 0);
}

TEST(LoadSession, AMissingSampleIsNoFailureOfTheSession) {
    SetInstrument i;
    std::filesystem::remove(i.Folder / "a.wav");
    EXPECT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.LastBox(), "File Doesn't Exist !!");
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_NE(i.s.Run[3].Loaded, False);
}

TEST(LoadSession, TheStatusLineNamesTheSetThatWasOpenedUnlessThereIsMoreToSay) {
    SetInstrument i;
    const std::string file = i.Folder / "night.mvn";
    WriteBytes(file, GoldenSession(i.Folder.Path()));
    ShowStatus(i.s, "a readout of before");
    ASSERT_TRUE(LoadSession(i.s, file, SetAsCurrent::Yes, AllSwitches(), AdoptSwitches::Yes));
    EXPECT_EQ(i.s.StatusText, "Opened night.mvn") << "not the levels of the pad, which the settings centre";
    ShowStatus(i.s, "a readout of before");
    clsSwitchRecord volumes;
    volumes.Put(Element::Vol, true);
    ASSERT_TRUE(LoadSession(i.s, file, SetAsCurrent::Yes, volumes, AdoptSwitches::Yes));
    EXPECT_EQ(i.s.StatusText, "Opened night.mvn") << "of which a part counts, too";
    ShowStatus(i.s, "a report");
    ASSERT_TRUE(LoadSession(i.s, file, SetAsCurrent::No, volumes, AdoptSwitches::No));
    EXPECT_EQ(i.s.StatusText, "a report") << "a change of device opens nothing";
    std::filesystem::remove(i.Folder / "a.wav");
    SetInstrument missing;
    ASSERT_TRUE(LoadSession(missing.s, file, SetAsCurrent::Yes, AllSwitches(), AdoptSwitches::Yes));
    EXPECT_EQ(missing.s.StatusText, "Not loaded: a.wav");
    for (const char* before : {"a readout of before", "Error setting up loaded loop"}) {
        SetInstrument failing;
        WriteBytes(failing.Folder / "night.mvn", GoldenSession(failing.Folder.Path()));
        failing.Sound.Failures["GetCaps"] = sound_error::kGeneric;
        ShowStatus(failing.s, before);
        ASSERT_TRUE(LoadSession(failing.s, failing.Folder / "night.mvn", SetAsCurrent::Yes, Only(Element::LoopTrack),
                                AdoptSwitches::Yes));
        EXPECT_EQ(failing.s.StatusText, "Error setting up loaded loop") << "also when the line had it before";
    }
}

TEST(LoadSession, TheStatusLineNamesTheSamplesThatCouldNotBeLoaded) {
    SetInstrument i;
    for (const char* gone : {"a.wav", "d.wav"}) std::filesystem::remove(i.Folder / gone);
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    EXPECT_EQ(i.s.StatusText, "Not loaded: a.wav, d.wav");
    SetInstrument refused;
    refused.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    ASSERT_TRUE(refused.LoadBytes(GoldenSession(refused.Folder.Path())));
    EXPECT_EQ(refused.s.StatusText, "Not loaded: a.wav, c.wav, d.wav");
    SetInstrument cut;
    std::filesystem::remove(cut.Folder / "a.wav");
    const std::string bytes = GoldenSession(cut.Folder.Path());
    EXPECT_FALSE(cut.LoadBytes(bytes.substr(0, bytes.size() - 7)));
    EXPECT_EQ(cut.s.StatusText, "Not loaded: a.wav");
    SetInstrument silent;
    silent.s.DSReady = false;
    ASSERT_TRUE(silent.LoadBytes(GoldenSession(silent.Folder.Path())));
    EXPECT_EQ(silent.s.StatusText.find("Not loaded"), std::string::npos);
}

TEST(LoadSession, AFileCutInsideTheLoopTracksAppliesThoseBeforeTheCut) {
    std::vector<GoldenLoop> loops(4);
    for (int k = 0; k < 4; ++k) {
        loops[static_cast<std::size_t>(k)].Index = k;
        loops[static_cast<std::size_t>(k)].Hz = 101 + k;
    }
    const std::string bytes = FileOf([&](Bytes& b) { PutLoops(b, loops); });
    constexpr std::size_t kBlock = 259;
    const std::size_t start = bytes.size() - 7 - 4 * kBlock;
    for (std::size_t whole = 0; whole < 4; ++whole) {
        SCOPED_TRACE(whole);
        SetInstrument i;
        EXPECT_FALSE(i.LoadBytes(bytes.substr(0, start + whole * kBlock + kBlock - 1)));
        EXPECT_EQ(i.Desk.LastBox(), "Error Opening Input past end of file");
        for (std::size_t row = 0; row < 4; ++row) {
            EXPECT_EQ(i.s.Set[static_cast<Row>(row)].Hz, row < whole ? 101 + static_cast<int>(row) : 1000) << row;
        }
    }
}

TEST(LoadSession, AFileCutInsideTheHistoryKeepsTheEntriesBeforeTheCut) {
    SetInstrument i;
    i.s.History[0] = {"/h/present.wav"};
    const std::string bytes = FileOf([](Bytes& b) { PutHistory(b); });
    const std::string second = Bytes().TagText("/h/old.wav").Str();
    EXPECT_FALSE(i.LoadBytes(bytes.substr(0, bytes.find(second) + 6)));
    EXPECT_EQ(i.Desk.LastBox(), "Error Opening Input past end of file");
    EXPECT_EQ(i.s.History[0], std::vector<std::string>{"/h/new.wav"});
}

TEST(LoadSession, ThinnableGoesThroughItsSetterSoThatTheThinListFollows) {
    SetInstrument i;
    GoldenLoop loop;
    loop.FileName = i.Folder / "a.wav";
    loop.Thinnable = 0;
    i.Fill(0, loop.FileName);
    LoopPlay(i.s, 0, true);
    ASSERT_EQ(i.s.ThinList, "A");
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) { PutLoops(b, {loop}); }), Only(Element::LoopTrack)));
    EXPECT_EQ(i.s.ThinList, "");
    loop.Thinnable = -1;
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) { PutLoops(b, {loop}); }), Only(Element::LoopTrack)));
    EXPECT_EQ(i.s.ThinList, "A");
}

TEST(LoadSession, ThePlayModeOfALoopTrackThatSoundsIsHeardAtOnce) {
    SetInstrument i;
    GoldenLoop loop;
    loop.FileName = i.Folder / "a.wav";
    loop.PlayMode = kOneShot;
    i.Fill(0, loop.FileName);
    LoopPlay(i.s, 0, true);
    i.Sound.Log.clear();
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) { PutLoops(b, {loop}); }), Only(Element::LoopTrack)));
    EXPECT_EQ(i.s.Set[0].PlayMode, kOneShot);
    EXPECT_EQ(std::count(i.Sound.Log.begin(), i.Sound.Log.end(), "Play " + i.Name(0) + " 0"), 1);
}

TEST(LoadSession, AVolumeMovesTheLevelAndTheFadeLineOfItsSoundDisplay) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutLoops(b, {GoldenLoop{}}); }), Only(Element::Vol)));
    EXPECT_EQ(i.s.SndDisp[0].Level, 321);
    EXPECT_EQ(i.s.SndDisp[0].Line, 321);
}

TEST(LoadSession, APlaceMovesItsBallOnTheMap) {
    SetInstrument i;
    GoldenLoop loop;
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) {
        PutThreeD(b, true);
        PutLoops(b, {loop}, true);
    })));
    EXPECT_EQ(i.s.BallPos[0].X, MapTwips(i.s, 0.25F));
    EXPECT_EQ(i.s.BallPos[0].Y, MapTwips(i.s, -0.5F));
    EXPECT_NE(i.s.BallPos[0].X, i.s.BallPos[1].X);
}

TEST(LoadSession, ThePadsHandlerRunsAfterTheCurvesAndTheRelativeBoxes) {
    SetInstrument i;
    i.Screen.Log.clear();
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutSettings(b); })));
    const auto at = [&](const char* entry, int nth) {
        for (std::size_t k = 0; k < i.Screen.Log.size(); ++k) {
            if (i.Screen.Log[k] == entry && --nth == 0) return k;
        }
        return i.Screen.Log.size();
    };
    // Each of the two boxes shows the joystick; the handler shows the pad.
    EXPECT_LT(at("ShowJoystick", 2), at("ShowPad", 1));
    SetInstrument byHand;
    byHand.s.PadTable[byHand.s.PadTypeIndex].Function = i.s.PadTable[i.s.PadTypeIndex].Function;
    PadType_Click(byHand.s, byHand.s.PadTypeIndex);
    EXPECT_EQ(i.s.ChannelVol, byHand.s.ChannelVol);
    SetInstrument before;
    PadType_Click(before.s, before.s.PadTypeIndex);
    EXPECT_NE(before.s.ChannelVol, byHand.s.ChannelVol) << "the curves differ in the middle";
}

TEST(LoadSession, ASampleThatCannotBeLoadedLeavesThePreviousOneSilentOrTheLoopTrackBlank) {
    for (const int emptyBlank : {0, 1}) {
        SCOPED_TRACE(emptyBlank);
        SetInstrument i;
        i.s.EmptyBlankSetting = static_cast<std::int16_t>(emptyBlank);
        i.Fill(0, "/samples/mine.WAV");
        std::filesystem::remove(i.Folder / "a.wav");
        ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
        EXPECT_EQ(i.s.Set[0].FileName, emptyBlank == 1 ? "" : "/samples/mine.WAV");
        EXPECT_EQ(i.s.Run[0].Playing, False);
        EXPECT_NE(i.s.Run[3].Playing, False);
    }
}

TEST(LoadSession, AnEmptyFileNameLeavesTheLoopTrackUnchangedUnlessEmptyBlankClearsIt) {
    SetInstrument i;
    i.Fill(1, "/samples/mine.WAV");
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    EXPECT_EQ(i.s.Set[1].FileName, "/samples/mine.WAV");
    EXPECT_NE(i.s.Run[1].Loaded, False);
    i.s.EmptyBlankSetting = 1;
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    EXPECT_EQ(i.s.Set[1].FileName, "");
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_NE(i.s.Run[0].Loaded, False);
}

TEST(LoadSession, APackageMovedToAnotherFolderKeepsWorking) {
    SetInstrument i;
    TempFolder moved;
    for (const char* name : {"a.wav", "c.wav", "d.wav"}) WriteBytes(moved / name, "x");
    WriteBytes(moved / "set.mvp", GoldenSession("C:\\somewhere\\else"));
    ASSERT_TRUE(LoadSession(i.s, moved / "set.mvp", SetAsCurrent::No, All(), AdoptSwitches::No));
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_EQ(i.s.Set[0].FileName, moved.Path() + "/a.wav");
    EXPECT_EQ(i.s.Set[3].FileName, moved.Path() + "/d.wav");
}

TEST(LoadSession, APackageFromAnotherSystemFindsASampleWhoseExtensionIsSpelledOtherwise) {
    SetInstrument i;
    i.Fill(0, i.Folder / "a.wav");
    ASSERT_TRUE(i.Save("set.mvp"));
    TempFolder moved;
    std::filesystem::copy_file(i.Folder / "set.mvp", moved / "set.mvp");
    const std::string sample = moved.Touch("a.WAV");
    ASSERT_TRUE(LoadSession(i.s, moved / "set.mvp", SetAsCurrent::No, All(), AdoptSwitches::No));
    EXPECT_EQ(i.s.Set[0].FileName, sample);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(LoadSession, OnlyLowerCaseMvpIsAPackage) {
    SetInstrument i;
    i.s.Bins[0].Folder = "/mine";
    WriteBytes(i.Folder / "set.MVP", GoldenSession(i.Folder.Path()));
    ASSERT_TRUE(i.Load("set.MVP"));
    EXPECT_NE(i.s.Bins[0].Folder, "/mine") << "only a package leaves it";
}

TEST(LoadSession, APackageNeverRestoresTheFoldersOfTheBins) {
    SetInstrument i;
    i.s.Bins[0].Folder = "/mine";
    WriteBytes(i.Folder / "set.mvp", GoldenSession(i.Folder.Path()));
    ASSERT_TRUE(i.Load("set.mvp"));
    EXPECT_EQ(i.s.Bins[0].Folder, "/mine");
    EXPECT_EQ(i.s.Bins[0].Destination, 5);
}

TEST(LoadSession, ABinWhoseFolderIsMissingFallsBackToTheProgramsFolder) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutPickLists(b, {"/nowhere/1", "/nowhere/2", "/nowhere/3"}); })));
    EXPECT_EQ(i.s.Bins[0].Folder, i.Folder.Path());
}

struct DestinationCase {
    int Stored;
    int Destination;  ///< of bin 0, which starts at 1
};
class LoadSessionDestination : public ::testing::TestWithParam<DestinationCase> {};
TEST_P(LoadSessionDestination, IsDecoded) {
    SetInstrument i;
    i.s.Bins[0].Destination = 1;
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) {
        b.TagText("PickLists").Text(i.Folder.Path()).I16(GetParam().Stored).I16(-1);
        for (int record = 1; record < 9; ++record) b.Text(i.Folder.Path()).I16(100).I16(0);
    })));
    EXPECT_EQ(i.s.Bins[0].Destination, GetParam().Destination);
}
INSTANTIATE_TEST_SUITE_P(LoadSession, LoadSessionDestination,
                         ::testing::Values(DestinationCase{0, 0}, DestinationCase{3, 3}, DestinationCase{5, 5},
                                           DestinationCase{6, 1}, DestinationCase{254, 1}, DestinationCase{255, 3},
                                           DestinationCase{256, 4}, DestinationCase{257, 5}, DestinationCase{261, 1},
                                           DestinationCase{32767, 1}, DestinationCase{-1, 1},
                                           DestinationCase{-32768, 1}));

TEST(LoadSession, HistoryOfASlotAbove3IsReadAndDropped) {
    SetInstrument i;
    i.s.History[4] = {"/kept.wav"};
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) {
        b.TagText("History").I16(2).I16(4).I16(1).TagText("/x.wav").I16(2).I16(1).TagText("/y.wav");
    })));
    EXPECT_EQ(i.s.History[4], std::vector<std::string>{"/kept.wav"});
    EXPECT_EQ(i.s.History[2], std::vector<std::string>{"/y.wav"});
}

TEST(LoadSession, ABlockOfASlotAbove3IsReadAndDropped) {
    SetInstrument i;
    GoldenLoop far;
    far.Index = 4;
    GoldenLoop near;
    near.Index = 2;
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) { PutLoops(b, {far, near}); })));
    EXPECT_EQ(i.s.Set[4].Hz, 1000);
    EXPECT_EQ(i.s.Set[2].Hz, 1234);
}

TEST(LoadSession, ASwitchTableWithFewerKeysLoadsWithTheMissingOnesOff) {
    SetInstrument i;
    Bytes b;
    PutHeader(b);
    b.TagI32(2).TagText("Freq").TagBool(true).TagText("Unknown").TagBool(true);
    PutLoops(b, {GoldenLoop{}});
    WriteBytes(i.Folder / "old.mvn", b.TagText("END").Str());
    ASSERT_TRUE(LoadSession(i.s, i.Folder / "old.mvn", SetAsCurrent::No, All(), AdoptSwitches::Yes));
    EXPECT_EQ(i.s.SaveOpenSwitches[kWhenSaving], Only(Element::Freq));
    EXPECT_EQ(i.s.Set[0].Hz, 1234);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
}

TEST(LoadSession, SettingsOfAnOlderVersionLeaveTheOthersAsTheyAre) {
    SetInstrument i;
    i.s.TimingRes = 33;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { b.TagText("Settings").TagI32(1).TagText("Limit").TagText("2"); })));
    EXPECT_EQ(i.s.Limit, 2);
    EXPECT_EQ(i.s.TimingRes, 33);
}

TEST(LoadSession, TheLimitOfAFileThinsAtOnce) {
    SetInstrument i;
    for (Row row = 0; row < 3; ++row) {
        i.Fill(row);
        LoopPlay(i.s, row, true);
    }
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { b.TagText("Settings").TagI32(1).TagText("Limit").TagText("1"); })));
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[1].Playing, False);
    EXPECT_NE(i.s.Run[2].Playing, False);
}

TEST(LoadSession, EachControlWhoseSettingIsAppliedIsShownAgain) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutSettings(b); })));
    for (const char* shown :
         {"ShowLimit", "ShowDrivers", "ShowOptions", "ShowJoystick", "ShowMapControls", "ShowFadeFactor", "ShowTab"}) {
        EXPECT_GE(i.Screen.Count(shown), 1) << shown;
    }
    SetInstrument few;
    ASSERT_TRUE(few.LoadBytes(FileOf([](Bytes& b) { b.TagText("Settings").TagI32(1).TagText("Restore").TagI16(0); })));
    EXPECT_EQ(few.Screen.Count("ShowOptions"), 1);
}

TEST(LoadSession, ABinIsShownWithItsFolderAndAgainWithItsAutoPlay) {
    SetInstrument i;
    i.s.Bins[1].ClickPlay = 1;
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) {
        b.TagText("PickLists");
        for (int record = 0; record < 9; ++record) b.Text(i.Folder.Path()).I16(100).I16(0);
    })));
    EXPECT_EQ(i.s.Bins[1].ClickPlay, 0);
    EXPECT_EQ(i.Screen.Count("ShowBin 1"), 2);
}

TEST(LoadSession, TheSettingsOfALoopTrackThatSoundsAreHeardAtOnce) {
    struct Case {
        Element Switch;
        const char* Call;
    };
    for (const Case& one : {Case{Element::Freq, "SetFrequency"}, Case{Element::Vol, "SetVolume"},
                            Case{Element::Pan, "SetPan"}, Case{Element::CrossFader, "SetVolume"}}) {
        SCOPED_TRACE(one.Call);
        SetInstrument i;
        i.s.ChannelVol[3] = 100;
        i.Fill(0);
        GoldenLoop loop;
        loop.Channel = 3;
        const std::string bytes = FileOf([&](Bytes& b) { PutLoops(b, {loop}); });
        i.Sound.Log.clear();
        ASSERT_TRUE(i.LoadBytes(bytes, Only(one.Switch)));
        EXPECT_GE(i.Sound.Count(one.Call), 1);
    }
}

TEST(LoadSession, OpeningTheSameSessionTwiceDoublesTheClipsAndNumbersTheSecondOnes) {
    SetInstrument i;
    const std::string bytes = GoldenSession(i.Folder.Path());
    ASSERT_TRUE(i.LoadBytes(bytes));
    ASSERT_TRUE(i.LoadBytes(bytes));
    EXPECT_EQ(i.s.Clips.List, (std::vector<std::string>{"clip", "(2) clip"}));
    ASSERT_TRUE(i.LoadBytes(bytes, AllBut(Element::ClipBoard)));
    EXPECT_EQ(i.s.Clips.ClipTop, 1);
}

TEST(LoadSession, SettingsRunTheHandlerOfThePadTypeSoThatThePadIsCentred) {
    SetInstrument i;
    i.s.TwistPosition = 7;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutSettings(b); })));
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_EQ(i.s.Joy.Relative[0], True);
    EXPECT_GE(i.Screen.Count("ShowPad"), 1);
}

TEST(LoadSession, TheViewsOfTheCurrentLoopTrackAreShownAgainAtTheEnd) {
    SetInstrument i;
    i.s.ActiveTab = kPatternTab;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutLoops(b, {GoldenLoop{}}); }), Only(Element::FreqPattern)));
    EXPECT_EQ(i.s.StepsShown, 8);
}

TEST(LoadSession, TheDriverIsIgnoredOnAMachineWithAnotherNumberOfDrivers) {
    SetInstrument i;
    i.s.Drivers.push_back("another");
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path())));
    EXPECT_EQ(i.s.Driver, 0);
}

TEST(LoadSession, TheDriverIsOnlyShownAndNoDeviceIsOpened) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutSettings(b); })));
    EXPECT_EQ(i.s.Driver, 1);
    EXPECT_EQ(i.Sound.Count("DirectSoundCreate"), 0);
}

TEST(LoadSession, JoystickAssignmentsAreAppliedOnlyWhileAJoystickIsInUse) {
    SetInstrument i;
    i.s.JoyEnabled = true;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutSettings(b); })));
    EXPECT_EQ(i.s.Joy.Button[0], 1);
    EXPECT_EQ(i.s.Joy.Button[4], 5);
    EXPECT_EQ(i.s.Joy.Axis[0], 4);
    EXPECT_EQ(i.s.Joy.Axis[1], 5);
    EXPECT_FALSE(i.s.Joy.Refreshing);
}

TEST(LoadSession, ThreeDIsSwitchedBeforeTheLoopTracksAreLoaded) {
    SetInstrument i;
    GoldenLoop loop;
    loop.FileName = i.Folder / "a.wav";
    ASSERT_TRUE(i.LoadBytes(FileOf([&](Bytes& b) {
        PutThreeD(b, true);
        PutLoops(b, {loop}, true);
    })));
    EXPECT_TRUE(i.s.Use3D);
    EXPECT_EQ(i.s.RollOffValue, 2.5F);
    EXPECT_EQ(i.s.Set[0].PositionX, 0.25F);
    EXPECT_EQ(i.s.Set[0].PositionY, -0.5F);
    EXPECT_EQ(i.s.Set[0].Pan, 500);
}

TEST(LoadSession, ABlockSavedIn3DAndOpenedWith3DOffRestoresNeitherPanNorPositionButAllElse) {
    SetInstrument i;
    ASSERT_TRUE(i.LoadBytes(FileOf([](Bytes& b) { PutLoops(b, {GoldenLoop{}}, true); })));
    EXPECT_EQ(i.s.Set[0].Pan, 500);
    EXPECT_EQ(i.s.Set[0].Pattern[kPanPattern][0], 500);
    EXPECT_EQ(i.s.Set[0].PositionX, 0);
    EXPECT_EQ(i.s.Set[0].Vol, 321);
    EXPECT_EQ(i.s.Set[0].Channel, 6);
    EXPECT_EQ(i.s.Set[0].NSteps, 7);
}

TEST(LoadSession, WithNoneEverySectionIsReadAndNothingIsApplied) {
    SetInstrument i;
    WriteBytes(i.Folder / "x.mvn", GoldenSession(i.Folder.Path()));
    const std::string before = (i.Save("before.mvn"), ReadBytes(i.Folder / "before.mvn"));
    ASSERT_TRUE(LoadSession(i.s, i.Folder / "x.mvn", SetAsCurrent::Yes, clsSwitchRecord{}, AdoptSwitches::Yes));
    const std::string after = (i.Save("after.mvn"), ReadBytes(i.Folder / "after.mvn"));
    EXPECT_EQ(before, after);
    EXPECT_EQ(i.s.Title, "marvolin-x.mvn");
    EXPECT_EQ(i.s.SaveOpenSwitches[kWhenSaving], All());
}

}  // namespace
}  // namespace marvolin
