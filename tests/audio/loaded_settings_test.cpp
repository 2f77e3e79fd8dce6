#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/beat_start.h"
#include "audio/loader.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"

namespace marvolin {
namespace {

using test::Loader;
using ::testing::Contains;
using ::testing::ElementsAre;

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

}  // namespace
}  // namespace marvolin
