#include "parameters/fades.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

void Expect(const Instrument& i, Row row, std::int16_t state, double value, std::int16_t target) {
    EXPECT_EQ(i.s.Run[row].FadeState, state);
    EXPECT_DOUBLE_EQ(i.s.Run[row].FadeValue, value);
    EXPECT_EQ(i.s.Run[row].FadeTarget, target);
}

std::vector<Row> Fading(const Instrument& i) {
    std::vector<Row> rows;
    for (Row row = 0; row < kRows; ++row) {
        if (i.s.Run[row].FadeState != kNoFade) rows.push_back(row);
    }
    return rows;
}

/// A row that sounds at `vol`.
void Sounding(Instrument& i, Row row, std::int16_t vol) {
    i.Fill(row);
    i.s.Set[row].Vol = vol;
    i.s.SndDisp[row] = {vol, vol, 0};
    LoopPlay(i.s, row, true);
    i.Sound.Log.clear();
    i.Screen.Log.clear();
}

TEST(LoopSetFade, UpRunsToFullAndDownToSilenceFromTheSetting) {
    Instrument i;
    i.s.Set[1].Vol = 123;
    i.s.Run[1].FadeToMark = True;
    LoopSetFade(i.s, 1, FadeCommand::Up);
    Expect(i, 1, kRising, 123, 500);
    EXPECT_EQ(i.s.Run[1].FadeToMark, False);
    LoopSetFade(i.s, 1, FadeCommand::Down);
    Expect(i, 1, kFalling, 123, 0);
}

TEST(LoopSetFade, ToggleWithNoFadeFallsFromAnyLevelAndRisesFromSilence) {
    Instrument i;
    i.s.Set[0].Vol = 1;
    LoopSetFade(i.s, 0, FadeCommand::Toggle);
    Expect(i, 0, kFalling, 1, 0);
    i.s.Set[1].Vol = 0;
    LoopSetFade(i.s, 1, FadeCommand::Toggle);
    Expect(i, 1, kRising, 0, 500);
}

TEST(LoopSetFade, ToggleReversesARunningFadeWhereItIs) {
    Instrument i;
    i.s.Set[0].Vol = 300;
    LoopSetFade(i.s, 0, FadeCommand::Down);
    i.s.Run[0].FadeValue = 123.75;
    LoopSetFade(i.s, 0, FadeCommand::Toggle);
    Expect(i, 0, kRising, 123.75, 500);
    LoopSetFade(i.s, 0, FadeCommand::Toggle);
    Expect(i, 0, kFalling, 123.75, 0);
}

TEST(LoopSetFade, CancelMovesTheLineToTheSettingOnlyWhenAFadeRuns) {
    Instrument i;
    i.s.Set[0].Vol = 300;
    LoopSetFade(i.s, 0, FadeCommand::Cancel);
    EXPECT_EQ(i.s.SndDisp[0].Line, 500);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
    LoopSetFade(i.s, 0, FadeCommand::Up);
    LoopSetFade(i.s, 0, FadeCommand::Cancel);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_EQ(i.s.SndDisp[0].Line, 300);
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowSoundDisplay 0"));
}

TEST(LoopSetFade, CancellingWithNoFadeRunningChangesNothing) {
    Instrument i;
    Sounding(i, 0, 321);
    LoopSetFadeGang(i.s, 0, FadeCommand::Cancel, kOwnBand);
    StepFades(i.s, 1000);
    EXPECT_EQ(i.s.Set[0].Vol, 321);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST(LoopSetFade, RowsAboveFourAreIgnored) {
    Instrument i;
    LoopSetFade(i.s, kMasterRow, FadeCommand::Down);
    LoopSetFade(i.s, 9, FadeCommand::Down);
    EXPECT_THAT(Fading(i), IsEmpty());
}

TEST(FadeGrouping, ARowByItselfItsBandOrTheControlledRows) {
    for (const bool toLevel : {false, true}) {
        SCOPED_TRACE(toLevel);
        const auto command = [toLevel](Instrument& i, Row row, std::int16_t band) {
            if (toLevel) {
                LoopFadeTo(i.s, row, 100, band);
            } else {
                LoopSetFadeGang(i.s, row, FadeCommand::Down, band);
            }
            return Fading(i);
        };
        Instrument alone;
        alone.Select(0);
        EXPECT_THAT(command(alone, 2, kOwnBand), ElementsAre(2));
        Instrument banded;
        banded.MakeBand(3, 1, 2);
        EXPECT_THAT(command(banded, 1, kOwnBand), ElementsAre(1, 2));
        Instrument named;
        named.MakeBand(3, 1, 2);
        EXPECT_THAT(command(named, 0, 3), ElementsAre(1, 2));
        Instrument selected;
        selected.Select(0);
        selected.Select(3);
        EXPECT_THAT(command(selected, kSelectionRow, kOwnBand), ElementsAre(0, 3));
        Instrument empty;
        EXPECT_THAT(command(empty, 0, 4), IsEmpty());
        Instrument master;
        EXPECT_THAT(command(master, kMasterRow, kOwnBand), IsEmpty());
    }
}

TEST(FadeGrouping, OnTheMasterANamedBandTakesAFadeToALevelButNoCommand) {
    Instrument i;
    LoopSetFadeGang(i.s, kMasterRow, FadeCommand::Down, 0);
    EXPECT_THAT(Fading(i), IsEmpty());
    LoopFadeTo(i.s, kMasterRow, 100, 0);
    EXPECT_THAT(Fading(i), ElementsAre(0, 1, 2, 3));
}

TEST(LoopFadeTo, FallsFromAboveAndRisesFromBelowOrFromTheSameLevel) {
    Instrument i;
    i.s.Set[0].Vol = 301;
    i.s.Set[1].Vol = 299;
    i.s.Set[2].Vol = 300;
    for (Row row = 0; row < 3; ++row) LoopFadeTo(i.s, row, 300, kOwnBand);
    Expect(i, 0, kFalling, 301, 300);
    Expect(i, 1, kRising, 299, 300);
    Expect(i, 2, kRising, 300, 300);
}

TEST(LoopFadeTo, KeepsTheMarkOnlyOnASingleRow) {
    Instrument i;
    LoopFadeTo(i.s, 0, 100, kOwnBand);
    EXPECT_EQ(i.s.Run[0].FadeToMark, True);
    i.Select(0);
    LoopFadeTo(i.s, kSelectionRow, 100, kOwnBand);
    EXPECT_EQ(i.s.Run[0].FadeToMark, False);
    LoopFadeTo(i.s, 0, 100, kOwnBand);
    i.MakeBand(1, 0, 1);
    LoopFadeTo(i.s, 0, 100, kOwnBand);
    EXPECT_EQ(i.s.Run[0].FadeToMark, False);
}

TEST(StepFades, ATickOfAThousandMillisecondsAtSpeedTwoMovesTheLevelByTwoHundred) {
    Instrument i;
    Sounding(i, 0, 500);
    LoopSetFade(i.s, 0, FadeCommand::Down);
    StepFades(i.s, 1000);
    EXPECT_EQ(i.s.Set[0].Vol, 300);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetVolume b0 -1194"));
}

TEST(StepFades, AWholeFadeAtTheDefaultSpeedTakesTwoAndAHalfSeconds) {
    Instrument i;
    Sounding(i, 0, 500);
    LoopSetFade(i.s, 0, FadeCommand::Down);
    int ticks = 0;
    while (i.s.Run[0].FadeState != kNoFade) {
        ASSERT_LT(ticks, 1000);
        StepFades(i.s, 40);
        ++ticks;
        EXPECT_EQ(i.s.Set[0].Vol, std::max(0, 500 - 8 * ticks));
    }
    EXPECT_EQ(ticks, 63);  // the first multiple of 40 that is not below 2500
}

TEST(StepFades, TheSettingIsTheLevelRoundedDownAndTheFractionIsKept) {
    Instrument i;
    Sounding(i, 0, 500);
    i.s.FadeStep = 0.125;
    LoopSetFade(i.s, 0, FadeCommand::Down);
    StepFades(i.s, 10);
    EXPECT_EQ(i.s.Set[0].Vol, 499);
    EXPECT_DOUBLE_EQ(i.s.Run[0].FadeValue, 499.875);
    StepFades(i.s, 70);
    EXPECT_EQ(i.s.Set[0].Vol, 499);
    StepFades(i.s, 10);
    EXPECT_EQ(i.s.Set[0].Vol, 498);
    EXPECT_EQ(i.Screen.Count("ShowKnob 0 Vol"), 3);
}

TEST(StepFades, TogglingAStoppedRowAtSilenceStartsItAtOnceSilentAndRisesToFull) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Vol = 0;
    LoopSetFadeGang(i.s, 0, FadeCommand::Toggle, kOwnBand);
    StepFades(i.s, 0);
    EXPECT_NE(i.s.Run[0].Playing, False);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetCurrentPosition b0 0", "Play b0 1", "SetVolume b0 -10000"));
    EXPECT_EQ(i.s.ThinList, "A");
    StepFades(i.s, 2499);
    EXPECT_EQ(i.s.Set[0].Vol, 499);
    StepFades(i.s, 40);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_NE(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.Sound.Count("Play "), 1);
}

TEST(StepFades, TogglingAPlayingRowAtFullFallsStopsAndTheNextToggleRisesAgain) {
    Instrument i;
    Sounding(i, 0, 500);
    LoopSetFadeGang(i.s, 0, FadeCommand::Toggle, kOwnBand);
    StepFades(i.s, 2500);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.Sound.Count("Stop "), 1);
    EXPECT_EQ(i.s.Set[0].Vol, 0);
    EXPECT_EQ(i.s.ThinList, "");
    EXPECT_EQ(i.Buffer(0).Volume, -10000);
    LoopSetFadeGang(i.s, 0, FadeCommand::Toggle, kOwnBand);
    EXPECT_EQ(i.s.Run[0].FadeState, kRising);
    StepFades(i.s, 2500);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    EXPECT_NE(i.s.Run[0].Playing, False);
}

TEST(StepFades, TogglingDuringAFallReversesItAndRisesToFull) {
    Instrument i;
    Sounding(i, 0, 400);
    LoopSetFade(i.s, 0, FadeCommand::Toggle);
    StepFades(i.s, 500);
    EXPECT_EQ(i.s.Set[0].Vol, 300);
    LoopSetFade(i.s, 0, FadeCommand::Toggle);
    StepFades(i.s, 500);
    EXPECT_EQ(i.s.Set[0].Vol, 400);
    StepFades(i.s, 500);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
}

TEST(StepFades, AFadeToThreeHundredEndsThereAndTheRowKeepsPlaying) {
    for (const std::int16_t from : std::initializer_list<std::int16_t>{100, 500}) {
        Instrument i;
        Sounding(i, 0, from);
        LoopFadeTo(i.s, 0, 300, kOwnBand);
        StepFades(i.s, 5000);
        EXPECT_EQ(i.s.Set[0].Vol, 300);
        EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
        EXPECT_NE(i.s.Run[0].Playing, False);
        EXPECT_EQ(i.Sound.Count("Stop "), 0);
    }
}

TEST(StepFades, ARisingFadeDoesNotRestartARowThatPlays) {
    Instrument i;
    Sounding(i, 0, 100);
    LoopSetFade(i.s, 0, FadeCommand::Up);
    StepFades(i.s, 40);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetVolume b0 -2346"));
}

TEST(StepFades, ARisingFadeWithoutASampleStillTurnsTheKnob) {
    Instrument i;
    i.s.Set[0].Vol = 100;
    LoopSetFade(i.s, 0, FadeCommand::Up);
    StepFades(i.s, 40);
    EXPECT_EQ(i.s.Set[0].Vol, 108);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(StepFades, AFadeToSilenceEndsInAStop) {
    Instrument i;
    Sounding(i, 0, 200);
    LoopFadeTo(i.s, 0, 0, kOwnBand);
    StepFades(i.s, 1000);
    EXPECT_EQ(i.s.Set[0].Vol, 0);
    EXPECT_EQ(i.s.Run[0].Playing, False);
}

TEST(StepFades, AFadeToTheLevelThatIsSetEndsAtTheNextTick) {
    Instrument i;
    Sounding(i, 0, 250);
    LoopFadeTo(i.s, 0, 250, kOwnBand);
    StepFades(i.s, 40);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_EQ(i.s.Set[0].Vol, 250);
}

TEST(StepFades, WithoutAMarkTheLineFollowsTheLevel) {
    Instrument i;
    Sounding(i, 0, 500);
    LoopSetFade(i.s, 0, FadeCommand::Down);
    StepFades(i.s, 100);
    EXPECT_EQ(i.s.SndDisp[0].Level, 480);
    EXPECT_EQ(i.s.SndDisp[0].Line, 480);
}

TEST(StepFades, AFadeToAMarkLeavesTheMarkUntilTheEndAndTheLineATickShortOfIt) {
    for (const std::int16_t target : std::initializer_list<std::int16_t>{100, 460, 0}) {
        SCOPED_TRACE(target);
        const std::int16_t from = target == 460 ? 401 : 150;
        Instrument i;
        Sounding(i, 0, from);
        i.s.SndDisp[0].Line = target;
        LoopFadeTo(i.s, 0, target, kOwnBand);
        std::int16_t before = from;
        while (i.s.Run[0].FadeState != kNoFade) {
            EXPECT_EQ(i.s.SndDisp[0].Line, target);
            before = i.s.Set[0].Vol;
            StepFades(i.s, 40);
            EXPECT_EQ(i.s.SndDisp[0].Level, i.s.Set[0].Vol);
        }
        EXPECT_EQ(i.s.Set[0].Vol, target);
        EXPECT_NE(before, target);
        EXPECT_EQ(i.s.SndDisp[0].Line, before);
    }
}

TEST(StepFades, RowsWithoutAFadeAreSkipped) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) Sounding(i, row, 400);
    LoopSetFade(i.s, 2, FadeCommand::Down);
    i.Sound.Log.clear();
    i.Screen.Log.clear();
    StepFades(i.s, 40);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetVolume b2 -642"));
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowKnob 2 Vol", "ShowSoundDisplay 2"));
}

TEST(StepFades, TheSelectionRowAndTheMasterDoNotFade) {
    Instrument i;
    LoopSetFade(i.s, kSelectionRow, FadeCommand::Down);
    i.s.Run[kMasterRow].FadeState = kFalling;
    StepFades(i.s, 1000);
    EXPECT_EQ(i.s.Set[kSelectionRow].Vol, 500);
    EXPECT_EQ(i.s.Set[kMasterRow].Vol, 500);
}

TEST(StepFades, AppliesRowByRowWithoutTheGang) {
    Instrument i;
    i.MakeBand(1, 0, 3);
    LoopSetFade(i.s, 1, FadeCommand::Down);
    StepFades(i.s, 1000);
    EXPECT_EQ(i.s.Set[1].Vol, 300);
    EXPECT_EQ(i.s.Set[0].Vol, 500);
    EXPECT_EQ(i.s.Set[2].Vol, 500);
}

TEST(StepFades, ARisingFadeMayStopAnotherFadingRowThroughThinning) {
    Instrument i;
    i.s.Limit = 1;
    Sounding(i, 1, 400);
    i.Fill(0);
    i.s.Set[0].Vol = 0;
    LoopSetFade(i.s, 1, FadeCommand::Down);
    LoopSetFade(i.s, 0, FadeCommand::Up);
    StepFades(i.s, 100);
    EXPECT_EQ(i.s.Set[0].Vol, 20);
    EXPECT_NE(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[1].Playing, False);
    EXPECT_EQ(i.s.Run[1].FadeState, kNoFade);
    EXPECT_EQ(i.s.Set[1].Vol, 400);
}

TEST(StepFades, AStopEndsAFadeAtOnce) {
    Instrument i;
    Sounding(i, 0, 400);
    LoopSetFade(i.s, 0, FadeCommand::Down);
    LoopStop(i.s, 0);
    StepFades(i.s, 1000);
    EXPECT_EQ(i.s.Set[0].Vol, 400);
}

TEST(FadeFactor, TheGaugeSetsTheSpeedAndAFadeUnderWayFollowsAtOnce) {
    Instrument i;
    Sounding(i, 0, 500);
    LoopSetFade(i.s, 0, FadeCommand::Down);
    StepFades(i.s, 100);
    FadeFactor_Change(i.s, 2000);
    EXPECT_DOUBLE_EQ(i.s.FadeStep, 4);
    EXPECT_EQ(i.Screen.Count("ShowFadeFactor"), 1);
    StepFades(i.s, 100);
    EXPECT_EQ(i.s.Set[0].Vol, 500 - 20 - 40);
}

TEST(FadeFactor, EveryPlaceOfTheGaugeComesBackFromTheSpeed) {
    Instrument i;
    EXPECT_EQ(FadeFactorGauge(i.s), 1000);
    for (std::int16_t value = 20; value <= 2000; ++value) {
        FadeFactor_Change(i.s, value);
        ASSERT_EQ(FadeFactorGauge(i.s), value);
        ASSERT_DOUBLE_EQ(i.s.FadeStep, value / 500.0);
    }
}

TEST(FadeFactor, ASpeedIsTruncatedToTheGaugeAndLimitedByIt) {
    struct Case {
        double Given;
        std::int16_t Gauge;
    };
    for (const Case& c : std::vector<Case>{{2, 1000},
                                           {1.9999, 999},
                                           {0.0419, 20},
                                           {0.04, 20},
                                           {0, 20},
                                           {-5, 20},
                                           {4, 2000},
                                           {4.1, 2000},
                                           {1e300, 2000}}) {
        Instrument i;
        SetFadeFactor(i.s, c.Given);
        EXPECT_EQ(FadeFactorGauge(i.s), c.Gauge) << c.Given;
        EXPECT_DOUBLE_EQ(i.s.FadeStep, c.Gauge / 500.0) << c.Given;
    }
}

TEST(FadeFactor, TwelvePlacesOfTheGaugeComeBackOneLowerFromAFile) {
    Instrument i;
    std::vector<int> lower;
    for (std::int16_t place = kFadeFactorLow; place <= kFadeFactorHigh; ++place) {
        FadeFactor_Change(i.s, place);
        SetFadeFactor(i.s, i.s.FadeStep);
        const int back = FadeFactorGauge(i.s);
        if (back != place) {
            EXPECT_EQ(back, place - 1);
            lower.push_back(place);
        }
    }
    EXPECT_THAT(lower, ElementsAre(1001, 1003, 1005, 1007, 1009, 1011, 1013, 1015, 1017, 1019, 1021, 1023));
}

TEST(StepFades, TheStartOfARisingFadeCountsAsRequested) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Vol = 0;
    LoopSetFade(i.s, 0, FadeCommand::Up);
    StepFades(i.s, 40);
    EXPECT_EQ(i.s.Run[0].PlayRequest, True);
}

TEST(StepFades, AStartThatFailsShowsOneBoxAndEndsTheFade) {
    Instrument i;
    i.Fill(0);
    i.Fill(1);
    i.s.Set[0].Vol = 30;
    i.s.SndDisp[0].Line = 200;
    LoopSetFade(i.s, 0, FadeCommand::Up);
    LoopSetFade(i.s, 1, FadeCommand::Down);
    i.Sound.Failures["Play"] = sound_error::kBufferLost;
    for (int tick = 0; tick < 20; ++tick) StepFades(i.s, 40);
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.LastBox(), "Error playing loop: The buffer memory has been lost and must be restored.");
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_EQ(i.s.Set[0].Vol, 30);
    EXPECT_EQ(i.s.SndDisp[0].Line, 30);
    EXPECT_EQ(i.s.Set[1].Vol, 340);
}

TEST(StepFades, AFadeOfAnEmptyRowRunsOnWithoutAStart) {
    Instrument i;
    i.s.Set[0].Vol = 0;
    LoopSetFade(i.s, 0, FadeCommand::Up);
    StepFades(i.s, 40);
    EXPECT_EQ(i.s.Set[0].Vol, 8);
    EXPECT_EQ(i.s.Run[0].FadeState, kRising);
}

TEST(StepFades, AVolumePatternThatOverflowsShowsOneBoxAndTheFadeGoesOn) {
    Instrument i;
    Sounding(i, 0, 500);
    i.s.Set[0].PlayMode = kTrack;
    for (int step = 0; step < kPatternSteps; ++step) i.s.Set[0].Pattern[kVolPattern][step] = 32767;
    i.s.Set[0].Pattern[kVolPattern][kPatternOffset] = 32767;
    i.Chance.Rest = 0.9;
    LoopSetFade(i.s, 0, FadeCommand::Down);
    for (int tick = 0; tick < 10; ++tick) StepFades(i.s, 40);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.s.Set[0].Vol, 420);
    EXPECT_EQ(i.s.Run[0].Playing, True);
}

}  // namespace
}  // namespace marvolin
