#include "audio/play_modes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PlayMode, HasItsTextAndItsLoopingFlag) {
    const std::pair<std::int32_t, const char*> kFlagsAndTexts[] = {
        {0, "One shot (sample plays once, stops)"},
        {1, "Loop (sample loops continuously)"},
        {1, "Track (sample loops continuously, track the Vol, Freq & Pan patterns)"},
        {0, "Drum (track Vol,Pan & Freq pattern, restart sample each beat)"}};
    for (std::int16_t mode = kOneShot; mode <= kDrum; ++mode) {
        EXPECT_EQ(LoopPlayFlags(mode), kFlagsAndTexts[mode].first);
        EXPECT_EQ(PlayModeText(mode), kFlagsAndTexts[mode].second);
    }
    EXPECT_EQ(PlayModeText(4), "");
    EXPECT_EQ(LoopPlayFlags(4), 0);
}

TEST(LoopSetPlayMode, OnRowFourOrAnEmptyRowOnlyStoresTheMode) {
    Instrument i;
    for (const Row row : std::initializer_list<Row>{0, 4}) {
        LoopSetPlayMode(i.s, row, kDrum, false);
        EXPECT_EQ(i.s.Set[row].PlayMode, kDrum);
        EXPECT_EQ(i.Screen.Count("ShowPlayMode " + std::to_string(row)), 1);
    }
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(LoopSetPlayMode, AnUnchangedModeDoesNothingAtTheBufferButShowsThePicture) {
    Instrument i;
    i.Fill(0);
    i.Sound.LogQueries = true;
    LoopSetPlayMode(i.s, 0, kLoop, false);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 0"), 1);
}

TEST(LoopSetPlayMode, ARowThatDoesNotPlayOnlyReadsItsStatus) {
    Instrument i;
    i.Fill(0);
    i.Sound.LogQueries = true;
    LoopSetPlayMode(i.s, 0, kDrum, false);
    EXPECT_THAT(i.Sound.Log, ElementsAre("GetStatus b0"));
    EXPECT_EQ(i.s.Set[0].PlayMode, kDrum);
}

TEST(LoopSetPlayMode, RefreshesTheTimesOnlyWhenAsked) {
    Instrument i;
    i.s.ActiveTab = kPatternTab;
    LoopSetPlayMode(i.s, 1, kDrum, false);
    EXPECT_EQ(i.Screen.Count("ShowTime 0"), 0);
    LoopSetPlayMode(i.s, 1, kLoop, true);
    EXPECT_EQ(i.Screen.Count("ShowTime 0"), 1);
}

TEST(LoopSetPlayMode, TheLargePictureFollowsTheCurrentLoop) {
    Instrument i;
    i.s.CurrentLoop = 2;
    LoopSetPlayMode(i.s, 1, kDrum, false);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 5"), 0);
    LoopSetPlayMode(i.s, 2, kDrum, false);
    EXPECT_EQ(i.Screen.Count("ShowPlayMode 5"), 1);
}

// Every transition of a sounding row: what reaches Play, whether the sample restarts, whether plain values are sent.
struct Transition {
    std::int16_t from;
    std::int16_t to;
    std::int32_t status;  ///< of the buffer at the change
    const char* play;     ///< the call expected; "" for none
    bool restarts;
    bool resends;
};

constexpr Transition kTransitions[] = {
    {kOneShot, kLoop, 1, "", false, false},           // equal to the flags, so this pass ends as a one-shot
    {kOneShot, kLoop, 0, "Play b0 1", false, false},  // had run out unnoticed
    {kLoop, kOneShot, 5, "Play b0 0", false, false}, {kTrack, kOneShot, 5, "Play b0 0", false, true},
    {kTrack, kLoop, 5, "Play b0 1", false, true},    {kDrum, kLoop, 1, "Play b0 1", false, true},
    {kDrum, kLoop, 0, "Play b0 1", false, true},  // even on a buffer that had run out
    {kDrum, kOneShot, 1, "Play b0 0", false, true},  {kDrum, kOneShot, 0, "", false, true},
    {kOneShot, kTrack, 1, "Play b0 1", true, false}, {kOneShot, kDrum, 1, "Play b0 0", true, false},
    {kLoop, kTrack, 5, "Play b0 1", true, false},    {kLoop, kDrum, 5, "Play b0 0", true, false},
    {kTrack, kDrum, 5, "Play b0 0", true, false},    {kDrum, kTrack, 1, "Play b0 1", true, false},
};

TEST(LoopSetPlayMode, EachTransitionOfASoundingRowMakesTheCallsOfTheTable) {
    for (const Transition& t : kTransitions) {
        SCOPED_TRACE(std::to_string(t.from) + " to " + std::to_string(t.to) + " at " + std::to_string(t.status));
        Instrument i;
        i.Fill(0);
        i.s.Set[0].PlayMode = t.from;
        LoopPlay(i.s, 0, true);
        i.Buffer(0).Status = t.status;
        i.Sound.Log.clear();
        LoopSetPlayMode(i.s, 0, t.to, false);
        EXPECT_EQ(i.s.Set[0].PlayMode, t.to);
        EXPECT_EQ(i.s.Run[0].Playing, True);
        const auto plays = i.Sound.Calls("Play");
        if (*t.play == '\0') {
            EXPECT_THAT(plays, IsEmpty());
        } else {
            EXPECT_THAT(plays, ElementsAre(t.play));
        }
        EXPECT_EQ(i.Sound.Count("Stop"), t.restarts ? 1 : 0);
        EXPECT_EQ(i.Sound.Count("SetCurrentPosition") > 0, t.restarts);
        if (!t.restarts) {
            EXPECT_EQ(i.Sound.Count("SetFrequency") == 1, t.resends);
        }
    }
}

TEST(LoopSetPlayMode, LeavingAClockedModeSendsFrequencyPanAndVolumeWithoutThePatterns) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    i.s.Set[0].Pattern[kVolPattern][0] = 0;
    LoopPlay(i.s, 0, true);
    i.Sound.Log.clear();
    LoopSetPlayMode(i.s, 0, kLoop, false);
    EXPECT_THAT(i.Sound.Log, ElementsAre("Play b0 1", "SetFrequency b0 44100", "SetPan b0 0", "SetVolume b0 0"));
}

TEST(LoopSetPlayMode, ARestartComesFromAPlayWithoutRequest) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    LoopSetPlayMode(i.s, 0, kTrack, false);
    EXPECT_EQ(i.s.Run[0].PlayRequest, False);
    EXPECT_EQ(i.s.ThinList, "A");
}

TEST(LoopSetPlayMode, AFailureIsShownAsChangingLooping) {
    Instrument i;
    i.Fill(0);
    LoopPlay(i.s, 0, true);
    i.Sound.Failures["GetStatus"] = sound_error::kInvalidCall;
    LoopSetPlayMode(i.s, 0, kOneShot, false);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error changing looping: This function is not valid for the current state of this object.");
    EXPECT_EQ(i.s.Set[0].PlayMode, kLoop);
}

TEST(LoopSetPlayModeRows, RowFourSetsTheControlledRowsAndItself) {
    Instrument i;
    i.Select(0);
    i.Select(2);
    LoopSetPlayModeRows(i.s, kSelectionRow, kDrum);
    EXPECT_EQ(i.s.Set[0].PlayMode, kDrum);
    EXPECT_EQ(i.s.Set[1].PlayMode, kLoop);
    EXPECT_EQ(i.s.Set[2].PlayMode, kDrum);
    EXPECT_EQ(i.s.Set[4].PlayMode, kDrum);
}

TEST(LoopSetPlayModeRows, RowFourIsPlainUntilTheGangIsReady) {
    Instrument i;
    i.s.GangReady = false;
    i.Select(0);
    LoopSetPlayModeRows(i.s, kSelectionRow, kDrum);
    EXPECT_EQ(i.s.Set[0].PlayMode, kLoop);
    EXPECT_EQ(i.s.Set[4].PlayMode, kDrum);
}

TEST(LoopSetPlayModeRows, ARowInABandSetsTheBandAndAnyOtherItself) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    LoopSetPlayModeRows(i.s, 1, kTrack);
    LoopSetPlayModeRows(i.s, 3, kDrum);
    EXPECT_EQ(i.s.Set[0].PlayMode, kTrack);
    EXPECT_EQ(i.s.Set[1].PlayMode, kTrack);
    EXPECT_EQ(i.s.Set[2].PlayMode, kLoop);
    EXPECT_EQ(i.s.Set[3].PlayMode, kDrum);
}

TEST(LoopSetPlayModeRows, PassesTheRefreshOn) {
    Instrument i;
    i.s.ActiveTab = kPatternTab;
    LoopSetPlayModeRows(i.s, 0, kTrack);
    EXPECT_EQ(i.Screen.Count("ShowTime 0"), 1);
}

}  // namespace
}  // namespace marvolin
