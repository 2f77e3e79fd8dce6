// In which order a load applies the settings of pad and joystick.

#include <gtest/gtest.h>

#include <algorithm>

#include "performance/joystick/joystick_setup.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using test::SetInstrument;

/// Where the last such entry stands in the log of the display; -1 when there is none.
std::ptrdiff_t Last(const SetInstrument& i, const char* entry) {
    const auto& log = i.Screen.Log;
    const auto found = std::find(log.rbegin(), log.rend(), entry);
    return log.rend() - found - 1;
}

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
    ASSERT_GE(Last(i, "ShowJoystick"), 0);
    EXPECT_GT(Last(i, "ShowPad"), Last(i, "ShowJoystick"));
}

}  // namespace
}  // namespace marvolin
