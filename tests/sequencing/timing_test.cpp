#include "sequencing/timing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/loops/loop_views.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class TimeDigit : public testing::Test {
protected:
    Instrument i;
    void SetUp() override {
        i.Fill(0);  // one second
        i.s.ActiveTab = kPatternTab;
        i.s.Set[0].StepDuration = 5000;
        i.s.Set[0].Swing = 5000;
    }
    LoopTrackSet& Set() { return i.s.Set[0]; }
    void Drag(int digit, double twips) {
        TimeDigit_Gesture(i.s, digit, Phase::Down, 1000);
        TimeDigit_Gesture(i.s, digit, Phase::Move, 1000 + twips);
        TimeDigit_Gesture(i.s, digit, Phase::Up, 1000 + twips);
    }
};

TEST_F(TimeDigit, MovesOneUnitOfItsWeightForEach50TwipsUpward) {
    const std::int32_t weights[] = {1, 10, 100, 1000, 10000};
    for (int digit = 0; digit < 5; ++digit) {
        SCOPED_TRACE(digit);
        Set().StepDuration = Set().Swing = 40000;
        Drag(digit, -50);
        Drag(5 + digit, -100);
        EXPECT_EQ(Set().StepDuration, 40000 + weights[digit]);
        EXPECT_EQ(Set().Swing, 40000 + 2 * weights[digit]);
    }
    Drag(10, -50);
    EXPECT_EQ(Set().BeatStart, 1);
    Drag(11, -150);
    EXPECT_EQ(Set().BeatStart, 31);
    EXPECT_EQ(i.s.Run[0].BeatStartBytes, 54684);
}

TEST_F(TimeDigit, AFractionOfAUnitIsRoundedDown) {
    Drag(0, -49);  // Int(-0.98) is -1
    EXPECT_EQ(Set().StepDuration, 5001);
    Drag(0, 49);
    EXPECT_EQ(Set().StepDuration, 5001);
    Drag(0, 50);
    EXPECT_EQ(Set().StepDuration, 5000);
}

TEST_F(TimeDigit, CarriesGoThroughTheWholeNumber) {
    Set().StepDuration = 999;
    Drag(0, -50);
    EXPECT_EQ(Set().StepDuration, 1000);
    EXPECT_EQ(i.s.TimeText[kStepDurationGroup], "010.00");
}

TEST_F(TimeDigit, TheValueChangesAtEachMoveFromTheValueAtThePress) {
    TimeDigit_Gesture(i.s, 1, Phase::Down, 0);
    TimeDigit_Gesture(i.s, 1, Phase::Move, -50);
    EXPECT_EQ(Set().StepDuration, 5010);
    TimeDigit_Gesture(i.s, 1, Phase::Move, -100);
    EXPECT_EQ(Set().StepDuration, 5020);
    TimeDigit_Gesture(i.s, 1, Phase::Up, -100);
    TimeDigit_Gesture(i.s, 1, Phase::Move, -500);
    EXPECT_EQ(Set().StepDuration, 5020);
}

TEST_F(TimeDigit, BelowZeroAStepStopsAtOneHundredthAndSwingAtNothing) {
    Drag(4, 5000);
    EXPECT_EQ(Set().StepDuration, 1);
    EXPECT_EQ(i.s.TimeText[kStepDurationGroup], "000.01");
    Drag(9, 5000);
    EXPECT_EQ(Set().Swing, 0);
    Drag(14, 5000);
    EXPECT_EQ(Set().BeatStart, 0);
}

TEST_F(TimeDigit, AboveTheTopTheyStopAt99999) {
    Drag(4, -50000);
    EXPECT_EQ(Set().StepDuration, 99999);
    Drag(9, -50000);
    EXPECT_EQ(Set().Swing, 99999);
}

TEST_F(TimeDigit, TheSampleStartCannotPassTheLengthAndReads100Percent) {
    Drag(13, -500);
    EXPECT_EQ(Set().BeatStart, 100);
    EXPECT_EQ(i.s.PercentText[kBeatStartGroup], "100.0%");
    EXPECT_EQ(i.s.TimeText[kBeatStartGroup], "001.00");
}

TEST_F(TimeDigit, TheSwingPercentageIsNotRefreshedAfterAChangeOfTheStep) {
    TimingRefresh(i.s);
    ASSERT_EQ(i.s.PercentText[kSwingGroup], "100.0%");
    i.Screen.Log.clear();
    Drag(3, -250);
    EXPECT_EQ(Set().StepDuration, 10000);
    EXPECT_EQ(i.s.PercentText[kSwingGroup], "100.0%");
    EXPECT_THAT(i.Screen.Log, testing::Not(testing::Contains("ShowTime 1")));
    TimingRefresh(i.s);
    EXPECT_EQ(i.s.PercentText[kSwingGroup], "50.0%");
}

TEST_F(TimeDigit, ADragShowsItsOwnElementOnly) {
    for (int group = 0; group < 3; ++group) {
        i.Screen.Log.clear();
        Drag(5 * group, -50);
        EXPECT_THAT(i.Screen.Log, testing::ElementsAre("ShowTime " + std::to_string(group)));
    }
}

TEST_F(TimeDigit, ADragActsOnTheCurrentLoopAlone) {
    i.Select(0);
    i.Select(1);
    i.MakeBand(1, 0, 2);
    Drag(2, -50);
    EXPECT_EQ(Set().StepDuration, 5100);
    EXPECT_EQ(i.s.Set[1].StepDuration, 1);
}

TEST_F(TimeDigit, AMoveWithoutAPressChangesNothing) {
    TimeDigit_Gesture(i.s, 3, Phase::Move, -500);
    EXPECT_EQ(Set().StepDuration, 5000);
}

TEST_F(TimeDigit, Digits15AndAboveBelongToNoGroup) {
    const LoopTrackSet before = Set();
    i.s.Drag.DragStartValue = 42;
    for (int digit = 15; digit < 20; ++digit) Drag(digit, -500);
    EXPECT_EQ(Set(), before);
    EXPECT_EQ(i.s.Drag.DragStartValue, 42);
}

TEST_F(TimeDigit, ADoubleClickOnAPercentageSetsTheWholeSampleNoSwingOrTheBeginning) {
    Set().Length = 1.236;
    Set().BeatStart = 50;
    i.s.Run[0].BeatStartBytes = 88200;
    PercentReadOut_DblClick(i.s, 0);
    EXPECT_EQ(Set().StepDuration, 124);
    EXPECT_EQ(i.s.PercentText[kStepDurationGroup], "100.3%");
    EXPECT_EQ(Set().Swing, 5000);
    PercentReadOut_DblClick(i.s, 1);
    EXPECT_EQ(Set().Swing, 0);
    EXPECT_EQ(i.s.PercentText[kSwingGroup], "0.0%");
    EXPECT_EQ(Set().BeatStart, 50);
    PercentReadOut_DblClick(i.s, 2);
    EXPECT_EQ(Set().BeatStart, 0);
    EXPECT_EQ(i.s.Run[0].BeatStartBytes, 0);
    EXPECT_EQ(i.s.PercentText[kBeatStartGroup], "0.0%");
}

TEST_F(TimeDigit, ADoubleClickOnTheStepRoundsTheLength) {
    // 0.29 * 100 is a little less than 29.
    i.s.Set[i.s.CurrentLoop].Length = 0.29;
    PercentReadOut_DblClick(i.s, 0);
    EXPECT_EQ(i.s.Set[i.s.CurrentLoop].StepDuration, 29);
}

TEST_F(TimeDigit, ADoubleClickOnTheStepOfAnEmptyLoopTrackGivesTheShortestStep) {
    i.s.CurrentLoop = 1;
    i.s.Set[1].StepDuration = 77;
    PercentReadOut_DblClick(i.s, 0);
    EXPECT_EQ(i.s.Set[1].StepDuration, 1);
    EXPECT_EQ(i.s.PercentText[kStepDurationGroup], "<Empty>");
}

/// Row 0 has steps of 0.3 s, a swing of 0.1 s and a start at 0.8 s; the others have their own.
class TimingCopies : public testing::Test {
protected:
    Instrument i;
    void SetUp() override {
        for (Row row = 0; row < kLoopTracks; ++row) {
            i.Fill(row);
            i.s.Set[row].StepDuration = 1000 + row;
            i.s.Set[row].Swing = 2000 + row;
        }
        i.s.Set[0].StepDuration = 30;
        i.s.Set[0].Swing = 10;
        i.s.Set[0].BeatStart = 80;
        i.Sound.Log.clear();
        i.Screen.Log.clear();
    }
    /// Which of StepDuration, Swing, BeatStart the row now shares with row 0.
    std::string Shared(Row row) {
        const LoopTrackSet& from = i.s.Set[0];
        const LoopTrackSet& to = i.s.Set[row];
        return std::string(to.StepDuration == from.StepDuration ? "D" : "") + (to.Swing == from.Swing ? "S" : "") +
               (to.BeatStart == from.BeatStart ? "B" : "");
    }
    std::vector<std::string> SharedBy123() { return {Shared(1), Shared(2), Shared(3)}; }
};

TEST_F(TimingCopies, EachLabelCopiesItsElementAndTheFrameAllOfThem) {
    struct Case {
        int What;
        std::string Shared;
    };
    for (const Case& c : {Case{0, "D"}, Case{1, "B"}, Case{2, "S"}, Case{4, "DSB"}, Case{3, ""}, Case{5, ""}}) {
        SCOPED_TRACE(c.What);
        SetUp();
        i.s.Set[1].BeatStart = 0;
        TimingCopy(i.s, 0, 1, c.What);
        EXPECT_EQ(Shared(1), c.Shared);
        EXPECT_EQ(Shared(2), "");
    }
}

TEST_F(TimingCopies, AStartCopiedFromALongSampleToAShortOneIsTheShortSamplesLength) {
    i.s.Set[1].Length = 0.5;
    TimingCopy(i.s, 0, 1, 1);
    EXPECT_EQ(i.s.Set[1].BeatStart, 50);
    EXPECT_EQ(i.s.Run[1].BeatStartBytes, 88200);
}

TEST_F(TimingCopies, ADropOnTheCurrentLoopItselfChangesNothing) {
    const LoopTrackSet before = i.s.Set[0];
    i.s.Run[0].BeatStartBytes = 7;  // not computed again
    for (const int what : {0, 1, 2}) TimingCopy(i.s, 0, 0, what);
    EXPECT_EQ(i.s.Set[0], before);
    EXPECT_EQ(i.s.Run[0].BeatStartBytes, 7);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST_F(TimingCopies, ToAMemberOfABandReachesTheWholeBand) {
    i.MakeBand(2, 2, 3);
    TimingCopy(i.s, 0, 3, 2);
    EXPECT_THAT(SharedBy123(), ElementsAre("", "S", "S"));
}

TEST_F(TimingCopies, ToTheSelectionRowReachesTheControlledRows) {
    i.Select(1);
    i.Select(3);
    TimingCopy(i.s, 0, kSelectionRow, 0);
    EXPECT_THAT(SharedBy123(), ElementsAre("D", "", "D"));
    EXPECT_EQ(i.s.Set[kSelectionRow].StepDuration, 1);
}

TEST_F(TimingCopies, OnlyACopyOfAllSetsThePlayModeAgain) {
    for (const int what : {0, 1, 2, 3}) TimingCopy(i.s, 0, 1, what);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 1"), 0);
    TimingCopy(i.s, 0, 1, 4);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 1"), 1);
    TimingCopy(i.s, 0, 0, 4);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 0"), 1) << "also for the row itself, which keeps its values";
    i.MakeBand(2, 2, 3);
    TimingCopy(i.s, 0, 2, 4);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 2"), 1);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 3"), 1);
}

/// Records the step duration of LoopTrack 2 whenever a play mode is shown.
struct StepWatch : test::FakeDisplay {
    const Session* Shown = nullptr;
    std::vector<std::int32_t> Steps;
    void ShowPlayMode(Row) override { Steps.push_back(Shown->Set[2].StepDuration); }
};

TEST_F(TimingCopies, ASelectionIsCopiedCompletelyBeforeAnyPlayModeIsSetAgain) {
    StepWatch watch;
    Session s{Services{watch, i.Desk, i.Forms, i.Chance, i.Timers, i.Scripts, i.Store, nullptr, nullptr}};
    watch.Shown = &s;
    s.CurrentLoop = 3;
    s.Set[0].StepDuration = 30;
    s.Set[1].Selected = s.Set[2].Selected = True;
    TimingCopy(s, 0, kSelectionRow, 4);
    EXPECT_EQ(s.Set[1].StepDuration, 30);
    EXPECT_EQ(s.Set[3].StepDuration, 1);
    EXPECT_THAT(watch.Steps, ElementsAre(30, 30));
}

TEST_F(TimingCopies, ACopyOfAllShowsTheTimesAgainAndOneOfASingleElementLeavesThatToTheDrop) {
    i.s.ActiveTab = kPatternTab;
    for (const int what : {0, 1, 2}) TimingCopy(i.s, 0, 1, what);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
    TimingCopy(i.s, 0, 1, 4);
    for (const char* shown : {"ShowTime 0", "ShowTime 1", "ShowTime 2"}) EXPECT_EQ(i.Screen.Count(shown), 1) << shown;
}

TEST_F(TimingCopies, ABandIsCopiedRowByRowAndThePlayModeOfEachSetAgainAtOnce) {
    StepWatch watch;
    Session s{Services{watch, i.Desk, i.Forms, i.Chance, i.Timers, i.Scripts, i.Store, nullptr, nullptr}};
    watch.Shown = &s;
    s.Set[0].StepDuration = 30;
    s.BandTable[1].First = 1;
    s.BandTable[1].Last = 2;
    for (const Row row : {Row{1}, Row{2}}) {
        s.Run[row].InBand = True;
        s.Run[row].Band = 1;
    }
    TimingCopy(s, 0, 1, 4);
    EXPECT_THAT(watch.Steps, ElementsAre(1, 30));
}

TEST_F(TimeDigit, AStepAddsOneUnitOfItsDigitAndIsRefusedDuringADrag) {
    TimeDigit_Step(i.s, 2, 1);
    EXPECT_EQ(Set().StepDuration, 5100);
    TimeDigit_Step(i.s, 6, -3);
    EXPECT_EQ(Set().Swing, 4970);
    TimeDigit_Step(i.s, 11, 1);
    EXPECT_EQ(Set().BeatStart, 10);
    const LoopTrackSet before = Set();
    TimeDigit_Step(i.s, 15, 1);  // of no group
    EXPECT_EQ(Set(), before);
    TimeDigit_Gesture(i.s, 0, Phase::Down, 1000);
    TimeDigit_Step(i.s, 1, 1);
    EXPECT_EQ(Set(), before);
    EXPECT_EQ(i.s.Drag.DragOrigin, 1000);
}

}  // namespace
}  // namespace marvolin
