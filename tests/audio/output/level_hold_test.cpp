#include "audio/level_hold.h"

#include <gtest/gtest.h>

namespace marvolin {
namespace {

OutputLevels Peaks(int left, int right, bool cutOff = false) { return {{left, right}, cutOff}; }

TEST(LevelHold, AtTheStartNothingShows) {
    const LevelHold meter;
    EXPECT_EQ(meter.Shown(0), LevelHold::kLowest);
    EXPECT_EQ(meter.Shown(1), LevelHold::kLowest);
    EXPECT_FALSE(meter.Light());
}

TEST(LevelHold, APeakShowsAtOnceInDecibelsByChannel) {
    LevelHold meter;
    meter.Add(Peaks(32768, 16384), 0.03);
    EXPECT_DOUBLE_EQ(meter.Shown(0), 0);
    EXPECT_NEAR(meter.Shown(1), -6.02, 0.01);
}

TEST(LevelHold, ItIsHeldForASecondThenFalls) {
    LevelHold meter;
    meter.Add(Peaks(32768, 0), 0.03);
    meter.Add(Peaks(0, 0), 0.99);
    EXPECT_DOUBLE_EQ(meter.Shown(0), 0);
    meter.Add(Peaks(0, 0), 0.51);
    EXPECT_NEAR(meter.Shown(0), -10, 1e-9) << "twenty decibels a second";
    meter.Add(Peaks(0, 0), 60);
    EXPECT_EQ(meter.Shown(0), LevelHold::kLowest);
}

TEST(LevelHold, AHigherPeakIsHeldAnewAndALowerOneWaits) {
    LevelHold meter;
    meter.Add(Peaks(8192, 0), 0.03);
    meter.Add(Peaks(16384, 0), 0.9);
    EXPECT_NEAR(meter.Shown(0), -6.02, 0.01);
    meter.Add(Peaks(8192, 0), 0.9);
    EXPECT_NEAR(meter.Shown(0), -6.02, 0.01);
    meter.Add(Peaks(8192, 0), 1.0);
    EXPECT_NEAR(meter.Shown(0), -12.04, 0.01) << "it does not fall below what sounds";
}

TEST(LevelHold, TheLightStaysForTwoSecondsAfterTheLastSumThatWasCutOff) {
    LevelHold meter;
    meter.Add(Peaks(32768, 0, true), 0.03);
    EXPECT_TRUE(meter.Light());
    meter.Add(Peaks(0, 0), 1.9);
    meter.Add(Peaks(0, 0, true), 0.05);
    meter.Add(Peaks(0, 0), 1.99);
    EXPECT_TRUE(meter.Light());
    meter.Add(Peaks(0, 0), 0.02);
    EXPECT_FALSE(meter.Light());
}

}  // namespace
}  // namespace marvolin
