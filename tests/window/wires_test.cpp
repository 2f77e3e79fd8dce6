#include <gtest/gtest.h>

#include <QTest>

#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

TEST(ChannelFlag, AClickFlipsTheColourOfItsThird) {
    Stage stage;
    const double width = stage.At("ChannelFlag_1")->width();
    stage.Click("ChannelFlag_1", {width / 6, 10});
    EXPECT_EQ(stage.s.Set[1].Channel, 4);
    stage.Click("ChannelFlag_1", {width * 5 / 6, 10});
    EXPECT_EQ(stage.s.Set[1].Channel, 3);
    stage.Click("ChannelFlag_1", {width / 2, 10});
    EXPECT_EQ(stage.s.Set[1].Channel, 3);
}

TEST(ChannelFlag, AClickInTheMiddleThirdDoesNothingAlsoWhenTheHandShiftsOrAKeyIsHeld) {
    Stage stage;
    stage.Fill(1);
    const double width = stage.At("ChannelFlag_1")->width();
    const auto at = [&](double share) { return QPointF(width * share, 10); };
    stage.Press("ChannelFlag_1", at(0.4));
    stage.Move("ChannelFlag_1", at(0.6));
    stage.Release("ChannelFlag_1", at(0.6));
    EXPECT_EQ(stage.s.Set[1].Channel, 2);
    QTest::mouseClick(stage.Form->windowHandle(), Qt::LeftButton, Qt::ShiftModifier,
                      stage.InWindow("ChannelFlag_1", at(0.5)));
    EXPECT_EQ(stage.s.Set[1].Channel, 2);
    EXPECT_EQ(stage.Sound.Count("SetVolume"), 0);
    // The place of the release decides.
    stage.Press("ChannelFlag_1", at(0.5));
    stage.Release("ChannelFlag_1", at(0.9));
    EXPECT_EQ(stage.s.Set[1].Channel, 1);
}

TEST(ChannelFlag, ARightClickTogglesTheConnection) {
    Stage stage;
    stage.Click("ChannelFlag_1", Qt::RightButton);
    EXPECT_EQ(stage.s.Set[1].Channel, 6);
    stage.Click("ChannelFlag_1", Qt::RightButton);
    EXPECT_EQ(stage.s.Set[1].Channel, 2);
}

TEST(ChannelFlag, ADragStepsThroughTheChannelsAndIsHeardAtItsEnd) {
    Stage stage;
    stage.Fill(0);
    const QPointF start = stage.Middle("ChannelFlag_0");
    stage.Press("ChannelFlag_0", start);
    stage.Move("ChannelFlag_0", start - QPointF(0, 14));
    EXPECT_EQ(stage.s.Set[0].Channel, 3);
    EXPECT_EQ(stage.Sound.Count("SetVolume"), 0);
    stage.Release("ChannelFlag_0", start - QPointF(0, 14));
    EXPECT_EQ(stage.s.Set[0].Channel, 3);
    EXPECT_EQ(stage.Sound.Count("SetVolume"), 1);
}

TEST(ChannelFlag, TheFlagOfTheSelectionWiresTheSelectedRows) {
    Stage stage;
    stage.s.Set[2].Selected = True;
    stage.Click("ChannelFlag_4", Qt::RightButton);
    EXPECT_EQ(stage.s.Set[2].Channel, stage.s.Set[kSelectionRow].Channel);
    EXPECT_GT(stage.s.Set[2].Channel, 4);
}

TEST(ChannelFlag, HasEightPictures) {
    Stage stage;
    std::vector<QImage> pictures;
    for (std::uint8_t channel = 1; channel <= 8; ++channel) {
        stage.s.Set[0].Channel = channel;
        pictures.push_back(stage.At("ChannelFlag_0")->grab().toImage());
    }
    for (std::size_t a = 0; a < pictures.size(); ++a) {
        for (std::size_t b = a + 1; b < pictures.size(); ++b) EXPECT_NE(pictures[a], pictures[b]) << a << " " << b;
    }
}

TEST(ChannelFlag, TheWheelKeepsTheConnection) {
    Stage stage;
    stage.s.Set[0].Channel = 8;
    stage.Wheel("ChannelFlag_0", 1);
    EXPECT_EQ(stage.s.Set[0].Channel, 8);
    stage.Wheel("ChannelFlag_0", -5);
    EXPECT_EQ(stage.s.Set[0].Channel, 5);
}

TEST(Limiter, ADragSetsTheLimitAndItsEndThins) {
    Stage stage;
    for (Row row = 0; row < 3; ++row) {
        stage.Fill(row);
        stage.Click(("Play_" + std::to_string(row)).c_str());
    }
    const QPointF start = stage.Middle("Limiter");
    stage.Press("Limiter", start);
    stage.Move("Limiter", start + QPointF(0, 5));
    EXPECT_EQ(stage.s.Limit, 1);
    EXPECT_EQ(stage.s.ThinList, "ABC");
    stage.Release("Limiter", start + QPointF(0, 5));
    EXPECT_EQ(stage.s.ThinList, "C");
    EXPECT_EQ(stage.s.StatusText, "drg -/+ to Thin to N Playing LoopTracks");
}

TEST(Limiter, TheWheelIsOneStep) {
    Stage stage;
    stage.Wheel("Limiter", -1);
    EXPECT_EQ(stage.s.Limit, 3);
    stage.Wheel("Limiter", 1);
    EXPECT_EQ(stage.s.Limit, 4);
    stage.Wheel("Limiter", 1);
    EXPECT_EQ(stage.s.Limit, 4);
}

}  // namespace
}  // namespace marvolin
