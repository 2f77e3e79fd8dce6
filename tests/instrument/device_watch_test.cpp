#include "instrument/device_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

#include "audio/device.h"
#include "fakes/instrument.h"
#include "performance/joystick/joystick_setup.h"

namespace marvolin {
namespace {

/// An instrument on the second of two outputs, without a stick, that watches its devices.
struct Watching : test::Instrument {
    Watching() {
        s.DS.reset();
        s.DSReady = false;
        InitAudioDriversList(s);
        cboDrivers_Click(s, 1);
        s.DeviceSwapArmed = true;
        Stick.Devices.clear();
        InitDirectInput(s);
        WatchDevices(s);
    }
    void Tick(int times = 1) {
        for (int i = 0; i < times; ++i) Timers.Live.back()->OnTick(DeviceWatch::kInterval);
    }
    /// It is taken again at the look after this.
    void PullAndPutBackTheOpenOutput() {
        Sound.Drivers = {"Primary Sound Driver"};
        Tick();
        Sound.Drivers = {"Primary Sound Driver", "Second Device"};
        Tick();
    }
};

TEST(DeviceWatch, LooksAtOutputsAndJoysticksSeveralTimesASecond) {
    Watching i;
    ASSERT_EQ(i.Timers.Live.size(), 1u);
    EXPECT_TRUE(i.Timers.Live[0]->Enabled);
    EXPECT_LE(i.Timers.Live[0]->Interval, 200) << "sound within a second";
    i.Sound.Drivers = {"Primary Sound Driver", "Third"};
    i.Stick.Devices = {"stick"};
    const auto tick = i.Timers.Live[0]->OnTick;
    tick(DeviceWatch::kInterval);
    EXPECT_THAT(i.s.Drivers,
                testing::ElementsAre("Primary Sound Driver", "Third", "Second Device (unplugged)", "No Sound"));
    EXPECT_TRUE(i.s.JoyEnabled);
}

TEST(DeviceWatch, WithoutATimerNothingIsWatched) {
    Watching i;
    i.s.Devices.reset();
    EXPECT_TRUE(i.Timers.Live.empty());
    i.Timers.Fail = true;
    WatchDevices(i.s);
    EXPECT_EQ(i.s.Devices, nullptr);
}

TEST(DeviceWatch, ALookDuringALookDoesNothing) {
    Watching i;
    i.PullAndPutBackTheOpenOutput();
    i.Sound.Log.clear();
    i.Store.OnSave = [&] { i.Tick(5); };
    i.Tick();
    EXPECT_EQ(i.Sound.Count("DirectSoundCreate"), 1);
}

TEST(DeviceWatch, AnErrorEndsOneLookAndNotTheNext) {
    Watching i;
    i.PullAndPutBackTheOpenOutput();
    i.Store.OnSave = [] { throw std::bad_alloc(); };
    EXPECT_THROW(i.Tick(), std::bad_alloc);
    i.Store.OnSave = nullptr;
    i.Stick.Devices = {"stick"};
    i.Tick(3);
    EXPECT_TRUE(i.s.JoyEnabled);
}

TEST(DeviceWatch, MayBeDroppedDuringALook) {
    Watching i;
    i.PullAndPutBackTheOpenOutput();
    i.Store.OnSave = [&] { i.s.Devices.reset(); };
    const auto tick = i.Timers.Live.back()->OnTick;
    tick(DeviceWatch::kInterval);
    EXPECT_TRUE(i.Timers.Live.empty());
}

}  // namespace
}  // namespace marvolin
