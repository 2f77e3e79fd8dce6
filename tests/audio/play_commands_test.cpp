#include "audio/play_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Rows 0, 1, 2 loaded with buffers b0, b1, b2; rows 1, 2, 3 are a band, rows 0 and 2 selected; row 3 is empty.
struct Bench : Instrument {
    Bench() {
        for (const Row row : std::initializer_list<Row>{0, 1, 2}) Fill(row, "/" + std::to_string(row) + ".WAV");
        Select(0);
        Select(2);
        Select(3);
        s.Set[3].Selected = False;
    }
    void PlayEach() {
        for (const Row row : std::initializer_list<Row>{0, 1, 2}) LoopPlay(s, row, true);
        Clear();
    }
    void Clear() {
        Sound.Log.clear();
        Screen.Log.clear();
    }
};

TEST(LoopPlayCommand, StopReachesTheControlledRowsTheBandOrTheRow) {
    Bench all;
    all.PlayEach();
    LoopPlayCommand(all.s, kSelectionRow, PlayCommand::Stop);
    EXPECT_THAT(all.Sound.Calls("Stop"), ElementsAre("Stop b0", "Stop b2"));
    EXPECT_EQ(all.s.Run[kSelectionRow].Playing, False);

    Bench band;
    band.MakeBand(1, 1, 3);
    band.PlayEach();
    LoopPlayCommand(band.s, 3, PlayCommand::Stop);
    EXPECT_THAT(band.Sound.Calls("Stop"), ElementsAre("Stop b1", "Stop b2"));
    EXPECT_EQ(band.Screen.Log.back(), "ShowPlay 3");

    Bench one;
    one.PlayEach();
    LoopPlayCommand(one.s, 1, PlayCommand::Stop);
    EXPECT_THAT(one.Sound.Calls("Stop"), ElementsAre("Stop b1"));
}

TEST(LoopPlayCommand, PlayReachesTheControlledRowsTheBandOrTheRow) {
    Bench all;
    LoopPlayCommand(all.s, kSelectionRow, PlayCommand::Play);
    EXPECT_THAT(all.Sound.Calls("Play"), ElementsAre("Play b0 1", "Play b2 1"));
    EXPECT_EQ(all.s.Run[kSelectionRow].Playing, True);
    EXPECT_EQ(all.s.Run[0].PlayRequest, True);

    Bench band;
    band.MakeBand(1, 1, 3);
    LoopPlayCommand(band.s, 2, PlayCommand::Play);
    EXPECT_THAT(band.Sound.Calls("Play"), ElementsAre("Play b1 1", "Play b2 1"));
    EXPECT_EQ(band.s.Run[3].Playing, False);

    Bench one;
    LoopPlayCommand(one.s, 1, PlayCommand::Play);
    EXPECT_THAT(one.Sound.Calls("Play"), ElementsAre("Play b1 1"));
}

TEST(LoopPlayCommand, PlayOnRowFourWithNothingControlledStillSetsItsFlagAndPicture) {
    Bench i;
    i.s.SelectionControlled = false;
    LoopPlayCommand(i.s, kSelectionRow, PlayCommand::Play);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 1);
}

TEST(LoopPlayCommand, PauseReachesOnlyLoadedPlayingRowsOfAGroup) {
    Bench all;
    LoopPlay(all.s, 0, true);
    all.Clear();
    LoopPlayCommand(all.s, kSelectionRow, PlayCommand::Pause);
    EXPECT_THAT(all.Sound.Log, ElementsAre("Stop b0"));
    EXPECT_EQ(all.s.Run[0].Paused, True);
    EXPECT_EQ(all.s.Run[0].Playing, True);
    EXPECT_EQ(all.s.Run[2].Paused, False);
    EXPECT_EQ(all.s.Run[kSelectionRow].Paused, True);
    EXPECT_THAT(all.Screen.Log, ElementsAre("ShowPlay 0", "ShowPlay 4"));

    Bench band;
    band.MakeBand(1, 1, 3);
    LoopPlay(band.s, 2, true);
    band.s.Run[3].Playing = True;  // without a sample
    band.Clear();
    LoopPlayCommand(band.s, 1, PlayCommand::Pause);
    EXPECT_THAT(band.Sound.Log, ElementsAre("Stop b2"));
    EXPECT_EQ(band.s.Run[2].Paused, True);
    EXPECT_EQ(band.s.Run[3].Paused, False);
}

TEST(LoopPlayCommand, PauseOfOneRowHasNoTestOfItsOwn) {
    Bench i;
    LoopPlayCommand(i.s, 1, PlayCommand::Pause);
    EXPECT_THAT(i.Sound.Log, ElementsAre("Stop b1"));
    EXPECT_EQ(i.s.Run[1].Paused, True);
    EXPECT_THROW(LoopPlayCommand(i.s, 3, PlayCommand::Pause), RuntimeError);
}

TEST(LoopPlayCommand, ResumeReachesAllLoadedRowsOfAGroupPausedOrNot) {
    Bench all;
    all.s.Run[0].Paused = True;
    all.s.Run[kSelectionRow].Paused = True;
    all.s.Set[2].PlayMode = kDrum;
    LoopPlayCommand(all.s, kSelectionRow, PlayCommand::Resume);
    EXPECT_THAT(all.Sound.Log, ElementsAre("Play b0 1", "Play b2 0"));
    EXPECT_EQ(all.s.Run[0].Paused, False);
    EXPECT_EQ(all.s.Run[0].Playing, False);
    EXPECT_EQ(all.s.Run[kSelectionRow].Paused, False);

    Bench band;
    band.MakeBand(1, 1, 3);
    LoopPlayCommand(band.s, 3, PlayCommand::Resume);
    EXPECT_THAT(band.Sound.Log, ElementsAre("Play b1 1", "Play b2 1"));
}

TEST(LoopPlayCommand, ResumeOfOneRowHasNoTestOfLoaded) {
    Bench i;
    LoopPlayCommand(i.s, 1, PlayCommand::Resume);
    EXPECT_THAT(i.Sound.Log, ElementsAre("Play b1 1"));
    EXPECT_THROW(LoopPlayCommand(i.s, 3, PlayCommand::Resume), RuntimeError);
}

TEST(LoopPlayCommand, AnEmptyBandDoesNothing) {
    Bench i;
    i.s.Run[0].InBand = True;
    i.s.Run[0].Band = 4;
    for (const PlayCommand command : {PlayCommand::Play, PlayCommand::Pause, PlayCommand::Resume, PlayCommand::Stop}) {
        LoopPlayCommand(i.s, 0, command);
    }
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(PlayAll, IgnoresTheSelectionAndTheBands) {
    Bench i;
    i.MakeBand(1, 1, 3);
    PlayAll(i.s);
    EXPECT_THAT(i.Sound.Calls("Play"), ElementsAre("Play b0 1", "Play b1 1", "Play b2 1"));
    StopAll(i.s);
    EXPECT_THAT(i.Sound.Calls("Stop"), ElementsAre("Stop b0", "Stop b1", "Stop b2"));
}

TEST(TogglePlay, StopsAPlayingRowAndPlaysAnyOther) {
    Bench i;
    TogglePlay(i.s, 1);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    TogglePlay(i.s, 1);
    EXPECT_EQ(i.s.Run[1].Playing, False);
}

TEST(TogglePlay, OnRowFourTheFirstControlledRowDecidesForAll) {
    Bench i;
    LoopPlay(i.s, 2, true);
    TogglePlay(i.s, kSelectionRow);  // row 0 was silent: all play
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.s.Run[2].Playing, True);
    LoopStop(i.s, 2);
    TogglePlay(i.s, kSelectionRow);  // row 0 plays: all stop
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[2].Playing, False);
}

TEST(TogglePlay, WithNothingControlledOrOnOtherRowsDoesNothing) {
    Bench i;
    i.s.SelectionControlled = false;
    for (const Row row : std::initializer_list<Row>{4, 5, 6, -1}) TogglePlay(i.s, row);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(LoopPlayCommand, StopOnRowFourPutsItsFlagOutAlsoWhenNothingIsControlled) {
    Instrument i;
    i.s.Run[kSelectionRow].Playing = True;
    LoopPlayCommand(i.s, kSelectionRow, PlayCommand::Stop);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 1);
}

}  // namespace
}  // namespace marvolin
