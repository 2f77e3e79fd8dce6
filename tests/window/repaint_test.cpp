#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QTest>

#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "performance/selection/selection.h"
#include "sequencing/loop_clock.h"
#include "stage.h"
#include "window/rows/loop_row.h"
#include "window/rows/sound_display.h"

namespace marvolin {
namespace {

using test::PaintWatch;
using test::Stage;
using PaintedNames = std::vector<std::string>;

TEST(Repaint, AKnobRepaintsOnlyItself) {
    Stage stage;
    stage.s.Set[2].Vol = 100;
    PaintWatch watch;
    stage.Screen.ShowKnob(2, Knob::Vol);
    stage.Settle();
    EXPECT_EQ(watch.Names(), PaintedNames{"VolKnob_2"});
}

TEST(Repaint, ATurnRepaintsTheDialOfAKnobWithoutTheLabelBelowIt) {
    Stage stage;
    stage.s.Set[2].Vol = 100;
    PaintWatch watch;
    stage.Screen.ShowKnob(2, Knob::Vol);
    stage.Settle();
    EXPECT_LT(watch.Painted["VolKnob_2"].boundingRect().bottom(), 40);
}

/// All of a control.
QImage Whole(QWidget& control) {
    QImage image(control.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    control.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

/// A picture of a control in which only `part` is painted again.
QImage PaintedAgain(QImage image, QWidget& control, const QRegion& part) {
    QPainter p(&image);
    p.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rect : part) p.fillRect(rect, Qt::transparent);
    p.end();
    control.render(&image, part.boundingRect().topLeft(), part, QWidget::DrawChildren);
    return image;
}

TEST(Repaint, WhatIsRepaintedInPartLooksAsIfAllWereRepainted) {
    Stage stage;
    auto& buffer = stage.Fill(1);
    std::uint8_t next = 0;
    for (std::uint8_t& byte : buffer.Sample->Bytes) byte = next = static_cast<std::uint8_t>(next * 5 + 17);
    stage.Screen.ShowWaveform(1);
    stage.Click("Play_1");
    stage.Settle();
    std::map<std::string, QImage> before;
    for (const char* name : {"VolKnob_1", "SndDisp_1", "StatusBar1"}) before[name] = Whole(*stage.At(name));
    PaintWatch watch;
    stage.s.Set[1].Vol = 100;
    stage.Screen.ShowKnob(1, Knob::Vol);
    ShowReadout(stage.s, "another readout");
    buffer.SetCurrentPosition(88200);
    stage.Form->Rows[1]->Sound->RefreshPlace();
    stage.Settle();
    for (const auto& [name, image] : before) {
        QWidget& control = *stage.At(name.c_str());
        const QRegion part = watch.Painted[name];
        ASSERT_FALSE(part.isEmpty()) << name;
        EXPECT_NE(part.boundingRect(), control.rect()) << name;
        EXPECT_NE(image, Whole(control)) << name;
        EXPECT_EQ(PaintedAgain(image, control, part), Whole(control)) << name;
    }
    QWidget& row = *stage.At("LoopRow_1");
    EXPECT_EQ(PaintedAgain(Whole(row), row, stage.At("VolKnob_1")->geometry()), Whole(row));
}

TEST(Repaint, ThePlayingPlaceIsPaintedWhereItWasAskedForThoughTheSoundHasGoneOn) {
    Stage stage;
    auto& buffer = stage.Fill(1);
    stage.Click("Play_1");
    stage.Settle();
    QWidget& display = *stage.At("SndDisp_1");
    const QImage before = Whole(display);
    PaintWatch watch;
    buffer.SetCurrentPosition(88200);
    stage.Form->Rows[1]->Sound->RefreshPlace();
    buffer.SetCurrentPosition(120000);
    stage.Settle();
    const QImage after = PaintedAgain(before, display, watch.Painted["SndDisp_1"]);
    buffer.SetCurrentPosition(88200);
    EXPECT_EQ(after, Whole(display));
}

TEST(Repaint, ThePlayingPlaceIsThereWithTheStartOfItsLoopTrack) {
    Stage stage;
    auto& buffer = stage.Fill(1);
    stage.Fill(2);
    QWidget& display = *stage.At("SndDisp_1");
    for (const bool anotherPlays : {false, true}) {
        if (anotherPlays) stage.Click("Play_2");
        buffer.SetCurrentPosition(88200);
        stage.Click("Play_1");
        const QImage atOnce = Whole(display);
        stage.Form->Rows[1]->Sound->RefreshPlace();
        EXPECT_EQ(atOnce, Whole(display));
        stage.Click("Play_1");
        EXPECT_NE(atOnce, Whole(display));
    }
}

TEST(Repaint, ThePlayingPlaceMovesWithTheWidthOfItsDisplay) {
    Stage stage;
    stage.Fill(1).SetCurrentPosition(88200);
    stage.Click("Play_1");
    stage.Settle();
    QWidget& display = *stage.At("SndDisp_1");
    display.resize(display.width() / 2, display.height());
    const QImage resized = Whole(display);
    stage.Form->Rows[1]->Sound->RefreshPlace();
    EXPECT_EQ(resized, Whole(display));
}

TEST(Repaint, AKnobWhosePictureDoesNotChangeIsNotRepainted) {
    Stage stage;
    stage.s.Set[2].Vol = 300;
    stage.Screen.ShowKnob(2, Knob::Vol);
    stage.Settle();
    stage.s.Set[2].Vol = 301;
    PaintWatch watch;
    stage.Screen.ShowKnob(2, Knob::Vol);
    stage.Settle();
    EXPECT_EQ(watch.Names(), PaintedNames{});
}

TEST(Repaint, AStatusTextRepaintsOnlyItsPanel) {
    Stage stage;
    stage.s.StatusText = "Ready.";
    PaintWatch watch;
    stage.Screen.ShowStatusText();
    stage.Settle();
    EXPECT_EQ(watch.Names(), PaintedNames{"StatusBar1"});
    EXPECT_LT(watch.Painted["StatusBar1"].boundingRect().right(), 680);
}

TEST(Repaint, TheLargePictureOfTheModeIsRepaintedWhenTheModeOfItsLoopTrackChanges) {
    Stage stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    stage.s.CurrentLoop = 1;
    stage.Settle();
    const auto picture = [&] { return stage.At("LoopIt_5")->grab().toImage(); };
    const QImage before = picture();
    PaintWatch watch;
    stage.Wheel("LoopIt_1", 1);
    stage.Settle();
    EXPECT_TRUE(watch.Painted.contains("LoopIt_5"));
    EXPECT_NE(picture(), before);
    watch.Painted.clear();
    SetCurrentLoop(stage.s, 2, OpenPattern::No);
    stage.Settle();
    EXPECT_TRUE(watch.Painted.contains("LoopIt_5"));
    EXPECT_EQ(picture(), before);
}

TEST(Repaint, ThePlayPositionRepaintsOnlyTwoNarrowStrips) {
    Stage stage;
    auto& buffer = stage.Fill(1);
    stage.Click("Play_1");
    stage.Settle();
    PaintWatch watch;
    buffer.SetCurrentPosition(88200);
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch.Painted.contains("SndDisp_1"); }, 2000));
    EXPECT_EQ(watch.Names(), PaintedNames{"SndDisp_1"});
    int area = 0;
    for (const QRect& strip : watch.Painted["SndDisp_1"]) area += strip.width() * strip.height();
    EXPECT_LE(area, 3 * 6 * stage.At("SndDisp_1")->height());
}

TEST(Repaint, NothingIsRepaintedWhileNothingPlays) {
    Stage stage;
    stage.Fill(1);
    stage.Click("Play_1");
    stage.Click("Play_1");
    stage.Settle();
    PaintWatch watch;
    for (int tick = 0; tick < 50; ++tick) LoopTimer_Timer(stage.s, 10);
    stage.Settle();
    EXPECT_EQ(watch.Names(), PaintedNames{});
}

TEST(Repaint, AStepRepaintsOnlyTheMarker) {
    Stage stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    PatternsRefresh(stage.s);
    stage.Settle();
    stage.s.Run[0].Step = 2;
    PaintWatch watch;
    ShowStep(stage.s, 0);
    stage.Settle();
    EXPECT_EQ(watch.Names(), PaintedNames{"StepReadOut"});
    EXPECT_LT(watch.Painted["StepReadOut"].rectCount(), 4);
}

TEST(Repaint, ADrawnColumnRepaintsOnlyItself) {
    Stage stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    PatternsRefresh(stage.s);
    stage.Settle();
    PaintWatch watch;
    stage.Screen.ShowPatternColumn(1, 2);
    stage.Settle();
    EXPECT_EQ(watch.Names(), PaintedNames{"PatternGraph_1"});
    const int width = stage.At("PatternGraph_1")->width();
    EXPECT_LT(watch.Painted["PatternGraph_1"].boundingRect().width(), width / 4 + 8);
}

TEST(Repaint, HiddenControlsAreNotRepainted) {
    Stage stage;
    PaintWatch watch;
    stage.Screen.ShowPattern(0);
    stage.Screen.ShowTime(1);
    stage.Settle();
    EXPECT_EQ(watch.Names(), PaintedNames{});
}

}  // namespace
}  // namespace marvolin
