#include "performance/map/scatter.h"

#include <gtest/gtest.h>

#include <cmath>

#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

TEST(FadeTick, ATickWithinATickDoesNothing) {
    test::Surfaces i;
    i.Fill(0);
    i.s.Run[0].FadeState = kFalling;
    i.s.Run[0].FadeValue = 500;
    i.Sound.Failures["SetVolume"] = sound_error::kGeneric;
    i.Desk.WhenReported = [&] { FadeTimer_Timer(i.s, 40); };
    FadeTimer_Timer(i.s, 40);
    EXPECT_EQ(i.s.Set[0].Vol, 492);
    EXPECT_EQ(i.Desk.Boxes.size(), 1u);
    FadeTimer_Timer(i.s, 40);
    EXPECT_EQ(i.s.Set[0].Vol, 484);
}

TEST(Scatter, AbsoluteDrawsXThenYOnTheHalfWidthForEachLoopTrackInOrder) {
    Surfaces i;
    i.Chance.Sequence = {0.0, 0.999999, 0.5, 0.25, 0.75, 0.1, 0.9, 0.3};
    ScatterAbsolute(i.s);
    EXPECT_EQ(i.Chance.Draws, 8);
    const std::array<double, 8> draws{0.0, 0.999999, 0.5, 0.25, 0.75, 0.1, 0.9, 0.3};
    for (std::size_t ball = 0; ball < 4; ++ball) {
        SCOPED_TRACE(ball);
        EXPECT_DOUBLE_EQ(i.s.BallPos[ball].X, std::floor(4261 * draws[2 * ball]) - 2130);
        EXPECT_DOUBLE_EQ(i.s.BallPos[ball].Y, std::floor(4261 * draws[2 * ball + 1]) - 2130);
        EXPECT_FLOAT_EQ(i.s.Set[ball].PositionX, static_cast<float>(i.s.BallPos[ball].X / Surfaces::kHalf * 1.5));
    }
    EXPECT_EQ(i.s.BallPos[0].X, -2130);
    EXPECT_EQ(i.s.BallPos[0].Y, 2130);
    EXPECT_EQ(i.s.BallPos[4].X, 0);
}

TEST(Scatter, AHalfWidthThatIsNotAWholeNumberIsRoundedDown) {
    Surfaces i;
    i.s.Geometry.PadHalfX = i.s.Geometry.PadHalfY = 2130.75;
    i.Chance.Sequence = {0.0, 0.0};
    ScatterAbsoluteSound(i.s, 0);
    EXPECT_EQ(i.s.BallPos[0].X, -2130);
}

TEST(Scatter, BothWaysAreHeardAtOnce) {
    Surfaces i;
    i.Use3D();
    i.Fill(2);
    ScatterAbsolute(i.s);
    EXPECT_EQ(i.Sound.Count("SetPosition b0"), 1);
    ScatterRel(i.s);
    EXPECT_EQ(i.Sound.Count("SetPosition b0"), 2);
}

TEST(Scatter, OnAMapThatIsNotSquareYIsScaledAndClamped) {
    Surfaces i;
    PadGeometryInit(i.s, 4500, 2370);
    i.Chance.Sequence = {0.5, 0.0};
    ScatterAbsoluteSound(i.s, 1);
    EXPECT_EQ(i.s.BallPos[1].X, 0);
    EXPECT_EQ(i.s.BallPos[1].Y, -1065);
    EXPECT_FLOAT_EQ(i.s.Set[1].PositionY, static_cast<float>(-1065 / 2130.0 * 1.5));
}

TEST(Scatter, ABallAtTheRightEdgeTurnsAPositiveStepIntoOneToTheLeft) {
    Surfaces i;
    i.s.Set[0].PositionX = 1.5F;
    i.s.Set[0].PositionY = 1.5F;
    i.Chance.Sequence = {0.75, 1.0};
    ScatterRelSound(i.s, 0);
    EXPECT_FLOAT_EQ(i.s.Set[0].PositionX, 1.5F - 0.015F);
    EXPECT_FLOAT_EQ(i.s.Set[0].PositionY, 1.5F - 0.03F);
}

TEST(Scatter, AStepPastTheNegativeEdgeIsClamped) {
    Surfaces i;
    i.s.Set[0].PositionX = -1.5F;
    i.s.Set[0].PositionY = -1.49F;
    i.Chance.Sequence = {0.0, 0.0};
    ScatterRelSound(i.s, 0);
    EXPECT_FLOAT_EQ(i.s.Set[0].PositionX, -1.5F);
    EXPECT_FLOAT_EQ(i.s.Set[0].PositionY, -1.5F);
}

TEST(Scatter, RelativeStepsFollowThePreparedChanceOverALongWalk) {
    Surfaces i;
    // A prepared sequence, and the walk computed beside it.
    std::vector<double> draws;
    std::uint32_t seed = 12345;
    for (int n = 0; n < 8 * 400; ++n) {
        seed = seed * 1664525u + 1013904223u;
        draws.push_back(seed / 4294967296.0);
    }
    i.Chance.Sequence.assign(draws.begin(), draws.end());
    std::array<std::array<float, 2>, 4> walk{};
    std::size_t next = 0;
    for (int round = 0; round < 400; ++round) {
        ScatterRel(i.s);
        for (std::size_t ball = 0; ball < 4; ++ball) {
            for (std::size_t axis = 0; axis < 2; ++axis) {
                const double step = 0.06 * draws[next++] - 0.03;
                double to = walk[ball][axis] + step;
                if (to > 1.5) to = walk[ball][axis] - step;
                walk[ball][axis] = static_cast<float>(std::clamp(to, -1.5, 1.5));
            }
            ASSERT_NEAR(i.s.Set[ball].PositionX, walk[ball][0], 1e-5) << round;
            ASSERT_NEAR(i.s.Set[ball].PositionY, walk[ball][1], 1e-5) << round;
            // The two may differ in the last digit; the next step starts from the same place.
            walk[ball] = {i.s.Set[ball].PositionX, i.s.Set[ball].PositionY};
        }
    }
    EXPECT_TRUE(i.Chance.Sequence.empty());
}

TEST(PosMacros, HoldTheirTexts) {
    EXPECT_THAT(kPosMacros, testing::ElementsAre("Off", "Scatter Abs", "Scatter Rel", "Wander", "Wander Jump"));
}

TEST(PosMacros, TheScatteringsActOnceAndTheSameChoiceAgainDoesNothing) {
    for (const auto entry : std::initializer_list<std::int16_t>{1, 2}) {
        Surfaces i;
        i.s.WanderElapsed = 55;
        PosMacros_Click(i.s, entry);
        EXPECT_EQ(i.Chance.Draws, 8);
        EXPECT_EQ(i.s.PosMacro, entry);
        EXPECT_EQ(i.s.WanderElapsed, 55);
        PosMacros_Click(i.s, entry);
        WanderStep(i.s, 1000);
        EXPECT_EQ(i.Chance.Draws, 8);
    }
}

TEST(PosMacros, TheOtherEntriesRestartTheCount) {
    for (const auto entry : std::initializer_list<std::int16_t>{3, 4}) {
        Surfaces i;
        i.s.WanderElapsed = 55;
        PosMacros_Click(i.s, entry);
        EXPECT_EQ(i.s.WanderElapsed, 0);
        EXPECT_EQ(i.s.PosMacro, entry);
        EXPECT_EQ(i.Chance.Draws, 0);
        i.s.WanderElapsed = 55;
        PosMacros_Click(i.s, 0);
        EXPECT_EQ(i.s.WanderElapsed, 0);
        WanderStep(i.s, 5000);
        EXPECT_EQ(i.Chance.Draws, 0);
    }
}

TEST(PosMacros, AWanderChosenAgainStartsItsTimeAnew) {
    for (const auto entry : std::initializer_list<std::int16_t>{kMacroOff, kMacroWander, kMacroWanderJump}) {
        Surfaces i;
        PosMacros_Click(i.s, entry);
        i.s.WanderElapsed = 99;
        PosMacros_Click(i.s, entry);
        EXPECT_EQ(i.s.WanderElapsed, 0);
        EXPECT_EQ(i.s.PosMacro, entry);
    }
}

TEST(PosMacros, TheChoiceIsStoredAfterTheScatterSoThatARefusedOneLeavesItsEntryChosen) {
    for (const auto entry : std::initializer_list<std::int16_t>{kMacroScatterAbs, kMacroScatterRel}) {
        Surfaces i;
        i.Use3D();
        i.Fill(0);
        i.s.PosMacro = kMacroWander;
        i.Sound.Failures["SetPosition"] = sound_error::kGeneric;
        PosMacros_Click(i.s, entry);
        EXPECT_EQ(i.s.PosMacro, entry);
    }
}

TEST(Wander, MovesOneLoopTrackATenthOfASecondEachInTurn) {
    Surfaces i;
    PosMacros_Click(i.s, 3);
    i.Chance.Rest = 0.75;
    for (int step = 0; step < 5; ++step) {
        SCOPED_TRACE(step);
        WanderStep(i.s, 40);
        WanderStep(i.s, 59);
        EXPECT_EQ(i.Chance.Draws, 2 * step);
        EXPECT_EQ(i.s.WanderTrack, step % 4);
        WanderStep(i.s, 1);
        EXPECT_EQ(i.Chance.Draws, 2 * step + 2);
        EXPECT_EQ(i.s.WanderTrack, (step + 1) % 4);
        EXPECT_EQ(i.s.WanderElapsed, 0);
    }
    EXPECT_FLOAT_EQ(i.s.Set[0].PositionX, 0.03F);
    EXPECT_FLOAT_EQ(i.s.Set[1].PositionX, 0.015F);
    EXPECT_FLOAT_EQ(i.s.Set[3].PositionY, 0.015F);
}

TEST(Wander, JumpsEachHalfSecond) {
    Surfaces i;
    PosMacros_Click(i.s, 4);
    i.s.WanderTrack = 3;
    i.Chance.Sequence = {0.0, 0.5};
    WanderStep(i.s, 499);
    EXPECT_EQ(i.Chance.Draws, 0);
    WanderStep(i.s, 700);
    EXPECT_EQ(i.s.BallPos[3].X, -2130);
    EXPECT_EQ(i.s.BallPos[3].Y, 0);
    EXPECT_EQ(i.s.WanderTrack, 0);
    EXPECT_EQ(i.s.WanderElapsed, 0);
}

TEST(Wander, WithAllLoopTracksEmptyTheBallsStillWanderAndNothingIsSent) {
    Surfaces i;
    i.Use3D();
    PosMacros_Click(i.s, 3);
    i.Chance.Rest = 0.9;
    for (int tick = 0; tick < 4; ++tick) WanderStep(i.s, 100);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_GT(i.s.Set[row].PositionX, 0);
    EXPECT_EQ(i.Screen.Count("ShowMapBall 3"), 1);
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(FadeTimer, MovesTheFadesAndThenWanders) {
    Surfaces i;
    i.Fill(0);
    i.s.Run[0].Playing = True;
    i.s.Run[0].FadeState = kFalling;
    i.s.Run[0].FadeValue = 500;
    i.s.Run[0].FadeTarget = 0;
    PosMacros_Click(i.s, 3);
    i.Chance.Rest = 0.9;
    FadeTimer_Timer(i.s, 100);
    EXPECT_EQ(i.s.Set[0].Vol, 480);
    EXPECT_GT(i.s.Set[0].PositionX, 0);
}

TEST(FadeTimer, TheFadesComeFirst) {
    Surfaces i;
    i.Use3D();
    i.Fill(0);
    i.s.Run[0].Playing = True;
    i.s.Run[0].FadeState = kFalling;
    i.s.Run[0].FadeValue = 500;
    i.s.Run[0].FadeTarget = 0;
    PosMacros_Click(i.s, 3);
    FadeTimer_Timer(i.s, 100);
    EXPECT_THAT(i.Sound.Log,
                testing::ElementsAre(testing::StartsWith("SetVolume b0"), testing::StartsWith("SetPosition b0")));
}

}  // namespace
}  // namespace marvolin
