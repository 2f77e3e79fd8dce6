#include "performance/joystick/joystick_plug.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "parameters/knob_gesture.h"
#include "performance/joystick/joystick.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_waiting.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;
using testing::ElementsAre;
using testing::IsEmpty;

/// An instrument that has started with or without a stick.
struct Plugs : Surfaces {
    explicit Plugs(bool atStart) {
        if (!atStart) Stick.Devices.clear();
        InitDirectInput(s);
        Clear();
        Stick.Log.clear();
    }
    void PlugIn() {
        Stick.Devices = {"stick"};
        Stick.Failures.erase("Acquire");
        Stick.Failures.erase("GetDeviceStateJoystick");
    }
    void PullOut() {
        Stick.Devices.clear();
        Stick.Failures["Acquire"] = input_error::kInputLost;
        Stick.Failures["GetDeviceStateJoystick"] = input_error::kInputLost;
    }
    void Look(int times = 1) {
        for (int i = 0; i < times; ++i) Watch.Look(s);
    }
    JoystickWatch Watch;
};

TEST(JoystickWatch, AStickThatIsPluggedInLaterWorksAsOneAtTheStart) {
    Plugs i(false);
    i.Look(5);
    EXPECT_FALSE(i.s.JoyEnabled);
    i.PlugIn();
    i.Look();
    EXPECT_TRUE(i.s.JoyEnabled);
    EXPECT_EQ(i.s.StatusText, "A joystick is there.");
    EXPECT_GE(i.Screen.Count("ShowJoystick"), 1);
    EXPECT_THAT(i.s.Joy.AxisNames, ElementsAre("Z", "RZ", "None"));
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisZ);
    EXPECT_EQ(i.s.Joy.Axis[kTwistAxis], kAxisRZ);
    EXPECT_NE(i.s.Joy.Relative[0], False);
    ASSERT_NE(i.s.JoyTimer, nullptr);
    i.s.Joy.Relative[0] = False;
    i.Stick.State.x = 9000;
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTable[kVolPad].X, Surfaces::kHalf);
}

TEST(JoystickWatch, WhatWasAssignedStaysForTheNextStick) {
    Plugs i(false);
    i.s.Joy.Button[kJoyCentre] = 7;
    i.s.Joy.Axis[kMasterAxis] = kAxisNone;
    i.s.Joy.Axis[kTwistAxis] = kAxisZ;
    i.s.Joy.Relative[1] = False;
    JoyShowAssignments(i.s);  // as the lists do
    i.PlugIn();
    i.Look();
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 7);
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisNone);
    EXPECT_EQ(i.s.Joy.Axis[kTwistAxis], kAxisZ);
    EXPECT_EQ(i.s.Joy.AxisChoice[kTwistAxis], 0);
    EXPECT_EQ(i.s.Joy.Relative[1], False);
}

/// As a set does.
void Assign(Session& s, std::int16_t centre, std::int16_t master, std::int16_t twist) {
    for (int action = 0; action < std::ssize(kJoyActions); ++action) {
        JoyAssignButton(s, action, action == kJoyCentre ? centre : kJoyStartButtons[static_cast<std::size_t>(action)]);
    }
    JoyAssignAxis(s, kMasterAxis, master);
    JoyAssignAxis(s, kTwistAxis, twist);
}

TEST(JoystickWatch, WhatASetAssignsWaitsForTheFirstStick) {
    Plugs i(false);
    SetJoyRelative(i.s, 1, false);
    Assign(i.s, 7, kAxisNone, kAxisZ);
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 2) << "it is assigned only while there is a stick";
    EXPECT_EQ(i.s.Joy.ButtonChoice[kJoyCentre], -1);
    i.PlugIn();
    i.Look();
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 7);
    EXPECT_EQ(i.s.Joy.ButtonChoice[kJoyCentre], 7);
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisNone);
    EXPECT_EQ(i.s.Joy.Axis[kTwistAxis], kAxisZ);
    EXPECT_EQ(i.s.Joy.Relative[1], False) << "the boxes of the set stay, too";
    JButton_Click(i.s, kJoyCentre, 3);
    EXPECT_EQ(JoyButtonToKeep(i.s, kJoyCentre), 3) << "nothing waits any more";
}

TEST(JoystickWatch, WhatASetLeavesOpenIsTheDefaultOfTheFirstStick) {
    Plugs i(false);
    JoyAssignButton(i.s, kJoyToggle, 6);
    i.PlugIn();
    i.Look();
    EXPECT_EQ(i.s.Joy.Button[kJoyToggle], 6);
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 2);
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisZ);
    EXPECT_EQ(i.s.Joy.Axis[kTwistAxis], kAxisRZ);
}

TEST(JoystickWatch, BoxesThatWereSetBeforeTheFirstStickStay) {
    Plugs i(false);
    SetJoyRelative(i.s, 1, true);
    i.PlugIn();
    i.Look();
    EXPECT_EQ(i.s.Joy.Relative[0], False);
    EXPECT_NE(i.s.Joy.Relative[1], False);
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisZ) << "the rest is the default";
}

TEST(JoystickWatch, ASetThatWasSavedWithoutAStickLeavesTheDefaults) {
    Plugs i(false);
    Assign(i.s, 7, kAxisRX, kAxisNone);
    Assign(i.s, 2, kAxisNone, kAxisNone);  // the next set
    i.PlugIn();
    i.Look();
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 2);
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisZ);
    EXPECT_EQ(i.s.Joy.Axis[kTwistAxis], kAxisRZ);
    EXPECT_NE(i.s.Joy.Relative[0], False);
}

TEST(JoystickWatch, ASetThatIsOpenedAfterTheStickWasPulledOutAssignsAsIfItWereThere) {
    Plugs i(true);
    i.PullOut();
    i.Look(JoystickWatch::kAwayLooks);
    ASSERT_FALSE(i.s.JoyEnabled);
    Assign(i.s, 2, kAxisNone, kAxisNone);
    i.PlugIn();
    i.Look();
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisNone);
    EXPECT_EQ(i.s.Joy.Axis[kTwistAxis], kAxisNone);
}

TEST(JoystickWatch, WhatWaitsWaitsOnWhileTheStickCannotBeOpened) {
    Plugs i(false);
    Assign(i.s, 7, kAxisRX, kAxisNone);
    i.PlugIn();
    i.Stick.Failures["CreateDevice"] = 5;
    i.Look();
    EXPECT_EQ(JoyButtonToKeep(i.s, kJoyCentre), 7);
    i.Stick.Failures.clear();
    i.Look();
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 7);
}

TEST(JoystickWatch, AStickThatIsPulledOutGivesTheMasterBackToTheHandAndIsKeptInASave) {
    Plugs i(true);
    EXPECT_FALSE(KnobStep(i.s, Knob::Vol, kMasterRow, -1)) << "its axis holds the master";
    i.PullOut();
    i.Look(JoystickWatch::kAwayLooks);
    EXPECT_TRUE(KnobStep(i.s, Knob::Vol, kMasterRow, -1));
    EXPECT_EQ(JoyAxisToKeep(i.s, kMasterAxis), kAxisZ);
    EXPECT_EQ(i.s.Joy.AxisChoice[kMasterAxis], -1);
    i.PlugIn();
    i.Look();
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisZ);
    EXPECT_EQ(i.s.Joy.AxisChoice[kMasterAxis], 0);
}

TEST(JoystickWatch, WhereTheStickIsWhenItIsPluggedInMovesNothing) {
    Plugs i(false);
    i.s.Joy.Relative[0] = False;
    JoyShowAssignments(i.s);
    i.s.Joy.Axis[kMasterAxis] = kAxisZ;
    PadMove(i.s, 300, 100, 500, {.Absolute = true, .Apply = true});
    const std::int16_t master = i.s.Set[kMasterRow].Vol;
    const double place = i.s.PadTable[kVolPad].X;
    i.Stick.State.x = 1200;
    i.Stick.State.z = 7000;
    i.Stick.State.POV[0] = 27000;
    i.PlugIn();
    i.Look();
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTable[kVolPad].X, place);
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, master);
    EXPECT_EQ(i.s.PadTypeIndex, kVolPad);
    i.Stick.State.z = 8000;
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 100);
}

TEST(JoystickWatch, AStickThatIsPulledOutIsLetGoAndItsAssignmentsWaitForTheNext) {
    Plugs i(true);
    JButton_Click(i.s, kJoyCentre, 6);
    i.PullOut();
    i.Look();
    EXPECT_TRUE(i.s.JoyEnabled) << "the poll may find it again";
    i.Look();
    EXPECT_FALSE(i.s.JoyEnabled);
    EXPECT_EQ(i.s.JoyDevice, nullptr);
    EXPECT_EQ(i.s.StatusText, "The joystick is gone.");
    JoyTimer_Timer(i.s);
    i.PlugIn();
    i.Look();
    EXPECT_TRUE(i.s.JoyEnabled);
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 6);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(JoystickWatch, AnotherStickTakesThePlaceOfOneThatIsGone) {
    Plugs i(true);
    i.PullOut();
    i.Look();
    i.Stick.Devices = {"another"};
    i.Stick.Axes = {0, 4, 12};
    i.Look();
    EXPECT_THAT(i.Stick.Log, testing::Contains("CreateDevice another"));
    EXPECT_THAT(i.s.Joy.AxisNames, ElementsAre("RX", "None"));
}

TEST(JoystickWatch, OneThatComesAndGoesTenTimesASecondIsBorne) {
    Plugs i(true);
    for (int flicker = 0; flicker < 100; ++flicker) {
        i.PullOut();
        i.Look();
        JoyTimer_Timer(i.s);
        i.PlugIn();
        i.Look();
        JoyTimer_Timer(i.s);
    }
    EXPECT_TRUE(i.s.JoyEnabled);
    EXPECT_THAT(i.Stick.Log, testing::Not(testing::Contains("CreateDevice stick"))) << "it was never let go";
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(JoystickWatch, AServiceThatFailsHasNoStick) {
    Plugs i(false);
    i.PlugIn();
    i.Stick.Failures["GetDIEnumDevices"] = 5;
    i.Look(3);
    i.Stick.Failures.clear();
    i.Stick.Failures["CreateDevice"] = 5;
    i.Look(3);
    EXPECT_FALSE(i.s.JoyEnabled);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    i.Stick.Failures.clear();
    i.Look();
    EXPECT_TRUE(i.s.JoyEnabled);
}

TEST(JoystickWatch, AfterAnErrorOfThePollItDoesNothing) {
    Plugs i(true);
    i.s.Joy.Button[kJoyMove] = 99;
    i.Desk.WhileBoxIsOpen = [&] {
        i.Stick.Log.clear();
        i.Look(5);
    };
    JoyTimer_Timer(i.s);
    EXPECT_FALSE(i.s.JoyEnabled);
    EXPECT_THAT(i.Stick.Log, IsEmpty());
}

}  // namespace
}  // namespace marvolin
