#include "instrument/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <memory>
#include <stdexcept>
#include <vector>

#include "audio/loop_controls.h"
#include "core/routines.h"
#include "fakes/instrument.h"
#include "fakes/temp_folder.h"
#include "instrument/init_main_form.h"
#include "instrument/shut_down.h"
#include "performance/pad/mix_pad.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

using test::FakeTimers;
using test::Instrument;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A program that has not started yet. `Order` lists the hooks that were called.
struct Program : Instrument {
    std::vector<std::string> Order;
    StartUpHooks Hooks;
    Program() {
        s.DX.reset();
        s.DS.reset();
        s.DSReady = false;
        s.GangReady = false;
        Sound.Log.clear();
        Forms.Loaded.clear();
        Hooks.CheckComponents = [this] { return Note("CheckComponents"), true; };
        Hooks.InitPadGeometry = [this](Session& session) {
            Note("InitPadGeometry"), PadGeometryInit(session, 9000, 4500);
        };
    }
    void Note(const std::string& what) { Order.push_back(what); }
    bool Start() { return RunMain(s, Hooks); }
};

TEST(RunMain, BringsTheProgramUpInOrder) {
    Program i;
    EXPECT_TRUE(i.Start());
    EXPECT_THAT(i.Order, ElementsAre("CheckComponents", "InitPadGeometry"));
    EXPECT_THAT(i.Forms.Log, ElementsAre("Load Splash", "Load Main", "DisablePadBalls", "Show Main"));
    EXPECT_EQ(i.Sound.Log.front(), "GetGuid 1");
    EXPECT_EQ(i.Stick.Log.front(), "GetDIEnumDevices 4 1");
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_EQ(i.s.StatusText, "Ready.");
    EXPECT_THAT(i.Desk.Log, ElementsAre("busy pointer", "default pointer"));
    EXPECT_TRUE(i.s.FirstActivate);
    EXPECT_TRUE(i.Chance.Seeded);
}

TEST(RunMain, AMissingComponentEndsTheProgramBeforeAnythingElse) {
    Program i;
    i.Hooks.CheckComponents = [] { return false; };
    EXPECT_FALSE(i.Start());
    EXPECT_THAT(i.Forms.Log, IsEmpty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(RunMain, ASecondStartExitsSilently) {
    Program i;
    i.Desk.FirstInstance = false;
    EXPECT_FALSE(i.Start());
    EXPECT_THAT(i.Forms.Log, IsEmpty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_EQ(i.s.DX, nullptr);
}

TEST(RunMain, AMissingAudioServiceIsReportedAndEndsTheProgram) {
    Program i;
    i.s.World.CreateDirectX7 = []() -> std::unique_ptr<DirectX7> { throw RuntimeError(429, "no such object"); };
    EXPECT_FALSE(i.Start());
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.Boxes[0].Title, "DirectX Missing");
    EXPECT_THAT(i.Desk.LastBox(), ::testing::StartsWith("Error initializing DirectX. Requires DirectX 7.0a or higher, "
                                                        "available at "));
    EXPECT_THAT(i.Forms.Log, ElementsAre("Load Splash"));
}

TEST(RunMain, AnErrorIsShownWithItsDescription) {
    Program i;
    i.Hooks.InitPadGeometry = [](Session&) { throw RuntimeError(75, "Path/File access error"); };
    EXPECT_FALSE(i.Start());
    EXPECT_EQ(i.Desk.LastBox(), "Error loading main: Path/File access error");
    EXPECT_FALSE(i.Desk.Busy);
}

TEST(RunMain, AnErrorThatIsNotTheProgramsIsShownToo) {
    Program i;
    i.Hooks.InitPadGeometry = [](Session&) { throw std::length_error("no such length"); };
    EXPECT_FALSE(i.Start());
    EXPECT_EQ(i.Desk.LastBox(), "Error loading main: no such length");
    i.Hooks.InitPadGeometry = [](Session&) { throw 1; };
    EXPECT_FALSE(i.Start());
    EXPECT_EQ(i.Desk.LastBox(), "Error loading main: Internal error");
}

TEST(RunMain, AnErrorOfTheComponentCheckIsNotTrapped) {
    Program i;
    i.Hooks.CheckComponents = []() -> bool { throw RuntimeError(1, "x"); };
    EXPECT_THROW(i.Start(), RuntimeError);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(FormLoad, ADisplayOfExactlyEightBitsGetsTheWarningOneOfSixteenDoesNot) {
    for (const auto& [bits, warned] :
         {std::pair{1, true}, {4, true}, {8, true}, {9, false}, {16, false}, {32, false}}) {
        Program i;
        i.Desk.Depth = bits;
        EXPECT_TRUE(i.Start());
        EXPECT_EQ(i.Desk.Boxes.size(), warned ? 1U : 0U) << bits;
        if (warned) {
            EXPECT_EQ(i.Desk.LastBox(),
                      "For proper viewing Marvolin requires more than 256 colours. Please set a higher colour depth "
                      "(use the Display applet in control panel).)");
        }
    }
}

TEST(FormLoad, OpensTheDeviceSetsTheDefaultsAndThePatternsAndThenLooksForAJoystick) {
    Program i;
    i.s.Set[1].NSteps = 30;
    i.Hooks.InitPadGeometry = [&](Session& s) {
        PadGeometryInit(s, 9000, 4500);
        i.Note(s.DSReady ? "defaults on a device" : "defaults");
        i.Note("steps " + std::to_string(s.Set[1].NSteps));
    };
    const auto input = i.s.World.CreateDirectInput;
    i.s.World.CreateDirectInput = [&] {
        i.Note("joystick, steps " + std::to_string(i.s.Set[1].NSteps));
        return input();
    };
    EXPECT_TRUE(i.Start());
    EXPECT_THAT(i.Order, ElementsAre("CheckComponents", "defaults on a device", "steps 30", "joystick, steps 3"));
}

TEST(FormLoad, SeedsTheRandomNumbersBetweenTheBallsAndTheDrivers) {
    Program i;
    i.Desk.Depth = 8;
    i.Sound.Failures["DirectSoundCreate"] = sound_error::kNoDriver;
    i.Desk.WhenReported = [&] {
        const bool ballsOff = std::ranges::count(i.Forms.Log, "DisablePadBalls") != 0;
        i.Note(std::string(ballsOff ? "balls off" : "balls") + (i.Chance.Seeded ? ", seeded" : "") +
               (i.Desk.Busy ? ", busy" : ""));
    };
    EXPECT_TRUE(i.Start());
    EXPECT_THAT(i.Order, ElementsAre("CheckComponents", "balls", "balls off, seeded, busy", "InitPadGeometry"));
}

TEST(FormLoad, OpensTheFirstDeviceWithoutSavingASession) {
    Program i;
    i.Start();
    EXPECT_EQ(i.s.Driver, 0);
    EXPECT_TRUE(i.s.DSReady);
    EXPECT_TRUE(i.s.DeviceSwapArmed);
    EXPECT_THAT(i.Store.Log, IsEmpty());
}

TEST(FormLoad, ADeviceThatRefusesDoesNotStopTheRest) {
    Program i;
    i.Sound.Failures["DirectSoundCreate"] = sound_error::kNoDriver;
    EXPECT_TRUE(i.Start());
    EXPECT_EQ(i.Desk.LastBox(), "Error creating sound device: No sound driver is available for use.");
    EXPECT_FALSE(i.s.DSReady);
    EXPECT_NE(i.s.LoopTimer, nullptr);
    EXPECT_TRUE(i.s.JoyEnabled);
    EXPECT_TRUE(i.s.FirstActivate);
    EXPECT_THAT(i.Forms.Log, Contains("Show Main"));
}

TEST(FormLoad, WithoutAJoystickTheStartGoesOnWithoutItsTimer) {
    Program i;
    i.Stick.Devices.clear();
    EXPECT_TRUE(i.Start());
    EXPECT_FALSE(i.s.JoyEnabled);
    EXPECT_EQ(i.s.JoyTimer, nullptr);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(FormLoad, AJoystickServiceThatRefusesEndsTheProgram) {
    Program i;
    i.s.World.CreateDirectInput = []() -> std::unique_ptr<DirectInput> { throw RuntimeError(429, "none"); };
    i.Desk.OnUnload = [&] { Form_QueryUnload(i.s); };
    EXPECT_FALSE(i.Start());
    EXPECT_EQ(i.Desk.LastBox(), "Error initializing DirectInput.");
    EXPECT_THAT(i.Desk.Log, Contains("UnloadMainWindow"));
    EXPECT_TRUE(i.Timers.Live.empty());
    EXPECT_EQ(std::count(i.Forms.Log.begin(), i.Forms.Log.end(), "Show Main"), 0);
    EXPECT_FALSE(i.s.FirstActivate);
}

TEST(InitMainForm, WithoutTimersItShowsAMessageAndEndsTheProgramAtOnce) {
    Program i;
    i.Timers.Fail = true;
    EXPECT_FALSE(i.Start());
    EXPECT_EQ(i.Desk.LastBox(), "Error initializing timer objects. Make sure Marvolin was properly installed.");
    EXPECT_THAT(i.Desk.Log, Contains("EndProgram"));
    EXPECT_THAT(i.Order, ElementsAre("CheckComponents"));
    EXPECT_THAT(i.Stick.Log, IsEmpty());
}

TEST(InitMainForm, MakesTheTwoTimersAndEnablesThem) {
    Program i;
    i.Stick.Devices.clear();
    i.Start();
    EXPECT_EQ(i.Timers.Live.size(), 2U);
    auto& loop = dynamic_cast<FakeTimers::Timer&>(*i.s.LoopTimer);
    EXPECT_EQ(loop.Interval, 10);
    EXPECT_EQ(loop.Resolution, 10);
    EXPECT_TRUE(loop.Enabled);
    auto& fade = dynamic_cast<FakeTimers::Timer&>(*i.s.FadeTimer);
    EXPECT_EQ(fade.Interval, 40);
    EXPECT_TRUE(fade.Enabled);
    EXPECT_FALSE(i.s.LoopTimerBusy);
    loop.OnTick(1000);
    EXPECT_EQ(i.s.Clock.ClockSeconds, 1);
    i.Fill(0);
    i.s.Run[0].FadeState = kFalling;
    i.s.Run[0].FadeValue = 500;
    fade.OnTick(40);
    EXPECT_EQ(i.s.Set[0].Vol, 492);
}

TEST(InitMainForm, ClearsTheGuardOfTheClockBeforeItsTimerRuns) {
    struct GuardWatch : TimerFactory {
        struct Timer : PeriodicTimer {
            explicit Timer(GuardWatch& owner) : Owner(owner) {}
            void SetInterval(std::int32_t) override {}
            void SetResolution(std::int32_t) override {}
            void SetEnabled(bool enabled) override {
                if (enabled) Owner.BusyAtStart.push_back(Owner.Watched->LoopTimerBusy);
            }
            GuardWatch& Owner;
        };
        std::unique_ptr<PeriodicTimer> Create(Tick) override { return std::make_unique<Timer>(*this); }
        Session* Watched = nullptr;
        std::vector<bool> BusyAtStart;
    } timers;
    Instrument i;
    i.Stick.Devices.clear();
    const Services world = i.For(i.Screen);
    Session s{Services{.Screen = world.Screen,
                       .Desk = world.Desk,
                       .Forms = world.Forms,
                       .Chance = world.Chance,
                       .Timers = timers,
                       .Scripts = world.Scripts,
                       .Store = world.Store,
                       .CreateDirectX7 = world.CreateDirectX7,
                       .CreateDirectInput = world.CreateDirectInput}};
    timers.Watched = &s;
    s.LoopTimerBusy = true;
    InitMainForm(s, [](Session& session) { PadGeometryInit(session, 9000, 4500); });
    ASSERT_EQ(timers.BusyAtStart.size(), 2U);
    EXPECT_FALSE(timers.BusyAtStart.front());
}

TEST(InitMainForm, NoEventOfAScriptIsWanted) {
    Program i;
    for (std::int16_t& wanted : i.s.EventWanted) wanted = True;
    i.Start();
    for (const std::int16_t wanted : i.s.EventWanted) EXPECT_EQ(wanted, 0);
}

TEST(InitMainForm, SetsTheModelToItsDefaults) {
    Program i;
    // Nothing is at its default.
    Session& s = i.s;
    for (Row row = 0; row < kRows; ++row) {
        LoopTrackSet& set = s.Set[row];
        set.Hz = 7;
        set.Vol = 7;
        set.Pan = 7;
        set.PlayMode = kDrum;
        set.Selected = True;
        set.Thinnable = False;
        set.Length = 3;
        set.BeatStart = 9;
        set.StepDuration = 77;
        set.Channel = 8;
        set.NSteps = 30;
        s.Run[row].Playing = True;
        s.Run[row].Paused = True;
        s.Run[row].FadeState = kRising;
        s.BandTable[row] = {1, 2, 3, True};
    }
    s.ActiveTab = kOptionTab;
    s.SelectionControlled = false;
    s.ResetVars = false;
    s.ProcedureFlags.fill(1);
    s.PositionUpdate = Table<bool, 3>{{false, false, true}};
    s.DragAxis = 0;
    s.ScrollSensitivity = Table<std::int32_t, 2>{{9, 9}};
    s.CurrentLoop = 3;
    s.Clock.ClockHours = 5;
    s.TimingRes = 90;
    for (int channel = 0; channel <= kChannels; ++channel) s.ChannelVol[channel] = s.ChannelPan[channel] = 1;
    EXPECT_TRUE(i.Start());

    for (Row row = 0; row <= kSelectionRow; ++row) {
        SCOPED_TRACE(row);
        const LoopTrackSet& set = s.Set[row];
        EXPECT_EQ(set.Hz, 1000);
        EXPECT_EQ(set.Vol, 500);
        EXPECT_EQ(set.Pan, 500);
        EXPECT_EQ(set.PlayMode, kLoop);
        EXPECT_EQ(set.Selected, False);
        EXPECT_EQ(set.Length, 0);
        EXPECT_EQ(set.BeatStart, 0);
        EXPECT_EQ(s.Run[row].Loaded, False);
        EXPECT_EQ(s.Run[row].Playing, False);
        EXPECT_EQ(s.Run[row].Paused, False);
        EXPECT_EQ(s.Run[row].FadeState, kNoFade);
        if (row == kSelectionRow) continue;
        EXPECT_EQ(set.Thinnable, True);
        EXPECT_EQ(set.StepDuration, 1);
        EXPECT_EQ(set.Channel, row + 1);
        EXPECT_EQ(set.NSteps, 3);
        EXPECT_EQ(set.Pattern[kHzPattern][kPatternOffset], 1);
        EXPECT_FALSE(PanKnobEnabled(s, row));
        EXPECT_GE(i.Screen.Count("ShowCaption " + std::to_string(row)), 1);
    }
    EXPECT_TRUE(PanKnobEnabled(s, kSelectionRow));
    EXPECT_EQ(s.Set[kMasterRow].Vol, 500);
    EXPECT_EQ(s.BandTable[0], (Band{0, 3, 0, False}));
    for (Row band = 1; band < kBands; ++band) EXPECT_EQ(s.BandTable[band], (Band{5, 3, 0, False}));
    EXPECT_EQ(s.ActiveTab, kMixPadTab);
    EXPECT_TRUE(s.SelectionControlled);
    EXPECT_TRUE(s.ResetVars);
    EXPECT_TRUE(s.GangReady);
    EXPECT_FALSE(s.Use3D);
    EXPECT_THAT(s.ProcedureFlags, ::testing::Each(0));
    EXPECT_EQ(s.PositionUpdate, (Table<bool, 3>{{true, true, false}}));
    EXPECT_EQ(s.DragAxis, 1);
    EXPECT_EQ(s.ScrollSensitivity, (Table<std::int32_t, 2>{{1, 4}}));
    EXPECT_EQ(s.CurrentLoop, 0);
    EXPECT_EQ(s.Clock.ClockHours, 0);
    EXPECT_EQ(s.TimingRes, 10);
    EXPECT_EQ(s.ChannelVol[4], 0);
    EXPECT_EQ(s.ChannelPan[0], 500);
    EXPECT_EQ(s.ChannelHz[1], 1000);
    EXPECT_EQ(s.CurrentFolder, "/nowhere/marvolin/");
    EXPECT_EQ(s.SaveOpenSwitches[kWhenSaving], AllSwitches());
    EXPECT_EQ(s.SaveOpenSwitches[kWhenOpening], AllSwitches());
}

TEST(InitMainForm, ThreeDIsOffAndTheClockAndTheChannelsAreReset) {
    Program i;
    i.s.Use3D = true;
    i.s.LoopTimerBusy = true;
    for (std::int16_t& hz : i.s.ChannelHz) hz = 7;
    EXPECT_TRUE(i.Start());
    EXPECT_FALSE(i.s.Use3D);
    EXPECT_FALSE(i.s.LoopTimerBusy);
    for (int channel = 0; channel <= kChannels; ++channel) EXPECT_EQ(i.s.ChannelHz[channel], 1000) << channel;
    // The selection and the master follow no channel.
    EXPECT_EQ(i.s.Set[kSelectionRow].Channel, 5);
    EXPECT_EQ(i.s.Set[kMasterRow].Channel, 6);
}

/// A timer that notes what is set, in order.
class NotingTimer : public PeriodicTimer {
public:
    explicit NotingTimer(std::vector<std::string>& order) : order_(order) {}
    void SetInterval(std::int32_t ms) override { order_.push_back("interval " + std::to_string(ms)); }
    void SetResolution(std::int32_t ms) override { order_.push_back("resolution " + std::to_string(ms)); }
    void SetEnabled(bool) override {}

private:
    std::vector<std::string>& order_;
};

TEST(ResSlider, SetsTheResolutionBeforeTheInterval) {
    Program i;
    i.Start();
    std::vector<std::string> order;
    i.s.LoopTimer = std::make_unique<NotingTimer>(order);
    ResSlider_Change(i.s, 40);
    EXPECT_THAT(order, ElementsAre("resolution 25", "interval 40"));
    i.s.LoopTimer.reset();
}

TEST(InitMainForm, ListsTheSessionsOfTheFolder) {
    const test::TempFolder folder;
    folder.Touch("mine.mvn");
    Program i;
    i.Desk.Folder = folder.Path();
    EXPECT_TRUE(i.Start());
    EXPECT_THAT(i.s.QuickLoadRows, Contains(::testing::StartsWith("mine")));
}

/// A display that looks whether the gang is ready while a row is set.
struct WatchfulScreen : test::FakeDisplay {
    const Session* Watched = nullptr;
    std::vector<bool> Ready;
    void ShowSelected(Row row) override {
        FakeDisplay::ShowSelected(row);
        if (Watched != nullptr) Ready.push_back(Watched->GangReady);
    }
};

TEST(InitMainForm, TheGangIsOffWhileTheRowsAreSet) {
    test::FakeServices services;
    WatchfulScreen screen;
    Session s(services.For(screen));
    screen.Watched = &s;
    s.GangReady = true;
    EXPECT_TRUE(RunMain(
        s, {.CheckComponents = nullptr, .InitPadGeometry = [](Session& made) { PadGeometryInit(made, 9000, 4500); }}));
    EXPECT_THAT(screen.Ready, ElementsAre(false, false, false, false, false));
}

TEST(InitMainForm, TheGangIsReadyOnceTheRowsAreSet) {
    Program i;
    bool ready = false;
    i.Hooks.InitPadGeometry = [&](Session& s) { ready = s.GangReady; };
    i.Start();
    EXPECT_TRUE(ready);
}

TEST(InitMainForm, MakesTheLabelOfToday) {
    const auto today = [] {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        return TodayText(local.tm_mon + 1, local.tm_mday);
    };
    Program i;
    const std::string before = today();
    i.Start();
    EXPECT_THAT(i.s.TodayLabel, ::testing::AnyOf(before, today()));
}

TEST(FormActivate, DoesItsWorkOnceInOrder) {
    Program i;
    i.Start();
    i.Forms.Log.clear();
    i.Order.clear();
    i.Desk.Area = {0, 0, 1280, 770};
    i.Forms.OtherPlaces[Form::Splash] = {0, 0, 5600, 3100};
    i.s.HelpShown = true;
    Form_Activate(i.s);
    EXPECT_FALSE(i.s.HelpShown);
    EXPECT_EQ(i.s.HelpFile, "/nowhere/marvolin/Help/marvolin.chm");
    EXPECT_EQ(i.s.WorkArea.Right, 19200);
    // Left is 19200 - 15600 - 100, top (11550 - 11100) / 2; the splash is centred over the main window.
    EXPECT_THAT(i.Forms.Log, ElementsAre("EnablePadBalls", "Move Main 3500,225", "Show Browse", "Move Browse 0,225",
                                         "Move Splash 8500,4225", "Show Splash"));
    i.Forms.Log.clear();
    Form_Activate(i.s);
    EXPECT_THAT(i.Forms.Log, IsEmpty());
    EXPECT_FALSE(i.s.FirstActivate);
}

TEST(FormActivate, PlacesTheWindowsInAWorkAreaThatBeginsElsewhere) {
    Program i;
    i.Start();
    i.Forms.Log.clear();
    i.Desk.Area = {100, 40, 1380, 840};
    Form_Activate(i.s);
    EXPECT_THAT(i.Forms.Log, Contains("Move Main 5000,1050"));
    EXPECT_THAT(i.Forms.Log, Contains("Move Browse 1500,1050"));
}

TEST(FormActivate, WithNoStartUpContentTheInstrumentStartsEmptyWithItsDefaults) {
    Program i;
    i.Start();
    Form_Activate(i.s);
    for (Row row = 0; row < kLoopTracks; ++row) {
        EXPECT_EQ(i.s.Run[row].Loaded, False);
        EXPECT_EQ(i.s.Set[row].FileName, "");
        EXPECT_EQ(i.s.Set[row].Vol, 500);
    }
    EXPECT_THAT(i.Store.Log, IsEmpty());
    EXPECT_EQ(i.s.StartUpDemoCountDown, nullptr);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(FormActivate, LoadsTheStartUpPackageAndStartsItsCountDownOrElseThePreferences) {
    const test::TempFolder folder;
    folder.Touch("preferences.mvn");
    Program preferences;
    preferences.Desk.Folder = folder.Path();
    preferences.Start();
    Form_Activate(preferences.s);
    EXPECT_THAT(preferences.Store.Log, ElementsAre("Load " + folder.In("preferences.mvn") + " everything"));
    EXPECT_EQ(preferences.s.StartUpDemoCountDown, nullptr);
    EXPECT_EQ(preferences.s.DemoStep, 0);

    folder.Touch("startup.mvp");
    Program demo;
    demo.Desk.Folder = folder.Path();
    demo.Start();
    Form_Activate(demo.s);
    EXPECT_THAT(demo.Store.Log, ElementsAre("Load " + folder.In("startup.mvp") + " everything"));
    EXPECT_EQ(demo.s.DemoStep, 1);
    ASSERT_NE(demo.s.StartUpDemoCountDown, nullptr);
    const auto& countDown = dynamic_cast<FakeTimers::Timer&>(*demo.s.StartUpDemoCountDown);
    EXPECT_EQ(countDown.Interval, 3000);
    EXPECT_TRUE(countDown.Enabled);
}

TEST(FormActivate, ABoxThatALoadShowsDoesNotStartTheContentAgain) {
    const test::TempFolder folder;
    folder.Touch("preferences.mvn");
    Program i;
    i.Desk.Folder = folder.Path();
    i.Start();
    i.Store.OnLoad = [&] { Form_Activate(i.s); };
    Form_Activate(i.s);
    EXPECT_EQ(i.Store.Log.size(), 1U);
    EXPECT_EQ(std::ranges::count(i.Forms.Log, "Show Browse"), 1);
}

TEST(FormActivate, AMissingHelpFileIsNoErrorAtTheStart) {
    Program i;
    i.Desk.HelpFails = true;
    i.Start();
    Form_Activate(i.s);
    EXPECT_FALSE(i.s.HelpFile.empty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(FormActivate, AHelpFileThatIsSetStays) {
    Program i;
    i.s.HelpFile = "/usr/lib/marvolin/Help/marvolin.chm";
    i.Start();
    Form_Activate(i.s);
    EXPECT_EQ(i.s.HelpFile, "/usr/lib/marvolin/Help/marvolin.chm");
}

TEST(FormActivate, BeforeTheMainWindowIsLoadedDoesNothing) {
    Program i;
    Form_Activate(i.s);
    EXPECT_THAT(i.Order, IsEmpty());
    EXPECT_THAT(i.Forms.Log, IsEmpty());
}

TEST(StartAndEnd, TwoInstrumentsRunInOneProcess) {
    Program one;
    Program two;
    EXPECT_TRUE(one.Start());
    EXPECT_TRUE(two.Start());
    Form_QueryUnload(one.s);
    EXPECT_EQ(one.s.DX, nullptr);
    EXPECT_TRUE(two.s.DSReady);
    EXPECT_TRUE(one.Desk.Boxes.empty());
}

}  // namespace
}  // namespace marvolin
