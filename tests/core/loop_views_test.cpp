#include "core/loops/loop_views.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class PatternTab : public testing::Test {
protected:
    Instrument i;
    void SetUp() override { i.s.ActiveTab = kPatternTab; }
    const std::string& Percent(TimeGroup group) { return i.s.PercentText[static_cast<std::size_t>(group)]; }
    const std::string& Time(TimeGroup group) { return i.s.TimeText[static_cast<std::size_t>(group)]; }
};

TEST_F(PatternTab, ARefreshShowsStepsGraphsMarkerTimingAndTheLargePlayMode) {
    PatternsRefresh(i.s);
    i.Screen.Log.clear();
    PatternsRefresh(i.s);
    EXPECT_THAT(i.Screen.Log,
                UnorderedElementsAre("ShowSteps", "ShowPattern 0", "ShowPattern 1", "ShowPattern 2", "ShowStepMarker",
                                     "ShowTime 0", "ShowTime 1", "ShowTime 2", "ShowPlayMode 5"));
}

TEST_F(PatternTab, NothingIsRefreshedWhileAnotherTabIsOpen) {
    i.s.Set[0].NSteps = 7;
    i.s.Set[0].StepDuration = 0;
    for (const std::int16_t tab : {kMixPadTab, kMapTab, kOptionTab}) {
        i.s.ActiveTab = tab;
        PatternsRefresh(i.s);
        TimingRefresh(i.s);
        ShowStep(i.s, 0);
    }
    EXPECT_THAT(i.Screen.Log, IsEmpty());
    EXPECT_EQ(i.s.StepsShown, 4);
    EXPECT_EQ(i.s.Set[0].StepDuration, 0) << "the clock works with whatever is stored";
}

TEST_F(PatternTab, NStepsOfThreeMeansFourSteps) {
    i.s.Set[0].NSteps = 3;
    i.s.StepsShown = 0;
    PatternsRefresh(i.s);
    EXPECT_EQ(i.s.StepsShown, 4);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(4, 4, 4));
}

TEST_F(PatternTab, TheLabelAndTheLayoutsFollowTheRecordOfTheCurrentLoop) {
    i.s.Set[2].NSteps = 15;
    i.s.CurrentLoop = 2;
    PatternsRefresh(i.s);
    EXPECT_EQ(i.s.StepsShown, 16);
    EXPECT_EQ(i.s.StepReadOutTop, 16);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(16, 16, 16));
}

TEST_F(PatternTab, ARefreshOfOneGraphSetsTheMarkersScaleAndLeavesTheLabelAndTheOtherGraphs) {
    PatternsRefresh(i.s);
    i.s.Set[0].NSteps = 9;
    i.Screen.Log.clear();
    PatternRefresh(i.s, 1);
    EXPECT_THAT(i.s.GraphColumns, ElementsAre(4, 10, 4));
    EXPECT_EQ(i.s.StepReadOutTop, 10);
    EXPECT_EQ(i.s.StepsShown, 4);
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowSteps", "ShowPattern 1"));
    i.Screen.Log.clear();
    PatternRefresh(i.s, 1);
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowPattern 1"));
}

TEST_F(PatternTab, TheMarkerMovesOnlyForTheCurrentLoop) {
    ShowStep(i.s, 1);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
    ShowStep(i.s, 0);
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowStepMarker"));
}

TEST(TimeDigits, HaveSixCharactersWithAPointThatNoDigitShows) {
    struct Case {
        double Seconds;
        std::string Text;
        std::string Digits;  ///< from the hundredths up
    };
    for (const Case& c : {Case{0, "000.00", "00000"}, Case{0.01, "000.01", "10000"}, Case{0.25, "000.25", "52000"},
                          Case{123.45, "123.45", "54321"}, Case{999.99, "999.99", "99999"},
                          Case{1234.56, "234.56", "65432"}, Case{98765.4, "765.40", "04567"}}) {
        SCOPED_TRACE(c.Seconds);
        const std::string text = TimeDigitsText(c.Seconds);
        EXPECT_EQ(text, c.Text);
        std::string digits;
        for (int digit = 0; digit < 5; ++digit) digits += TimeDigitChar(text, digit);
        EXPECT_EQ(digits, c.Digits);
    }
}

TEST_F(PatternTab, AnEmptyLoopTrackShowsEmptyInPercentages0And2AndANumberIn1) {
    TimingRefresh(i.s);
    EXPECT_EQ(Percent(kStepDurationGroup), "<Empty>");
    EXPECT_EQ(Percent(kSwingGroup), "0.0%");
    EXPECT_EQ(Percent(kBeatStartGroup), "<Empty>");
}

TEST_F(PatternTab, StepAndStartAreSharesOfTheSampleAndSwingOfTheStep) {
    LoopTrackSet& set = i.s.Set[0];
    set.Length = 2;
    set.StepDuration = 50;
    set.Swing = 5;
    set.BeatStart = 150;
    TimingRefresh(i.s);
    EXPECT_EQ(Percent(kStepDurationGroup), "25.0%");
    EXPECT_EQ(Percent(kSwingGroup), "10.0%");
    EXPECT_EQ(Percent(kBeatStartGroup), "75.0%");
    EXPECT_EQ(Time(kStepDurationGroup), "000.50");
    EXPECT_EQ(Time(kSwingGroup), "000.05");
    EXPECT_EQ(Time(kBeatStartGroup), "001.50");
}

TEST_F(PatternTab, AStepOfThreeSampleLengthsReads300Percent) {
    i.s.Set[0].Length = 1.5;
    i.s.Set[0].StepDuration = 450;
    ShowStepDuration(i.s);
    EXPECT_EQ(Percent(kStepDurationGroup), "300.0%");
}

TEST_F(PatternTab, AHalfOfTheLastDecimalIsRoundedUpAlsoWhereTheBinaryNumberIsALittleLess) {
    LoopTrackSet& set = i.s.Set[0];
    struct Case {
        std::int32_t Swing, Step;
        std::string Text;
    };
    for (const Case& c : {Case{201, 400, "50.3%"}, Case{203, 400, "50.8%"}, Case{199, 400, "49.8%"},
                          Case{2009, 4000, "50.2%"}, Case{2011, 4000, "50.3%"}, Case{3, 2000, "0.2%"}}) {
        set.Swing = c.Swing;
        set.StepDuration = c.Step;
        ShowSwing(i.s);
        EXPECT_EQ(Percent(kSwingGroup), c.Text) << c.Swing << " / " << c.Step;
    }
    set.Length = 4;
    set.StepDuration = 201;
    ShowStepDuration(i.s);
    EXPECT_EQ(Percent(kStepDurationGroup), "50.3%");
}

TEST_F(PatternTab, PercentagesHaveOneDecimalRoundHalvesUpAndHaveNoUpperLimit) {
    LoopTrackSet& set = i.s.Set[0];
    set.StepDuration = 400;
    set.Swing = 1;  // 0.25 %
    ShowSwing(i.s);
    EXPECT_EQ(Percent(kSwingGroup), "0.3%");
    set.StepDuration = 1;
    set.Swing = 99999;
    ShowSwing(i.s);
    EXPECT_EQ(Percent(kSwingGroup), "9999900.0%");
    set.Length = 0.001;
    set.StepDuration = 99999;
    ShowStepDuration(i.s);
    EXPECT_EQ(Percent(kStepDurationGroup), "99999000.0%");
}

TEST_F(PatternTab, TheSwingOfAStepOfNoLengthIsAShareOfTheShortestStep) {
    i.s.Set[0].StepDuration = 0;
    i.s.Set[0].Swing = 2;
    ShowSwing(i.s);
    EXPECT_EQ(Percent(kSwingGroup), "200.0%");
    EXPECT_EQ(i.s.Set[0].StepDuration, 0);
}

TEST_F(PatternTab, ShowingLimitsStepAndSwingInTheRecord) {
    LoopTrackSet& set = i.s.Set[0];
    struct Case {
        std::int32_t Stored, Step, Swing;
    };
    for (const Case c : {Case{-5, 1, 0}, {0, 1, 0}, {1, 1, 1}, {99999, 99999, 99999}, {100000, 99999, 99999}}) {
        SCOPED_TRACE(c.Stored);
        set.StepDuration = set.Swing = c.Stored;
        TimingRefresh(i.s);
        EXPECT_EQ(set.StepDuration, c.Step);
        EXPECT_EQ(set.Swing, c.Swing);
    }
    EXPECT_EQ(Time(kStepDurationGroup), "999.99");
}

}  // namespace
}  // namespace marvolin
