#include "performance/joystick/joystick.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "parameters/position.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;
using testing::ElementsAre;

constexpr double kStickHalf = Surfaces::kHalf;

/// A joystick in its rest position that has been polled once.
struct Flown : Surfaces {
    Flown() {
        InitDirectInput(s);
        Poll();
        PadRecentre(s);
        s.Joy.LastPov = -1;
        Clear();
        Stick.Log.clear();
    }
    void Poll() { JoyTimer_Timer(s); }
    void Push(std::int32_t x, std::int32_t y) {
        Stick.State.x = x;
        Stick.State.y = y;
        Poll();
    }
    void Press(std::size_t button, bool down) {
        Stick.State.buttons[button] = down ? 0x80 : 0;
        Poll();
    }
    void Hat(std::int32_t angle) {
        Stick.State.POV[0] = angle;
        Poll();
    }
    const PadRecord& Pad() const { return s.PadTable[s.PadTypeIndex]; }
};

TEST(JoyPoll, DoesNothingWithoutAnEnabledDevice) {
    Flown i;
    i.s.JoyEnabled = false;
    i.Push(9000, 9000);
    i.s.JoyEnabled = true;
    i.s.JoyDevice.reset();
    i.Push(9000, 9000);
    EXPECT_TRUE(i.Stick.Log.empty());
}

TEST(JoyPoll, APollThatChangesNothingOnlyReads) {
    Flown i;
    i.Poll();
    EXPECT_THAT(i.Stick.Log, ElementsAre("Poll", "GetDeviceStateJoystick"));
    EXPECT_TRUE(i.Screen.Log.empty());
    EXPECT_EQ(i.s.StatusText, "");
}

TEST(JoyPoll, ADeviceThatIsLostOrNotAcquiredIsAcquiredAgainAndThePollEnds) {
    for (const char* call : {"GetDeviceStateJoystick", "Poll"}) {
        for (std::uint32_t number : {input_error::kNotAcquired, input_error::kInputLost}) {
            Flown i;
            i.Stick.Failures[call] = number;
            i.Push(9000, 1000);
            EXPECT_EQ(i.Stick.Log.back(), "Acquire");
            EXPECT_EQ(i.Pad().X, 0);
            // A device that stays away does not end the program.
            i.Stick.Failures["Acquire"] = input_error::kInputLost;
            i.Poll();
            EXPECT_TRUE(i.Desk.Boxes.empty());
            EXPECT_TRUE(i.Desk.Log.empty());
            i.Stick.Failures.clear();
            i.Poll();
            EXPECT_NE(i.Pad().X, 0);
        }
    }
}

TEST(JoyPoll, AnotherErrorOfTheStateIsIgnoredAndThePollGoesOnWithTheLastState) {
    Flown i;
    i.Stick.Failures["GetDeviceStateJoystick"] = 77;
    i.s.Joy.State.x = 9000;
    i.Poll();
    EXPECT_GT(i.Pad().X, 0);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(JoyPoll, AnErrorAfterTheReadingIsShownAndEndsTheProgram) {
    Flown i;
    i.s.Joy.Button[kJoyMove] = 32;
    i.Poll();
    EXPECT_EQ(i.Desk.LastBox(), "Subscript out of range in joystick handler 9");
    EXPECT_THAT(i.Desk.Log, ElementsAre("EndProgram"));
}

TEST(JoyPoll, NoFurtherPollRunsWhileTheBoxOfAnErrorIsOpen) {
    Flown i;
    i.s.Joy.Button[kJoyMove] = -1;
    i.Desk.WhileBoxIsOpen = [&] { i.Poll(); };
    i.Poll();
    EXPECT_EQ(i.Desk.Boxes.size(), 1u);
}

TEST(JoyPoll, AnotherErrorOfThePollIsShownAndEndsTheProgram) {
    Flown i;
    i.Stick.Failures["Poll"] = 77;
    i.Poll();
    ASSERT_EQ(i.Desk.Boxes.size(), 1u);
    EXPECT_THAT(i.Desk.LastBox(), testing::EndsWith(" in joystick handler 77"));
    EXPECT_THAT(i.Desk.Log, ElementsAre("EndProgram"));
}

TEST(JoyPoll, TheNumberOfAnErrorIsShownSigned) {
    Flown i;
    i.Stick.Failures["Poll"] = 0x80004005;
    i.Poll();
    EXPECT_EQ(i.Desk.LastBox(), "Poll failed in joystick handler -2147467259");
}

TEST(JoyPoll, ARefusedPlaceIsShownOnceUntilStickAndButtonRest) {
    Flown i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    i.Sound.Failures["SetListenerPosition"] = sound_error::kGeneric;
    for (const std::int32_t x : {6000, 7000, 8000}) i.Push(x, 5000);
    EXPECT_EQ(i.Desk.Boxes.size(), 1u);
    EXPECT_EQ(i.Sound.Count("SetListenerPosition"), 1);
    i.Press(2, true);
    EXPECT_EQ(i.Desk.Boxes.size(), 1u);
    i.Press(2, false);
    i.Push(6000, 5000);
    EXPECT_EQ(i.Desk.Boxes.size(), 2u);
    i.Poll();
    // The button acts at each of its polls; it too is shown once.
    i.Press(2, true);
    i.Poll();
    EXPECT_EQ(i.Desk.Boxes.size(), 3u);
    i.Press(2, false);
    i.Sound.Failures.clear();
    i.Push(9000, 5000);
    EXPECT_GT(i.s.ListenerX, 0);
    EXPECT_EQ(i.Desk.Boxes.size(), 3u);
}

TEST(JoyPoll, ARefusedPlaceOnTheMapDoesNotSilenceThePad) {
    Flown i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    i.Sound.Failures["SetListenerPosition"] = sound_error::kGeneric;
    i.Push(6000, 5000);
    i.s.ActiveTab = kMixPadTab;
    i.Push(9000, 5000);
    EXPECT_GT(i.Pad().X, 0);
    i.Press(2, true);
    EXPECT_EQ(i.Pad().X, 0) << "the centre button acts too";
    // Neither rests: the map stays silent.
    i.s.ActiveTab = kMapTab;
    i.Push(8000, 5000);
    EXPECT_EQ(i.Desk.Boxes.size(), 1u);
}

TEST(JoyPoll, ARefusedPlaceSendsNoEvent) {
    Flown i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    i.s.EventWanted[ScriptEvent::OnPositionScroll] = 1;
    i.s.ScrollSensitivity[1] = 1;
    i.Sound.Failures["SetListenerPosition"] = sound_error::kGeneric;
    i.Push(6000, 5000);
    EXPECT_EQ(i.Desk.Boxes.size(), 1u);
    EXPECT_TRUE(i.Scripts.Events.empty());
    i.Sound.Failures.clear();
    i.Push(5000, 5000);
    i.Poll();
    i.Push(7000, 5000);
    EXPECT_EQ(i.Scripts.Events.size(), 1u);
}

TEST(JoyPoll, TheStickActsBeforeTheCentreButtonAndBothUnderThePadTypeThatTheHatLeaves) {
    Flown i;
    SetJoyRelative(i.s, 0, false);
    i.s.ChannelPan[1] = 123;
    i.Stick.State.buttons[2] = 1;
    i.Stick.State.POV[0] = 13500;
    i.Push(9000, 9000);
    EXPECT_EQ(i.s.PadTypeIndex, 3);
    EXPECT_EQ(i.s.PadTable[2].X, 0);
    // The new type is still untouched.
    EXPECT_EQ(i.Pad().X, 0);
    EXPECT_EQ(i.s.ChannelPan[1], 123);
    i.Stick.State.buttons[2] = 0;
    i.Poll();
    EXPECT_EQ(i.Pad().X, kStickHalf);
    // Stick and centre button together: the button acts last.
    i.Stick.State.buttons[2] = 1;
    i.Push(8000, 8000);
    EXPECT_EQ(i.Pad().X, 0);
}

TEST(JoyPoll, TheHatComesBeforeTheMasterVolumeAndThatBeforeTheToggle) {
    Flown i;
    i.Press(5, true);
    i.Screen.Log.clear();
    i.Stick.State.z = 4000;
    i.Stick.State.buttons[5] = 0;
    i.Hat(31500);
    // It is the box of the tab that the hat has opened.
    EXPECT_NE(i.s.Joy.Relative[0], False);
    EXPECT_EQ(i.s.Joy.Relative[1], False);
    const auto place = [&](const char* entry) { return std::ranges::find(i.Screen.Log, entry) - i.Screen.Log.begin(); };
    EXPECT_LT(place("ShowTab"), place("ShowKnob 5 Vol"));
    EXPECT_LT(place("ShowKnob 5 Vol"), place("ShowJoystick"));
    EXPECT_LT(place("ShowJoystick"), std::ssize(i.Screen.Log));
}

TEST(JoyStick, IsHeardAtOnceOnThePad) {
    Flown i;
    i.Fill(0);
    i.Push(9000, 9000);
    EXPECT_EQ(i.Sound.Count("SetVolume b0"), 1);
}

TEST(JoyStick, EachAxisIsClampedAndActsAlone) {
    Flown i;
    i.Push(5000, 10000);
    EXPECT_EQ(i.Pad().X, 0);
    EXPECT_DOUBLE_EQ(i.Pad().Y, kStickHalf / 2);
    i.Push(5000, 0);
    EXPECT_NEAR(i.Pad().Y, 0, 1e-9);
    i.Push(0, 0);
    EXPECT_DOUBLE_EQ(i.Pad().X, -kStickHalf / 2);
    EXPECT_DOUBLE_EQ(i.Pad().Y, -kStickHalf / 2);
}

TEST(JoyStick, AtTheStopInAbsoluteModeTheEdgeIsReachedTwoThirdsOfTheWayOut) {
    Flown i;
    SetJoyRelative(i.s, 0, false);
    i.Push(10000, 5000);
    EXPECT_EQ(i.Pad().X, kStickHalf);
    EXPECT_EQ(i.Pad().Y, 0);
    i.Push(5000 + 2000, 5000);
    EXPECT_DOUBLE_EQ(i.Pad().X, 0.75 * kStickHalf);
    i.Push(5000 + 2667, 5000 - 1000);
    EXPECT_EQ(i.Pad().X, kStickHalf);
    EXPECT_DOUBLE_EQ(i.Pad().Y, -0.375 * kStickHalf);
}

TEST(JoyStick, AtTheStopInRelativeModeOnePollMovesByHalfAndOnlyIfTheRawValueChanged) {
    Flown i;
    i.Push(10000, 5000);
    EXPECT_DOUBLE_EQ(i.Pad().X, kStickHalf / 2);
    i.Poll();
    i.Poll();
    EXPECT_DOUBLE_EQ(i.Pad().X, kStickHalf / 2);
    // Beyond the clamp a change of the raw value still counts.
    i.Push(9999, 5000);
    EXPECT_DOUBLE_EQ(i.Pad().X, kStickHalf);
    i.Push(0, 5000);
    EXPECT_DOUBLE_EQ(i.Pad().X, kStickHalf / 2);
}

TEST(JoyStick, AChangeOfThePadTypeLetsTheRestingStickActOnceOnTheNewPad) {
    Flown i;
    SetJoyRelative(i.s, 0, false);
    i.Push(7000, 5000);
    PadType_Click(i.s, 3);
    EXPECT_EQ(i.Pad().X, 0);
    i.Poll();
    EXPECT_DOUBLE_EQ(i.Pad().X, 0.75 * kStickHalf);
    PadRecentre(i.s);
    i.Poll();
    EXPECT_EQ(i.Pad().X, 0);
}

TEST(JoyStick, OnTheMapItMovesTheListenerByTheBoxOfTheMap) {
    Flown i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    SetJoyRelative(i.s, 1, false);
    i.s.EventWanted[ScriptEvent::OnPositionScroll] = 1;
    i.s.ScrollSensitivity[1] = 1;
    i.Push(6000, 4000);
    EXPECT_DOUBLE_EQ(i.s.BallPos[4].X, 0.375 * kStickHalf);
    EXPECT_DOUBLE_EQ(i.s.ListenerY, -0.5625);
    EXPECT_EQ(i.Sound.Count("SetListenerPosition"), 1);
    ASSERT_EQ(i.Scripts.Events.size(), 1u);
    EXPECT_THAT(i.Scripts.Events[0].Arguments, ElementsAre(5, 0.5625, -0.5625, 0.5625, -0.5625));
    EXPECT_TRUE(i.s.ScrollDelta[2]);
    EXPECT_FALSE(i.s.ScrollDelta[1]);
    EXPECT_EQ(i.Pad().X, 0);
    SetJoyRelative(i.s, 1, true);
    i.Push(7000, 5000);
    EXPECT_DOUBLE_EQ(i.s.BallPos[4].X, 0.625 * kStickHalf);
}

TEST(JoyStick, OnTheMapAChangeOfThePadTypeLetsTheRestingStickActOnce) {
    Flown i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    SetJoyRelative(i.s, 1, false);
    i.Push(6000, 5000);
    PosMove(i.s, 0, 0, kListenerBall, {.Absolute = true, .Apply = true});
    PadType_Click(i.s, 3);
    i.Poll();
    EXPECT_DOUBLE_EQ(i.s.BallPos[4].X, 0.375 * kStickHalf);
    PosMove(i.s, 0, 0, kListenerBall, {.Absolute = true, .Apply = true});
    i.Poll();
    EXPECT_EQ(i.s.BallPos[4].X, 0);
}

TEST(JoyStick, OnTheMapWithout3DAndOnTheOtherTabsStickAndCentreDoNothingAndTheRestStillActs) {
    for (const auto tab : std::initializer_list<std::int16_t>{1, 2, 3}) {
        SCOPED_TRACE(tab);
        Flown i;
        i.s.ActiveTab = tab;
        PadMove(i.s, 100, 100, 500, {.Absolute = true, .Apply = false});
        PosMove(i.s, 100, 100, 4, {.Absolute = true, .Apply = false});
        const double x = i.Pad().X;
        i.Stick.State.buttons[2] = 1;
        i.Push(9000, 9000);
        EXPECT_EQ(i.Pad().X, x);
        EXPECT_EQ(i.s.BallPos[4].X, 100);
        EXPECT_EQ(i.s.Joy.LastX, 5000);
        i.Stick.State.z = 4000;
        i.Hat(9000);
        EXPECT_EQ(i.s.Set[kMasterRow].Vol, 300);
        EXPECT_EQ(i.s.PadTypeIndex, 2);
        EXPECT_EQ(i.s.Joy.LastPov, 9000);
        i.Press(5, true);
        EXPECT_TRUE(i.s.Joy.ToggleHeld);
        i.Press(5, false);
        EXPECT_FALSE(i.s.Joy.ToggleHeld);
        EXPECT_NE(i.s.Joy.Relative[0], False);
        EXPECT_EQ(i.s.Joy.Relative[1] != False, tab != 1);
        EXPECT_TRUE(i.Desk.Boxes.empty());
        i.Hat(31500);
        EXPECT_EQ(i.s.ActiveTab, (tab + 1) % 4);
    }
}

TEST(JoyCentre, WhileHeldTheBallIsPutOnTheCentreAtEachPoll) {
    Flown i;
    i.Push(9000, 9000);
    i.Press(2, true);
    EXPECT_EQ(i.Pad().X, 0);
    PadMove(i.s, 100, 100, 500, {.Absolute = true, .Apply = false});
    i.Poll();
    EXPECT_EQ(i.Pad().X, 0);
    i.Press(2, false);
    PadMove(i.s, 100, 100, 500, {.Absolute = true, .Apply = false});
    i.Poll();
    EXPECT_NE(i.Pad().X, 0);
}

TEST(JoyCentre, IsHeardOnThePad) {
    Flown i;
    i.Fill(0);
    i.Press(2, true);
    EXPECT_EQ(i.Sound.Count("SetVolume b0"), 1);
}

TEST(JoyCentre, OnTheMapTheListenerIsPutOnTheCentre) {
    Flown i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    PosMove(i.s, 100, 100, 4, {.Absolute = true, .Apply = false});
    i.Sound.Log.clear();
    i.Press(2, true);
    EXPECT_EQ(i.s.ListenerX, 0);
    EXPECT_EQ(i.Sound.Count("SetListenerPosition 0.000000,0.000000,0.000000"), 1);
}

TEST(JoyCentre, DoesNotMoveTheListenerWhenAScriptOpensAnotherTabInTheSticksEvent) {
    Flown i;
    i.Use3D();
    i.s.ActiveTab = kMapTab;
    i.s.EventWanted[ScriptEvent::OnPositionScroll] = 1;
    i.Scripts.During = [&](ScriptEvent) { i.s.ActiveTab = kPatternTab; };
    i.Stick.State.buttons[2] = 0x80;
    for (int push = 1; push < 100 && i.Scripts.Events.empty(); ++push) {
        i.s.ActiveTab = kMapTab;
        i.Push(5000 + 40 * push, 5000);
    }
    ASSERT_EQ(i.s.ActiveTab, kPatternTab);
    EXPECT_GT(i.s.ListenerX, 0);
}

TEST(JoyHat, ChoosesThePadTypeFromNorthToSouthEast) {
    Flown i;
    for (const auto& [angle, type] : {std::pair{13500, 3}, {9000, 2}, {4500, 1}, {0, 0}, {4700, 1}, {2250, 0}}) {
        i.Hat(angle);
        EXPECT_EQ(i.s.PadTypeIndex, type) << angle;
    }
    for (std::int32_t angle : {18000, 22500, 27000, 36000, 35999}) {
        i.Hat(angle);
        EXPECT_EQ(i.s.PadTypeIndex, 0);
        EXPECT_EQ(i.s.Joy.LastPov, angle);
    }
}

TEST(JoyHat, TheFirstPressToTheNorthAfterTheStartDoesNothing) {
    Surfaces i;
    InitDirectInput(i.s);
    i.Stick.State.POV[0] = 0;
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTypeIndex, 2);
}

TEST(JoyHat, TheSameDirectionTwiceDoesNothingTheSecondTimeThoughItWasCentredBetween) {
    Flown i;
    i.Hat(4500);
    EXPECT_EQ(i.s.PadTypeIndex, 1);
    PadType_Click(i.s, 3);
    i.Hat(-1);
    EXPECT_EQ(i.s.Joy.LastPov, 4500);
    i.Hat(4500);
    EXPECT_EQ(i.s.PadTypeIndex, 3);
}

TEST(JoyHat, NorthWestAlwaysAdvancesTheTabAndTheOthersActOnlyOnTheFirst) {
    Flown i;
    for (const auto tab : std::initializer_list<std::int16_t>{1, 2, 3, 0}) {
        i.Hat(31500);
        EXPECT_EQ(i.s.ActiveTab, tab);
        i.Hat(tab == 0 ? 13500 : 0);
        EXPECT_EQ(i.s.PadTypeIndex, tab == 0 ? 3 : 2);
    }
    EXPECT_EQ(i.Screen.Count("ShowTab"), 4);
}

TEST(JoyHat, IsIgnoredWhileMoveIsHeld) {
    Flown i;
    i.Stick.State.buttons[0] = 1;
    i.Hat(31500);
    EXPECT_EQ(i.s.ActiveTab, 0);
    EXPECT_EQ(i.s.Joy.LastPov, -1);
    i.Press(0, false);
    EXPECT_EQ(i.s.ActiveTab, 1);
}

TEST(JoyMaster, TheHighEndOfTheAxisIsSilenceAndOnlyAChangeActs) {
    Flown i;
    for (const auto& [value, vol] : {std::pair{10000, 0}, {5000, 250}, {30, 498}, {10, 500}, {50, 498}, {0, 500}}) {
        i.Stick.State.z = value;
        i.Poll();
        EXPECT_EQ(i.s.Set[kMasterRow].Vol, vol) << value;
    }
    i.s.Set[kMasterRow].Vol = 123;
    i.Poll();
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 123);
}

TEST(JoyMaster, IsHeardAndShown) {
    Flown i;
    i.Fill(0);
    i.Stick.State.z = 5000;
    i.Poll();
    EXPECT_EQ(i.Sound.Count("SetVolume b0"), 1);
    EXPECT_EQ(i.Screen.Count("ShowKnob 5 Vol"), 1);
}

TEST(JoyMaster, FollowsTheAxisThatIsAssigned) {
    Flown i;
    for (const auto& [code, field] :
         {std::pair{3, &DIJOYSTATE::z}, {4, &DIJOYSTATE::rx}, {5, &DIJOYSTATE::ry}, {6, &DIJOYSTATE::rz}}) {
        i.s.Joy.Axis[0] = static_cast<std::int16_t>(code);
        i.s.Joy.AxisPresent[code] = true;
        i.s.Joy.LastMaster = -1;
        i.Stick.State = DIJOYSTATE{};
        i.Stick.State.*field = 2000 + 200 * code;
        i.Poll();
        EXPECT_EQ(i.s.Set[kMasterRow].Vol, 400 - 10 * code);
    }
    i.s.Joy.Axis[0] = 0;
    i.s.Joy.LastMaster = -1;
    i.s.Set[kMasterRow].Vol = 77;
    i.Poll();
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 77);
}

TEST(JoyMaster, AnAxisThatThisStickLacksDoesNothingAndStaysAssigned) {
    Flown i;
    ASSERT_FALSE(i.s.Joy.AxisPresent[kAxisRX]);
    i.s.Joy.Axis[kMasterAxis] = kAxisRX;
    JoyShowAssignments(i.s);
    EXPECT_EQ(i.s.Joy.AxisNames[static_cast<std::size_t>(i.s.Joy.AxisChoice[kMasterAxis])], "None");
    i.s.Joy.LastMaster = 5000;
    i.s.Set[kMasterRow].Vol = 250;
    i.Poll();
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 250);
    // "None" chosen for the other use takes it from nobody.
    JAxis_Click(i.s, kTwistAxis, i.s.Joy.AxisChoice[kMasterAxis]);
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisRX);
    JAxis_Click(i.s, kMasterAxis, i.s.Joy.AxisChoice[kMasterAxis]);
    EXPECT_EQ(i.s.Joy.Axis[kMasterAxis], kAxisNone);
}

TEST(JoyToggle, FlipsTheBoxOfTheTabOnRelease) {
    Flown i;
    i.Press(5, true);
    i.Poll();
    EXPECT_NE(i.s.Joy.Relative[0], False);
    i.Press(5, false);
    EXPECT_EQ(i.s.Joy.Relative[0], False);
    EXPECT_NE(i.s.Joy.Relative[1], False);
    i.Poll();
    EXPECT_EQ(i.s.Joy.Relative[0], False);
    i.Press(5, true);
    i.Press(5, false);
    EXPECT_NE(i.s.Joy.Relative[0], False);
}

TEST(JoyButton, AnActionSetToNoneReadsTheNinthButton) {
    Flown i;
    JButton_Click(i.s, kJoyCentre, kNoButtonEntry);
    PadMove(i.s, 100, 100, 500, {.Absolute = true, .Apply = false});
    i.Press(2, true);
    EXPECT_NE(i.Pad().X, 0);
    i.Press(8, true);
    EXPECT_EQ(i.Pad().X, 0);
}

}  // namespace
}  // namespace marvolin
