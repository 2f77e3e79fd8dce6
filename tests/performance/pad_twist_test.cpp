#include "performance/pad/pad_twist.h"

#include <gtest/gtest.h>

#include <array>

#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

constexpr double kTwistHold = 15 * 15;  ///< the point at which a ball is held, twips
using FourOf = std::array<int, 4>;

/// The levels of channels 1..4 under a pad type.
FourOf LevelsUnder(const Session& s, std::int16_t type) {
    FourOf levels{};
    for (int i = 1; i <= kChannels; ++i) {
        levels[static_cast<std::size_t>(i - 1)] = type == kVolPad   ? s.ChannelVol[i]
                                                  : type == kPanPad ? s.ChannelPan[i]
                                                                    : s.ChannelHz[i];
    }
    return levels;
}

/// Moves the twist to a share of its line.
void TwistTo(Session& s, double share) { PadTwist(s, share, 1, {.Absolute = true, .Apply = true}); }

TEST(PadTwist, MovesTheTypeThatTheTypeInHandNames) {
    struct Case {
        std::int16_t Type, Target;
        FourOf Right;
    };
    // Under "Vol" the curve begins at the centre: channels 2 and 3 are untouched, 1 and 4 gone.
    const std::array<Case, 4> cases{{{kVolPad, kPanPad, {1000, 0, 0, 1000}},
                                     {kPanPad, kPitch300Pad, {3000, 0, 0, 3000}},
                                     {kPitch300Pad, kPitch400Pad, {4000, 0, 0, 4000}},
                                     {kPitch400Pad, kVolPad, {500, 0, 0, 500}}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Type);
        Surfaces i;
        PadType_Click(i.s, c.Type);
        EXPECT_EQ(PadTwistTarget(i.s), c.Target);
        TwistTo(i.s, 1);
        EXPECT_EQ(i.s.TwistPosition, 2130);
        EXPECT_EQ(LevelsUnder(i.s, c.Target), c.Right);
        EXPECT_EQ(i.s.PadTypeIndex, c.Type);
    }
}

TEST(PadTwist, FadesFromThePairAtTheLeftToThePairAtTheRight) {
    Surfaces i;
    TwistTo(i.s, -1);
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{0, 1000, 1000, 0}));
    TwistTo(i.s, 0);
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{500, 500, 500, 500}));
    TwistTo(i.s, 0.5);
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{750, 250, 250, 750}));
}

TEST(PadTwist, LeavesTheBallsAndTheLevelsOfTheTypeInHandAlone) {
    Surfaces i;
    PadMove(i.s, 250, -100, 500.0, {.Absolute = true, .Apply = true});
    i.s.PadTable[kPanPad].X = 300;
    i.s.PadTable[kPanPad].Y = -200;
    const PadRecord ball = i.s.PadTable[kVolPad];
    const FourOf levels = LevelsUnder(i.s, kVolPad);
    TwistTo(i.s, 0.7);
    EXPECT_EQ(i.s.PadTable[kPanPad].X, 300);
    EXPECT_EQ(i.s.PadTable[kPanPad].Y, -200);
    EXPECT_EQ(i.s.PadTable[kVolPad].X, ball.X);
    EXPECT_EQ(i.s.PadTable[kVolPad].Y, ball.Y);
    EXPECT_EQ(LevelsUnder(i.s, kVolPad), levels);
}

TEST(PadTwist, IsHeardAtOnceAndShown) {
    Surfaces i;
    i.Fill(0);
    i.Clear();
    TwistTo(i.s, 0.5);
    EXPECT_EQ(i.Sound.Count("SetPan b0"), 1);
    EXPECT_EQ(i.Sound.Count("SetVolume"), 0);
    EXPECT_EQ(i.Screen.Count("ShowTwist"), 1);
    EXPECT_EQ(i.s.StatusText, "W: 250, WB: -250, BW: -250, B: 250, ");
    PadTwist(i.s, 0, 1, {.Absolute = true, .Apply = false, .Quiet = true});
    EXPECT_EQ(i.Sound.Count("SetPan b0"), 1);
    EXPECT_EQ(i.s.StatusText, "W: 250, WB: -250, BW: -250, B: 250, ");
}

TEST(PadTwist, StopsAtTheEndsOfItsLine) {
    Surfaces i;
    TwistTo(i.s, 3);
    EXPECT_EQ(i.s.TwistPosition, 2130);
    PadTwist(i.s, -9e9, 1, {.Absolute = false, .Apply = true});
    EXPECT_EQ(i.s.TwistPosition, -2130);
    PadTwist(i.s, 100, i.s.Geometry.PadHalfX, {.Absolute = false, .Apply = true});
    EXPECT_EQ(i.s.TwistPosition, -2030);
}

TEST(PadTwist, DoesNothingUnderATypeWithoutATwist) {
    Surfaces i;
    i.s.PadTable[kVolPad].TwistIcon = kNoTwistIcon;
    EXPECT_EQ(PadTwistTarget(i.s), -1);
    TwistTo(i.s, 1);
    PadTwistCentre(i.s);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_TRUE(i.Screen.Log.empty());
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{500, 500, 500, 500}));
}

TEST(PadTwist, CentreBringsItAndWhatItMovedToRest) {
    Surfaces i;
    TwistTo(i.s, 1);
    PadTwistCentre(i.s);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{500, 500, 500, 500}));
}

TEST(PadTwist, AChangeOfTypeBringsWhatItMovedToRest) {
    Surfaces i;
    i.Fill(0);
    TwistTo(i.s, 1);
    i.Clear();
    PadType_Click(i.s, kPitch300Pad);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{500, 500, 500, 500}));
    EXPECT_EQ(i.Sound.Count("SetPan b0"), 1);
    EXPECT_EQ(i.s.StatusText, "W: 500, WB: 500, BW: 500, B: 500, ") << "the levels of the type that is left";
}

TEST(PadTwist, AChangeToTheTypeItMovedKeepsItsLevels) {
    Surfaces i;
    TwistTo(i.s, 1);
    PadType_Click(i.s, kPanPad);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{1000, 0, 0, 1000}));
}

TEST(PadTwist, AChangeOfTypeWithoutATwistTouchesNoOtherType) {
    Surfaces i;
    i.s.ChannelPan[1] = 123;
    PadType_Click(i.s, kPitch300Pad);
    EXPECT_EQ(i.s.ChannelPan[1], 123);
}

TEST(PadTwist, FreshTablesBringWhatItMovedToRest) {
    Surfaces i;
    PadType_Click(i.s, kPitch400Pad);
    TwistTo(i.s, 1);
    PadTablesInit(i.s);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_EQ(i.s.PadTypeIndex, kVolPad);
    EXPECT_EQ(LevelsUnder(i.s, kVolPad), (FourOf{0, 0, 0, 0}));
}

TEST(PadTwist, APadWithoutASizeHasNone) {
    Surfaces i;
    i.s.Geometry = {};
    i.s.TwistPosition = 5;
    TwistTo(i.s, 1);
    PadType_Click(i.s, kPitch300Pad);
    EXPECT_EQ(LevelsUnder(i.s, kPanPad), (FourOf{500, 500, 500, 500}));
    EXPECT_EQ(i.s.TwistPosition, 0);
}

TEST(TwistBallGesture, ADragMovesItByTheWayOfTheHandWithEitherButton) {
    for (const auto button : std::initializer_list<std::int16_t>{kLeftButton, kRightButton}) {
        Surfaces i;
        TwistBallGesture(i.s, Phase::Down, button, kTwistHold);
        EXPECT_FALSE(i.s.CursorFree);
        TwistBallGesture(i.s, Phase::Move, button, kTwistHold + 60);
        EXPECT_EQ(i.s.TwistPosition, 60);
        TwistBallGesture(i.s, Phase::Up, button, kTwistHold + 30);
        EXPECT_EQ(i.s.TwistPosition, 90);
        EXPECT_TRUE(i.s.CursorFree);
        TwistBallGesture(i.s, Phase::Up, button, kTwistHold + 30);
        EXPECT_EQ(i.s.TwistPosition, 90);
        EXPECT_TRUE(i.Desk.Log.empty()) << "the pointer is left alone";
    }
}

TEST(TwistBallGesture, OtherButtonsDoNothing) {
    Surfaces i;
    for (const auto button : std::initializer_list<std::int16_t>{kNoButton, kMiddleButton}) {
        TwistBallGesture(i.s, Phase::Down, button, kTwistHold);
        TwistBallGesture(i.s, Phase::Move, button, kTwistHold + 900);
    }
    EXPECT_TRUE(i.s.CursorFree);
    EXPECT_EQ(i.s.TwistPosition, 0);
    EXPECT_TRUE(i.Screen.Log.empty());
}

}  // namespace
}  // namespace marvolin
