#include <gtest/gtest.h>

#include "core/loops/loop_views.h"
#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

struct PatternStage : Stage {
    PatternStage() {
        s.ActiveTab = kPatternTab;
        Screen.ShowTab();
        PatternsRefresh(s);
        Settle();
        const QSizeF graph = At("PatternGraph_0")->size();
        Width = graph.width();
        Height = graph.height();
    }
    /// Middle of step column `column` (from 1) of `steps`.
    double Column(int column, int steps) const { return Width * (0.05 + (column - 0.5) * 0.95 / steps); }
    PatternBlock& Block(int row) { return s.Set[s.CurrentLoop].Pattern[row]; }
    double Width = 0;
    double Height = 0;
};

TEST(PatternGraph, ADragDrawsEachColumnThatItPasses) {
    PatternStage stage;
    stage.Press("PatternGraph_0", {stage.Column(1, 4), 2});
    EXPECT_EQ(stage.Block(kVolPattern)[0], 500);
    for (int column = 1; column <= 4; ++column)
        stage.Move("PatternGraph_0", {stage.Column(column, 4), stage.Height / 2});
    stage.Release("PatternGraph_0", {stage.Column(4, 4), stage.Height - 1});
    for (int step = 0; step < 3; ++step) EXPECT_NEAR(stage.Block(kVolPattern)[step], 250, 8);
    EXPECT_LT(stage.Block(kVolPattern)[3], 20);
    EXPECT_EQ(stage.s.PatternDrawRow, -1);
    EXPECT_TRUE(stage.s.ReadoutText.starts_with("Step: 4 Vol: "));
}

TEST(PatternGraph, ADragBeyondTheLastColumnWritesTheNextStep) {
    PatternStage stage;
    stage.s.Set[0].NSteps = 31;
    PatternsRefresh(stage.s);
    const double top = 1;
    stage.Press("PatternGraph_0", {stage.Column(32, 32), top});
    stage.Move("PatternGraph_0", {stage.Column(33, 32), stage.Height / 2});
    EXPECT_NEAR(stage.Block(kVolPattern)[kPatternOffset], 250, 8);
    stage.Release("PatternGraph_0", {stage.Column(33, 32), stage.Height / 2});
}

TEST(PatternGraph, TheRandomColumnIsTheSpread) {
    PatternStage stage;
    stage.Press("PatternGraph_1", {3, stage.Height / 2});
    stage.Move("PatternGraph_1", {stage.Column(3, 4), stage.Height / 2});
    stage.Release("PatternGraph_1", {3, stage.Height / 2});
    EXPECT_NEAR(stage.Block(kHzPattern)[kPatternOffset], 2000, 60);
    EXPECT_EQ(stage.Block(kHzPattern)[2], 1000);
    EXPECT_TRUE(stage.s.ReadoutText.starts_with("Random: Freq: "));
}

TEST(PatternGraph, TheEraserResetsItAndGoesBackToFourSteps) {
    PatternStage stage;
    stage.s.Set[0].NSteps = 9;
    stage.Block(kPanPattern)[2] = 900;
    stage.Block(kVolPattern)[2] = 90;
    stage.DropControl("PatternGraph_2", {"Eraser", 0, ""});
    EXPECT_EQ(stage.Block(kPanPattern)[2], 500);
    EXPECT_EQ(stage.Block(kVolPattern)[2], 90);
    EXPECT_EQ(stage.s.Set[0].NSteps, 3);
}

TEST(NSteps, ADragSetsTheStepsAtItsEnd) {
    PatternStage stage;
    const QPointF start = stage.Middle("NSteps");
    stage.Press("NSteps", start);
    stage.Move("NSteps", start - QPointF(0, 8));
    EXPECT_EQ(stage.s.StepsShown, 10);
    EXPECT_EQ(stage.s.Set[0].NSteps, 3);
    stage.Release("NSteps", start - QPointF(0, 8));
    EXPECT_EQ(stage.s.Set[0].NSteps, 9);
    EXPECT_EQ(stage.s.GraphColumns[1], 10);
}

TEST(NSteps, TheWheelIsOneStep) {
    PatternStage stage;
    stage.Wheel("NSteps", 1);
    EXPECT_EQ(stage.s.Set[0].NSteps, 4);
    stage.Wheel("NSteps", -2);
    EXPECT_EQ(stage.s.Set[0].NSteps, 2);
}

TEST(TimeDigit, ADragUpwardsCarriesIntoTheNextDigit) {
    PatternStage stage;
    stage.s.Set[0].StepDuration = 95;
    stage.Drag("TimeDigit_1", {0, -3});
    EXPECT_EQ(stage.s.Set[0].StepDuration, 105);
    EXPECT_EQ(stage.s.TimeText[0], "001.05");
    stage.Drag("TimeDigit_5", {0, -10});
    EXPECT_EQ(stage.s.Set[0].Swing, 3);
}

TEST(TimeDigit, TheWheelIsOneUnit) {
    PatternStage stage;
    stage.s.Set[0].StepDuration = 95;
    stage.Wheel("TimeDigit_2", 1);
    EXPECT_EQ(stage.s.Set[0].StepDuration, 195);
    stage.Wheel("TimeDigit_0", -1);
    EXPECT_EQ(stage.s.Set[0].StepDuration, 194);
}

TEST(PercentReadOut, ADoubleClickSetsTheWholeSample) {
    PatternStage stage;
    stage.Fill(0);
    stage.s.Set[0].StepDuration = 20;
    stage.s.Set[0].Swing = 20;
    stage.DoubleClick("PercentReadOut_0");
    EXPECT_EQ(stage.s.Set[0].StepDuration, 100);
    EXPECT_EQ(stage.s.PercentText[0], "100.0%");
    stage.DoubleClick("PercentReadOut_1");
    EXPECT_EQ(stage.s.Set[0].Swing, 0);
}

TEST(PatternTab, TheLargePictureSetsTheModeOfTheCurrentLoopTrack) {
    PatternStage stage;
    stage.s.CurrentLoop = 2;
    stage.Drag("LoopIt_5", {0, -7});
    EXPECT_EQ(stage.s.Set[2].PlayMode, kTrack);
}

TEST(PatternTab, ShowsTheHintsOfItsControls) {
    PatternStage stage;
    const std::vector<std::pair<const char*, const char*>> hints{
        {"PatternGraph_0", "clk, drg Draw Pattern; rtdrg Copy Pattern"},
        {"NSteps", "drg #Steps -/+"},
        {"TimeDigit_7", "drg Digits -/+"},
        {"CloneTime_0", "rtdrg Copy Timing Element"},
        {"Eraser", "drg onto Pattern to Reset Pattern"},
        {"Tab_2", "rtdrg Copy All Patterns & Timing Elements"}};
    for (const auto& [name, hint] : hints) {
        stage.Move(name, stage.Middle(name));
        EXPECT_EQ(stage.s.StatusText, hint) << name;
    }
    stage.Move("Patterns", {30, 12});
    EXPECT_EQ(stage.s.StatusText, "rtdrg Copy All Patterns");
    stage.Move("AllTiming", {30, 12});
    EXPECT_EQ(stage.s.StatusText, "rtdrg Copy All Timing Elements");
}

}  // namespace
}  // namespace marvolin
