#include <gtest/gtest.h>

#include <algorithm>

#include "core/loops/loop_views.h"
#include "stage.h"
#include "window/controls/pattern_graph.h"

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

TEST(PatternGraph, TheLowestAndTheHighestPixelOfALaneAreItsEnds) {
    PatternStage stage;
    for (int row = 0; row < kPatternRows; ++row) {
        SCOPED_TRACE(row);
        const std::string name = "PatternGraph_" + std::to_string(row);
        const PatternLimits& range = kPatternRange[static_cast<std::size_t>(row)];
        stage.Click(name.c_str(), {stage.Column(2, 4), stage.Height - 1});
        stage.Click(name.c_str(), {stage.Column(3, 4), 0});
        stage.Click(name.c_str(), {3, stage.Height - 1});
        EXPECT_EQ(stage.Block(row)[1], range.Min);
        EXPECT_NEAR(stage.Block(row)[2], range.Max, 1);  // the scale of the frequency leaves out its lowest value
        EXPECT_EQ(stage.Block(row)[kPatternOffset], range.Min);
    }
}

TEST(PatternGraph, AQuickDragSkipsNoColumn) {
    PatternStage stage;
    stage.s.Set[0].NSteps = 15;
    PatternsRefresh(stage.s);
    stage.Press("PatternGraph_0", {stage.Column(2, 16), stage.Height - 1});
    stage.Move("PatternGraph_0", {stage.Column(10, 16), stage.Height / 2});
    stage.Release("PatternGraph_0", {stage.Column(14, 16), stage.Height / 2});
    EXPECT_EQ(stage.Block(kVolPattern)[0], 500);
    for (int step = 1; step <= 9; ++step) EXPECT_NEAR(stage.Block(kVolPattern)[step], (step - 1) * 250 / 8, 12) << step;
    for (int step = 9; step <= 13; ++step) EXPECT_NEAR(stage.Block(kVolPattern)[step], 250, 8) << step;
    EXPECT_EQ(stage.Block(kVolPattern)[14], 500);
}

TEST(PatternGraph, OnlyTheEraserErases) {
    PatternStage stage;
    stage.Block(kPanPattern)[2] = 900;
    for (const char* name : {"PatternGraph", "Patterns", "CloneTime", "Letr", "DropDown", "eraser", "StatusBar1"}) {
        stage.DropControl("PatternGraph_2", {name, 0, ""});
    }
    EXPECT_EQ(stage.Block(kPanPattern)[2], 900);
}

/// Whether the bar of a column is painted at this share of the graph's height, from its foot.
bool BarAt(PatternStage& stage, int patternRow, double x, double share) {
    const std::string name = "PatternGraph_" + std::to_string(patternRow);
    const QImage picture = stage.At(name.c_str())->grab().toImage();
    const int y = static_cast<int>(picture.height() * (1 - share));
    // The bar of a random column is hatched.
    for (int near = -4; near <= 4; ++near) {
        const QRgb colour = picture.pixelColor(static_cast<int>(x) + near, y).rgb();
        const QColor hatch = PatternColour(patternRow);
        if (colour == hatch.rgb() || colour == hatch.darker(165).rgb()) return true;
    }
    return false;
}

TEST(PatternGraph, BarsStandOnTheBottomThoseOfThePanOnTheCentreAndItsRandomColumnOnTheBottom) {
    PatternStage stage;
    for (int row = 0; row < kPatternRows; ++row) {
        const PatternLimits& range = kPatternRange[static_cast<std::size_t>(row)];
        stage.Block(row)[1] = static_cast<std::int16_t>(range.Max * 0.85);
        stage.Block(row)[2] = static_cast<std::int16_t>(range.Max * 0.15);
        stage.Block(row)[kPatternOffset] = static_cast<std::int16_t>(range.Max * 0.85);
    }
    PatternsRefresh(stage.s);
    const double random = stage.Width * 0.025;
    for (int row = 0; row < kPatternRows; ++row) {
        SCOPED_TRACE(row);
        const bool pan = row == kPanPattern;
        for (const double share : {0.1, 0.4, 0.65}) {
            EXPECT_EQ(BarAt(stage, row, stage.Column(2, 4), share), !pan || share > 0.5) << share;
            EXPECT_EQ(BarAt(stage, row, stage.Column(3, 4), share), pan ? share == 0.4 : share < 0.15) << share;
            EXPECT_TRUE(BarAt(stage, row, random, share)) << share;
        }
        EXPECT_FALSE(BarAt(stage, row, random, 0.95));
    }
}

/// Centre of the marker, as a share of the width that the steps take.
double MarkerPlace(PatternStage& stage) {
    stage.Settle();
    const QImage bar = stage.At("StepReadOut")->grab().toImage();
    int first = bar.width();
    int last = -1;
    for (int x = 0; x < bar.width(); ++x) {
        if (bar.pixelColor(x, bar.height() / 2) != theme::kAccent) continue;
        first = std::min(first, x);
        last = x;
    }
    EXPECT_GE(last, first);
    return ((first + last + 1) / 2.0 / bar.width() - 0.05) / 0.95;
}

TEST(StepReadOut, TheMarkerStandsInTheMiddleOfTheCurrentStep) {
    PatternStage stage;
    for (const int steps : {1, 4, 16}) {
        stage.s.Set[0].NSteps = static_cast<std::int16_t>(steps - 1);
        PatternsRefresh(stage.s);
        for (int step = 0; step < steps; ++step) {
            stage.s.Run[0].Step = static_cast<std::int16_t>(step);
            ShowStep(stage.s, 0);
            EXPECT_NEAR(MarkerPlace(stage), (step + 0.5) / steps, 0.004) << step << " of " << steps;
        }
    }
}

TEST(StepReadOut, ItsScaleIsThatOfTheGraphWhichWasRefreshedLast) {
    PatternStage stage;
    stage.s.Set[0].NSteps = 15;
    stage.s.Run[0].Step = 3;
    PatternsRefresh(stage.s);
    stage.DropControl("PatternGraph_0", {"Eraser", 0, ""});
    EXPECT_NEAR(MarkerPlace(stage), 0.875, 0.004);
}

TEST(StepReadOut, ItsScaleWaitsForTheEndOfADragOfTheSteps) {
    PatternStage stage;
    stage.s.Run[0].Step = 1;
    PatternsRefresh(stage.s);
    const QPointF start = stage.Middle("NSteps");
    stage.Press("NSteps", start);
    stage.Move("NSteps", start - QPointF(0, 16));
    ASSERT_NE(stage.s.StepsShown, 4);
    EXPECT_NEAR(MarkerPlace(stage), 0.375, 0.004);
    stage.Release("NSteps", start - QPointF(0, 16));
    EXPECT_NEAR(MarkerPlace(stage), 1.5 / stage.s.StepsShown, 0.004);
}

TEST(StepReadOut, AStepBeyondTheLastIsMarkedOnTheLast) {
    PatternStage stage;
    stage.s.Set[0].NSteps = 7;
    stage.s.Run[0].Step = 7;
    PatternsRefresh(stage.s);
    stage.s.Set[0].NSteps = 3;
    PatternsRefresh(stage.s);
    EXPECT_NEAR(MarkerPlace(stage), 0.875, 0.004);
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

TEST(PercentReadOut, ADoubleClickOnTheSampleStartSetsItToTheBeginning) {
    PatternStage stage;
    stage.Fill(0);
    stage.s.Set[0].BeatStart = 50;
    TimingRefresh(stage.s);
    ASSERT_EQ(stage.s.PercentText[kBeatStartGroup], "50.0%");
    stage.DoubleClick("PercentReadOut_2");
    EXPECT_EQ(stage.s.Set[0].BeatStart, 0);
    EXPECT_EQ(stage.s.PercentText[kBeatStartGroup], "0.0%");
}

TEST(TimeDigit, AnyButtonDrags) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        PatternStage stage;
        stage.s.Set[0].StepDuration = 95;
        stage.Drag("TimeDigit_1", {0, -3}, button);
        EXPECT_EQ(stage.s.Set[0].StepDuration, 105) << button;
        EXPECT_EQ(stage.s.Drag.Dragging, False);
    }
}

TEST(TimeDigit, HundredsOfSecondsStandAtTheLeftAndHundredthsAtTheRight) {
    PatternStage stage;
    const auto name = [](int digit) { return "TimeDigit_" + std::to_string(digit); };
    const auto picture = [&](int digit) { return stage.At(name(digit).c_str())->grab().toImage(); };
    for (int group = 0; group < kTimeGroups; ++group) {
        std::string& text = stage.s.TimeText[static_cast<std::size_t>(group)];
        text = "123.45";
        for (int place = 0; place < kDigitsAGroup; ++place) {
            const int digit = group * kDigitsAGroup + kDigitsAGroup - 1 - place;
            SCOPED_TRACE(digit);
            const QWidget& shown = *stage.At(name(digit).c_str());
            EXPECT_EQ(DescribedOf(shown)->Value(), std::to_string(place + 1));
            if (place > 0) {
                EXPECT_GT(shown.x(), stage.At(name(digit + 1).c_str())->x());
            }
            const QImage painted = picture(digit);
            text = std::string(3, text[static_cast<std::size_t>(place < 3 ? place : place + 1)]);
            text += "." + text.substr(0, 2);
            EXPECT_EQ(picture(digit), painted);
            text = "999.99";
            EXPECT_NE(picture(digit), painted);
            text = "123.45";
        }
        if (group > 0) {
            EXPECT_GT(stage.At(name(group * kDigitsAGroup).c_str())->y(),
                      stage.At(name((group - 1) * kDigitsAGroup).c_str())->y());
        }
    }
}

TEST(PatternTab, TheTimesHaveTheirNamesAndTips) {
    PatternStage stage;
    struct Case {
        const char* Name;
        const char* Caption;
        const char* Tip;
    };
    for (const Case& c :
         {Case{"CloneTime_0", "Step Duration:", "Duration of Step, in Seconds (Applies to Track & Drum Mode)"},
          Case{"CloneTime_1", "Sample Start:", "Begin Playing at this Point in Sample (Applies to Drum Mode)"},
          Case{"CloneTime_2", "Swing: +/-Rnd:", "Swing Duration +/- a random number up to this amount"},
          Case{"PercentReadOut_0", "", "Step Duration as Percentage of Sample Length; dblclk to set to %100"},
          Case{"PercentReadOut_1", "", "Swing as Percentage of Step Duration; dblclk to set to %0"},
          Case{"PercentReadOut_2", "", "Sample Start as Percentage of Sample Length; dblclk to set to %0"}}) {
        EXPECT_EQ(DescribedOf(*stage.At(c.Name))->Caption(), c.Caption);
        EXPECT_EQ(stage.At(c.Name)->toolTip(), c.Tip);
    }
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
