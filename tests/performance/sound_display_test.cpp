#include "performance/sound_display.h"

#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

struct Strip : Instrument {
    Strip() {
        Fill(1);
        s.Set[1].Vol = 300;
        s.SndDisp[1] = {300, 300, 0};
    }
};

TEST(SndDisp, TheTopNeedleJumpsAndBothNeedlesStandTogether) {
    Strip i;
    i.s.Run[1].FadeState = kFalling;
    SndDisp_Change(i.s, 1, kLevelNeedle, 120);
    EXPECT_EQ(i.s.Set[1].Vol, 120);
    EXPECT_EQ(i.s.SndDisp[1].Level, 120);
    EXPECT_EQ(i.s.SndDisp[1].Line, 120);
    EXPECT_EQ(i.s.Run[1].FadeState, kNoFade);
}

TEST(SndDisp, FiveUnitsOffTheLevelSnapBackAndSixStartAFade) {
    for (const int off : {-6, -5, 5, 6}) {
        Strip i;
        SndDisp_Change(i.s, 1, kTargetNeedle, static_cast<std::int16_t>(300 + off));
        if (off == 6 || off == -6) {
            EXPECT_EQ(i.s.Run[1].FadeTarget, 300 + off);
            EXPECT_EQ(i.s.Run[1].FadeState, off > 0 ? kRising : kFalling);
            EXPECT_NE(i.s.Run[1].FadeToMark, False);
            EXPECT_EQ(i.s.SndDisp[1].Line, 300 + off);
        } else {
            EXPECT_EQ(i.s.Run[1].FadeState, kNoFade);
            EXPECT_EQ(i.s.SndDisp[1].Line, 300);
        }
        EXPECT_EQ(i.s.Set[1].Vol, 300);
    }
}

TEST(SndDisp, TheBottomNeedleOnAnUnloadedLoopTrackSnapsBackToVol) {
    Strip i;
    i.s.Set[2].Vol = 200;
    SndDisp_Change(i.s, 2, kTargetNeedle, 50);
    EXPECT_EQ(i.s.SndDisp[2].Line, 200);
    EXPECT_EQ(i.s.Run[2].FadeState, kNoFade);
}

TEST(SndDisp, OnTheSelectionTheBottomNeedleFadesTheControlledRowsAndStandsAtTheTarget) {
    Strip i;
    i.Select(1);
    SndDisp_Change(i.s, kSelectionRow, kTargetNeedle, 498);
    EXPECT_EQ(i.s.Run[1].FadeTarget, 498);
    EXPECT_EQ(i.s.Run[1].FadeState, kRising);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_EQ(i.s.Set[4].Vol, 498);
    EXPECT_EQ(i.s.SndDisp[4].Level, 498);
    EXPECT_EQ(i.s.SndDisp[4].Line, 498);
    EXPECT_GE(i.Screen.Count("ShowKnob 4 Vol"), 1);
}

TEST(SndDisp, WhileItMovesTheTopNeedleIsHeardAndTheBottomOneWaits) {
    Strip i;
    SndDisp_Moving(i.s, 1, kTargetNeedle, 50);
    EXPECT_EQ(i.s.Run[1].FadeState, kNoFade);
    EXPECT_EQ(i.s.SndDisp[1].Line, 50);
    SndDisp_Moving(i.s, 1, kLevelNeedle, 70);
    EXPECT_EQ(i.s.Set[1].Vol, 70);
    EXPECT_GE(i.Sound.Count("SetVolume"), 1);
}

TEST(SndDisp, WithoutANeedleInTheHandNothingHappens) {
    Strip i;
    SndDisp_Change(i.s, 1, kNoNeedle, 10);
    SndDisp_Moving(i.s, 1, kNoNeedle, 10);
    EXPECT_EQ(i.s.Set[1].Vol, 300);
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(SndDisp, ARightClickTogglesTheFadeWhateverTheNeedlesSay) {
    Strip i;
    i.s.SndDisp[1] = {300, 302, 1};
    SndDisp_MouseDown(i.s, 1, kRightButton);
    EXPECT_EQ(i.s.Run[1].FadeState, kFalling);
    SndDisp_MouseDown(i.s, 1, kRightButton);
    EXPECT_EQ(i.s.Run[1].FadeState, kRising);
    SndDisp_MouseDown(i.s, 1, kLeftButton);
    EXPECT_EQ(i.s.Run[1].FadeState, kRising);
}

TEST(SndDisp, APressHighlightsTheRowsBallOnTheMapButNotForRowFour) {
    Strip i;
    i.s.ActiveTab = kMapTab;
    SndDisp_MouseDown(i.s, 1, kLeftButton);
    EXPECT_EQ(i.s.PosHighlight, 1);
    SndDisp_MouseDown(i.s, kSelectionRow, kLeftButton);
    EXPECT_EQ(i.s.PosHighlight, 1);
}

TEST(SndDisp, AValueBeyondTheScaleIsLimited) {
    Strip i;
    SndDisp_Change(i.s, 1, kLevelNeedle, 900);
    EXPECT_EQ(i.s.Set[1].Vol, 500);
    SndDisp_Change(i.s, 1, kLevelNeedle, -5);
    EXPECT_EQ(i.s.Set[1].Vol, 0);
}

}  // namespace
}  // namespace marvolin
