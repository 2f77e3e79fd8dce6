#include "sequencing/loop_clock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using testing::ElementsAre;
using testing::IsEmpty;

class LoopClock : public testing::Test {
protected:
    Instrument i;
    /// A sounding row in `mode` whose steps last `stepDuration` hundredths.
    LoopTrackRun& Sounding(Row row, std::int16_t mode, std::int32_t stepDuration = 10) {
        test::FakeSound::Buffer& buffer = i.Fill(row);
        buffer.Status = buffer_status::kPlaying + (mode == kLoop || mode == kTrack ? buffer_status::kLooping : 0);
        i.s.Set[row].PlayMode = mode;
        i.s.Set[row].StepDuration = stepDuration;
        i.s.Run[row].Playing = True;
        return i.s.Run[row];
    }
    /// Ticks until the row's step changes, at most `limit`.
    int TicksToTheNextStep(Row row, std::int32_t milliseconds, int limit = 1000) {
        const std::int16_t before = i.s.Run[row].Step;
        int ticks = 0;
        while (ticks < limit && i.s.Run[row].Step == before) {
            LoopTimer_Timer(i.s, milliseconds);
            ++ticks;
        }
        return ticks;
    }
};

TEST_F(LoopClock, StepsComeEvery100MsExactlyAtTheTenthTickWithoutSwing) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    for (int step = 1; step <= 8; ++step) {
        EXPECT_EQ(TicksToTheNextStep(0, 10), 10);
        EXPECT_EQ(run.Step, step % 4);
        EXPECT_EQ(run.StepElapsed, 0);
        EXPECT_EQ(run.StepDue, False);
    }
}

TEST_F(LoopClock, TheRemainderIsDroppedSoThatALateTickStretchesTheStep) {
    Sounding(0, kTrack, 10);
    EXPECT_EQ(TicksToTheNextStep(0, 15), 7);  // 105 ms
    EXPECT_EQ(i.s.Run[0].StepElapsed, 0);
    EXPECT_EQ(TicksToTheNextStep(0, 15), 7);
}

TEST_F(LoopClock, ALongStallGivesOneStepNotSeveral) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    LoopTimer_Timer(i.s, 1000);
    EXPECT_EQ(run.Step, 1);
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Step, 1);
}

TEST_F(LoopClock, WithSwingAsLongAsTheStepAStepCanFallDueAtTheFirstTickAfterThePreviousOne) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    i.s.Set[0].Swing = 10;
    i.s.Set[0].Pattern[kHzPattern][kPatternOffset] = 0;
    i.Chance.Rest = 0.9999;  // + 100 ms
    EXPECT_EQ(TicksToTheNextStep(0, 10), 1);
    EXPECT_EQ(TicksToTheNextStep(0, 10), 1);
    EXPECT_EQ(run.Step, 2);
    i.Chance.Rest = 0;  // - 100 ms
    EXPECT_EQ(TicksToTheNextStep(0, 10), 20);
}

TEST_F(LoopClock, ANewJitterIsDrawnAtEveryTick) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    i.s.Set[0].Swing = 2;
    // 41 values from -20 to +20 around 10, 20, .. ms: only the last one reaches 100.
    i.Chance.Sequence = {0.0, 0.99, 0.5, 0.99, 0.0, 0.99, 0.5};
    for (int tick = 0; tick < 7; ++tick) LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.Chance.Draws, 7);
    EXPECT_EQ(run.Step, 0);
    i.Chance.Sequence = {0.99};  // 80 + 20
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Step, 1);
    EXPECT_EQ(run.StepElapsed, 0);
}

TEST_F(LoopClock, WithoutSwingNoJitterIsDrawn) {
    Sounding(0, kTrack, 10);
    for (int tick = 0; tick < 9; ++tick) LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.Chance.Draws, 0);
}

TEST_F(LoopClock, AStepOfNoLengthFromAFileGivesAStepAtEveryTick) {
    LoopTrackRun& run = Sounding(0, kTrack, 0);
    for (int tick = 1; tick <= 3; ++tick) {
        LoopTimer_Timer(i.s, 1);
        EXPECT_EQ(run.Step, tick);
    }
}

TEST_F(LoopClock, ValuesFromAFileThatExceed32BitsDoNotStopTheTick) {
    LoopTrackRun& run = Sounding(0, kTrack, 2'000'000'000);
    i.s.Set[0].Swing = 2'000'000'000;
    run.StepElapsed = 2'147'483'000;
    LoopTimer_Timer(i.s, 1000);
    EXPECT_EQ(run.StepElapsed, 2'147'483'647);
    i.s.Set[0].Swing = -2'000'000'000;
    i.Chance.Rest = 0.999999;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Step, 0);
}

TEST_F(LoopClock, PausingStopsTheStepsAndTheyGoOnFromTheSameElapsedTime) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    for (int tick = 0; tick < 6; ++tick) LoopTimer_Timer(i.s, 10);
    run.Paused = True;
    for (int tick = 0; tick < 50; ++tick) LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.StepElapsed, 60);
    EXPECT_EQ(run.Step, 0);
    run.Paused = False;
    EXPECT_EQ(TicksToTheNextStep(0, 10), 4);
}

TEST_F(LoopClock, AStepThatFellDueBeforeAPauseWaitsForTheResume) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    run.StepDue = True;
    run.Paused = True;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Step, 0);
    EXPECT_EQ(run.StepDue, True);
    run.Paused = False;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Step, 1);
}

TEST_F(LoopClock, OneShotAndLoopHaveNoSteps) {
    Sounding(0, kOneShot, 1);
    Sounding(1, kLoop, 1);
    for (int tick = 0; tick < 10; ++tick) LoopTimer_Timer(i.s, 100);
    for (Row row : {Row{0}, Row{1}}) {
        EXPECT_EQ(i.s.Run[row].Step, 0);
        EXPECT_EQ(i.s.Run[row].StepElapsed, 0);
    }
}

TEST_F(LoopClock, AStoppedRowCountsNothing) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    run.Playing = False;
    LoopTimer_Timer(i.s, 90);
    EXPECT_EQ(run.StepElapsed, 0);
}

TEST_F(LoopClock, AStepThatFellDueOnARowThatNoLongerPlaysIsNotTaken) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    i.Sound.Log.clear();
    run.Playing = False;
    run.StepDue = True;
    LoopStep(i.s, 0);
    EXPECT_EQ(run.Step, 0);
    EXPECT_EQ(run.StepDue, True);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST_F(LoopClock, LoweringNStepsBelowTheCurrentStepIsHarmlessTheNextStepWraps) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    i.s.Set[0].NSteps = 31;
    run.Step = 20;
    i.s.Set[0].NSteps = 2;
    TicksToTheNextStep(0, 10);
    EXPECT_EQ(run.Step, 0);
}

TEST_F(LoopClock, AStepAppliesVolumeFrequencyAndPanInThisOrderAndDoesNotRestartATrackSample) {
    Sounding(0, kTrack, 10);
    i.Sound.Log.clear();
    LoopTimer_Timer(i.s, 100);
    ASSERT_EQ(i.Sound.Log.size(), 3U);
    EXPECT_TRUE(i.Sound.Log[0].starts_with("SetVolume b0"));
    EXPECT_TRUE(i.Sound.Log[1].starts_with("SetFrequency b0"));
    EXPECT_TRUE(i.Sound.Log[2].starts_with("SetPan b0"));
}

TEST_F(LoopClock, ADrumThatStillSoundsOnlyJumpsToItsStart) {
    for (const std::int32_t status :
         {buffer_status::kPlaying, buffer_status::kLooping, buffer_status::kPlaying + buffer_status::kLooping}) {
        SCOPED_TRACE(status);
        Instrument one;
        test::FakeSound::Buffer& buffer = one.Fill(0);
        buffer.Status = status;
        one.s.Set[0].PlayMode = kDrum;
        one.s.Run[0].Playing = True;
        one.s.Run[0].StepDue = True;
        one.s.Run[0].BeatStartBytes = 4000;
        LoopStep(one.s, 0);
        EXPECT_EQ(one.Sound.Log.front(), "SetCurrentPosition b0 4000");
        EXPECT_EQ(one.Sound.Count("Play"), 0);
        EXPECT_EQ(one.Sound.Count("SetVolume"), 1);
    }
}

TEST_F(LoopClock, ADrumThatHasRunOutIsPlayedAgainWithoutLooping) {
    LoopTrackRun& run = Sounding(0, kDrum, 10);
    i.Buffer(0).Status = 0;
    run.BeatStartBytes = 4000;
    LoopTimer_Timer(i.s, 100);
    EXPECT_EQ(i.Sound.Log[0], "SetCurrentPosition b0 4000");
    EXPECT_EQ(i.Sound.Log[1], "Play b0 0");
    EXPECT_TRUE(i.Sound.Log[2].starts_with("SetVolume b0"));
}

TEST_F(LoopClock, ADrumStartsAtMost32BytesBeforeTheEndAndNeverBeforeTheBeginning) {
    struct Case {
        std::int32_t BeatStartBytes;
        std::int32_t BufferBytes;
        std::string Position;
    };
    for (const Case& c : {Case{176400, 176400, "176368"}, Case{176368, 176400, "176368"},
                          Case{176367, 176400, "176367"}, Case{-8, 176400, "0"}, Case{100, 16, "0"}}) {
        SCOPED_TRACE(c.Position);
        Instrument one;
        one.Fill(0);
        one.s.Set[0].PlayMode = kDrum;
        one.s.Set[0].BufferBytes = c.BufferBytes;
        one.s.Run[0].Playing = True;
        one.s.Run[0].StepDue = True;
        one.s.Run[0].BeatStartBytes = c.BeatStartBytes;
        LoopStep(one.s, 0);
        EXPECT_EQ(one.Sound.Log.front(), "SetCurrentPosition b0 " + c.Position);
    }
}

TEST_F(LoopClock, ADrumOfOneStepStaysAtStep0AndRestartsAtEachStep) {
    LoopTrackRun& run = Sounding(0, kDrum, 10);
    i.s.Set[0].NSteps = 0;
    for (int step = 1; step <= 3; ++step) {
        LoopTimer_Timer(i.s, 100);
        EXPECT_EQ(run.Step, 0);
        EXPECT_EQ(i.Sound.Count("SetCurrentPosition"), step);
    }
}

TEST_F(LoopClock, ADrumAlsoRestartsAtTheWrapFromTheLastStep) {
    LoopTrackRun& run = Sounding(0, kDrum, 10);
    run.Step = 3;
    LoopTimer_Timer(i.s, 100);
    EXPECT_EQ(run.Step, 0);
    EXPECT_EQ(i.Sound.Count("SetCurrentPosition"), 1);
}

TEST_F(LoopClock, AllRowsThatAreDueInOneTickAreTimedBeforeAnyIsStepped) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        Sounding(row, kDrum, 10);
        i.s.Set[row].Swing = 1;
        i.s.Set[row].Pattern[kHzPattern][kPatternOffset] = 0;
    }
    i.Sound.Log.clear();
    // The jitter of all four rows is drawn first, then the random parts of the steps.
    i.Sound.Failures["SetCurrentPosition"] = sound_error::kGeneric;
    EXPECT_THROW(LoopTimer_Timer(i.s, 200), SoundError);
    EXPECT_EQ(i.Chance.Draws, 4);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(i.s.Run[row].StepDue, True);
}

TEST_F(LoopClock, FailuresOfTheDrumRestartRiseAndAreNotReported) {
    for (const char* operation : {"GetStatus", "SetCurrentPosition", "Play"}) {
        SCOPED_TRACE(operation);
        Instrument one;
        one.Fill(0);
        one.s.Set[0].PlayMode = kDrum;
        one.s.Run[0].Playing = True;
        one.s.Run[0].StepDue = True;
        one.Sound.Failures[operation] = sound_error::kBufferLost;
        EXPECT_THROW(LoopStep(one.s, 0), SoundError);
        EXPECT_THAT(one.Desk.Boxes, IsEmpty());
    }
}

TEST_F(LoopClock, AFailureOfTheMappingIsReportedAndTheTickGoesOn) {
    LoopTrackRun& run = Sounding(0, kTrack, 10);
    i.Sound.Failures["SetVolume"] = sound_error::kBufferLost;
    EXPECT_NO_THROW(LoopTimer_Timer(i.s, 100));
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(run.StepDue, False);
    EXPECT_FALSE(i.s.LoopTimerBusy);
}

TEST_F(LoopClock, TheMarkerMovesAtEachStepOfTheCurrentLoopOnThePatternTab) {
    Sounding(0, kTrack, 10);
    Sounding(1, kTrack, 10);
    LoopTimer_Timer(i.s, 100);
    EXPECT_EQ(i.Screen.Count("ShowStepMarker"), 0);
    i.s.ActiveTab = kPatternTab;
    LoopTimer_Timer(i.s, 100);
    EXPECT_EQ(i.Screen.Count("ShowStepMarker"), 1);
    i.s.CurrentLoop = 2;
    LoopTimer_Timer(i.s, 100);
    EXPECT_EQ(i.Screen.Count("ShowStepMarker"), 1);
}

TEST_F(LoopClock, AStepOfADrumIsShownBeforeTheSampleRestarts) {
    LoopTrackRun& run = Sounding(0, kDrum, 10);
    i.s.ActiveTab = kPatternTab;
    i.Sound.Failures["SetCurrentPosition"] = sound_error::kGeneric;
    run.StepDue = True;
    EXPECT_THROW(LoopStep(i.s, 0), SoundError);
    EXPECT_EQ(i.Screen.Count("ShowStepMarker"), 1);
    EXPECT_EQ(run.Step, 1);
}

TEST_F(LoopClock, AOneShotThatEndsIsNoticedWithinOneTickAndItsButtonChanges) {
    LoopTrackRun& run = Sounding(2, kOneShot);
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Playing, True);
    EXPECT_EQ(i.Screen.Count("ShowPlay 2"), 0);
    i.Buffer(2).Status = 0;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Playing, False);
    EXPECT_EQ(i.Screen.Count("ShowPlay 2"), 1);
}

TEST_F(LoopClock, AOneShotThatEndsKeepsItsPlaceInTheThinList) {
    LoopTrackRun& run = Sounding(2, kOneShot);
    i.s.ThinList = "CA";
    i.Buffer(2).Status = 0;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Playing, False);
    EXPECT_EQ(i.s.ThinList, "CA");
}

TEST_F(LoopClock, OnlyThePlayingBitDecidesWhetherAOneShotHasEnded) {
    LoopTrackRun& run = Sounding(0, kOneShot);
    i.Buffer(0).Status = buffer_status::kLooping;
    LoopPollEnd(i.s, 0);
    EXPECT_EQ(run.Playing, False);
}

TEST_F(LoopClock, APausedOneShotIsNotPolled) {
    LoopTrackRun& run = Sounding(0, kOneShot);
    i.Buffer(0).Status = 0;
    run.Paused = True;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(run.Playing, True);
}

TEST_F(LoopClock, AOneShotThatDoesNotPlayIsNotPolled) {
    LoopTrackRun& run = Sounding(0, kOneShot);
    run.Playing = False;
    i.Buffer(0).Status = 0;
    i.Sound.LogQueries = true;
    LoopPollEnd(i.s, 0);
    EXPECT_EQ(i.Sound.Count("GetStatus"), 0);
    EXPECT_EQ(i.Screen.Count("ShowPlay 0"), 0);
}

TEST_F(LoopClock, TheOtherModesNeverEndByThemselves) {
    for (const std::int16_t mode : {kLoop, kTrack, kDrum}) {
        Instrument one;
        one.Fill(0).Status = 0;
        one.s.Set[0].PlayMode = mode;
        one.s.Set[0].StepDuration = 1000;
        one.s.Run[0].Playing = True;
        one.Sound.LogQueries = true;
        LoopTimer_Timer(one.s, 10);
        EXPECT_EQ(one.s.Run[0].Playing, True) << mode;
        EXPECT_EQ(one.Sound.Count("GetStatus"), 0) << mode;
    }
}

TEST_F(LoopClock, AnEmptyRowIsNeitherPolledNorStepped) {
    LoopTrackRun& run = i.s.Run[0];
    i.s.Set[0].PlayMode = kOneShot;
    run.Playing = True;
    EXPECT_NO_THROW(LoopPollEnd(i.s, 0));
    EXPECT_EQ(run.Playing, True);
    i.s.Set[0].PlayMode = kDrum;
    run.StepDue = True;
    EXPECT_NO_THROW(LoopStep(i.s, 0));
    EXPECT_EQ(run.Step, 0);
}

TEST_F(LoopClock, TheSelectionsButtonFollowsWhetherAControlledRowPlays) {
    LoopTrackRun& run = Sounding(1, kLoop);
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False) << "row 1 is not controlled";
    i.Select(1);
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 1) << "shown only when it changes";
    run.Playing = False;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 2);
}

TEST_F(LoopClock, AOneShotThatEndsSwitchesTheSelectionsButtonOffInTheSameTick) {
    Sounding(1, kOneShot);
    i.Select(1);
    LoopTimer_Timer(i.s, 10);
    ASSERT_EQ(i.s.Run[kSelectionRow].Playing, True);
    i.Buffer(1).Status = 0;
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
}

TEST_F(LoopClock, AVolumePatternThatOverflowsShowsOneBoxAndThePlayGoesOn) {
    i.Fill(0);
    i.s.Set[0].PlayMode = kDrum;
    i.s.Set[0].StepDuration = 1;
    for (int step = 0; step < kPatternSteps; ++step) i.s.Set[0].Pattern[kVolPattern][step] = 32767;
    i.s.Set[0].Pattern[kVolPattern][kPatternOffset] = 32767;
    i.Chance.Rest = 0.9;
    LoopPlay(i.s, 0, true);
    for (int tick = 0; tick < 10; ++tick) LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.s.Run[0].Step, 10 % 4);
    EXPECT_EQ(i.s.Run[0].Playing, True);
}

}  // namespace
}  // namespace marvolin
