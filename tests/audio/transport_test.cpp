#include "audio/transport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/loop_clearing.h"
#include "audio/play_commands.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;

TEST(StartPosition, OnlyDrumModeStartsAtTheBeatStart) {
    Instrument i;
    i.Fill(0);
    i.s.Run[0].BeatStartBytes = 4000;
    for (const std::int16_t mode : {kOneShot, kLoop, kTrack}) {
        i.s.Set[0].PlayMode = mode;
        EXPECT_EQ(StartPosition(i.s, 0), 0) << mode;
    }
    i.s.Set[0].PlayMode = kDrum;
    EXPECT_EQ(StartPosition(i.s, 0), 4000);
}

TEST(StartPosition, LeavesThirtyTwoBytesBeforeTheEnd) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kDrum;
    i.s.Run[0].BeatStartBytes = 176400;
    EXPECT_EQ(StartPosition(i.s, 0), 176400 - 32);
    i.s.Set[0].BufferBytes = 20;  // shorter than the margin: the lower limit wins
    EXPECT_EQ(StartPosition(i.s, 0), 0);
}

TEST(Transport, AReadyRowIsPositionedThenPlayed) {
    for (const auto& [mode, flags] : {std::pair{kOneShot, "0"}, {kLoop, "1"}, {kTrack, "1"}, {kDrum, "0"}}) {
        SCOPED_TRACE(mode);
        Instrument i;
        i.Fill(0);
        i.s.Set[0].PlayMode = mode;
        i.s.Run[0].BeatStartBytes = 1000;
        LoopPlay(i.s, 0, true);
        EXPECT_THAT(i.Sound.Log, ElementsAre(mode == kDrum ? "SetCurrentPosition b0 1000" : "SetCurrentPosition b0 0",
                                             std::string("Play b0 ") + flags));
        EXPECT_EQ(i.s.Run[0].Playing, True);
        EXPECT_EQ(i.s.Run[0].PlayRequest, True);
        EXPECT_EQ(i.s.ThinList, "A");
        EXPECT_EQ(i.Screen.Count("ShowPlay 0"), 1);
    }
}

TEST(Transport, PlayingASoundingRowJumpsBackWithoutASecondListEntry) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, false);
    i.s.Run[0].Playing = False;  // even when the flag says otherwise, the status word decides
    i.Sound.Log.clear();
    LoopPlay(i.s, 0, true);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetCurrentPosition b0 0"));
    EXPECT_EQ(i.s.ThinList, "A");
    EXPECT_EQ(i.s.Run[0].PlayRequest, False);
    EXPECT_EQ(i.s.Run[0].Playing, False);
}

TEST(Transport, AStartLeavesTheStepAndItsTime) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    i.s.Run[0].Step = 2;
    i.s.Run[0].StepElapsed = 70;
    LoopPlay(i.s, 0, true);
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.s.Run[0].Step, 2);
    EXPECT_EQ(i.s.Run[0].StepElapsed, 70);
}

TEST(Transport, EitherBitOfTheStatusWordCountsAsSounding) {
    for (const std::int32_t status : {1, 4, 5}) {
        Instrument i;
        i.Fill(0).Status = status;
        LoopPlay(i.s, 0, true);
        EXPECT_EQ(i.Sound.Count("Play"), 0) << status;
    }
    Instrument i;
    i.Fill(0).Status = 2;
    LoopPlay(i.s, 0, true);
    EXPECT_EQ(i.Sound.Count("Play"), 1);
}

TEST(Transport, InLoopModeTheBeatStartHasNoEffectAtAll) {
    Instrument i;
    i.Fill(0);
    i.s.Run[0].BeatStartBytes = 5000;
    LoopPlay(i.s, 0, true);
    EXPECT_EQ(i.Buffer(0).Position, 0);
}

TEST(Transport, PlayingASelectedRowMarksRowFourAsPlaying) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    i.Select(0);
    LoopPlay(i.s, 0, true);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 1);
}

TEST(Transport, AnEmptySelectedRowStillMarksRowFourAndNothingElse) {
    Instrument i;
    i.Select(1);
    LoopPlay(i.s, 1, true);
    EXPECT_EQ(i.s.Run[1].Playing, False);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(Transport, TheSelectedFlagMustBeExactlyMinusOne) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Selected = 1;
    LoopPlay(i.s, 0, true);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
}

TEST(Transport, LoopPlayOfRowFourDoesNothing) {
    Instrument i;
    i.Fill(0);
    i.Select(0);
    i.Select(kSelectionRow);
    LoopPlay(i.s, kSelectionRow, true);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(Transport, AFailedStartShowsAMessageAndLeavesTheFlagsUnchanged) {
    for (const char* step : {"GetStatus", "SetCurrentPosition", "Play"}) {
        SCOPED_TRACE(step);
        Instrument i;
        i.Fill(0);
        i.Select(0);
        i.Sound.Failures[step] = sound_error::kBufferLost;
        LoopPlay(i.s, 0, true);
        EXPECT_EQ(i.Desk.LastBox(), "Error playing loop: The buffer memory has been lost and must be restored.");
        EXPECT_EQ(i.Desk.Boxes.size(), 1U);
        EXPECT_EQ(i.s.Run[0].Playing, False);
        EXPECT_EQ(i.s.ThinList, "");
        EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    }
}

TEST(Transport, StoppingSendsThePlainValuesThenStopsAndGoesBackToTheStart) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    LoopTrackRun& run = i.s.Run[0];
    run.FadeState = kRising;
    run.Step = 2;
    run.StepElapsed = 30;
    run.StepDue = True;
    i.Sound.Log.clear();
    i.Screen.Log.clear();
    LoopStop(i.s, 0);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetFrequency b0 44100", "SetPan b0 0", "SetVolume b0 0", "Stop b0",
                                         "SetCurrentPosition b0 0"));
    EXPECT_EQ(run.Playing, False);
    EXPECT_EQ(run.FadeState, kNoFade);
    EXPECT_EQ(run.Step, 0);
    EXPECT_EQ(run.StepElapsed, 0);
    EXPECT_EQ(run.PlayRequest, 0);
    EXPECT_EQ(run.StepDue, False);
    EXPECT_EQ(i.s.ThinList, "");
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowPlay 0", "ShowPlay 4"));
}

TEST(Transport, TheFrequencyThatAStopSendsIsThatOfStepZero) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    i.s.Set[0].Pattern[kHzPattern][0] = 500;
    i.s.Set[0].Pattern[kHzPattern][2] = 2000;
    i.s.Run[0].Step = 2;
    LoopStop(i.s, 0);
    EXPECT_EQ(i.Sound.Log[0], "SetFrequency b0 22050");
}

TEST(Transport, ABufferWithoutPanControlIsStoppedWithoutAPan) {
    Instrument i;
    i.s.Use3D = true;
    i.Fill(0);
    i.s.Use3D = false;  // the buffer is still of the other kind
    LoopStop(i.s, 0);
    EXPECT_EQ(i.Sound.Count("SetPan"), 0);
    EXPECT_EQ(i.Sound.Count("Stop"), 1);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(Transport, AStopReachesOnlyLoadedRowsOfSound) {
    Instrument i;
    for (const Row row : std::initializer_list<Row>{0, 4, 5, 6, -1}) LoopStop(i.s, row);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Screen.Log.empty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(Transport, AFailedStopShowsAMessageAndTheRowStillCountsAsPlaying) {
    for (const char* step : {"GetCaps", "Stop", "SetCurrentPosition"}) {
        SCOPED_TRACE(step);
        Instrument i;
        i.Fill(0);
        LoopPlay(i.s, 0, true);
        i.Sound.Failures[step] = sound_error::kGeneric;
        LoopStop(i.s, 0);
        EXPECT_EQ(i.Desk.LastBox(),
                  "Error stopping loop: An undetermined error occurred inside the DirectSound subsystem.");
        EXPECT_EQ(i.s.Run[0].Playing, True);
        EXPECT_EQ(i.s.ThinList, "A");
    }
}

TEST(Transport, ABoxOfAStopMayEmptyTheRowOrExchangeItsBuffer) {
    for (const bool refilled : {false, true}) {
        Instrument i;
        i.Fill(0);
        LoopPlay(i.s, 0, true);
        i.Sound.Failures["SetFrequency"] = sound_error::kGeneric;
        i.Desk.WhenReported = [&] {
            i.Desk.WhenReported = nullptr;
            i.Sound.Failures.clear();
            LoopClear(i.s, 0);
            if (refilled) i.Fill(0);
        };
        LoopStop(i.s, 0);
        EXPECT_EQ(i.Desk.Boxes.size(), 1U);
        EXPECT_EQ(i.s.Run[0].Playing, False);
        EXPECT_EQ(i.Sound.Count("Stop"), 1);
    }
}

TEST(LoopRefreshAny, RowFourPlaysWhenAnyControlledRowDoes) {
    Instrument i;
    i.Select(1);
    i.s.Run[0].Playing = True;
    LoopRefreshAny(i.s);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    i.s.Run[1].Playing = 1;  // only -1 counts
    LoopRefreshAny(i.s);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    i.s.Run[1].Playing = True;
    LoopRefreshAny(i.s);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 3);
}

// The table of states.

TEST(TransportStates, SoundingPausedAndResumedKeepsThePlace) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    i.Buffer(0).Position = 777;
    i.Sound.Log.clear();
    LoopPlayCommand(i.s, 0, PlayCommand::Pause);
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.s.Run[0].Paused, True);
    LoopPlayCommand(i.s, 0, PlayCommand::Resume);
    EXPECT_THAT(i.Sound.Log, ElementsAre("Stop b0", "Play b0 1"));
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.s.Run[0].Paused, False);
    EXPECT_EQ(i.Buffer(0).Position, 777);
}

TEST(TransportStates, AStoppedPausedRowStaysPausedAndTheNextResumeStartsItWhilePlayingStaysFalse) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    LoopPlayCommand(i.s, 0, PlayCommand::Pause);
    LoopStop(i.s, 0);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[0].Paused, True);
    LoopPlayCommand(i.s, 0, PlayCommand::Resume);
    EXPECT_EQ(i.Buffer(0).Status, 5);
    EXPECT_EQ(i.Buffer(0).Position, 0);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[0].Paused, False);
}

}  // namespace
}  // namespace marvolin
