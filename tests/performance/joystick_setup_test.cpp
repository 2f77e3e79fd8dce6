#include "performance/joystick/joystick_setup.h"

#include <gtest/gtest.h>

#include <functional>

#include "core/errors.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;
using testing::ElementsAre;

template <typename T, std::size_t N>
std::vector<T> List(const Table<T, N>& table) {
    return std::vector<T>(table.begin(), table.end());
}

TEST(InitDirectInput, OpensTheFirstDeviceInTenSteps) {
    Surfaces i;
    i.Stick.Devices = {"first", "second"};
    InitDirectInput(i.s);
    EXPECT_THAT(i.Stick.Log,
                ElementsAre("GetDIEnumDevices 4 1", "CreateDevice first", "SetCommonDataFormat 3",
                            "SetCooperativeLevel 10", "GetCapabilities", "GetDeviceObjectsEnum",
                            "SetProperty 0 20 0 1 1000 0", "SetProperty 0 20 4 1 1000 0", "SetProperty 1 20 0 1 9500 0",
                            "SetProperty 1 20 4 1 9500 0", "SetProperty 2 24 0 0 0 10000", "Acquire"));
    EXPECT_TRUE(i.s.JoyEnabled);
    EXPECT_NE(i.s.Joy.Relative[0], False);
    EXPECT_NE(i.s.Joy.Relative[1], False);
    ASSERT_EQ(i.Timers.Live.size(), 1u);
    EXPECT_EQ(i.Timers.Live[0]->Interval, 30);
    EXPECT_TRUE(i.Timers.Live[0]->Enabled);
    EXPECT_THAT(List(i.s.Joy.Button), ElementsAre(0, 2, 1, 5, 4));
    EXPECT_THAT(List(i.s.Joy.ButtonChoice), ElementsAre(0, 2, 1, 5, 4));
    EXPECT_THAT(List(i.s.Joy.Axis), ElementsAre(3, 6));
    EXPECT_THAT(i.s.Joy.ButtonNames, ElementsAre("1", "2", "3", "4", "5", "6", "7", "8", "None"));
    EXPECT_THAT(i.s.Joy.AxisNames, ElementsAre("Z", "RZ", "None"));
    EXPECT_THAT(List(i.s.Joy.AxisChoice), ElementsAre(0, 1));
    EXPECT_FALSE(i.s.Joy.Refreshing);
}

TEST(InitDirectInput, TheTimerRunsThePoll) {
    Surfaces i;
    InitDirectInput(i.s);
    i.Stick.Log.clear();
    i.Timers.Live.at(0)->OnTick(30);
    EXPECT_THAT(i.Stick.Log, ElementsAre("Poll", "GetDeviceStateJoystick"));
}

TEST(InitDirectInput, WithNoJoystickTheListsHaveNoChoiceAndNothingRuns) {
    Surfaces i;
    i.Stick.Devices.clear();
    i.s.Joy.Axis[0] = 3;
    i.s.Joy.ButtonChoice[2] = 1;
    InitDirectInput(i.s);
    EXPECT_FALSE(i.s.JoyEnabled);
    EXPECT_THAT(List(i.s.Joy.Axis), ElementsAre(0, 0));
    EXPECT_THAT(List(i.s.Joy.ButtonChoice), ElementsAre(-1, -1, -1, -1, -1));
    EXPECT_THAT(List(i.s.Joy.AxisChoice), ElementsAre(-1, -1));
    EXPECT_TRUE(i.Timers.Live.empty());
    EXPECT_TRUE(i.s.Joy.Refreshing);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_EQ(i.Screen.Count("ShowJoystick"), 1);
}

TEST(InitDirectInput, ARefusalBeforeADeviceIsFoundUnloadsTheMainWindow) {
    Surfaces i;
    i.Stick.Failures["GetDIEnumDevices"] = 5;
    InitDirectInput(i.s);
    EXPECT_EQ(i.Desk.LastBox(), "Error initializing DirectInput.");
    EXPECT_THAT(i.Desk.Log, ElementsAre("UnloadMainWindow"));
    EXPECT_FALSE(i.s.JoyEnabled);

    Surfaces none;
    none.s.World.CreateDirectInput = []() -> std::unique_ptr<DirectInput> { throw RuntimeError(429, "no"); };
    InitDirectInput(none.s);
    EXPECT_EQ(none.Desk.LastBox(), "Error initializing DirectInput.");
    EXPECT_THAT(none.Desk.Log, ElementsAre("UnloadMainWindow"));
}

TEST(InitDirectInput, AnErrorInALaterStepIsIgnoredAndTheNextRuns) {
    for (const char* step : {"CreateDevice", "SetCommonDataFormat", "SetCooperativeLevel", "GetCapabilities",
                             "GetDeviceObjectsEnum", "SetProperty", "Acquire"}) {
        SCOPED_TRACE(step);
        Surfaces i;
        i.Stick.Failures[step] = 5;
        InitDirectInput(i.s);
        EXPECT_TRUE(i.Desk.Boxes.empty());
        EXPECT_TRUE(i.s.JoyEnabled);
        EXPECT_EQ(i.Timers.Live.size(), 1u);
        EXPECT_FALSE(i.s.Joy.Refreshing);
        // Every call is made except those to a device that was not created.
        EXPECT_EQ(i.Stick.Log.size(), i.s.JoyDevice ? 12u : 2u);
        const bool axesKnown = i.s.JoyDevice && std::string(step) != "GetDeviceObjectsEnum";
        EXPECT_EQ(i.s.Joy.AxisNames.size(), axesKnown ? 3u : 1u);
    }
    Surfaces i;
    i.Timers.Fail = true;
    InitDirectInput(i.s);
    EXPECT_TRUE(i.s.JoyEnabled);
    EXPECT_FALSE(i.s.Joy.Refreshing);
}

TEST(JoyFindAxes, TheOffsetChoosesTheEntryAndOtherOffsetsAreIgnored) {
    Surfaces i;
    InitDirectInput(i.s);
    i.Stick.Axes = {0, 12, 16, 24, 28, 32, 6, -4, 1000};
    JoyFindAxes(i.s, *i.s.JoyDevice);
    EXPECT_THAT(List(i.s.Joy.AxisPresent), ElementsAre(false, true, false, false, true, true, false, true, true));
}

TEST(Joystick, ADeviceWithNeitherZNorRZShowsNoneOnlyAndHasNoMasterAxis) {
    Surfaces i;
    i.Stick.Axes = {0, 4};
    InitDirectInput(i.s);
    EXPECT_THAT(i.s.Joy.AxisNames, ElementsAre("None"));
    EXPECT_THAT(List(i.s.Joy.Axis), ElementsAre(0, 0));
    EXPECT_THAT(List(i.s.Joy.AxisChoice), ElementsAre(0, 0));
    i.Stick.State.z = 10000;
    i.Timers.Live.at(0)->OnTick(30);
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 500);
}

TEST(JButton, TwoActionsOnOneButtonCannotBeChosen) {
    Surfaces i;
    InitDirectInput(i.s);
    JButton_Click(i.s, 3, 2);
    EXPECT_EQ(i.s.Joy.Button[3], 2);
    EXPECT_EQ(i.s.Joy.Button[1], 8);
    EXPECT_THAT(List(i.s.Joy.ButtonChoice), ElementsAre(0, 8, 1, 2, 4));
    JButton_Click(i.s, 0, 8);
    EXPECT_THAT(List(i.s.Joy.Button), ElementsAre(8, 8, 1, 2, 4));
}

TEST(JButton, ClicksDoNothingWhileTheListsAreFilled) {
    Surfaces i;
    InitDirectInput(i.s);
    i.s.Joy.Refreshing = true;
    JButton_Click(i.s, 0, 7);
    JAxis_Click(i.s, 0, 2);
    EXPECT_EQ(i.s.Joy.Button[0], 0);
    EXPECT_EQ(i.s.Joy.Axis[0], 3);
}

TEST(JButton, AnEntryThatTheListDoesNotHaveIsIgnored) {
    Surfaces i;
    InitDirectInput(i.s);
    JButton_Click(i.s, 0, 9);
    JButton_Click(i.s, 0, -1);
    JAxis_Click(i.s, 0, 3);
    EXPECT_EQ(i.s.Joy.Button[0], 0);
    EXPECT_EQ(i.s.Joy.Axis[0], 3);
}

TEST(JAxis, TheOtherUseOfTheSameAxisChangesToNone) {
    Surfaces i;
    i.Stick.Axes = {0, 4, 8, 12, 16, 20};
    InitDirectInput(i.s);
    EXPECT_THAT(i.s.Joy.AxisNames, ElementsAre("Z", "RX", "RY", "RZ", "None"));
    JAxis_Click(i.s, 0, 3);
    EXPECT_THAT(List(i.s.Joy.Axis), ElementsAre(6, 0));
    EXPECT_THAT(List(i.s.Joy.AxisChoice), ElementsAre(3, 4));
    JAxis_Click(i.s, 1, 1);
    EXPECT_THAT(List(i.s.Joy.Axis), ElementsAre(6, 4));
    JAxis_Click(i.s, 0, 4);
    EXPECT_THAT(List(i.s.Joy.Axis), ElementsAre(0, 4));
}

TEST(JoyShowAssignments, ShowsRestoredAssignmentsAndNoneWhereTheDeviceHasNoSuchAxis) {
    Surfaces i;
    InitDirectInput(i.s);
    i.s.Joy.Button = Table<std::int16_t, 5>{{{7, 6, 8, 99, -4}}};
    i.s.Joy.Axis = Table<std::int16_t, 2>{{{4, 77}}};
    i.s.Joy.Refreshing = true;
    JoyShowAssignments(i.s);
    EXPECT_THAT(List(i.s.Joy.ButtonChoice), ElementsAre(7, 6, 8, 8, 8));
    EXPECT_THAT(List(i.s.Joy.Button), ElementsAre(7, 6, 8, 8, 8));
    EXPECT_THAT(List(i.s.Joy.AxisChoice), ElementsAre(2, 2));
    EXPECT_FALSE(i.s.Joy.Refreshing);
}

TEST(Joystick, EveryChangeOfASettingIsShown) {
    Surfaces i;
    InitDirectInput(i.s);
    const auto shows = [&](const std::function<void()>& change) {
        i.Clear();
        change();
        return i.Screen.Count("ShowJoystick");
    };
    EXPECT_EQ(shows([&] { JButton_Click(i.s, 3, 2); }), 1);
    EXPECT_EQ(shows([&] { JAxis_Click(i.s, 0, 1); }), 1);
    EXPECT_EQ(shows([&] { JoyShowAssignments(i.s); }), 1);
    EXPECT_EQ(shows([&] { SetJoyFactor(i.s, 0, 200); }), 1);
    EXPECT_EQ(shows([&] { SetJoyRelative(i.s, 1, false); }), 1);
}

TEST(JoyAxis, NamesAndCodesAreATableInBothDirections) {
    for (const auto& [code, name] : {std::pair<std::int16_t, const char*>{3, "Z"}, {4, "RX"}, {5, "RY"}, {6, "RZ"}}) {
        EXPECT_EQ(JoyAxisName(code), name);
        EXPECT_EQ(JoyAxisCode(name), code);
    }
    for (const auto code : std::initializer_list<std::int16_t>{0, 1, 2, 7, -1}) EXPECT_EQ(JoyAxisName(code), "");
    for (const char* name : {"", "None", "z", "X"}) EXPECT_EQ(JoyAxisCode(name), 0);
}

TEST(JoyFactor, IsLimitedToItsSlider) {
    Surfaces i;
    EXPECT_THAT(List(i.s.Joy.Factor), ElementsAre(500, 1500, 1000));
    SetJoyFactor(i.s, 0, 99);
    SetJoyFactor(i.s, 1, 3001);
    SetJoyFactor(i.s, 2, 700);
    EXPECT_THAT(List(i.s.Joy.Factor), ElementsAre(100, 3000, 700));
}

/// A joystick service whose device only looks around when it is acquired.
class WatchfulInput : public test::FakeInput {
public:
    WatchfulInput(test::FakeJoystick& stick, std::function<void()> atAcquire)
        : FakeInput(stick), atAcquire_(std::move(atAcquire)) {}
    std::unique_ptr<DirectInputDevice> CreateDevice(const std::string&) override {
        return std::make_unique<Device>(atAcquire_);
    }

private:
    class Device : public DirectInputDevice {
    public:
        explicit Device(std::function<void()> atAcquire) : atAcquire_(std::move(atAcquire)) {}
        void SetCommonDataFormat(std::int32_t) override {}
        void SetCooperativeLevel(std::int32_t) override {}
        void GetCapabilities() override {}
        std::vector<std::int32_t> GetDeviceObjectsEnum() override { return {}; }
        void SetProperty(const JoyPropertyRecord&) override {}
        void Acquire() override { atAcquire_(); }
        void Poll() override {}
        void GetDeviceStateJoystick(DIJOYSTATE&) override {}

    private:
        std::function<void()> atAcquire_;
    };
    std::function<void()> atAcquire_;
};

TEST(InitDirectInput, BothBoxesAreOnWhenTheDeviceIsAcquired) {
    test::Surfaces i;
    bool acquired = false;
    i.s.World.CreateDirectInput = [&] {
        return std::make_unique<WatchfulInput>(i.Stick, [&] {
            acquired = true;
            EXPECT_NE(i.s.Joy.Relative[0], False);
            EXPECT_NE(i.s.Joy.Relative[1], False);
        });
    };
    InitDirectInput(i.s);
    EXPECT_TRUE(acquired);
}

}  // namespace
}  // namespace marvolin
