#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "audio/loop_controls.h"
#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

TEST(VolKnob, ALeftDragToTheLeftLowersTheVolumeByOneUnitPerTwip) {
    Stage stage;
    stage.Drag("VolKnob_1", {-10, 0});
    EXPECT_EQ(stage.s.Set[1].Vol, 350);
    EXPECT_EQ(stage.s.Set[0].Vol, 500);
    EXPECT_EQ(stage.s.ReadoutText, "Vol: 350");
}

TEST(VolKnob, TheValueIsReadUntilThePointerOrTheFocusComesToAnotherControl) {
    Stage stage;
    stage.Drag("VolKnob_1", {-10, 0});
    stage.Move("VolKnob_1", stage.Middle("VolKnob_1"));
    EXPECT_EQ(stage.s.ReadoutText, "Vol: 350");
    const auto leave = [&](const char* name) {
        QEvent left(QEvent::Leave);
        QApplication::sendEvent(stage.At(name), &left);
    };
    leave("VolKnob_1");
    EXPECT_EQ(stage.s.ReadoutText, "Vol: 350");
    stage.Move("Browse", stage.Middle("Browse"));
    EXPECT_EQ(stage.s.ReadoutText, "");
    stage.Drag("VolKnob_1", {-10, 0});
    leave("VolKnob_1");
    stage.Move("VolKnob_2", stage.Middle("VolKnob_2"));
    EXPECT_EQ(stage.s.ReadoutText, "Vol: 500");
    stage.Form->activateWindow();
    stage.At("Record")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(stage.s.ReadoutText, "");
}

TEST(VolKnob, ARightDragIsFine) {
    Stage stage;
    stage.Drag("VolKnob_1", {-10, 0}, Qt::RightButton);
    EXPECT_EQ(stage.s.Set[1].Vol, 493);
}

TEST(VolKnob, FollowsTheVerticalAxisWhenTheOptionSaysSo) {
    Stage stage;
    stage.s.DragAxis = 0;
    stage.Drag("VolKnob_0", {0, 8});
    EXPECT_EQ(stage.s.Set[0].Vol, 380);
    stage.Drag("VolKnob_0", {8, 0});
    EXPECT_EQ(stage.s.Set[0].Vol, 380);
    stage.Drag("VolKnob_0", {0, -4});
    EXPECT_EQ(stage.s.Set[0].Vol, 440);
}

TEST(VolKnob, ADoubleClickTogglesMute) {
    Stage stage;
    stage.DoubleClick("VolKnob_2");
    EXPECT_EQ(stage.s.Set[2].Vol, 0);
    stage.DoubleClick("VolKnob_2");
    EXPECT_EQ(stage.s.Set[2].Vol, 500);
}

TEST(VolKnob, TheMasterKnobSetsTheLevelOfAllLoopTracks) {
    Stage stage;
    stage.Fill(0);
    stage.Drag("VolKnob_5", {-20, 0});
    EXPECT_EQ(stage.s.Set[kMasterRow].Vol, 200);
    EXPECT_LT(dynamic_cast<test::FakeSound::Buffer&>(*stage.s.Run[0].Buffer).Volume, 0);
}

TEST(VolKnob, TheKnobOfTheSelectionMovesTheSelectedRowsAndItself) {
    Stage stage;
    stage.s.Set[0].Selected = True;
    stage.s.Set[2].Selected = True;
    stage.Drag("VolKnob_4", {-10, 0});
    EXPECT_EQ(stage.s.Set[0].Vol, 350);
    EXPECT_EQ(stage.s.Set[1].Vol, 500);
    EXPECT_EQ(stage.s.Set[2].Vol, 350);
    EXPECT_EQ(stage.s.Set[kSelectionRow].Vol, 350);
}

TEST(VolKnob, TheKnobOfABandMemberMovesTheWholeBand) {
    Stage stage;
    stage.s.BandTable[2].First = 1;
    stage.s.BandTable[2].Last = 3;
    for (Row row = 1; row <= 3; ++row) {
        stage.s.Run[row].InBand = True;
        stage.s.Run[row].Band = 2;
    }
    stage.Drag("VolKnob_2", {-10, 0});
    EXPECT_EQ(stage.s.Set[0].Vol, 500);
    for (Row row = 1; row <= 3; ++row) EXPECT_EQ(stage.s.Set[row].Vol, 350);
}

TEST(PanKnob, DragsFineAndDoubleClick) {
    Stage stage;
    stage.Drag("PanKnob_0", {20, 0});
    EXPECT_EQ(stage.s.Set[0].Pan, 800);
    stage.Drag("PanKnob_0", {-10, 0}, Qt::RightButton);
    EXPECT_EQ(stage.s.Set[0].Pan, 793);
    stage.DoubleClick("PanKnob_0");
    EXPECT_EQ(stage.s.Set[0].Pan, 500);
    EXPECT_EQ(stage.s.ReadoutText, "Pan: Centre (0)");
}

TEST(PanKnob, IsDisabledOnAnEmptyLoopTrackButNotWhileThe3dSoundIsOn) {
    Stage stage;
    EnableLoopControls(stage.s, 0, false);
    EXPECT_FALSE(stage.At("PanKnob_0")->isEnabled());
    EXPECT_TRUE(stage.At("VolKnob_0")->isEnabled());
    stage.s.Use3D = true;
    EnableLoopControls(stage.s, 0, false);
    EXPECT_TRUE(stage.At("PanKnob_0")->isEnabled());
}

TEST(HzKnob, ALeftDragCountsTenfoldARightDragOnce) {
    Stage stage;
    stage.Drag("HzKnob_3", {4, 0});
    EXPECT_EQ(stage.s.Set[3].Hz, 1600);
    stage.Drag("HzKnob_3", {-4, 0}, Qt::RightButton);
    EXPECT_EQ(stage.s.Set[3].Hz, 1540);
    stage.DoubleClick("HzKnob_3");
    EXPECT_EQ(stage.s.Set[3].Hz, 1000);
    EXPECT_EQ(stage.s.ReadoutText, "Freq: Original Hz Restored");
}

TEST(Knobs, ADragThatEndsOutsideTheControlEnds) {
    Stage stage;
    stage.Drag("VolKnob_1", {-300, -200});
    EXPECT_EQ(stage.s.Set[1].Vol, 0);
    EXPECT_EQ(stage.s.Drag.Dragging, False);
}

TEST(Knobs, LosingTheMouseGrabEndsTheDragAtTheLastPoint) {
    Stage stage;
    const QPointF start = stage.Middle("VolKnob_1");
    stage.Press("VolKnob_1", start);
    stage.Move("VolKnob_1", start - QPointF(4, 0));
    QEvent lost(QEvent::UngrabMouse);
    QApplication::sendEvent(stage.At("VolKnob_1"), &lost);
    EXPECT_EQ(stage.s.Drag.Dragging, False);
    EXPECT_EQ(stage.s.Set[1].Vol, 440);
    stage.Release("VolKnob_1", start);
}

TEST(Knobs, TheWheelAndTheArrowKeysWithShiftAreFineSteps) {
    Stage stage;
    stage.Wheel("VolKnob_0", -1);
    const std::int16_t wheeled = stage.s.Set[0].Vol;
    EXPECT_LT(wheeled, 500);
    stage.At("VolKnob_0")->setFocus();
    QTest::keyClick(stage.At("VolKnob_0"), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(stage.s.Set[0].Vol, 500);
    QTest::keyClick(stage.At("VolKnob_0"), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(stage.s.Set[0].Vol, wheeled);
}

TEST(Knobs, ADragRaisesTheScriptEventOnce) {
    Stage stage;
    stage.s.EventWanted[static_cast<int>(ScriptEvent::OnVolChange)] = True;
    stage.Drag("VolKnob_1", {-10, 0});
    ASSERT_EQ(stage.Scripts.Events.size(), 1U);
    EXPECT_EQ(stage.Scripts.Events[0].Arguments, (std::vector<double>{2, 350}));
}

TEST(FadeFactor, ADragSetsTheSpeed) {
    Stage stage;
    const QSize size = stage.At("FadeFactor")->size();
    stage.Click("FadeFactor", QPointF(size.width() - 2, size.height() / 2.0));
    EXPECT_DOUBLE_EQ(stage.s.FadeStep, 4);
    stage.Click("FadeFactor", QPointF(2, size.height() / 2.0));
    EXPECT_DOUBLE_EQ(stage.s.FadeStep, 0.04);
    EXPECT_EQ(stage.s.StatusText, "set Fade Speed");
}

TEST(FadeFactor, TheWheelIsAFineStep) {
    Stage stage;
    stage.Wheel("FadeFactor", 1);
    EXPECT_DOUBLE_EQ(stage.s.FadeStep, 2.04);
}

}  // namespace
}  // namespace marvolin
