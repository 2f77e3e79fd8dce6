#include "performance/joystick/joystick_twist.h"

#include <gtest/gtest.h>

#include "performance/joystick/joystick.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/pad/pad_twist.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

constexpr std::size_t kTwistCentreButton = 1;
constexpr std::size_t kToggleTwistButton = 4;

/// A joystick with a twist axis, in its rest position, that has been polled once.
struct Twisted : Surfaces {
    Twisted() {
        InitDirectInput(s);
        s.Joy.AxisPresent[kAxisRZ] = true;
        s.Joy.Axis[kTwistAxis] = kAxisRZ;
        Stick.State.rz = 5000;
        Poll();
        s.Joy.LastPov = -1;
        Clear();
    }
    void Poll() { JoyTimer_Timer(s); }
    void Twist(std::int32_t raw) {
        Stick.State.rz = raw;
        Poll();
    }
    void Press(std::size_t button, bool down) {
        Stick.State.buttons[button] = down ? 0x80 : 0;
        Poll();
    }
    void Click(std::size_t button) {
        Press(button, true);
        Press(button, false);
    }
};

TEST(JoyTwist, TheAxisGoesFromEndToEndOfTheLine) {
    Twisted i;
    i.Twist(10000);
    EXPECT_EQ(i.s.TwistPosition, 2130);
    EXPECT_EQ(i.s.ChannelPan[1], 1000);
    EXPECT_EQ(i.s.ChannelPan[2], 0);
    i.Twist(0);
    EXPECT_EQ(i.s.TwistPosition, -2130);
    i.Twist(9750);
    EXPECT_EQ(i.s.TwistPosition, 2130) << "full at 95 percent";
    i.Twist(5000);
    EXPECT_EQ(i.s.TwistPosition, 0);
}

TEST(JoyTwist, AnAxisThatRestsAtItsEndMovesNothingUntilItMoves) {
    Surfaces i;
    i.Stick.State.rz = 0;
    InitDirectInput(i.s);
    i.s.Joy.AxisPresent[kAxisRZ] = true;
    i.s.Joy.Axis[kTwistAxis] = kAxisRZ;
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.TwistPosition, 0);
    i.s.Joy.AxisPresent[kAxisRX] = true;
    i.s.Joy.AxisNames = {"RX", "RZ", "None"};
    i.Stick.State.rx = 10000;
    JAxis_Click(i.s, kTwistAxis, 0);  // "RX"
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.TwistPosition, 0);
    i.Stick.State.rx = 0;
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.TwistPosition, -2130);
}

TEST(JoyTwist, TheFactorMultipliesTheDeflection) {
    Twisted i;
    SetJoyFactor(i.s, 2, 500);
    i.Twist(10000);
    EXPECT_EQ(i.s.TwistPosition, 1065);
    SetJoyFactor(i.s, 2, 3000);
    i.Twist(0);
    EXPECT_EQ(i.s.TwistPosition, -2130);
    i.Twist(5000 + 500 + 425);  // a tenth of the way
    EXPECT_EQ(i.s.TwistPosition, 639);
}

TEST(JoyTwist, AnAxisThatTremblesInItsInnerTenthLeavesTheHandsPlaceAlone) {
    Twisted i;
    PadTwist(i.s, 0.5, 1, {.Absolute = true, .Apply = true});
    for (const int raw : {5200, 4600, 5500, 4500}) i.Twist(raw);
    EXPECT_EQ(i.s.TwistPosition, 1065);
    i.Twist(4400);
    EXPECT_LT(i.s.TwistPosition, 0);
}

TEST(JoyTwist, APollThatChangesNothingDoesNothing) {
    Twisted i;
    i.Twist(8000);
    i.Clear();
    i.Poll();
    EXPECT_TRUE(i.Screen.Log.empty());
    EXPECT_EQ(i.s.StatusText, "");
}

TEST(JoyTwist, ActsOnTheTabOfTheMixPadOnly) {
    Twisted i;
    i.s.ActiveTab = kMapTab;
    i.Twist(10000);
    i.Press(kTwistCentreButton, true);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(JoyTwist, AnAxisThatIsNotAssignedOrNotThereDoesNothing) {
    Twisted i;
    i.s.Joy.Axis[kTwistAxis] = kAxisNone;
    i.Twist(10000);
    i.s.Joy.Axis[kTwistAxis] = kAxisRX;
    i.Twist(0);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(JoyTwist, TwistCentreHoldsTheBallAtZeroWhileItIsDown) {
    Twisted i;
    i.Twist(10000);
    i.Press(kTwistCentreButton, true);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_EQ(i.s.ChannelPan[1], 500);
    i.Twist(9000);
    EXPECT_EQ(i.s.TwistPosition, 0);
    i.Press(kTwistCentreButton, false);
    EXPECT_EQ(i.s.TwistPosition, 0) << "until the stick moves again";
    i.Twist(10000);
    EXPECT_EQ(i.s.TwistPosition, 2130);
}

TEST(JoyTwist, TwistCentreWorksForTheHandWithoutAnAxis) {
    Twisted i;
    i.s.Joy.Axis[kTwistAxis] = kAxisNone;
    PadTwist(i.s, 1, 1, {.Absolute = true, .Apply = true});
    i.Press(kTwistCentreButton, true);
    EXPECT_EQ(i.s.TwistPosition, 0);
}

TEST(JoyTwist, ToggleTwistLetsGoAtItsReleaseAndTakesAgainAtTheNext) {
    Twisted i;
    i.Twist(10000);
    i.Press(kToggleTwistButton, true);
    EXPECT_FALSE(i.s.Joy.TwistLetGo);
    i.Press(kToggleTwistButton, false);
    EXPECT_TRUE(i.s.Joy.TwistLetGo);
    EXPECT_EQ(i.s.StatusText, "Twist: the joystick has let go");
    i.Poll();
    EXPECT_TRUE(i.s.Joy.TwistLetGo);
    i.Twist(5000);
    EXPECT_EQ(i.s.TwistPosition, 2130) << "the fade stays while the stick goes back";
    i.Twist(2000);
    EXPECT_EQ(i.s.TwistPosition, 2130);
    i.Click(kToggleTwistButton);
    EXPECT_FALSE(i.s.Joy.TwistLetGo);
    EXPECT_LT(i.s.TwistPosition, 0) << "it goes to where the stick is";
}

TEST(JoyTwist, TheStickActsAgainAfterAChangeOfTypeOnceItMoves) {
    Twisted i;
    i.Twist(10000);
    PadType_Click(i.s, kPitch300Pad);
    i.Poll();
    EXPECT_EQ(i.s.TwistPosition, 0);
    i.Twist(0);
    EXPECT_EQ(i.s.TwistPosition, -2130);
    EXPECT_EQ(i.s.ChannelHz[1], 0);
    EXPECT_EQ(i.s.ChannelHz[2], 4000);
}

}  // namespace
}  // namespace marvolin
