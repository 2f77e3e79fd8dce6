// In which order a load applies the settings of pad and joystick.

#include <gtest/gtest.h>

#include <algorithm>

#include "performance/joystick/joystick_setup.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using test::SetInstrument;

TEST(SettingsOrder, TheHandlerOfThePadTypeRunsOnceTheRelativeBoxesAreSet) {
    SetInstrument i;
    SetJoyRelative(i.s, 0, true);
    ASSERT_TRUE(i.Save("x.mvn"));
    SetJoyRelative(i.s, 0, false);
    i.s.TwistPosition = 7;
    i.Screen.Log.clear();
    ASSERT_TRUE(i.Load("x.mvn", test::Only(Element::General)));
    EXPECT_EQ(i.s.Joy.Relative[0], True);
    EXPECT_EQ(i.s.TwistPosition, 0) << "the handler centres the pad";
    const auto& log = i.Screen.Log;
    const auto pad = std::find(log.begin(), log.end(), "ShowPad");
    ASSERT_NE(pad, log.end());
    // Each of the three factors and of the two boxes shows the joystick.
    EXPECT_EQ(std::count(log.begin(), pad, "ShowJoystick"), 3 + 2);
}

}  // namespace
}  // namespace marvolin
