#include "core/loop_views.h"

#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(HistoryAdd, PutsTheNewestInFront) {
    Instrument i;
    HistoryAdd(i.s, 0, "/a.WAV");
    HistoryAdd(i.s, 0, "/b.WAV");
    EXPECT_EQ(i.s.History[0], (std::vector<std::string>{"/b.WAV", "/a.WAV"}));
    EXPECT_TRUE(i.s.History[1].empty());
}

TEST(HistoryAdd, APathThatIsThereAlreadyKeepsItsPlace) {
    Instrument i;
    HistoryAdd(i.s, 0, "/a.WAV");
    HistoryAdd(i.s, 0, "/b.WAV");
    HistoryAdd(i.s, 0, "/a.WAV");
    EXPECT_EQ(i.s.History[0], (std::vector<std::string>{"/b.WAV", "/a.WAV"}));
}

TEST(HistoryAdd, KeepsTwentyPathsOfARowAndAHundredOfRowFour) {
    Instrument i;
    for (int n = 0; n < 150; ++n) {
        HistoryAdd(i.s, 2, std::to_string(n));
        HistoryAdd(i.s, kSelectionRow, std::to_string(n));
    }
    EXPECT_EQ(i.s.History[2].size(), 20U);
    EXPECT_EQ(i.s.History[2].front(), "149");
    EXPECT_EQ(i.s.History[2].back(), "130");
    EXPECT_EQ(i.s.History[4].size(), 100U);
    EXPECT_EQ(i.s.History[4].back(), "50");
}

TEST(PatternReset, FillsOneRowAndSetsTheLoopTrackToFourSteps) {
    Instrument i;
    LoopTrackSet& set = i.s.Set[1];
    set.NSteps = 20;
    for (int row = 0; row < kPatternRows; ++row) {
        for (int step = 0; step <= kPatternSteps; ++step) set.Pattern[row][step] = 77;
    }
    PatternReset(i.s, 1, kHzPattern);
    for (int step = 0; step < kPatternSteps; ++step) EXPECT_EQ(set.Pattern[kHzPattern][step], 1000);
    EXPECT_EQ(set.Pattern[kHzPattern][kPatternOffset], 1);
    EXPECT_EQ(set.Pattern[kVolPattern][0], 77);
    EXPECT_EQ(set.NSteps, 3);
}

TEST(TimingRefresh, ARowWithoutASampleShowsEmpty) {
    Instrument i;
    i.s.ActiveTab = kPatternTab;
    TimingRefresh(i.s);
    EXPECT_EQ(i.s.PercentText[kStepDurationGroup], "<Empty>");
    EXPECT_EQ(i.s.PercentText[kBeatStartGroup], "<Empty>");
    i.Fill(0);
    i.s.Set[0].StepDuration = 50;
    TimingRefresh(i.s);
    EXPECT_EQ(i.s.PercentText[kStepDurationGroup], "50.0%");
    EXPECT_EQ(i.s.TimeText[kStepDurationGroup], "000.50");
}

TEST(PatternsRefresh, NStepsOfThreeMeansFourSteps) {
    Instrument i;
    i.s.ActiveTab = kPatternTab;
    i.s.StepsShown = 0;
    PatternsRefresh(i.s);
    EXPECT_EQ(i.s.StepsShown, 4);
    EXPECT_EQ(i.s.GraphColumns[0], 4);
}

TEST(ResetLoopClock, ClearsFadeStepAndTiming) {
    Instrument i;
    LoopTrackRun& run = i.s.Run[0];
    run.FadeState = kFalling;
    run.Step = 2;
    run.StepElapsed = 9;
    run.PlayRequest = True;
    run.StepDue = True;
    run.Paused = True;
    i.s.ActiveTab = kPatternTab;
    ResetLoopClock(i.s, 0);
    EXPECT_EQ(run.FadeState, 0);
    EXPECT_EQ(run.Step, 0);
    EXPECT_EQ(run.StepElapsed, 0);
    EXPECT_EQ(run.PlayRequest, 0);
    EXPECT_EQ(run.StepDue, False);
    EXPECT_EQ(run.Paused, True);
    EXPECT_EQ(i.Screen.Count("ShowStepMarker"), 1);
}

}  // namespace
}  // namespace marvolin
