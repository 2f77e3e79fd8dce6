/// The instrument when its output device is pulled out.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/device.h"
#include "audio/openal/sound.h"
#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "audio/vanishing_output.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "parameters/setters.h"
#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/session_file_store.h"

namespace marvolin::test {
namespace {

/// An instrument on the real audio service, with a sample that loops in the second row and is heard.
struct Plugged : FakeServices {
    VanishingOutput Output;
    SampleFolder Folder;
    FakeDisplay Screen;
    SessionFileStore Files;
    Session s{For(Screen, Files)};

    explicit Plugged(const char* driver) : Output(driver) {
        Desk.TempFile = Folder.Path("VBN1.tmp");
        s.World.CreateDirectX7 = [] { return CreateOpenAlSound(); };
        s.DX = s.World.CreateDirectX7();
        InitAudioDriversList(s);
        cboDrivers_Click(s, 0);
        s.DeviceSwapArmed = true;
        s.GangReady = true;
        PadGeometryInit(s, 4500, 4500);
        PadListInit(s);
        PadTablesInit(s);
        MapInit(s);
        const std::vector<std::int32_t> numbers(11025, 9000);
        Folder.Write("tone.wav", WaveBytes({.Channels = 1, .Data = Pcm(numbers, 16)}));
        LoopLoad(s, kRow, Folder.Path(""), "tone.wav");
        Turn(400, 1500);
        LoopPlay(s, kRow, true);
    }
    void Turn(std::int16_t vol, std::int16_t hz) {
        LoopVolChange(s, kRow, vol, TakeHold::Yes, UpdateDisplay::Yes);
        LoopHzChange(s, kRow, hz, TakeHold::Yes);
    }
    bool Sounds() { return (s.Run[kRow].Buffer->GetStatus() & buffer_status::kPlaying) != 0; }
    /// Pulls the device out and waits until its driver has noticed.
    void Vanish() {
        Output.Vanish();
        s.Run[kRow].Buffer->SetCurrentPosition(0);
        ASSERT_TRUE(Eventually([this] { return s.Run[kRow].Buffer->GetCurrentPosition() > 8192; }));
    }

    static constexpr Row kRow = 1;
};

constexpr const char* kDrivers[] = {"alsa", "disk"};

TEST(VanishedDevice, TheSessionGoesOnWithoutSoundAndTheNextChoiceRestoresIt) {
    for (const char* driver : kDrivers) {
        SCOPED_TRACE(driver);
        Plugged i(driver);
        ASSERT_TRUE(i.s.DSReady);
        ASSERT_TRUE(i.Output.Heard());

        i.Vanish();
        EXPECT_TRUE(i.s.DSReady);
        EXPECT_TRUE(i.Sounds());
        i.Turn(300, 1700);
        LoopStop(i.s, i.kRow);
        EXPECT_FALSE(i.Sounds());
        LoopPlay(i.s, i.kRow, true);
        EXPECT_TRUE(i.Sounds());

        i.Output.PlugIn();
        cboDrivers_Click(i.s, 0);
        EXPECT_TRUE(i.s.DSReady);
        EXPECT_TRUE(i.Desk.Boxes.empty());
        EXPECT_EQ(i.s.Run[i.kRow].Loaded, True);
        EXPECT_EQ(i.s.Set[i.kRow].FileName, i.Folder.Path("tone.wav"));
        EXPECT_EQ(i.s.Set[i.kRow].Vol, 300);
        EXPECT_EQ(i.s.Set[i.kRow].Hz, 1700);
        LoopPlay(i.s, i.kRow, true);
        EXPECT_TRUE(i.Output.Heard());
        i.Output.Vanish();
    }
}

TEST(VanishedDevice, ChosenAgainItIsReportedOnceAndTheSetWaitsForTheNextChoice) {
    for (const char* driver : kDrivers) {
        SCOPED_TRACE(driver);
        Plugged i(driver);
        ASSERT_TRUE(i.Output.Heard());
        i.Vanish();
        i.Output.Refuse();
        cboDrivers_Click(i.s, 0);
        EXPECT_FALSE(i.s.DSReady);
        ASSERT_EQ(i.Desk.Boxes.size(), 1U);
        EXPECT_EQ(i.Desk.Boxes[0].Text, "Error creating sound device: No sound driver is available for use.");
        EXPECT_EQ(i.s.Run[i.kRow].Buffer, nullptr);
        LoopPlay(i.s, i.kRow, true);

        i.Output.PlugIn();
        cboDrivers_Click(i.s, 0);
        EXPECT_TRUE(i.s.DSReady);
        EXPECT_EQ(i.s.Set[i.kRow].FileName, i.Folder.Path("tone.wav"));
        EXPECT_TRUE(i.Sounds());
        EXPECT_TRUE(i.Output.Heard());
        EXPECT_EQ(i.Desk.Boxes.size(), 1U);
        i.Output.Vanish();
    }
}

}  // namespace
}  // namespace marvolin::test
