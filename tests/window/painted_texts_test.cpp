// What stands on the window to be read: captions, labels, the panels of the status bars.

#include "painted_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>

#include "audio/play_modes.h"
#include "parameters/position.h"
#include "sequencing/loop_clock.h"
#include "settings_stage.h"
#include "window/rows/channel_flag.h"
#include "window/surfaces/pad_surface.h"
#include "window/toolkit/theme.h"

namespace marvolin {
namespace {

using test::PaintedTexts;
using test::Settings;
using test::Stage;
using testing::Contains;
using testing::ElementsAre;

TEST(StatusBars, TheClockReadsHoursMinutesAndSeconds) {
    Stage stage;
    QWidget& bar = *stage.At("StatusBar1");
    EXPECT_THAT(PaintedTexts(bar), Contains("00:00:00"));
    for (int second = 0; second < 3667; ++second) LoopTimer_Timer(stage.s, 1000);
    EXPECT_THAT(PaintedTexts(bar), Contains("01:01:07"));
    stage.s.LoopTimerBusy = true;
    LoopTimer_Timer(stage.s, 1000);
    EXPECT_THAT(PaintedTexts(bar), Contains("Timer collision!"));
    stage.s.LoopTimerBusy = false;
    LoopTimer_Timer(stage.s, 1000);
    EXPECT_THAT(PaintedTexts(bar), Contains("01:01:08"));
}

TEST(StatusBars, HintAndReadoutStandInPanelsOfTheirOwn) {
    Stage stage;
    stage.s.StatusText = "Ready.";
    stage.s.ReadoutText = "Vol: 12";
    EXPECT_THAT(PaintedTexts(*stage.At("StatusBar1")), ElementsAre("Ready.", "Vol: 12", "00:00:00", "?"));
}

TEST(PatternPage, TheRandomColumnOfTheLanesIsNamedAboveThem) {
    Settings stage;
    EXPECT_THAT(PaintedTexts(*stage.At("StepReadOut")), ElementsAre("Rnd"));
}

TEST(MixPadPage, TheLevelsAreNamedAsInTheStatusLine) {
    Settings stage;
    for (Row row = 0; row < kLoopTracks; ++row) stage.s.Set[row].Channel = static_cast<std::uint8_t>(row + 1);
    const std::vector<std::string> texts = PaintedTexts(*stage.At("ChannelLevels"));
    ASSERT_EQ(texts.size(), 13U);
    EXPECT_EQ(texts[0], "Channels");
    EXPECT_EQ((std::vector<std::string>{texts[1], texts[4], texts[7], texts[10]}),
              (std::vector<std::string>{"W", "WB", "BW", "B"}));
}

TEST(MixPadPage, TheLettersOfTheLoopTracksThatFollowAChannelStandBesideIt) {
    Settings stage;
    stage.s.Set[0].Channel = stage.s.Set[2].Channel = 2;
    stage.s.Set[1].Channel = 4;
    stage.s.Set[3].Channel = 6;  // disconnected
    const std::vector<std::string> texts = PaintedTexts(*stage.At("ChannelLevels"));
    ASSERT_EQ(texts.size(), 12U);
    EXPECT_EQ((std::vector<std::string>{texts[3], texts[4], texts[5]}), (std::vector<std::string>{"WB", "A", "C"}));
    EXPECT_EQ((std::vector<std::string>{texts[9], texts[10]}), (std::vector<std::string>{"B", "B"}));
}

TEST(Words, AnEmptyLoopTrackSaysHowASampleGetsThereAndALoadedOneDoesNot) {
    Settings stage;
    const std::string words = "Drop a sample here, from the browser or from a folder";
    EXPECT_EQ(PaintedTexts(*stage.At("SndDisp_1")), std::vector<std::string>{words});
    EXPECT_TRUE(PaintedTexts(*stage.At("SndDisp_4")).empty());
    stage.Fill(1);
    stage.Screen.ShowWaveform(1);
    EXPECT_TRUE(PaintedTexts(*stage.At("SndDisp_1")).empty());
}

TEST(Words, TheTabOfPatternsSaysWhileItsStepsAreNotHeard) {
    Settings stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    const auto said = [&] {
        stage.Settle();
        for (const QLabel* label : stage.Form->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().startsWith("Steps are heard")) return label->text().toStdString();
        }
        return std::string();
    };
    EXPECT_EQ(said(), "Steps are heard in Track and Drum: drag the picture of the mode of A up.");
    LoopSetPlayModeRows(stage.s, 0, kDrum);
    EXPECT_EQ(said(), "");
    LoopSetPlayModeRows(stage.s, 0, kOneShot);
    EXPECT_EQ(said(), "Steps are heard in Track and Drum: drag the picture of the mode of A up.");
}

/// The wire with this picture on `ground`, of the size of the given rectangle.
QImage Wire(const QColor& ground, const QSize& size, int picture) {
    QImage drawn(size, QImage::Format_RGB32);
    drawn.fill(ground);
    QPainter p(&drawn);
    DrawWire(p, QRectF(QPointF(0, 0), size), picture);
    return drawn;
}

TEST(MixPadPage, EachCornerOfThePadShowsTheWireOfItsChannel) {
    Settings stage;
    QWidget& pad = *stage.At("Pad");
    const QImage field = pad.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const Colour back = stage.s.PadTable[stage.s.PadTypeIndex].BackColor;
    const int near = 17;
    const int right = pad.width() - near - 30;
    const int low = pad.height() - near - 18;
    const QPoint corners[] = {{near, near}, {right, near}, {right, low}, {near, low}};
    for (int channel = 0; channel < kChannels; ++channel) {
        const QRect corner(corners[channel], QSize(30, 18));
        EXPECT_EQ(field.copy(corner), Wire({back.Red, back.Green, back.Blue}, corner.size(), channel)) << channel;
    }
}

/// Whether a caption with this text stands over the control, at its left edge.
bool StandsOver(Stage& stage, const char* caption, const char* control) {
    const QRect place(stage.InWindow(control, {}), stage.At(control)->size());
    for (QLabel* label : stage.Form->findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text() != caption) continue;
        const QPoint at = label->mapTo(stage.Form.get(), QPoint(0, label->height()));
        if (at.x() == place.left() && at.y() <= place.top() && at.y() >= place.top() - 8) return true;
    }
    return false;
}

TEST(Captions, StandOverTheirControls) {
    Settings stage;
    EXPECT_TRUE(StandsOver(stage, "Wire sets:", "SetChannel"));
    SetTab(stage.s, kOptionTab);
    stage.s.ActiveSubTab = 1;
    stage.Screen.ShowTab();
    EXPECT_TRUE(StandsOver(stage, "Update 3d position while moving:", "PositionUpdate_0"));
}

TEST(Enable3d, FollowsWhatASessionSets) {
    Settings stage;
    auto& box = stage.Find<QCheckBox>("Enable3d");
    for (const bool on : {true, false, true}) {
        SetUse3D(stage.s, on);
        EXPECT_EQ(box.isChecked(), on);
        EXPECT_EQ(stage.At("CentreAll")->isEnabled(), on);
    }
}

/// The last thing that was asked of the desktop about where the pointer may go.
std::string LastOfCage(Stage& stage) {
    std::string last;
    for (const std::string& line : stage.Desk.Log) {
        if (line.starts_with("ClipCursor") || line == "ReleaseCursor") last = line;
    }
    return last;
}

TEST(HeldBall, IsLetGoWhereItIsWhenTheHatOpensAnotherTab) {
    for (const std::int16_t tab : {kMixPadTab, kMapTab}) {
        SCOPED_TRACE(tab);
        Settings stage;
        stage.OpenMap();
        SetTab(stage.s, tab);
        stage.Settle();
        const char* ball = tab == kMixPadTab ? "PadBall" : "PosBall_4";
        const QPointF middle = stage.Middle(ball);
        stage.Press(ball, middle);
        stage.Move(ball, middle + QPointF(10, 6));
        EXPECT_FALSE(stage.s.CursorFree);
        EXPECT_TRUE(LastOfCage(stage).starts_with("ClipCursor"));
        const BallPoint before = stage.s.BallPos[kListenerBall];
        const double x = stage.s.PadTable[stage.s.PadTypeIndex].X;
        stage.Stick.State.POV[0] = 31500;
        dynamic_cast<test::FakeTimers::Timer&>(*stage.s.JoyTimer).OnTick(30);
        stage.Settle();
        EXPECT_EQ(stage.s.ActiveTab, tab + 1);
        EXPECT_TRUE(stage.s.CursorFree);
        EXPECT_EQ(LastOfCage(stage), "ReleaseCursor");
        EXPECT_EQ(stage.s.BallPos[kListenerBall].X, before.X);
        EXPECT_EQ(stage.s.BallPos[kListenerBall].Y, before.Y);
        EXPECT_EQ(stage.s.PadTable[stage.s.PadTypeIndex].X, x);
        // The release comes to nobody, and the hand is free.
        stage.Move("VolKnob_0", stage.Middle("VolKnob_0"));
        stage.Release("VolKnob_0", stage.Middle("VolKnob_0"));
        stage.Click("SelectorRadio_0");
        EXPECT_FALSE(stage.s.SelectionControlled);
    }
}

}  // namespace
}  // namespace marvolin
