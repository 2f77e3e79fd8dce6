#include "audio/device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "audio/sample_loading.h"
#include "core/routines.h"
#include "fakes/instrument.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;

/// An instrument before its first device.
struct Closed : Instrument {
    Closed() {
        s.DS.reset();
        s.DSReady = false;
        Sound.Log.clear();
    }
    void List() {
        InitAudioDriversList(s);
        Sound.Log.clear();
    }
};

TEST(InitAudioDriversList, ListsTheDriversInOrderFollowedByNoSound) {
    Closed i;
    InitAudioDriversList(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "Second Device", "No Sound"));
    EXPECT_EQ(i.Screen.Count("ShowDrivers"), 1);
}

TEST(InitDirectSound, OpensTheChosenDriverInThisOrder) {
    Closed i;
    i.List();
    i.s.Driver = 1;
    i.s.RollOffValue = 3;
    InitDirectSound(i.s);
    EXPECT_THAT(i.Sound.Log, ElementsAre("GetGuid 2", "DirectSoundCreate guid2", "SetCooperativeLevel 2",
                                         "CreateSoundBuffer 1", "SetFormat p 1 2 44100 16 4 176400 0",
                                         "SetCooperativeLevel 1", "Play p 1", "GetSpeakerConfig"));
    EXPECT_TRUE(i.s.DSReady);
    EXPECT_NE(i.s.DS, nullptr);
    EXPECT_EQ(i.s.Listener, nullptr);
    EXPECT_EQ(i.s.RollOffValue, 0);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(InitDirectSound, With3DTakesTheListenerAndSetsTheRollOffToOne) {
    Closed i;
    i.List();
    i.s.Driver = 0;
    i.s.Use3D = true;
    InitDirectSound(i.s);
    EXPECT_THAT(i.Sound.Log,
                ElementsAre("GetGuid 1", "DirectSoundCreate guid1", "SetCooperativeLevel 2", "CreateSoundBuffer 17",
                            "SetFormat p 1 2 44100 16 4 176400 0", "SetCooperativeLevel 1", "Play p 1",
                            "GetDirectSound3dListener", "SetRolloffFactor 1.000000", "GetSpeakerConfig"));
    EXPECT_NE(i.s.Listener, nullptr);
    EXPECT_EQ(i.s.RollOffValue, 1.0F);
}

TEST(InitDirectSound, ASpeakerConfigurationWhoseTwoLowBitsAreSetIsWrittenBackAsThreeExactly) {
    for (const std::int32_t config : {3, 7, 0x00140003}) {
        Closed i;
        i.List();
        i.s.Driver = 0;
        i.Sound.SpeakerConfig = config;
        InitDirectSound(i.s);
        EXPECT_THAT(i.Sound.Calls("SetSpeakerConfig"), ElementsAre("SetSpeakerConfig 3"));
    }
    for (const std::int32_t config : {0, 1, 2, 4, 6}) {
        Closed i;
        i.List();
        i.s.Driver = 0;
        i.Sound.SpeakerConfig = config;
        InitDirectSound(i.s);
        EXPECT_EQ(i.Sound.Count("SetSpeakerConfig"), 0) << config;
    }
}

TEST(InitDirectSound, AFailureBeforeThePrimaryBufferRunsLeavesTheDeviceClosed) {
    for (const char* step : {"GetGuid", "DirectSoundCreate", "SetCooperativeLevel", "SetCooperativeLevel 1",
                             "CreateSoundBuffer", "SetFormat", "Play"}) {
        SCOPED_TRACE(step);
        Closed i;
        i.List();
        i.s.Driver = 0;
        i.Sound.Failures[step] = sound_error::kNoDriver;
        InitDirectSound(i.s);
        EXPECT_FALSE(i.s.DSReady);
        EXPECT_EQ(i.s.DS, nullptr);
        ASSERT_EQ(i.Desk.Boxes.size(), 1U);
        EXPECT_EQ(i.Desk.LastBox(), "Error creating sound device: No sound driver is available for use.");
    }
}

TEST(InitDirectSound, AFailureAtTheListenerOrTheSpeakersLeavesTheDeviceOpen) {
    for (const char* step : {"GetDirectSound3dListener", "GetSpeakerConfig", "SetSpeakerConfig"}) {
        SCOPED_TRACE(step);
        Closed i;
        i.List();
        i.s.Driver = 0;
        i.s.Use3D = true;
        i.Sound.SpeakerConfig = 3;
        i.Sound.Failures[step] = sound_error::kGeneric;
        InitDirectSound(i.s);
        EXPECT_TRUE(i.s.DSReady);
        EXPECT_NE(i.s.DS, nullptr);
        EXPECT_THAT(i.Desk.LastBox(), StartsWith("Error creating sound device: "));
    }
}

TEST(CboDrivers, WithOnlyNoSoundInTheListTheFirstChoiceOpensNothingAndGivesNoMessage) {
    Closed i;
    i.Sound.Drivers.clear();
    i.List();
    cboDrivers_Click(i.s, 0);
    EXPECT_FALSE(i.s.DSReady);
    EXPECT_EQ(i.s.DS, nullptr);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(CboDrivers, TheFirstChoiceSavesNothing) {
    Closed i;
    i.List();
    cboDrivers_Click(i.s, 0);
    EXPECT_TRUE(i.s.DSReady);
    EXPECT_TRUE(i.Store.Log.empty());
}

TEST(CboDrivers, AChangeCarriesTheSessionAcrossInATemporaryFileThatIsDeletedAfterwards) {
    const test::TempFolder folder;
    Closed i;
    i.List();
    cboDrivers_Click(i.s, 0);
    i.s.DeviceSwapArmed = true;
    i.Desk.TempFile = folder.Touch("VBN1.tmp");
    bool openAtSave = false;
    bool openAtLoad = false;
    i.Store.OnSave = [&] { openAtSave = i.s.DSReady && i.Sound.Count("GetGuid 2") == 0; };
    i.Store.OnLoad = [&] { openAtLoad = i.s.DSReady && i.Sound.Count("GetGuid 2") == 1; };
    cboDrivers_Click(i.s, 1);
    EXPECT_THAT(i.Store.Log, ElementsAre("Save " + i.Desk.TempFile + " all everything", "Load " + i.Desk.TempFile));
    EXPECT_TRUE(openAtSave);
    EXPECT_TRUE(openAtLoad);
    EXPECT_FALSE(std::filesystem::exists(i.Desk.TempFile));
    EXPECT_EQ(i.s.Driver, 1);
}

TEST(CboDrivers, AChangeThatCannotKeepTheSessionIsNotMadeAndTheListShowsTheOldEntry) {
    for (const bool noTempFile : {true, false}) {
        SCOPED_TRACE(noTempFile);
        Closed i;
        i.List();
        cboDrivers_Click(i.s, 0);
        i.s.DeviceSwapArmed = true;
        if (noTempFile) i.Desk.TempFile = "";
        i.Store.Answer = false;
        i.Sound.Log.clear();
        i.Screen.Log.clear();
        cboDrivers_Click(i.s, 1);
        EXPECT_EQ(i.s.Driver, 0);
        EXPECT_EQ(i.Screen.Log.back(), "ShowDrivers");
        EXPECT_TRUE(i.Sound.Log.empty());
        EXPECT_TRUE(i.s.DSReady);
        EXPECT_EQ(i.s.OpenDriver, 0);
    }
}

TEST(InitDirectSound, TheEntryOfTheOpenDeviceIsKnownWhateverIsChosen) {
    Closed i;
    i.List();
    EXPECT_EQ(i.s.OpenDriver, -1);
    i.s.Driver = 1;
    InitDirectSound(i.s);
    EXPECT_EQ(i.s.OpenDriver, 1);
    EXPECT_EQ(i.Screen.Log.back(), "ShowDrivers");
    i.s.Driver = 2;
    EXPECT_EQ(i.s.OpenDriver, 1);
    InitDirectSound(i.s);
    EXPECT_EQ(i.s.OpenDriver, -1);
    i.s.Driver = 0;
    InitDirectSound(i.s);
    UnInitDirectSound(i.s);
    EXPECT_EQ(i.s.OpenDriver, -1);
}

TEST(CboDrivers, ChoosingNoSoundWhileSamplesAreLoadedLeavesTheLoopTracksEmpty) {
    const test::TempFolder folder;
    folder.Touch("a.WAV");
    Closed i;
    i.List();
    cboDrivers_Click(i.s, 0);
    i.s.DeviceSwapArmed = true;
    LoopLoad(i.s, 0, folder.Path(), "a.WAV");
    ASSERT_EQ(i.s.Run[0].Loaded, True);
    i.Store.OnLoad = [&] { LoopLoad(i.s, 0, folder.Path(), "a.WAV"); };
    i.Sound.Log.clear();
    cboDrivers_Click(i.s, 2);
    EXPECT_EQ(i.Store.Log.size(), 2U);
    EXPECT_FALSE(i.s.DSReady);
    EXPECT_EQ(i.s.DS, nullptr);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[0].Buffer, nullptr);
    EXPECT_EQ(i.s.Set[0].FileName, "");
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(UnInitDirectSound, ClearsAllLoopTracksThenReleasesTheDevice) {
    Instrument i;
    i.Fill(0, "/a.WAV");
    i.Fill(3, "/b.WAV");
    i.s.Set[3].Vol = 10;
    i.s.ActiveTab = kPatternTab;
    UnInitDirectSound(i.s);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Run[3].Buffer, nullptr);
    EXPECT_EQ(i.s.Set[3].Vol, 500);
    EXPECT_FALSE(i.s.DSReady);
    EXPECT_EQ(i.s.DS, nullptr);
    EXPECT_EQ(i.Sound.Log.back(), "Release device");
    EXPECT_GE(i.Screen.Count("ShowSteps"), 1);
}

TEST(UnInitDirectSound, KeepsThePrimaryBufferAndTheListenerUntilTheNextOpening) {
    Closed i;
    i.List();
    i.s.Driver = 0;
    i.s.Use3D = true;
    InitDirectSound(i.s);
    const DirectSoundBuffer* const primary = i.s.PrimaryBuffer.get();
    const DirectSound3DListener* const listener = i.s.Listener.get();
    ASSERT_NE(primary, nullptr);
    ASSERT_NE(listener, nullptr);
    UnInitDirectSound(i.s);
    EXPECT_EQ(i.s.DS, nullptr);
    EXPECT_EQ(i.s.PrimaryBuffer.get(), primary);
    EXPECT_EQ(i.s.Listener.get(), listener);
}

TEST(InitDirectSound, With3DOffThePreviousListenerIsDropped) {
    Closed i;
    i.List();
    i.s.Driver = 0;
    i.s.Use3D = true;
    InitDirectSound(i.s);
    ASSERT_NE(i.s.Listener, nullptr);
    UnInitDirectSound(i.s);
    i.s.Use3D = false;
    InitDirectSound(i.s);
    EXPECT_EQ(i.s.Listener, nullptr);
}

TEST(UnInitDirectSound, OnAClosedDeviceOnlyRefreshesThePatternView) {
    Closed i;
    i.s.Set[0].Vol = 10;
    i.s.ActiveTab = kPatternTab;
    UnInitDirectSound(i.s);
    EXPECT_EQ(i.s.Set[0].Vol, 10);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 5"), 1);
}

}  // namespace
}  // namespace marvolin
