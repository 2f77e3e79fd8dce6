#include "performance/joystick/joystick_axes.h"

#include <gtest/gtest.h>

namespace marvolin {
namespace {

using testing::ElementsAre;

TEST(JoystickAxes, ByNumberAFourthAxisIsTheTwist) {
    EXPECT_THAT(AxisOffsetsByCount(0), ElementsAre());
    EXPECT_THAT(AxisOffsetsByCount(2), ElementsAre(0, 4));
    EXPECT_THAT(AxisOffsetsByCount(3), ElementsAre(0, 4, 8));
    EXPECT_THAT(AxisOffsetsByCount(4), ElementsAre(0, 4, 8, 20));
    EXPECT_THAT(AxisOffsetsByCount(5), ElementsAre(0, 4, 8, 20, 24));
}

TEST(JoystickAxes, SixAndMoreComeInTheOrderOfTheRecordAndTheNinthHasNoPlace) {
    EXPECT_THAT(AxisOffsetsByCount(6), ElementsAre(0, 4, 8, 12, 16, 20));
    EXPECT_THAT(AxisOffsetsByCount(9), ElementsAre(0, 4, 8, 12, 16, 20, 24, 28, kNoOffset));
}

TEST(JoystickAxes, ByCodeAThrottleIsZAndARudderTheTwistWhereTheDeviceHasNone) {
    const std::vector<int> stick{0, 1, 5, 6};
    EXPECT_THAT(AxisOffsetsByCodes(stick), ElementsAre(0, 4, 20, 8));
    const std::vector<int> pad{0, 1, 2, 3, 4, 5};
    EXPECT_THAT(AxisOffsetsByCodes(pad), ElementsAre(0, 4, 8, 12, 16, 20));
    const std::vector<int> throttleBesideZ{0, 1, 2, 6};
    EXPECT_THAT(AxisOffsetsByCodes(throttleBesideZ), ElementsAre(0, 4, 8, 24));
    const std::vector<int> pedals{0, 1, 6, 7};
    EXPECT_THAT(AxisOffsetsByCodes(pedals), ElementsAre(0, 4, 8, 20));
    const std::vector<int> many{0, 1, 5, 6, 7, 8, 9};
    EXPECT_THAT(AxisOffsetsByCodes(many), ElementsAre(0, 4, 20, 8, 24, 28, kNoOffset));
}

}  // namespace
}  // namespace marvolin
