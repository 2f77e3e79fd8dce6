#include "audio/play_gestures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/play_commands.h"
#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PlayButton, TheLeftButtonPlaysAndStops) {
    Instrument i;
    i.Fill(0);
    Play_MouseDown(i.s, 0, kLeftButton);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    Play_MouseUp(i.s, 0, kLeftButton);
    EXPECT_EQ(i.s.Run[0].Playing, True);
    Play_MouseUp(i.s, 0, kLeftButton);
    EXPECT_EQ(i.s.Run[0].Playing, False);
}

TEST(PlayButton, ARightPressPausesAPlayingRowAndNoOther) {
    Instrument i;
    i.Fill(0);
    Play_MouseDown(i.s, 0, kRightButton);
    EXPECT_EQ(i.s.Run[0].Paused, False);
    LoopPlay(i.s, 0, true);
    Play_MouseDown(i.s, 0, kRightButton);
    EXPECT_EQ(i.s.Run[0].Paused, True);
    EXPECT_EQ(i.Buffer(0).Status, 0);
    i.s.Run[1].Playing = True;  // without a sample
    Play_MouseDown(i.s, 1, kRightButton);
    EXPECT_EQ(i.s.Run[1].Paused, False);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(PlayButton, AnyButtonResumesAPausedRow) {
    for (const std::int16_t button : {kLeftButton, kRightButton, kMiddleButton}) {
        Instrument i;
        i.Fill(0);
        LoopPlay(i.s, 0, true);
        LoopPlayCommand(i.s, 0, PlayCommand::Pause);
        Play_MouseUp(i.s, 0, button);
        EXPECT_EQ(i.s.Run[0].Paused, False) << button;
        EXPECT_EQ(i.Buffer(0).Status, 5);
        EXPECT_EQ(i.s.Run[0].Playing, True);
    }
}

TEST(PlayButton, OtherButtonsDoNothingToARowThatIsNotPaused) {
    Instrument i;
    i.Fill(0);
    Play_MouseUp(i.s, 0, kRightButton);
    Play_MouseUp(i.s, 0, kMiddleButton);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(PlayButton, ARowWithoutASampleIgnoresTheGesture) {
    Instrument i;
    i.Select(0);
    Play_MouseUp(i.s, 0, kLeftButton);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    i.s.Run[0].Paused = True;
    Play_MouseUp(i.s, 0, kLeftButton);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_EQ(i.s.Run[0].Paused, True);
}

TEST(PlayButton, TheButtonOfRowFourActsOnTheControlledRowsOnly) {
    Instrument i;
    i.Fill(0, "/0.WAV");
    i.Fill(1, "/1.WAV");
    i.Select(1);
    Play_MouseUp(i.s, kSelectionRow, kLeftButton);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    Play_MouseDown(i.s, kSelectionRow, kRightButton);
    EXPECT_EQ(i.s.Run[1].Paused, True);
    EXPECT_EQ(i.s.Run[kSelectionRow].Paused, True);
    Play_MouseUp(i.s, kSelectionRow, kRightButton);
    EXPECT_EQ(i.s.Run[1].Paused, False);
    Play_MouseUp(i.s, kSelectionRow, kLeftButton);
    EXPECT_EQ(i.s.Run[1].Playing, False);
}

TEST(PlayButton, OfALoopTrackThatStartsAtVolume0TheStatusLineSaysHowItIsHeardAgain) {
    Instrument i;
    i.Fill(0);
    i.Fill(1);
    i.s.Set[1].Vol = 0;
    Play_MouseUp(i.s, 0, kLeftButton);
    EXPECT_EQ(i.s.StatusText, "");
    Play_MouseUp(i.s, 1, kLeftButton);
    EXPECT_EQ(i.s.StatusText, "B plays at volume 0: Shift+B fades B in");
    i.s.StatusText.clear();
    Play_MouseUp(i.s, 1, kLeftButton);  // stops it
    EXPECT_EQ(i.s.StatusText, "");
}

TEST(PlayButton, SeveralSilentStartsAreToldTogether) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) {
        i.Fill(row);
        i.Select(row);
        i.s.Set[row].Vol = row == 0 ? 500 : 0;
    }
    Play_MouseUp(i.s, kSelectionRow, kLeftButton);
    EXPECT_EQ(i.s.StatusText, "B, C & D play at volume 0: Shift+B fades B in");
    StopAll(i.s);
    i.s.StatusText.clear();
    i.s.Set[1].Vol = 500;
    PlayStop_MouseUp(i.s, 0, 8);
    EXPECT_EQ(i.s.StatusText, "C & D play at volume 0: Shift+C fades C in");
    StopAll(i.s);
    i.s.StatusText.clear();
    PlayStop_Activate(i.s);
    EXPECT_EQ(i.s.StatusText, "C & D play at volume 0: Shift+C fades C in");
}

TEST(PlayButton, FailuresOfTheGestureAreShownInItsOwnWords) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    i.Sound.Failures["Stop"] = sound_error::kGeneric;
    Play_MouseDown(i.s, 0, kRightButton);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error stopping/playing loop: An undetermined error occurred inside the DirectSound subsystem.");
    EXPECT_EQ(i.s.Run[0].Paused, False);
    i.Sound.Failures.clear();
    LoopPlayCommand(i.s, 0, PlayCommand::Pause);
    i.Sound.Failures["Play"] = sound_error::kBufferLost;
    Play_MouseUp(i.s, 0, kLeftButton);
    EXPECT_EQ(i.Desk.LastBox(), "Error stopping/playing loop: The buffer memory has been lost and must be restored.");
    EXPECT_EQ(i.s.Run[0].Paused, True);
}

TEST(PlayStop, ItsTopThreeEighthsPlayAllItsLastThreeStopAll) {
    // of 800 twips
    for (const auto& [y, plays, stops] : {std::tuple{0.0, 1, 0},
                                          {299.0, 1, 0},
                                          {300.0, 0, 0},
                                          {400.0, 0, 0},
                                          {499.0, 0, 0},
                                          {500.0, 0, 1},
                                          {800.0, 0, 1},
                                          {-1.0, 0, 0},
                                          {801.0, 0, 0}}) {
        SCOPED_TRACE(y);
        Instrument i;
        i.Fill(2);
        PlayStop_MouseUp(i.s, y, 800);
        EXPECT_EQ(i.Sound.Count("Play"), plays);
        EXPECT_EQ(i.Sound.Count("Stop"), stops);
    }
}

TEST(PlayStop, AKeyStopsAllWhenAnythingPlaysAndElsePlaysAll) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row, "/" + std::to_string(row) + ".WAV");
    PlayStop_Activate(i.s);
    EXPECT_EQ(i.s.ThinList, "ABCD");
    LoopStop(i.s, 0);
    PlayStop_Activate(i.s);
    EXPECT_EQ(i.s.ThinList, "");
}

TEST(PlayStop, InSilenceAKeyStopsWhatWillPlayWithTheNextDevice) {
    Instrument i;
    i.s.DSReady = false;
    i.s.Run[1].InHand = {.FileName = "/1.WAV", .Playing = true, .Sounds = true};
    PlayStop_Activate(i.s);
    EXPECT_FALSE(i.s.Run[1].InHand.Playing);
    EXPECT_EQ(i.s.Run[1].InHand.FileName, "/1.WAV");
    // Under a device one that waits for another is no reason to stop.
    i.s.DSReady = true;
    i.Fill(0);
    i.s.Run[1].InHand.Playing = true;
    PlayStop_Activate(i.s);
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_TRUE(i.s.Run[1].InHand.Playing);
}

TEST(PlayStop, IgnoresTheSelectionAndActsOnAllFourRows) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row, "/" + std::to_string(row) + ".WAV");
    i.Select(1);
    PlayStop_MouseUp(i.s, 10, 800);
    EXPECT_EQ(i.s.ThinList, "ABCD");
    PlayStop_MouseUp(i.s, 790, 800);
    EXPECT_EQ(i.s.ThinList, "");
}

TEST(LoopIt, ADragChoosesOneModeForEachHundredTwipsAndTheReleaseSetsIt) {
    for (const auto& [dy, mode] :
         {std::pair{0, 1}, {-99, 1}, {-100, 2}, {-199, 2}, {-200, 3}, {-900, 3}, {99, 1}, {100, 0}, {900, 0}}) {
        SCOPED_TRACE(dy);
        Instrument i;
        LoopIt_Gesture(i.s, 1, Phase::Down, kLeftButton, 500);
        LoopIt_Gesture(i.s, 1, Phase::Move, kLeftButton, 500 + dy);
        EXPECT_EQ(LoopItMode(i.s, 1), mode);
        EXPECT_EQ(i.s.Set[1].PlayMode, kLoop);
        LoopIt_Gesture(i.s, 1, Phase::Up, kLeftButton, 500 + dy);
        EXPECT_EQ(i.s.Set[1].PlayMode, mode);
        EXPECT_EQ(LoopItMode(i.s, 1), mode);
        EXPECT_EQ(i.s.Drag.Dragging, False);
    }
}

TEST(LoopIt, TheReleaseReachesTheGang) {
    Instrument i;
    i.Select(0);
    i.Select(3);
    LoopIt_Gesture(i.s, kSelectionRow, Phase::Down, kLeftButton, 0);
    LoopIt_Gesture(i.s, kSelectionRow, Phase::Up, kLeftButton, -200);
    EXPECT_EQ(i.s.Set[0].PlayMode, kDrum);
    EXPECT_EQ(i.s.Set[1].PlayMode, kLoop);
    EXPECT_EQ(i.s.Set[3].PlayMode, kDrum);
    EXPECT_EQ(i.s.Set[4].PlayMode, kDrum);
}

TEST(LoopIt, AClickSetsNothingInABandOrASelection) {
    Instrument i;
    i.Fill(0, "/0.WAV");
    i.Fill(1, "/1.WAV");
    i.MakeBand(1, 0, 1);
    i.s.Set[0].PlayMode = kDrum;
    i.Select(3);
    i.s.Set[3].PlayMode = kTrack;
    LoopPlay(i.s, 1, true);
    i.Sound.Log.clear();
    for (const Row row : std::initializer_list<Row>{0, kSelectionRow}) {
        LoopIt_Gesture(i.s, row, Phase::Down, kLeftButton, 500);
        LoopIt_Gesture(i.s, row, Phase::Move, kLeftButton, 401);
        LoopIt_Gesture(i.s, row, Phase::Up, kLeftButton, 599);
        EXPECT_EQ(i.s.Drag.Dragging, False);
    }
    EXPECT_EQ(i.s.Set[0].PlayMode, kDrum);
    EXPECT_EQ(i.s.Set[1].PlayMode, kLoop);
    EXPECT_EQ(i.s.Set[3].PlayMode, kTrack);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(LoopIt, ADragThatComesBackGivesTheGangTheModeOfItsRow) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    i.s.Set[0].PlayMode = kDrum;
    LoopIt_Gesture(i.s, 0, Phase::Down, kLeftButton, 500);
    LoopIt_Gesture(i.s, 0, Phase::Move, kLeftButton, 600);
    LoopIt_Gesture(i.s, 0, Phase::Up, kLeftButton, 500);
    EXPECT_EQ(i.s.Set[0].PlayMode, kDrum);
    EXPECT_EQ(i.s.Set[1].PlayMode, kDrum);
}

TEST(LoopIt, AStepSetsTheNextModeOfTheGangAndNothingDuringADrag) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    i.s.CurrentLoop = 1;
    LoopIt_Step(i.s, 0, 1);
    EXPECT_EQ(i.s.Set[0].PlayMode, kTrack);
    EXPECT_EQ(i.s.Set[1].PlayMode, kTrack);
    LoopIt_Step(i.s, 5, 10);
    EXPECT_EQ(i.s.Set[1].PlayMode, kDrum);
    i.s.Drag.Dragging = True;
    LoopIt_Step(i.s, 0, -1);
    EXPECT_EQ(i.s.Set[0].PlayMode, kDrum);
}

TEST(LoopIt, AStepBeyondTheEndGivesTheGangNothing) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    for (const auto& [end, step] : {std::pair{kDrum, 1}, {kOneShot, -3}}) {
        i.s.Set[0].PlayMode = end;
        i.s.Set[1].PlayMode = kTrack;
        i.Screen.Log.clear();
        LoopIt_Step(i.s, 0, step);
        EXPECT_EQ(i.s.Set[0].PlayMode, end);
        EXPECT_EQ(i.s.Set[1].PlayMode, kTrack);
        EXPECT_THAT(i.Screen.Log, IsEmpty());
    }
}

TEST(LoopIt, NumberFiveStandsForTheCurrentLoopAndShowsTheChosenModeItself) {
    Instrument i;
    i.s.CurrentLoop = 2;
    i.s.Set[2].PlayMode = kTrack;
    EXPECT_EQ(LoopItMode(i.s, 5), kTrack);
    LoopIt_Gesture(i.s, 5, Phase::Down, kLeftButton, 0);
    LoopIt_Gesture(i.s, 5, Phase::Move, kLeftButton, -100);
    EXPECT_EQ(LoopItMode(i.s, 5), kDrum);
    EXPECT_EQ(LoopItMode(i.s, 2), kTrack);
    EXPECT_GE(i.Screen.Count("ShowPlayMode 5"), 1);
    LoopIt_Gesture(i.s, 5, Phase::Up, kLeftButton, -100);
    EXPECT_EQ(i.s.Set[2].PlayMode, kDrum);
    EXPECT_EQ(i.s.Set[5].PlayMode, kLoop);
    LoopIt_DblClick(i.s, 5);
    EXPECT_EQ(i.s.Set[2].PlayMode, kLoop);
}

TEST(LoopIt, ADoubleClickSetsLoopModeOnTheRowAlone) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    i.s.Set[0].PlayMode = kDrum;
    i.s.Set[1].PlayMode = kDrum;
    LoopIt_DblClick(i.s, 0);
    EXPECT_EQ(i.s.Set[0].PlayMode, kLoop);
    EXPECT_EQ(i.s.Set[1].PlayMode, kDrum);
}

TEST(LoopIt, ARightPressJumpsToTheBeginningOfALoadedRowWithoutADrag) {
    Instrument i;
    i.Fill(0).Position = 99;
    LoopIt_Gesture(i.s, 0, Phase::Down, kRightButton, 0);
    LoopIt_Gesture(i.s, 0, Phase::Move, kRightButton, -300);
    LoopIt_Gesture(i.s, 0, Phase::Up, kRightButton, -300);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetCurrentPosition b0 0"));
    EXPECT_EQ(i.s.Set[0].PlayMode, kLoop);
    LoopIt_Gesture(i.s, 1, Phase::Down, kRightButton, 0);
    EXPECT_EQ(i.Sound.Log.size(), 1U);
}

TEST(LoopIt, ARightPressReachesTheBandOrTheControlledRows) {
    Instrument i;
    i.Fill(0, "/0.WAV");
    i.Fill(1, "/1.WAV");
    i.MakeBand(1, 1, 3);
    i.Select(0);
    i.Select(2);
    LoopIt_Gesture(i.s, 1, Phase::Down, kRightButton, 0);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetCurrentPosition b1 0"));
    i.Sound.Log.clear();
    LoopIt_Gesture(i.s, kSelectionRow, Phase::Down, kRightButton, 0);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetCurrentPosition b0 0"));
    i.Sound.Log.clear();
    i.s.GangReady = false;
    LoopIt_Gesture(i.s, kSelectionRow, Phase::Down, kRightButton, 0);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(LoopIt, AFailedJumpShowsItsMessage) {
    Instrument i;
    i.Fill(0);
    i.Sound.Failures["SetCurrentPosition"] = sound_error::kInvalidArgument;
    LoopIt_Gesture(i.s, 0, Phase::Down, kRightButton, 0);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error positioning to loop start: An invalid parameter was passed to the returning function.");
}

TEST(LoopIt, AMoveOrReleaseWithoutItsPressDoesNothing) {
    Instrument i;
    LoopIt_Gesture(i.s, 0, Phase::Down, kLeftButton, 0);
    LoopIt_Gesture(i.s, 1, Phase::Move, kLeftButton, -300);
    LoopIt_Gesture(i.s, 1, Phase::Up, kLeftButton, -300);
    EXPECT_EQ(i.s.Set[1].PlayMode, kLoop);
    EXPECT_EQ(LoopItMode(i.s, 0), kLoop);
}

}  // namespace
}  // namespace marvolin
