#include "parameters/knob_gesture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/instrument.h"
#include "parameters/fades.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;

constexpr std::int16_t kVertical = 0;
constexpr std::int16_t kHorizontal = 1;

std::int16_t Value(const Instrument& i, Knob knob, Row row) {
    return knob == Knob::Vol ? i.s.Set[row].Vol : knob == Knob::Pan ? i.s.Set[row].Pan : i.s.Set[row].Hz;
}

/// Presses a knob at (1000, 1000).
void Press(Instrument& i, Knob knob, Row row, std::int16_t button = kLeftButton) {
    KnobGesture(i.s, knob, row, Phase::Down, button, 1000, 1000);
}

/// Value of a knob that starts at `start` after a move by (`dx`, `dy`).
std::int16_t AfterMove(Knob knob, std::int16_t start, std::int16_t axis, std::int16_t button, double dx, double dy) {
    Instrument i;
    i.s.DragAxis = axis;
    i.s.Set[0].Vol = i.s.Set[0].Pan = i.s.Set[0].Hz = start;
    Press(i, knob, 0, button);
    KnobGesture(i.s, knob, 0, Phase::Move, button, 1000 + dx, 1000 + dy);
    return Value(i, knob, 0);
}

TEST(KnobGesture, UpAndToTheRightIncreaseTheValue) {
    for (const Knob knob : {Knob::Vol, Knob::Pan, Knob::Hz}) {
        const std::int16_t unit = knob == Knob::Hz ? 10 : 1;
        EXPECT_EQ(AfterMove(knob, 300, kVertical, kLeftButton, 0, -7), 300 + 7 * unit);
        EXPECT_EQ(AfterMove(knob, 300, kVertical, kLeftButton, 0, 7), 300 - 7 * unit);
        EXPECT_EQ(AfterMove(knob, 300, kVertical, kLeftButton, 50, 0), 300);
        EXPECT_EQ(AfterMove(knob, 300, kHorizontal, kLeftButton, 7, 0), 300 + 7 * unit);
        EXPECT_EQ(AfterMove(knob, 300, kHorizontal, kLeftButton, -7, 0), 300 - 7 * unit);
        EXPECT_EQ(AfterMove(knob, 300, kHorizontal, kLeftButton, 0, 50), 300);
    }
}

TEST(KnobGesture, AFineDragMovesUpAtOnceButNeedsTwentyTwipsForOneUnitDown) {
    for (const Knob knob : {Knob::Vol, Knob::Pan}) {
        for (int twips = 0; twips <= 200; ++twips) {
            SCOPED_TRACE(twips);
            const int up = (twips + 19) / 20;
            const int down = twips / 20;
            EXPECT_EQ(AfterMove(knob, 300, kVertical, kRightButton, 0, -twips), 300 + up);
            EXPECT_EQ(AfterMove(knob, 300, kVertical, kRightButton, 0, twips), 300 - down);
            EXPECT_EQ(AfterMove(knob, 300, kHorizontal, kRightButton, twips, 0), 300 + up);
            EXPECT_EQ(AfterMove(knob, 300, kHorizontal, kRightButton, -twips, 0), 300 - down);
        }
    }
}

TEST(KnobGesture, AFineDragOfTheFrequencyMovesAUnitATwip) {
    EXPECT_EQ(AfterMove(Knob::Hz, 1000, kVertical, kRightButton, 0, -3), 1003);
    EXPECT_EQ(AfterMove(Knob::Hz, 1000, kVertical, kRightButton, 0, 3), 997);
    EXPECT_EQ(AfterMove(Knob::Hz, 1000, kVertical, kRightButton, 0, 0.5), 1000);
    EXPECT_EQ(AfterMove(Knob::Hz, 1000, kVertical, kRightButton, 0, -0.5), 1001);
}

TEST(KnobGesture, AFarDragEndsAtTheEndsOfTheScale) {
    EXPECT_EQ(AfterMove(Knob::Vol, 250, kVertical, kLeftButton, 0, -900000), 500);
    EXPECT_EQ(AfterMove(Knob::Vol, 250, kVertical, kLeftButton, 0, 900000), 0);
    EXPECT_EQ(AfterMove(Knob::Pan, 250, kVertical, kLeftButton, 0, -900000), 1000);
    EXPECT_EQ(AfterMove(Knob::Hz, 250, kVertical, kLeftButton, 0, -900000), 4000);
    EXPECT_EQ(AfterMove(Knob::Hz, 250, kVertical, kLeftButton, 0, 900000), 1);
}

TEST(KnobGesture, EachMoveCountsFromThePressAndNotFromTheLastMove) {
    Instrument i;
    i.s.DragAxis = kVertical;
    Press(i, Knob::Vol, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 0, 2000);
    EXPECT_EQ(i.s.Set[0].Vol, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 0, 1010);
    EXPECT_EQ(i.s.Set[0].Vol, 490);
}

TEST(KnobGesture, AMoveShowsTheValueWithOrWithoutADrag) {
    struct Case {
        Knob Which;
        std::string Still, Dragged;
    };
    for (const Case& c : std::vector<Case>{{Knob::Vol, "Vol: 300", "Vol: 299"},
                                           {Knob::Pan, "Pan: Left (-200)", "Pan: Left (-201)"},
                                           {Knob::Hz, "Freq: 30%", "Freq: 29%"}}) {
        Instrument i;
        i.s.DragAxis = kVertical;
        i.s.Set[0].Vol = i.s.Set[0].Pan = i.s.Set[0].Hz = 300;
        KnobGesture(i.s, c.Which, 0, Phase::Move, kNoButton, 5, 5);
        EXPECT_EQ(i.s.ReadoutText, c.Still);
        EXPECT_EQ(Value(i, c.Which, 0), 300);
        Press(i, c.Which, 0);
        KnobGesture(i.s, c.Which, 0, Phase::Move, kLeftButton, 1000, 1001);
        EXPECT_EQ(i.s.ReadoutText, c.Dragged);
    }
}

TEST(KnobGesture, TheReleaseSetsTheValueOnceMoreAndEndsTheDrag) {
    Instrument i;
    i.s.DragAxis = kVertical;
    Press(i, Knob::Vol, 0);
    EXPECT_NE(i.s.Drag.Dragging, False);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, 1000, 1030);
    EXPECT_EQ(i.s.Set[0].Vol, 470);
    EXPECT_EQ(i.s.ReadoutText, "Vol: 470");
    EXPECT_EQ(i.s.Drag.Dragging, False);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 1000, 1200);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, 1000, 1200);
    EXPECT_EQ(i.s.Set[0].Vol, 470);
}

TEST(KnobGesture, ADragActsOnTheWholeGang) {
    Instrument i;
    i.s.DragAxis = kVertical;
    i.MakeBand(1, 0, 2);
    i.s.Set[0].Hz = 2000;
    i.s.Set[2].Hz = 500;
    Press(i, Knob::Hz, 2);
    KnobGesture(i.s, Knob::Hz, 2, Phase::Move, kLeftButton, 1000, 999);
    for (Row row = 0; row < 3; ++row) EXPECT_EQ(i.s.Set[row].Hz, 510);
    EXPECT_EQ(i.s.Set[3].Hz, 1000);
}

TEST(KnobGesture, WithThreeDimensionsAPanDragChangesNothing) {
    Instrument i;
    i.s.Use3D = true;
    i.s.DragAxis = kVertical;
    Press(i, Knob::Pan, 0);
    KnobGesture(i.s, Knob::Pan, 0, Phase::Move, kLeftButton, 1000, 900);
    KnobGesture(i.s, Knob::Pan, 0, Phase::Up, kLeftButton, 1000, 800);
    EXPECT_EQ(i.s.Set[0].Pan, 500);
    EXPECT_EQ(i.s.Drag.Dragging, False);
}

TEST(KnobGesture, GrabbingTheKnobStopsAFadeAtTheLevelReachedAndDragsFromThere) {
    for (const Row row : {Row{1}, kSelectionRow}) {
        Instrument i;
        i.s.DragAxis = kVertical;
        i.Select(1);
        i.Fill(1);
        i.s.Run[1].Playing = True;
        LoopSetFade(i.s, 1, FadeCommand::Down);
        StepFades(i.s, 100);
        EXPECT_EQ(i.s.Set[1].Vol, 480);
        Press(i, Knob::Vol, row);
        EXPECT_EQ(i.s.Run[1].FadeState, kNoFade);
        StepFades(i.s, 100);
        EXPECT_EQ(i.s.Set[1].Vol, 480);
        if (row == kSelectionRow) continue;
        KnobGesture(i.s, Knob::Vol, row, Phase::Move, kLeftButton, 1000, 1010);
        EXPECT_EQ(i.s.Set[1].Vol, 470);
    }
}

TEST(KnobGesture, TheOtherKnobsAndTheMasterLeaveAFadeAlone) {
    Instrument i;
    LoopSetFade(i.s, 0, FadeCommand::Down);
    Press(i, Knob::Pan, 0);
    Press(i, Knob::Hz, 0);
    Press(i, Knob::Vol, kMasterRow);
    EXPECT_EQ(i.s.Run[0].FadeState, kFalling);
}

TEST(KnobGesture, TheMasterIgnoresThePressWhileAJoystickAxisIsAssigned) {
    Instrument i;
    i.s.DragAxis = kVertical;
    i.s.Joy.Axis[0] = 3;
    Press(i, Knob::Vol, kMasterRow);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    KnobGesture(i.s, Knob::Vol, kMasterRow, Phase::Move, kLeftButton, 1000, 1100);
    KnobGesture(i.s, Knob::Vol, kMasterRow, Phase::Up, kLeftButton, 1000, 1100);
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 500);
    Press(i, Knob::Vol, 0);
    EXPECT_NE(i.s.Drag.Dragging, False);
    i.s.Drag.Dragging = False;
    i.s.Joy.Axis[0] = 0;
    i.s.Joy.Axis[1] = 3;
    Press(i, Knob::Vol, kMasterRow);
    EXPECT_NE(i.s.Drag.Dragging, False);
}

TEST(KnobGesture, WhileTheMapShowsTheRowOfThePressBecomesItsCurrentRow) {
    for (const Knob knob : {Knob::Vol, Knob::Pan, Knob::Hz}) {
        Instrument i;
        Press(i, knob, 2);
        EXPECT_EQ(i.s.PosHighlight, -1);
        i.s.ActiveTab = kMapTab;
        Press(i, knob, 2);
        EXPECT_EQ(i.s.PosHighlight, 2);
        EXPECT_EQ(i.Screen.Count("RaiseMapBall 2"), 1);
        Press(i, knob, kSelectionRow);
        EXPECT_EQ(i.s.PosHighlight, 2);
        if (knob == Knob::Vol) Press(i, knob, kMasterRow);
        EXPECT_EQ(i.s.PosHighlight, 2);
    }
}

TEST(KnobDblClick, TogglesMuteAndRestoresCentreAndRate) {
    Instrument i;
    i.s.Set[0].Vol = 3;
    Knob_DblClick(i.s, Knob::Vol, 0);
    EXPECT_EQ(i.s.Set[0].Vol, 0);
    EXPECT_EQ(i.s.ReadoutText, "Vol: 0");
    Knob_DblClick(i.s, Knob::Vol, 0);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    EXPECT_EQ(i.s.ReadoutText, "Vol: 500");
    i.s.Set[0].Pan = 3;
    Knob_DblClick(i.s, Knob::Pan, 0);
    EXPECT_EQ(i.s.Set[0].Pan, 500);
    EXPECT_EQ(i.s.ReadoutText, "Pan: Centre (0)");
    i.s.Set[0].Hz = 3;
    Knob_DblClick(i.s, Knob::Hz, 0);
    EXPECT_EQ(i.s.Set[0].Hz, 1000);
    EXPECT_EQ(i.s.ReadoutText, "Freq: Original Hz Restored");
}

TEST(KnobDblClick, OnARowInABandMutesOrRestoresTheWholeBandWhateverTheOtherVolumes) {
    Instrument i;
    i.MakeBand(1, 0, 2);
    i.s.Set[0].Vol = 0;
    i.s.Set[1].Vol = 1;
    i.s.Set[2].Vol = 400;
    Knob_DblClick(i.s, Knob::Vol, 1);
    for (Row row = 0; row < 3; ++row) EXPECT_EQ(i.s.Set[row].Vol, 0);
    EXPECT_EQ(i.s.Set[3].Vol, 500);
    i.s.Set[0].Vol = 200;
    Knob_DblClick(i.s, Knob::Vol, 1);
    for (Row row = 0; row < 3; ++row) EXPECT_EQ(i.s.Set[row].Vol, 500);
}

TEST(KnobDblClick, CentreAndRateReachTheWholeBandAndAreHeard) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    for (const Row row : {Row{0}, Row{1}}) {
        i.Fill(row);
        i.s.Set[row].Pan = 100;
        i.s.Set[row].Hz = 100;
    }
    i.Sound.Log.clear();
    Knob_DblClick(i.s, Knob::Pan, 1);
    Knob_DblClick(i.s, Knob::Hz, 1);
    EXPECT_THAT(i.Sound.Log,
                ElementsAre("SetPan b0 0", "SetPan b1 0", "SetFrequency b0 44100", "SetFrequency b1 44100"));
}

TEST(KnobDblClick, WithThreeDimensionsThePanIsNotCentred) {
    Instrument i;
    i.s.Use3D = true;
    i.s.Set[0].Pan = 100;
    Knob_DblClick(i.s, Knob::Pan, 0);
    EXPECT_EQ(i.s.Set[0].Pan, 100);
}

TEST(KnobDblClick, EndsAnOpenDragAtPointZeroAndOtherwiseSendsNoEvent) {
    Instrument i;
    i.s.DragAxis = kVertical;
    i.s.EventWanted[ScriptEvent::OnVolChange] = -1;
    Knob_DblClick(i.s, Knob::Vol, 0);
    EXPECT_TRUE(i.Scripts.Events.empty());
    KnobGesture(i.s, Knob::Vol, 0, Phase::Down, kLeftButton, 0, 30);
    Knob_DblClick(i.s, Knob::Vol, 0);
    EXPECT_EQ(i.s.Set[0].Vol, 30);  // thirty twips above the press, from 0
    EXPECT_EQ(i.s.Drag.Dragging, False);
    EXPECT_EQ(i.Scripts.Events.size(), 1U);
}

/// Turns all six events of the knobs on.
void WantAll(Instrument& i) {
    for (const ScriptEvent event : {ScriptEvent::OnVolChange, ScriptEvent::OnVolScroll, ScriptEvent::OnPanChange,
                                    ScriptEvent::OnPanScroll, ScriptEvent::OnPitchChange, ScriptEvent::OnPitchScroll}) {
        i.s.EventWanted[event] = -1;
    }
}

TEST(KnobEvents, ADragSendsScrollsAndAtReleaseTheChangeBeforeTheLastScroll) {
    struct Case {
        Knob Which;
        ScriptEvent Change, Scroll;
        double First, Last, FirstDelta, LastDelta;
    };
    for (const Case& c :
         std::vector<Case>{{Knob::Vol, ScriptEvent::OnVolChange, ScriptEvent::OnVolScroll, 295, 293, -5, -2},
                           {Knob::Pan, ScriptEvent::OnPanChange, ScriptEvent::OnPanScroll, -205, -207, -5, -2},
                           {Knob::Hz, ScriptEvent::OnPitchChange, ScriptEvent::OnPitchScroll, 25, 23, -5, -2}}) {
        SCOPED_TRACE(static_cast<int>(c.Which));
        Instrument i;
        WantAll(i);
        i.s.DragAxis = kVertical;
        i.s.Set[2].Vol = i.s.Set[2].Pan = i.s.Set[2].Hz = 300;
        Press(i, c.Which, 2);
        EXPECT_TRUE(i.Scripts.Events.empty());
        KnobGesture(i.s, c.Which, 2, Phase::Move, kLeftButton, 1000, 1005);
        KnobGesture(i.s, c.Which, 2, Phase::Up, kLeftButton, 1000, 1007);
        ASSERT_EQ(i.Scripts.Events.size(), 3U);
        EXPECT_EQ(i.Scripts.Events[0].Which, c.Scroll);
        EXPECT_THAT(i.Scripts.Events[0].Arguments, ElementsAre(3, c.First, c.FirstDelta));
        EXPECT_EQ(i.Scripts.Events[1].Which, c.Change);
        EXPECT_THAT(i.Scripts.Events[1].Arguments, ElementsAre(3, c.Last));
        EXPECT_EQ(i.Scripts.Events[2].Which, c.Scroll);
        EXPECT_THAT(i.Scripts.Events[2].Arguments, ElementsAre(3, c.Last, c.LastDelta));
    }
}

TEST(KnobEvents, ThePitchIsInPercentWithOneDecimal) {
    Instrument i;
    WantAll(i);
    i.s.DragAxis = kVertical;
    Press(i, Knob::Hz, 0, kRightButton);
    KnobGesture(i.s, Knob::Hz, 0, Phase::Up, kRightButton, 1000, 1005);
    EXPECT_THAT(i.Scripts.Events.at(0).Arguments, ElementsAre(1, 99.5));
    EXPECT_THAT(i.Scripts.Events.at(1).Arguments, ElementsAre(1, 99.5, -0.5));
}

TEST(KnobEvents, AGangSendsOneEventForTheRowUnderTheHand) {
    Instrument i;
    WantAll(i);
    i.MakeBand(1, 0, 3);
    Press(i, Knob::Vol, 2);
    KnobGesture(i.s, Knob::Vol, 2, Phase::Up, kLeftButton, 900, 1000);
    ASSERT_EQ(i.Scripts.Events.size(), 2U);
    EXPECT_EQ(i.Scripts.Events[0].Arguments[0], 3);
    EXPECT_EQ(i.Scripts.Events[1].Arguments[0], 3);
}

TEST(KnobEvents, TheMasterIsRowSix) {
    Instrument i;
    WantAll(i);
    Press(i, Knob::Vol, kMasterRow);
    KnobGesture(i.s, Knob::Vol, kMasterRow, Phase::Up, kLeftButton, 900, 1000);
    EXPECT_THAT(i.Scripts.Events.at(0).Arguments, ElementsAre(6, 400));
}

TEST(KnobEvents, OnlyEverySoManyMovesAreSentButTheReleaseAlwaysIs) {
    Instrument i;
    i.s.ScrollSensitivity[0] = 3;
    i.s.DragAxis = kVertical;
    i.s.EventWanted[ScriptEvent::OnVolScroll] = -1;
    Press(i, Knob::Vol, 0);
    for (int move = 1; move <= 7; ++move) {
        KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 1000, 1000 + 10 * move);
    }
    ASSERT_EQ(i.Scripts.Events.size(), 2U);
    EXPECT_THAT(i.Scripts.Events[0].Arguments, ElementsAre(1, 470, -30));
    EXPECT_THAT(i.Scripts.Events[1].Arguments, ElementsAre(1, 440, -30));
    KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, 1000, 1070);
    ASSERT_EQ(i.Scripts.Events.size(), 3U);
    EXPECT_THAT(i.Scripts.Events[2].Arguments, ElementsAre(1, 430, -10));
}

TEST(KnobEvents, WhileTheEventIsOffMovesAreNotCounted) {
    Instrument i;
    i.s.ScrollSensitivity[0] = 2;
    i.s.DragAxis = kVertical;
    Press(i, Knob::Vol, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 1000, 1010);
    i.s.EventWanted[ScriptEvent::OnVolScroll] = -1;
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 1000, 1020);
    EXPECT_TRUE(i.Scripts.Events.empty());
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 1000, 1030);
    EXPECT_EQ(i.Scripts.Events.size(), 1U);
}

TEST(KnobEvents, AScriptThatMovesTheKnobFromItsOwnEventIsNotCalledAgain) {
    Instrument i;
    WantAll(i);
    i.Scripts.During = [&](ScriptEvent event) {
        if (event != ScriptEvent::OnVolChange) return;
        EXPECT_EQ(i.s.EventWanted[event], 0);
        i.Scripts.During = nullptr;
        KnobStep(i.s, Knob::Vol, 0, -1);
    };
    Press(i, Knob::Vol, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, 990, 1000);
    int changes = 0;
    for (const auto& event : i.Scripts.Events) changes += event.Which == ScriptEvent::OnVolChange;
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolChange], -1);
}

TEST(KnobEvents, AFailingScriptIsReportedOnceUnderTheEventsNameAndTheEventStaysOff) {
    Instrument i;
    WantAll(i);
    i.Scripts.Fail = true;
    for (int drag = 0; drag < 2; ++drag) {
        Press(i, Knob::Hz, 0);
        KnobGesture(i.s, Knob::Hz, 0, Phase::Up, kLeftButton, 990, 1000);
    }
    EXPECT_THAT(i.Scripts.Reports, ElementsAre("OnPitchChange", "OnPitchScroll"));
    EXPECT_EQ(i.s.Set[0].Hz, 800);
}

TEST(KnobStep, IsRefusedWhileADragIsOpen) {
    Instrument i;
    Press(i, Knob::Vol, 0);
    const std::int16_t before = i.s.Set[1].Vol;
    EXPECT_FALSE(KnobStep(i.s, Knob::Vol, 1, -5));
    EXPECT_EQ(i.s.Set[1].Vol, before);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, 990, 1000);
    EXPECT_TRUE(KnobStep(i.s, Knob::Vol, 1, -5));
    EXPECT_EQ(i.s.Set[1].Vol, before - 5);
}

TEST(KnobStep, MovesTheGangByFineUnitsWithinTheScale) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    KnobStep(i.s, Knob::Vol, 0, -3);
    EXPECT_EQ(i.s.Set[0].Vol, 497);
    EXPECT_EQ(i.s.Set[1].Vol, 497);
    EXPECT_EQ(i.s.ReadoutText, "Vol: 497");
    KnobStep(i.s, Knob::Vol, 0, 10);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    KnobStep(i.s, Knob::Pan, 2, 1);
    EXPECT_EQ(i.s.Set[2].Pan, 501);
    KnobStep(i.s, Knob::Hz, 2, -1);
    EXPECT_EQ(i.s.Set[2].Hz, 999);
    KnobStep(i.s, Knob::Hz, 2, 2000000000);
    EXPECT_EQ(i.s.Set[2].Hz, 4000);
}

TEST(KnobStep, CancelsAFadeAndSendsTheEventsOfAShortDrag) {
    Instrument i;
    i.s.ScrollSensitivity[0] = 50;
    WantAll(i);
    LoopSetFade(i.s, 0, FadeCommand::Down);
    KnobStep(i.s, Knob::Vol, 0, -2);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    ASSERT_EQ(i.Scripts.Events.size(), 2U);
    EXPECT_EQ(i.Scripts.Events[0].Which, ScriptEvent::OnVolChange);
    EXPECT_THAT(i.Scripts.Events[0].Arguments, ElementsAre(1, 498));
    EXPECT_EQ(i.Scripts.Events[1].Which, ScriptEvent::OnVolScroll);
    EXPECT_THAT(i.Scripts.Events[1].Arguments, ElementsAre(1, 498, -2));
}

TEST(KnobStep, DoesNothingDuringADragOrOnAMasterThatAJoystickAxisDrives) {
    Instrument i;
    Press(i, Knob::Vol, 0);
    KnobStep(i.s, Knob::Vol, 0, -1);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    i.s.Drag.Dragging = False;
    i.s.Joy.Axis[0] = 1;
    KnobStep(i.s, Knob::Vol, kMasterRow, -1);
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 500);
}

TEST(DragAxisSelect, ZeroDragsUpAndDownAnythingElseSideways) {
    for (std::int16_t entry = 0; entry <= 2; ++entry) {
        Instrument i;
        DragAxisSelect_Click(i.s, entry);
        EXPECT_EQ(i.Screen.Count("ShowOptions"), 1);
        Press(i, Knob::Vol, 0);
        KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 990, 1020);
        EXPECT_EQ(i.s.Set[0].Vol, entry == 0 ? 480 : 490);
    }
    EXPECT_EQ(kDragAxes[0], "Vertical Drag");
    EXPECT_EQ(kDragAxes[1], "Horizontal Drag");
}

TEST(KnobFrameOf, UsesTheScaleOfTheKnob) {
    Instrument i;
    EXPECT_EQ(KnobFrameOf(i.s, Knob::Vol, 0), 63);
    EXPECT_EQ(KnobFrameOf(i.s, Knob::Pan, 0), 31);
    EXPECT_EQ(KnobFrameOf(i.s, Knob::Hz, 0), 15);
    EXPECT_EQ(KnobFrameOf(i.s, Knob::Vol, kMasterRow), 63);
}

TEST(KnobGesture, AReleaseWhileAMoveReportsAFailureEndsTheDragWithOneReportAndOneSound) {
    Instrument i;
    i.Fill(0);
    i.s.EventWanted[ScriptEvent::OnVolScroll] = -1;
    i.s.EventWanted[ScriptEvent::OnVolChange] = -1;
    KnobGesture(i.s, Knob::Vol, 0, Phase::Down, kLeftButton, 1000, 0);
    i.Sound.Failures["SetVolume"] = sound_error::kGeneric;
    i.Desk.WhenReported = [&] { KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, 900, 0); };
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 900, 0);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.s.Set[0].Vol, 400);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    ASSERT_EQ(i.Scripts.Events.size(), 2U);
    EXPECT_EQ(i.Scripts.Events.front().Which, ScriptEvent::OnVolChange);
    EXPECT_EQ(i.Scripts.Events.back().Which, ScriptEvent::OnVolScroll);
}

TEST(KnobPointerLost, APressThatHasNotMovedDoesNotLevelItsBand) {
    Instrument i;
    WantAll(i);
    i.MakeBand(1, 0, 1);
    i.s.Set[0].Vol = 100;
    Press(i, Knob::Vol, 0);
    KnobPointerLost(i.s, Knob::Vol, 0);
    EXPECT_EQ(i.s.Set[1].Vol, 500);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    EXPECT_TRUE(i.Scripts.Events.empty());
}

TEST(KnobPointerLost, ADragEndsWithWhatItHasReachedAndSendsItsEvents) {
    Instrument i;
    WantAll(i);
    Press(i, Knob::Vol, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, 900, 1000);
    const std::int16_t reached = i.s.Set[0].Vol;
    ASSERT_NE(reached, 500);
    i.Scripts.Events.clear();
    KnobPointerLost(i.s, Knob::Vol, 0);
    EXPECT_EQ(i.s.Set[0].Vol, reached);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    ASSERT_EQ(i.Scripts.Events.size(), 2U);
    EXPECT_EQ(i.Scripts.Events[0].Which, ScriptEvent::OnVolChange);
    EXPECT_EQ(i.Scripts.Events[1].Which, ScriptEvent::OnVolScroll);
    KnobPointerLost(i.s, Knob::Vol, 0);
    EXPECT_EQ(i.Scripts.Events.size(), 2U);
}

TEST(KnobGesture, TheMasterStaysTheJoysticksWhenASetNamesAnAxisThatTheStickLacksUntilNoneIsChosen) {
    Instrument i;
    i.s.JoyEnabled = true;
    i.s.Joy.Axis[0] = 5;
    ASSERT_FALSE(i.s.Joy.AxisPresent[5]);
    Press(i, Knob::Vol, kMasterRow);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    EXPECT_FALSE(KnobStep(i.s, Knob::Vol, kMasterRow, -1));
    i.s.Joy.Axis[0] = 0;
    EXPECT_TRUE(KnobStep(i.s, Knob::Vol, kMasterRow, -1));
}

}  // namespace
}  // namespace marvolin
