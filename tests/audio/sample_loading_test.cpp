#include "audio/sample_loading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "audio/beat_start.h"
#include "audio/loop_clearing.h"
#include "audio/loop_controls.h"
#include "audio/sample_buffers.h"
#include "audio/transport.h"
#include "fakes/instrument.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

using test::FakeSample;
using test::Instrument;
using ::testing::Contains;
using ::testing::ElementsAre;

/// An instrument with a folder of samples.
struct Loader : Instrument {
    test::TempFolder Folder;
    /// Makes a file that the service takes for `seconds` of sound; its full path.
    std::string Make(const std::string& name, double seconds = 1) {
        FakeSample sample;
        sample.Bytes.assign(static_cast<std::size_t>(seconds * 44100) * 4, 0);
        const std::string path = Folder.Touch(name);
        Sound.Samples[path] = sample;
        return path;
    }
    void Load(Row row, const std::string& name) { LoopLoad(s, row, Folder.Path(), name); }
};

TEST(LoopLoad, WithoutADeviceDoesNothingAndSaysNothing) {
    Loader i;
    i.Make("a.WAV");
    i.s.DSReady = false;
    i.Load(0, "a.WAV");
    i.Load(0, "");
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(LoopLoad, AnEmptyNameIsToldAndChangesNothing) {
    Loader i;
    i.Fill(0, "/old.WAV");
    i.Load(0, "");
    EXPECT_EQ(i.Desk.LastBox(), "No File Name!!");
    EXPECT_EQ(i.s.Set[0].FileName, "/old.WAV");
    EXPECT_EQ(i.s.Run[0].Loaded, True);
}

TEST(LoopLoad, AMissingFileIsToldAndTheOldSampleStays) {
    Loader i;
    i.Fill(0, "/old.WAV");
    for (const std::string& name :
         {std::string("none.WAV"), std::string(4000, 'x'), std::string("deep/") + "none.WAV"}) {
        SCOPED_TRACE(name.substr(0, 20));
        i.Desk.Boxes.clear();
        i.Load(0, name);
        EXPECT_EQ(i.Desk.LastBox(), "File Doesn't Exist !!");
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

TEST(LoopLoad, TheStepOfAFreshSampleIsItsLengthCutToHundredths) {
    // 0.29 * 100 is a little less than 29, and 0.57 * 100 a little less than 57.
    for (const auto& [seconds, step] : {std::pair{0.29, 28}, {0.57, 56}, {0.25, 25}, {0.5, 50}}) {
        SCOPED_TRACE(seconds);
        Loader i;
        i.Make("a.WAV", seconds);
        i.Load(0, "a.WAV");
        EXPECT_EQ(i.s.Set[0].StepDuration, step);
    }
}

TEST(LoopLoad, With3DTakesThe3DBufferWithItsDistancesAndPutsTheRowAtTheCentre) {
    Loader i;
    i.Make("a.WAV");
    i.s.Use3D = true;
    i.s.Set[0].Pan = 100;
    i.s.Set[0].PositionX = 1;
    i.Load(0, "a.WAV");
    EXPECT_EQ(i.Sound.CreateFlags, 0x181B2);
    EXPECT_NE(i.s.Run[0].Buffer3D, nullptr);
    EXPECT_EQ(i.Sound.Log[1], "SetMinDistance b0 1.000000");
    EXPECT_EQ(i.Sound.Log[2], "SetMaxDistance b0 4.000000");
    EXPECT_THAT(i.Sound.Log, Contains("SetPosition b0 0.000000,0.000000,0.000000"));
    EXPECT_EQ(i.s.Set[0].PositionX, 0);
    EXPECT_EQ(i.s.Set[0].Pan, 100);
    EXPECT_EQ(i.Sound.Count("SetPan"), 0);
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

TEST(LoopLoad, TheComparisonOfPathsMindsTheCase) {
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

TEST(LoopLoad, ADuplicateStartsFullAndIsThenGivenItsSettings) {
    Loader i;
    i.Make("a.WAV");
    i.Load(0, "a.WAV");
    i.s.ResetVars = false;
    i.s.Set[2].Vol = 400;
    i.Sound.Log.clear();
    i.Load(2, "a.WAV");
    EXPECT_THAT(i.Sound.Log, ElementsAre("DuplicateSoundBuffer b0", "SetVolume b1 0", "SetFrequency b1 44100",
                                         "SetVolume b1 -594", "SetPan b1 0"));
}

TEST(LoopLoad, ADuplicatesBeatStartIsAHundredthOfItsSource) {
    Loader i;
    i.Make("a.WAV", 9);
    i.Load(0, "a.WAV");
    std::int32_t start = 850;
    LoopSetBeatStart(i.s, 0, start);
    i.s.ResetVars = false;
    i.Load(1, "a.WAV");
    EXPECT_EQ(i.s.Set[1].BeatStart, 8);  // 8.5, rounded to the even one
    // The rate of the row is known only afterwards: an empty row's bytes stay at 0.
    EXPECT_EQ(i.s.Run[1].BeatStartBytes, 0);
}

TEST(LoopLoad, WithResetVarsTheSettingsGoBackToTheirDefaults) {
    Loader i;
    i.Make("a.WAV", 1.5);
    LoopTrackSet& set = i.s.Set[0];
    set.Swing = 7;
    set.Hz = 2000;
    set.Vol = 100;
    set.Pan = 0;
    set.NSteps = 9;
    set.Pattern[kVolPattern][4] = 1;
    set.Pattern[kHzPattern][kPatternOffset] = 9;
    i.Load(0, "a.WAV");
    EXPECT_EQ(set.StepDuration, 150);
    EXPECT_EQ(set.Swing, 0);
    EXPECT_EQ(set.BeatStart, 0);
    EXPECT_EQ(set.Hz, 1000);
    EXPECT_EQ(set.Vol, 500);
    EXPECT_EQ(set.Pan, 500);
    EXPECT_EQ(set.NSteps, 3);
    EXPECT_EQ(set.Pattern[kVolPattern][4], 500);
    EXPECT_EQ(set.Pattern[kHzPattern][kPatternOffset], 1);
    EXPECT_THAT(i.Sound.Log, ElementsAre("CreateSoundBufferFromFile " + i.Folder.In("a.WAV"), "SetFrequency b0 44100",
                                         "SetVolume b0 0", "SetPan b0 0"));
}

TEST(LoopLoad, WithResetVarsOffTheSettingsStayAndAreAppliedToTheNewBuffer) {
    Loader i;
    i.Make("a.WAV", 2);
    i.s.ResetVars = false;
    LoopTrackSet& set = i.s.Set[0];
    set.Hz = 2000;
    set.Vol = 0;
    set.Pan = 0;
    set.Swing = 7;
    set.NSteps = 9;
    set.StepDuration = 50;
    i.Load(0, "a.WAV");
    EXPECT_EQ(set.Hz, 2000);
    EXPECT_EQ(set.Swing, 7);
    EXPECT_EQ(set.NSteps, 9);
    EXPECT_EQ(set.StepDuration, 50);
    EXPECT_EQ(i.Buffer(0).Frequency, 88200);
    EXPECT_EQ(i.Buffer(0).Volume, -10000);
    EXPECT_EQ(i.Buffer(0).Pan, -10000);
}

TEST(LoopLoad, WithResetVarsOffAStepOfFiveOrLessIsReplacedAndOneOfSixKept) {
    for (const auto& [before, after] : {std::pair{0, 200}, {1, 200}, {5, 200}, {6, 6}, {7, 7}}) {
        Loader i;
        i.Make("a.WAV", 2);
        i.s.ResetVars = false;
        i.s.Set[0].StepDuration = before;
        i.Load(0, "a.WAV");
        EXPECT_EQ(i.s.Set[0].StepDuration, after) << before;
    }
}

TEST(LoopLoad, With3DAndResetVarsOffTheRowIsPutBackToItsPlace) {
    Loader i;
    i.Make("a.WAV");
    i.s.Use3D = true;
    i.s.ResetVars = false;
    i.s.Set[0].PositionX = 1.5F;
    i.s.Set[0].PositionY = -1;
    i.Load(0, "a.WAV");
    EXPECT_THAT(i.Sound.Log, Contains("SetPosition b0 1.500000,0.000000,-1.000000"));
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

TEST(LoopLoad, ARefusedDuplicateIsToldInItsOwnWords) {
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

TEST(LoopLoad, AFailureWhileSettingUpIsToldInTheStatusLineAndTheRowStaysAsFarAsItGot) {
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

TEST(LoopLoad, ASampleWithoutARateIsAFailureOfSettingUp) {
    Loader i;
    const std::string path = i.Make("a.WAV");
    i.Sound.Samples[path].Format.AvgBytesPerSec = 0;
    i.Load(0, "a.WAV");
    EXPECT_EQ(i.s.StatusText, "Error setting up loaded loop");
    EXPECT_EQ(i.s.Set[0].Length, 0);
}

TEST(LoopLoad, ASampleWithoutFramesLoadsWithLengthZero) {
    Loader i;
    const std::string path = i.Make("a.WAV", 0);
    i.Load(0, "a.WAV");
    EXPECT_EQ(i.s.Run[0].Loaded, True);
    EXPECT_EQ(i.s.Set[0].Length, 0);
    EXPECT_EQ(i.s.Set[0].StepDuration, 0);
    EXPECT_EQ(i.s.Set[0].FileName, path);
}

TEST(LoopLoad, AFolderPassesAsAnEntryAndIsThenTheServicesToRefuse) {
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

TEST(LoopLoadRows, FindsAnExtensionThatIsSpelledOtherwiseOnDisk) {
    Loader i;
    for (const char* extension : {"wav", "Wav", "wAV"}) {
        const std::string path = i.Make(std::string("x_") + extension + "." + extension);
        LoopLoadRows(i.s, i.Folder.Path(), std::string("x_") + extension, 0, false);
        EXPECT_EQ(i.s.Set[0].FileName, path);
    }
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(LoopLoadRows, PrefersTheSpellingInCapitalsAndTellsOfAFileThatVanished) {
    Loader i;
    i.Make("a.wav");
    const std::string path = i.Make("a.WAV");
    LoopLoadRows(i.s, i.Folder.Path(), "a", 0, false);
    EXPECT_EQ(i.s.Set[0].FileName, path);
    LoopLoadRows(i.s, i.Folder.Path(), "gone", 0, true);
    EXPECT_EQ(i.Desk.LastBox(), "File Doesn't Exist !!");
    EXPECT_EQ(i.s.Set[0].FileName, path);
}

TEST(LoopLoadRows, RowFourLoadsTheControlledRowsFirstAndPlaysThemThen) {
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

TEST(LoopUnload, StopsReleasesAndKeepsTheSettings) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    i.s.Set[0].Vol = 77;
    i.s.Run[0].Step = 3;
    LoopUnload(i.s, 0);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[0].Buffer, nullptr);
    EXPECT_EQ(i.s.Run[0].Step, 0);
    EXPECT_EQ(i.s.Set[0].FileName, "");
    EXPECT_EQ(i.s.Set[0].Vol, 77);
    EXPECT_TRUE(i.Sound.Live.empty());
    EXPECT_EQ(i.s.ThinList, "");
}

TEST(LoopClear, PutsTheRowBackToItsEmptyDefaults) {
    Instrument i;
    i.Fill(2);
    LoopPlay(i.s, 2, true);
    LoopTrackSet& set = i.s.Set[2];
    set.PlayMode = kDrum;
    set.Hz = 5;
    set.Vol = 5;
    set.Pan = 5;
    set.Swing = 5;
    set.BeatStart = 5;
    set.Thinnable = False;
    set.NSteps = 12;
    set.Pattern[kPanPattern][0] = 1;
    LoopClear(i.s, 2);
    EXPECT_EQ(i.s.Run[2].Loaded, False);
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_EQ(i.s.Run[2].Buffer, nullptr);
    EXPECT_EQ(set.FileName, "");
    EXPECT_EQ(set.PlayMode, kLoop);
    EXPECT_EQ(set.Hz, 1000);
    EXPECT_EQ(set.Vol, 500);
    EXPECT_EQ(set.Pan, 500);
    EXPECT_EQ(set.Thinnable, True);
    EXPECT_EQ(set.StepDuration, 0);
    EXPECT_EQ(set.Swing, 0);
    EXPECT_EQ(set.BeatStart, 0);
    EXPECT_EQ(set.NSteps, 3);
    EXPECT_EQ(set.Pattern[kPanPattern][0], 500);
    EXPECT_FALSE(PanKnobEnabled(i.s, 2));
    EXPECT_EQ(i.Screen.Log.back(), "ShowCaption 2");
}

TEST(LoopClear, With3DLeavesThePanAlone) {
    Instrument i;
    i.s.Use3D = true;
    i.s.Set[0].Pan = 5;
    LoopClear(i.s, 0);
    EXPECT_EQ(i.s.Set[0].Pan, 5);
    EXPECT_TRUE(PanKnobEnabled(i.s, 0));
}

TEST(LoopClear, LeavesRowFourAlone) {
    Instrument i;
    i.s.Set[kSelectionRow].Vol = 5;
    LoopClear(i.s, kSelectionRow);
    EXPECT_EQ(i.s.Set[kSelectionRow].Vol, 5);
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(LoopClearRows, RowFourClearsTheControlledRows) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    i.Select(0);
    i.Select(2);
    LoopClearRows(i.s, kSelectionRow);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[1].Loaded, True);
    EXPECT_EQ(i.s.Run[2].Loaded, False);
    LoopClearRows(i.s, 1);
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(i.s.Run[3].Loaded, True);
}

TEST(EnableLoopControls, OnlyThePanKnobFollowsAndOnlyWith3DOff) {
    Instrument i;
    EnableLoopControls(i.s, 1, false);
    EXPECT_FALSE(PanKnobEnabled(i.s, 1));
    EnableLoopControls(i.s, 1, true);
    EXPECT_TRUE(PanKnobEnabled(i.s, 1));
    i.s.Use3D = true;
    EnableLoopControls(i.s, 1, false);
    EXPECT_TRUE(PanKnobEnabled(i.s, 1));
    EXPECT_EQ(i.Screen.Count("ShowEnabled 1"), 3);
}

TEST(LoopSetBeatStart, LimitsTheValueInPlaceToTheSampleAndCountsItsBytes) {
    Instrument i;
    i.Fill(0);
    for (const auto& [asked, stored] : {std::pair{-5, 0}, {0, 0}, {50, 50}, {100, 100}, {101, 100}}) {
        std::int32_t value = asked;
        LoopSetBeatStart(i.s, 0, value);
        EXPECT_EQ(value, stored);
        EXPECT_EQ(i.s.Set[0].BeatStart, stored);
        EXPECT_EQ(i.s.Run[0].BeatStartBytes, stored * 1764);
    }
}

TEST(LoopSetBeatStart, RoundsTheBytesDownWithoutMindingFrames) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].AvgBytesPerSec = 11025;
    std::int32_t value = 3;
    LoopSetBeatStart(i.s, 0, value);
    EXPECT_EQ(i.s.Run[0].BeatStartBytes, 330);  // 330.75
}

TEST(LoopFileName, IsTheNameWithoutFolderAndExtension) {
    Instrument i;
    i.Fill(0, "/samples/drums/kick 1.WAV");
    EXPECT_EQ(LoopFileName(i.s, 0), "kick 1");
    EXPECT_EQ(LoopFileName(i.s, 1), "");
}

}  // namespace
}  // namespace marvolin
