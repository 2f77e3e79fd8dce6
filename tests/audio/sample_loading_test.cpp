#include "audio/sample_loading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "audio/loader.h"
#include "audio/loop_clearing.h"
#include "audio/loop_controls.h"
#include "audio/sample_buffers.h"
#include "audio/transport.h"

namespace marvolin {
namespace {

using test::Instrument;
using test::Loader;
using ::testing::Contains;
using ::testing::ElementsAre;

TEST(LoopLoad, WithoutADeviceDoesNothingAndShowsNothing) {
    Loader i;
    i.Make("a.WAV");
    i.s.DSReady = false;
    i.Load(0, "a.WAV");
    i.Load(0, "");
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(LoopLoad, AnEmptyNameShowsAMessageAndChangesNothing) {
    Loader i;
    i.Fill(0, "/old.WAV");
    i.Load(0, "");
    EXPECT_EQ(i.Desk.LastBox(), "No File Name!!");
    EXPECT_EQ(i.s.Set[0].FileName, "/old.WAV");
    EXPECT_EQ(i.s.Run[0].Loaded, True);
}

TEST(LoopLoad, AMissingFileShowsAMessageAndTheOldSampleStays) {
    Loader i;
    i.Fill(0, "/old.WAV");
    std::filesystem::create_symlink("/nowhere/at/all.WAV", i.Folder / "link.WAV");
    for (const std::string& name : {std::string("none.WAV"), std::string(4000, 'x'), std::string("deep/") + "none.WAV",
                                    std::string("link.WAV")}) {
        SCOPED_TRACE(name.substr(0, 20));
        i.Desk.Boxes.clear();
        i.Load(0, name);
        EXPECT_EQ(i.Desk.LastBox(), "File Doesn't Exist !!");
        EXPECT_EQ(i.s.StatusText, "Not loaded: " + name.substr(name.rfind('/') + 1)) << "the box does not say which";
        EXPECT_EQ(i.s.Set[0].FileName, "/old.WAV");
        EXPECT_EQ(i.s.Run[0].Loaded, True);
    }
}

TEST(LoopLoad, AFreshLoadMakesTheRowReadyWithWhatTheServiceReports) {
    Loader i;
    const std::string path = i.Make("a.WAV", 2);
    i.Load(1, "a.WAV");
    const LoopTrackSet& set = i.s.Set[1];
    EXPECT_EQ(i.s.Run[1].Loaded, True);
    EXPECT_EQ(i.s.Run[1].Playing, False);
    EXPECT_EQ(set.FileName, path);
    EXPECT_EQ(set.SampleRate, 44100);
    EXPECT_EQ(set.BufferBytes, 352800);
    EXPECT_EQ(set.AvgBytesPerSec, 176400);
    EXPECT_DOUBLE_EQ(set.Length, 2.0);
    EXPECT_EQ(set.StepDuration, 200);
    EXPECT_EQ(i.Sound.CreateFlags, 0x181E2);
    EXPECT_EQ(i.Sound.Count("CreateSoundBufferFromFile " + path), 1);
    EXPECT_EQ(i.s.Run[1].Buffer3D, nullptr);
    EXPECT_THAT(i.s.History[1], ElementsAre(path));
    EXPECT_THAT(i.s.History[4], ElementsAre(path));
    EXPECT_EQ(i.Screen.Count("ShowCaption 1"), 1);
    EXPECT_GE(i.Screen.Count("ShowWaveform 1"), 1);
    EXPECT_THAT(i.Desk.Log, ElementsAre("busy pointer", "default pointer"));
    EXPECT_TRUE(PanKnobEnabled(i.s, 1));
}

TEST(LoopLoad, LoadingTheFileThatTheRowHoldsLeavesItPlayingWithoutAClick) {
    Loader i;
    i.Make("a.WAV");
    i.Load(0, "a.WAV");
    LoopPlay(i.s, 0, true);
    i.Sound.Log.clear();
    i.Screen.Log.clear();
    i.Load(0, "a.WAV");
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Screen.Log.empty());
    EXPECT_EQ(i.s.Run[0].Playing, True);
}

TEST(LoopLoad, TheComparisonOfPathsIsCaseSensitive) {
    Loader i;
    i.Make("a.WAV");
    const std::string other = i.Make("A.WAV");
    i.Load(0, "a.WAV");
    i.Load(0, "A.WAV");
    EXPECT_EQ(i.s.Set[0].FileName, other);
    EXPECT_EQ(i.Sound.Count("CreateSoundBufferFromFile"), 2);
    EXPECT_EQ(i.Sound.Count("DuplicateSoundBuffer"), 0);
}

TEST(LoopLoad, AnotherFileStopsTheOldSampleAndReleasesIt) {
    Loader i;
    i.Make("a.WAV");
    i.Make("b.WAV");
    i.Load(0, "a.WAV");
    LoopPlay(i.s, 0, true);
    i.Sound.Log.clear();
    i.Load(0, "b.WAV");
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.ThinList, "");
    const auto& log = i.Sound.Log;
    const auto stop = std::find(log.begin(), log.end(), "Stop b0");
    const auto release = std::find(log.begin(), log.end(), "Release b0");
    const auto create = std::find(log.begin(), log.end(), "CreateSoundBufferFromFile " + i.Folder.In("b.WAV"));
    ASSERT_NE(create, log.end());
    EXPECT_LT(stop, release);
    EXPECT_LT(release, create);
}

TEST(LoopLoad, TheSameFileInAllFourRowsIsReadOnceAndTheOthersDuplicateTheLowest) {
    Loader i;
    i.Make("a.WAV");
    for (Row row = 0; row < kLoopTracks; ++row) i.Load(row, "a.WAV");
    EXPECT_EQ(i.Sound.Count("CreateSoundBufferFromFile"), 1);
    EXPECT_THAT(i.Sound.Calls("DuplicateSoundBuffer"),
                ElementsAre("DuplicateSoundBuffer b0", "DuplicateSoundBuffer b0", "DuplicateSoundBuffer b0"));
    EXPECT_EQ(i.Buffer(0).Sample, i.Buffer(3).Sample);
    EXPECT_EQ(i.s.Set[3].SampleRate, 44100);
}

TEST(LoopLoad, AfterRowZeroIsUnloadedItsDuplicatesSoundOnAndALaterLoadDuplicatesTheLowestLeft) {
    Loader i;
    i.Make("a.WAV");
    for (Row row = 0; row < 3; ++row) i.Load(row, "a.WAV");
    LoopPlay(i.s, 1, true);
    LoopUnload(i.s, 0);
    EXPECT_EQ(i.Buffer(1).Status, 5);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    i.Sound.Log.clear();
    i.Load(0, "a.WAV");
    EXPECT_THAT(i.Sound.Calls("DuplicateSoundBuffer"), ElementsAre("DuplicateSoundBuffer b1"));
    EXPECT_EQ(i.Sound.Count("CreateSoundBufferFromFile"), 0);
}

TEST(LoopLoad, AFileThatTheServiceRefusesLeavesTheRowEmptyAndTheOldSampleGone) {
    Loader i;
    i.Make("a.WAV");
    i.Make("bad.WAV");
    i.Load(0, "a.WAV");
    i.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    i.Screen.Log.clear();
    i.Load(0, "bad.WAV");
    EXPECT_EQ(i.Desk.LastBox(),
              "Error creating sound buffer, make sure WAV file is in PCM format: The specified wave format is not "
              "supported.");
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[0].Buffer, nullptr);
    EXPECT_EQ(i.s.Set[0].FileName, "");
    EXPECT_FALSE(PanKnobEnabled(i.s, 0));
    EXPECT_GE(i.Screen.Count("ShowCaption 0"), 1);
    EXPECT_EQ(i.s.History[0].size(), 1U);
    EXPECT_FALSE(i.Desk.Busy);
}

TEST(LoopLoad, ARefusedFileIsNamedInTheStatusLineAndTheRowReadsEmpty) {
    Loader i;
    i.Make("a.WAV");
    i.Make("c\\bad.WAV");
    i.Load(0, "a.WAV");
    i.s.ActiveTab = kPatternTab;
    i.s.CurrentLoop = 0;
    i.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    LoadSample(i.s, {.Path = i.Folder / "c\\bad.WAV", .Target = 0});
    EXPECT_EQ(i.s.StatusText, "Not loaded: c\\bad.WAV");
    EXPECT_EQ(i.s.Set[0].Length, 0);
    EXPECT_EQ(i.s.PercentText[0], "<Empty>");
    EXPECT_EQ(i.s.PercentText[2], "<Empty>");
    EXPECT_EQ(i.Screen.Count("ShowDestinations"), 2);
}

TEST(LoopLoad, AnErrorOfAnyKindWhileSettingUpIsShownInTheStatusLine) {
    struct : test::FakeDisplay {
        void ShowWaveform(Row) override { throw std::length_error("no error of the instrument"); }
    } screen;
    Loader i;
    Session s{i.For(screen)};
    s.DX = std::make_unique<test::FakeDirectX>(i.Sound);
    s.DS = s.DX->DirectSoundCreate("guid1");
    s.DSReady = true;
    LoopLoad(s, 0, i.Folder.Path(), "a.WAV");
    EXPECT_EQ(s.StatusText, "Not loaded: a.WAV") << "there is no such file";
    i.Make("a.WAV");
    LoopLoad(s, 0, i.Folder.Path(), "a.WAV");
    EXPECT_EQ(s.StatusText, "Error setting up loaded loop");
    EXPECT_EQ(s.Run[0].Loaded, True);
    EXPECT_TRUE(s.History[0].empty());
}

TEST(LoopLoad, AFreshLoadPutsTheBeatStartToZeroAlsoWhenTheSettingsAreKept) {
    Loader i;
    i.Make("a.WAV", 3);
    i.s.ResetVars = false;
    i.s.Set[0].BeatStart = 123;
    i.s.Run[0].BeatStartBytes = 4567;
    i.Load(0, "a.WAV");
    EXPECT_EQ(i.s.Set[0].BeatStart, 0);
    EXPECT_EQ(i.s.Run[0].BeatStartBytes, 0);
}

TEST(LoopLoad, ADuplicateTakesTheRateOfItsSourceRowAlsoWhenTheSourceIsDetuned) {
    Loader i;
    i.Make("a.WAV");
    i.s.ResetVars = false;
    i.Load(0, "a.WAV");
    i.Buffer(0).Frequency = 12345;
    i.Load(1, "a.WAV");
    EXPECT_EQ(i.s.Set[1].SampleRate, 44100);
    EXPECT_EQ(i.Buffer(1).Frequency, 44100);
}

TEST(LoopLoad, ADuplicateRefreshesTheTimeReadOuts) {
    Loader i;
    i.Make("a.WAV");
    i.s.ResetVars = false;
    i.Load(0, "a.WAV");
    i.s.ActiveTab = kPatternTab;
    i.s.CurrentLoop = 3;
    i.Load(1, "a.WAV");
    const int duplicate = i.Screen.Count("ShowTime 2");
    i.Make("b.WAV");
    i.Screen.Log.clear();
    i.Load(2, "b.WAV");
    EXPECT_EQ(duplicate, i.Screen.Count("ShowTime 2") + 1);
}

TEST(LoopCreateBuffer, WithoutAPathIsARefusalWithoutABox) {
    Loader i;
    EXPECT_EQ(LoopCreateBuffer(i.s, 0, ""), 1);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(LoopLoad, ARefusedDuplicateShowsItsOwnMessage) {
    Loader i;
    i.Make("a.WAV");
    i.Load(0, "a.WAV");
    i.Sound.Failures["DuplicateSoundBuffer"] = sound_error::kOutOfMemory;
    i.Load(1, "a.WAV");
    EXPECT_EQ(i.Desk.LastBox(),
              "Error duplicating sound buffer:  The DirectSound subsystem could not allocate sufficient memory to "
              "complete the caller's request.");
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(i.s.Run[0].Loaded, True);
}

TEST(LoopLoad, AFailing3DSideLeavesNoBufferBehind) {
    Loader i;
    i.Make("a.WAV");
    i.s.Use3D = true;
    i.Sound.Failures["GetDirectSound3dBuffer"] = sound_error::kNoInterface;
    i.Load(0, "a.WAV");
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[0].Buffer, nullptr);
    EXPECT_TRUE(i.Sound.Live.empty());
}

TEST(LoopLoad, AFailureWhileSettingUpIsShownInTheStatusLineAndTheRowStaysAsFarAsItGot) {
    {
        Loader i;
        i.Make("a.WAV");
        i.Sound.Failures["GetFrequency"] = sound_error::kGeneric;
        i.Load(0, "a.WAV");
        EXPECT_EQ(i.s.StatusText, "Error setting up loaded loop");
        EXPECT_EQ(i.s.Run[0].Loaded, False);
        EXPECT_TRUE(i.s.History[0].empty());
        EXPECT_TRUE(i.Desk.Boxes.empty());
    }
    {
        Loader i;
        i.Make("a.WAV");
        i.Sound.Failures["GetCaps"] = sound_error::kGeneric;
        i.Load(0, "a.WAV");
        EXPECT_EQ(i.s.StatusText, "Error setting up loaded loop");
        EXPECT_EQ(i.s.Run[0].Loaded, True);
    }
}

TEST(LoopLoad, AFolderCountsAsAFileAndIsLeftToTheServiceToRefuse) {
    Loader i;
    std::filesystem::create_directory(i.Folder.In("d.WAV"));
    i.Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kBadFormat;
    i.Load(0, "d.WAV");
    EXPECT_THAT(i.Desk.LastBox(), ::testing::StartsWith("Error creating sound buffer"));
    EXPECT_EQ(i.s.Run[0].Loaded, False);
}

TEST(LoopLoad, ANameThatIsNotAsciiLoadsAsItIsSpelled) {
    Loader i;
    const std::string path = i.Make(
        "Gr\xC3\xBC\xC3\x9F"
        "e \xE9.WAV");
    i.Load(0,
           "Gr\xC3\xBC\xC3\x9F"
           "e \xE9.WAV");
    EXPECT_EQ(i.s.Set[0].FileName, path);
    EXPECT_EQ(LoopFileName(i.s, 0),
              "Gr\xC3\xBC\xC3\x9F"
              "e \xE9");
}

TEST(LoopLoad, RowsFourAndFiveNeverGetABuffer) {
    Loader i;
    i.Make("a.WAV");
    i.Load(kSelectionRow, "a.WAV");
    i.Load(kMasterRow, "a.WAV");
    EXPECT_EQ(i.s.Run[kSelectionRow].Buffer, nullptr);
    EXPECT_EQ(i.s.Run[kMasterRow].Loaded, False);
}

TEST(LoopLoad, RefreshesThePatternViewWhenItsTabIsOpen) {
    Loader i;
    i.Make("a.WAV");
    i.s.ActiveTab = kPatternTab;
    i.s.CurrentLoop = 0;
    i.Load(1, "a.WAV");
    const int ofAnother = i.Screen.Count("ShowPlayMode 5");
    EXPECT_EQ(ofAnother, 1);
    i.Load(0, "a.WAV");
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 5") - ofAnother, 2);
}

}  // namespace
}  // namespace marvolin
