#include "instrument/shut_down.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace marvolin
