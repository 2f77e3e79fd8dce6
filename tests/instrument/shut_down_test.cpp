#include "instrument/shut_down.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An instrument with all its timers.
struct Running : Instrument {
    Running() {
        for (auto* timer : {&s.LoopTimer, &s.FadeTimer, &s.JoyTimer, &s.ScriptTimer, &s.StartUpDemoCountDown}) {
            *timer = Timers.Create([](std::int32_t) {});
            (*timer)->SetEnabled(true);
        }
        s.JoyEnabled = true;
    }
};

TEST(ShutDown, ShutsTheInstrumentDownInOrder) {
    Running i;
    i.Fill(1);
    i.s.ProcedureFlags.fill(-1);
    Form_QueryUnload(i.s);
    EXPECT_THAT(i.Forms.Log, ElementsAre("Hide Main", "Unload Save", "AllowBrowserToClose", "Unload Browse",
                                         "Unload Splash", "Unload StartUpQuery"));
    EXPECT_THAT(i.Desk.Log, ElementsAre("CloseWindowTitled Marvolin Help"));
    EXPECT_EQ(i.s.StatusText, "Unloading...");
    EXPECT_TRUE(i.Timers.Live.empty());
    EXPECT_EQ(i.s.ProcedureFlags[8], 0);
    EXPECT_EQ(i.s.Run[1].Loaded, False);
    EXPECT_EQ(i.s.DS, nullptr);
    EXPECT_EQ(i.s.DX, nullptr);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

/// A timer that does something when it is switched off.
class WatchfulTimer : public PeriodicTimer {
public:
    explicit WatchfulTimer(std::function<void()> off) : off_(std::move(off)) {}
    void SetInterval(std::int32_t) override {}
    void SetResolution(std::int32_t) override {}
    void SetEnabled(bool on) override {
        if (!on) off_();
    }

private:
    std::function<void()> off_;
};

TEST(ShutDown, TheTimersStopFirstThenTheHelpClosesThenTheDeviceIsReleased) {
    Running i;
    i.Fill(0);
    std::vector<std::string> order;
    const auto note = [&](const std::string& name) {
        return std::make_unique<WatchfulTimer>([&order, &i, name] {
            order.push_back(name + (i.Desk.Log.empty() ? "" : " after help") + (i.s.DSReady ? "" : " without device"));
        });
    };
    i.s.LoopTimer = note("loop");
    i.s.FadeTimer = note("fade");
    i.s.JoyTimer = note("joystick");
    i.s.StartUpDemoCountDown = note("demo");
    i.s.ScriptTimer = note("script");
    Form_QueryUnload(i.s);
    EXPECT_THAT(order, ElementsAre("loop", "fade", "joystick", "demo", "script after help"));
    EXPECT_FALSE(i.s.DSReady);
}

TEST(ShutDown, ClearsEveryGestureThatIsUnderWay) {
    Running i;
    i.s.Drag.Dragging = True;
    i.s.Drag.DragPlayModeRow = 2;
    i.s.BandDrag.Lane = 3;
    i.s.SelectDragTag = 1;
    i.s.PatternDrawRow = 0;
    i.s.PatternRandomRow = 1;
    i.s.CursorFree = false;
    Form_QueryUnload(i.s);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    EXPECT_EQ(i.s.Drag.DragPlayModeRow, -1);
    EXPECT_EQ(i.s.BandDrag.Lane, -1);
    EXPECT_EQ(i.s.SelectDragTag, 0);
    EXPECT_EQ(i.s.PatternDrawRow, -1);
    EXPECT_EQ(i.s.PatternRandomRow, -1);
    EXPECT_TRUE(i.s.CursorFree);
    EXPECT_THAT(i.Desk.Log, ElementsAre("ReleaseCursor", "CloseWindowTitled Marvolin Help"));
}

TEST(ShutDown, AnErrorOfAnyKindIsReportedAndTheNextStepsRun) {
    Running i;
    i.s.LoopTimer = std::make_unique<WatchfulTimer>([] { throw std::logic_error("no such timer"); });
    i.s.FadeTimer = std::make_unique<WatchfulTimer>([] { throw std::bad_alloc(); });
    i.s.JoyTimer = std::make_unique<WatchfulTimer>([] { throw 1; });
    i.s.ScriptTimer = std::make_unique<WatchfulTimer>([] { throw SoundError(sound_error::kGeneric); });
    Form_QueryUnload(i.s);
    std::vector<std::string> shown;
    for (const auto& box : i.Desk.Boxes) shown.push_back(box.Text);
    EXPECT_THAT(shown, ElementsAre("Shutdown error while disabling loop timer; no such timer #51",
                                   "Shutdown error while disabling fade timer; Out of memory #7",
                                   "Shutdown error while disabling joystick timer; Internal error #51",
                                   "Shutdown error while deleting script timer; sound service error #-2147467259"));
    EXPECT_EQ(i.s.DX, nullptr);
    EXPECT_EQ(i.Forms.Log.back(), "Unload StartUpQuery");
}

TEST(ShutDown, ARecordingThatRunsIsWholeAtTheEnd) {
    Running i;
    i.Output.SlowDisk = true;
    i.Output.Path = i.s.RecordingFile = "/recordings/evening.wav";
    Form_QueryUnload(i.s);
    EXPECT_FALSE(i.Output.IsRecording());
    EXPECT_EQ(i.s.RecordingFile, "");
}

TEST(ShutDown, ARecordingStopsBeforeTheDeviceClosesAndItsDiskIsWaitedForAfterwards) {
    Running i;
    i.Fill(0);
    i.Output.SlowDisk = true;
    i.Output.Path = i.s.RecordingFile = "/recordings/evening.wav";
    std::vector<std::string> calls;
    bool unloaded = false;
    i.Output.OnCall = [&](const char* what) {
        calls.push_back(what + std::string(i.s.DS == nullptr ? " without a device" : " with a device"));
        unloaded = i.Forms.Log.back() == "Unload StartUpQuery";
    };
    Form_QueryUnload(i.s);
    EXPECT_THAT(calls, ElementsAre("Stop with a device", "Finish without a device"));
    EXPECT_TRUE(unloaded) << "a window was still there at the last call";
}

TEST(ShutDown, ADiskThatHangsIsReportedWhenEverythingElseHasEnded) {
    Running i;
    i.Fill(0);
    i.Output.DiskHangs = true;
    i.Output.Path = i.s.RecordingFile = "/recordings/evening.wav";
    Form_QueryUnload(i.s);
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.LastBox(),
              "Shutdown error while finishing the recording; the disk does not take it. What was recorded is in "
              "\"/recordings/evening.wav\" #57");
    EXPECT_EQ(i.s.DX, nullptr);
    EXPECT_EQ(i.Forms.Log.back(), "Unload StartUpQuery");
}

TEST(ShutDown, SavesNothing) {
    Running i;
    i.Fill(0);
    Form_QueryUnload(i.s);
    EXPECT_THAT(i.Store.Log, IsEmpty());
}

TEST(ShutDown, AnErrorWhileDisablingATimerIsReportedAndTheNextStepsRun) {
    Running i;
    i.Timers.FailDisable = true;
    Form_QueryUnload(i.s);
    std::vector<std::string> shown;
    for (const auto& box : i.Desk.Boxes) shown.push_back(box.Text);
    EXPECT_THAT(shown, ElementsAre("Shutdown error while disabling loop timer; Invalid procedure call #5",
                                   "Shutdown error while disabling fade timer; Invalid procedure call #5",
                                   "Shutdown error while disabling joystick timer; Invalid procedure call #5",
                                   "Shutdown error while deleting script timer; Invalid procedure call #5"));
    EXPECT_TRUE(i.Timers.Live.empty());
    EXPECT_EQ(i.s.DX, nullptr);
    EXPECT_EQ(i.Forms.Log.back(), "Unload StartUpQuery");
}

TEST(ShutDown, AnErrorBeforeTheFirstContextIsReportedWithoutOne) {
    Running i;
    i.Forms.HideFails = true;
    Form_QueryUnload(i.s);
    EXPECT_EQ(i.Desk.LastBox(), "Shutdown error while ; Invalid procedure call #5");
    EXPECT_EQ(i.s.StatusText, "Unloading...");
    EXPECT_TRUE(i.Timers.Live.empty());
}

TEST(ShutDown, WithoutAJoystickItsTimerIsNotTouched) {
    Running i;
    i.s.JoyEnabled = false;
    Form_QueryUnload(i.s);
    EXPECT_EQ(i.Timers.Live.size(), 1U);
}

TEST(ShutDown, FormsThatAreAlreadyUnloadedAreNoError) {
    Running i;
    i.Forms.Loaded.clear();
    Form_QueryUnload(i.s);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_EQ(i.Forms.Log.back(), "Unload StartUpQuery");
}

TEST(ShutDown, ASessionWithoutTimersOrDeviceShutsDownWithoutAMessage) {
    Instrument i;
    i.s.DS.reset();
    i.s.DSReady = false;
    Form_QueryUnload(i.s);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(ShutDown, TheScriptTimerStopsBeforeTheHostAndTheDevice) {
    Running i;
    i.s.ScriptEnabled = true;
    for (std::int16_t& wanted : i.s.EventWanted) wanted = True;
    bool timerFirst = false;
    i.s.ScriptTimer = std::make_unique<WatchfulTimer>(
        [&] { timerFirst = i.s.ScriptEnabled && i.s.EventWanted[ScriptEvent::OnClock] == True && i.s.DSReady; });
    Form_QueryUnload(i.s);
    EXPECT_TRUE(timerFirst);
    EXPECT_FALSE(i.s.ScriptEnabled);
    EXPECT_EQ(i.s.ScriptTimer, nullptr);
    for (const std::int16_t wanted : i.s.EventWanted) EXPECT_EQ(wanted, 0);
}

}  // namespace
}  // namespace marvolin
