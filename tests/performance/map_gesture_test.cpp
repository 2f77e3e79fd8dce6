#include "performance/map/map_gesture.h"

#include <gtest/gtest.h>

#include "core/drag_source.h"
#include "parameters/position.h"
#include "parameters/scroll_events.h"
#include "performance/map/map_events.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

constexpr double kBallHold = 15 * 15;

TEST(PosGesture, ALeftPressTakesThePointerToTheBallAndKeepsItOnTheMap) {
    Surfaces i;
    i.Use3D();
    PosMove(i.s, 157, -293, 1, {.Absolute = true, .Apply = true});
    i.Clear();
    EXPECT_FALSE(PosGesture(i.s, Phase::Down, 1, kLeftButton, kBallHold, kBallHold));
    EXPECT_FALSE(i.s.CursorFree);
    EXPECT_THAT(i.Desk.Log, testing::ElementsAre("SetCursorPos 260,330", "ClipCursor 104,204,396,496"));
}

TEST(PosGesture, ALeftPressStartsTheCountersOfTheBall) {
    Surfaces i;
    i.s.EventWanted[ScriptEvent::OnPositionScroll] = 1;
    i.s.ScrollSensitivity[1] = 1;
    PosMove(i.s, 710, 0, 0, {.Absolute = true, .Apply = true});
    PosMove(i.s, 0, 1420, kListenerBall, {.Absolute = true, .Apply = true});
    PosGesture(i.s, Phase::Down, 0, kLeftButton, kBallHold, kBallHold);
    PosScrollEvent(i.s, 0, 1, 0, Force::Yes, kMapScroll);
    ASSERT_EQ(i.Scripts.Events.size(), 1u);
    EXPECT_NEAR(i.Scripts.Events[0].Arguments[3], 0.5, 1e-6);
    EXPECT_FALSE(i.s.ScrollDelta[kJoystickScroll]);
    PosGesture(i.s, Phase::Down, kListenerBall, kLeftButton, kBallHold, kBallHold);
    for (int counter : {kMapScroll, kJoystickScroll}) {
        PosScrollEvent(i.s, kListenerBall, 0, 1.5, Force::Yes, counter);
        EXPECT_NEAR(i.Scripts.Events.back().Arguments[4], 0.5, 1e-6);
    }
}

TEST(PosGesture, AMoveShowsThePlaceOfADraggedBall) {
    Surfaces i;
    PosGesture(i.s, Phase::Move, 2, kNoButton, 10, 10);
    PosGesture(i.s, Phase::Move, kListenerBall, kNoButton, 10, 10);
    EXPECT_EQ(i.s.StatusText, "");
    PosGesture(i.s, Phase::Move, 2, kLeftButton, kBallHold + 710, kBallHold);
    EXPECT_EQ(i.s.StatusText, "0.5, 0");
    EXPECT_EQ(i.Screen.Count("ShowStatusText"), 1);
}

TEST(PosGesture, TheBoxesDecideWhetherTheSoundFollowsTheDragOrOnlyItsEnd) {
    for (int ball : {1, kListenerBall}) {
        for (bool follow : {true, false}) {
            SCOPED_TRACE(ball);
            Surfaces i;
            i.Use3D();
            i.Fill(1);
            i.s.PositionUpdate = Table<bool, 3>{{{ball == 4 ? follow : !follow, ball == 4 ? !follow : follow, false}}};
            const std::string call = ball == 4 ? "SetListenerPosition" : "SetPosition b0";
            PosGesture(i.s, Phase::Down, ball, kLeftButton, kBallHold, kBallHold);
            PosGesture(i.s, Phase::Move, ball, kLeftButton, kBallHold + 100, kBallHold);
            EXPECT_EQ(i.Sound.Count(call), follow ? 1 : 0);
            EXPECT_EQ(i.s.BallPos[ball].X, 100);
            PosGesture(i.s, Phase::Up, ball, kLeftButton, kBallHold + 10, kBallHold - 20);
            EXPECT_EQ(i.Sound.Count(call), follow ? 2 : 1);
            EXPECT_EQ(i.s.BallPos[ball].X, 110);
            EXPECT_EQ(i.s.BallPos[ball].Y, -20);
            EXPECT_EQ(i.Desk.Log.back(), "ReleaseCursor");
            EXPECT_TRUE(i.s.CursorFree);
        }
    }
}

TEST(PosGesture, ASecondReleaseDoesNothing) {
    Surfaces i;
    PosGesture(i.s, Phase::Down, 0, kLeftButton, kBallHold, kBallHold);
    PosGesture(i.s, Phase::Up, 0, kLeftButton, kBallHold, kBallHold);
    i.Clear();
    PosGesture(i.s, Phase::Up, 0, kLeftButton, kBallHold + 90, kBallHold);
    EXPECT_EQ(i.s.BallPos[0].X, 0);
    EXPECT_TRUE(i.Desk.Log.empty());
}

TEST(PosGesture, ThePointerIsFreeBeforeTheLastMoveIsMade) {
    Surfaces i;
    i.Use3D();
    i.Fill(1);
    PosGesture(i.s, Phase::Down, 1, kLeftButton, kBallHold, kBallHold);
    // When the service refuses, a box is shown that the player must be able to close.
    i.Sound.Failures["SetPosition"] = sound_error::kGeneric;
    std::vector<bool> free;
    i.Desk.WhenReported = [&] { free.push_back(i.s.CursorFree && i.Desk.Log.back() == "ReleaseCursor"); };
    PosGesture(i.s, Phase::Up, 1, kLeftButton, kBallHold, kBallHold);
    EXPECT_THAT(free, testing::ElementsAre(true));
}

TEST(PosGesture, ARightPressOnALoopTrackStartsTheFadeDragOfTheWindow) {
    Surfaces i;
    for (int ball = 0; ball < 4; ++ball) EXPECT_TRUE(PosGesture(i.s, Phase::Down, ball, kRightButton, 0, 0));
    EXPECT_FALSE(PosGesture(i.s, Phase::Down, kListenerBall, kRightButton, 0, 0));
    EXPECT_FALSE(PosGesture(i.s, Phase::Down, 0, kMiddleButton, 0, 0));
    EXPECT_TRUE(i.s.CursorFree);
}

TEST(PosGesture, ARightDragTurnsTheListenerThreeDegreesForTenTwipsDownwardsToTheLeft) {
    Surfaces i;
    i.Use3D();
    i.s.ListenerAngle = 100;
    PosGesture(i.s, Phase::Down, kListenerBall, kRightButton, 0, 50);
    EXPECT_EQ(i.s.Drag.Dragging, True);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 60);
    EXPECT_EQ(i.s.ListenerAngle, 97);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 40);
    EXPECT_EQ(i.s.ListenerAngle, 103);
    // Less than a degree upwards turns by one, downwards by none.
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 49);
    EXPECT_EQ(i.s.ListenerAngle, 101);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 51);
    EXPECT_EQ(i.s.ListenerAngle, 100);
    EXPECT_EQ(i.Sound.Count("SetOrientation"), 0);
    PosGesture(i.s, Phase::Up, kListenerBall, kRightButton, 0, 51);
    EXPECT_EQ(i.Sound.Count("SetOrientation"), 1);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 900);
    EXPECT_EQ(i.s.ListenerAngle, 100);
}

TEST(PosGesture, WithItsBoxOnTheHeadingIsHeardWhileItTurns) {
    Surfaces i;
    i.Use3D();
    i.s.PositionUpdate[2] = true;
    PosGesture(i.s, Phase::Down, kListenerBall, kRightButton, 0, 0);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 10);
    EXPECT_EQ(i.Sound.Count("SetOrientation"), 1);
    EXPECT_EQ(i.s.ListenerAngle, 357);
}

TEST(PosGesture, ASecondButtonEndsADragWhereTheBallStandsAndIsHeard) {
    for (int ball : {1, kListenerBall}) {
        for (const auto second : std::initializer_list<std::int16_t>{kRightButton, kMiddleButton}) {
            SCOPED_TRACE(testing::Message() << ball << ", " << second);
            Surfaces i;
            i.Use3D();
            i.Fill(1);
            i.s.PositionUpdate = Table<bool, 3>{{{false, false, false}}};
            PosGesture(i.s, Phase::Down, ball, kLeftButton, kBallHold, kBallHold);
            PosGesture(i.s, Phase::Move, ball, kLeftButton, kBallHold + 100, kBallHold);
            i.Clear();
            EXPECT_EQ(PosGesture(i.s, Phase::Down, ball, second, kBallHold, 9999),
                      second == kRightButton && ball != kListenerBall);
            EXPECT_TRUE(i.s.CursorFree);
            EXPECT_THAT(i.Desk.Log, testing::ElementsAre("ReleaseCursor"));
            EXPECT_EQ(i.Sound.Count(ball == 1 ? "SetPosition b0" : "SetListenerPosition"), 1);
            EXPECT_EQ(i.s.BallPos[ball].X, 100);
            PosGesture(i.s, Phase::Up, ball, second, kBallHold, 9999);
            PosGesture(i.s, Phase::Up, ball, kLeftButton, kBallHold + 50, kBallHold);
            EXPECT_EQ(i.s.BallPos[ball].X, 100);
            EXPECT_TRUE(i.s.CursorFree);
            EXPECT_EQ(i.s.Drag.Dragging, False);
        }
    }
}

TEST(PosGesture, ALeftPressEndsTheTurnOfTheListener) {
    Surfaces i;
    i.Use3D();
    PosGesture(i.s, Phase::Down, kListenerBall, kRightButton, 0, 50);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 40);
    EXPECT_EQ(i.s.ListenerAngle, 3);
    PosGesture(i.s, Phase::Down, kListenerBall, kLeftButton, kBallHold, kBallHold);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    EXPECT_EQ(i.Sound.Count("SetOrientation"), 1);
    EXPECT_FALSE(i.s.CursorFree);
    PosGesture(i.s, Phase::Move, kListenerBall, kLeftButton | kRightButton, kBallHold, kBallHold + 900);
    EXPECT_EQ(i.s.ListenerAngle, 3);
    PosGesture(i.s, Phase::Up, kListenerBall, kLeftButton, kBallHold, kBallHold);
    EXPECT_TRUE(i.s.CursorFree);
}

TEST(PosGesture, ThePointerOnABallAtAnyEdgeLiesWithinTheRectangleThatKeepsIt) {
    for (const double x : {-Surfaces::kHalf, Surfaces::kHalf}) {
        for (const double y : {-Surfaces::kHalf, Surfaces::kHalf}) {
            Surfaces i;
            i.Use3D();
            PosMove(i.s, x, y, 0, {.Absolute = true, .Apply = true});
            i.Clear();
            PosGesture(i.s, Phase::Down, 0, kLeftButton, kBallHold, kBallHold);
            const std::string pointer = std::string(x < 0 ? "108" : "392") + "," + (y < 0 ? "208" : "492");
            EXPECT_THAT(i.Desk.Log, testing::ElementsAre("SetCursorPos " + pointer, "ClipCursor 104,204,396,496"));
        }
    }
}

TEST(PosGesture, AVeryLongTurnIsLimited) {
    Surfaces i;
    PosGesture(i.s, Phase::Down, kListenerBall, kRightButton, 0, 0);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, 1e9);
    EXPECT_EQ(i.s.ListenerAngle, 40);
    PosGesture(i.s, Phase::Move, kListenerBall, kRightButton, 0, -1e9);
    EXPECT_EQ(i.s.ListenerAngle, 320);
}

TEST(PosGesture, TheWanderStepMovesADraggedBallAndTheDragGoesOnFromThere) {
    Surfaces i;
    PosGesture(i.s, Phase::Down, 0, kLeftButton, kBallHold, kBallHold);
    PosMove(i.s, 500, 0, 0, {.Absolute = true, .Apply = true});
    PosGesture(i.s, Phase::Move, 0, kLeftButton, kBallHold + 15, kBallHold);
    EXPECT_EQ(i.s.BallPos[0].X, 515);
}

struct Scripted : Surfaces {
    Scripted() {
        s.EventWanted[ScriptEvent::OnPositionScroll] = 1;
        s.EventWanted[ScriptEvent::OnPositionChange] = 1;
        s.ScrollSensitivity[1] = 1;
    }
};

TEST(PosEvents, ADragSendsItsScrollsAndAtItsEndTheChangeAndOneMoreScroll) {
    Scripted i;
    PosGesture(i.s, Phase::Down, 2, kLeftButton, kBallHold, kBallHold);
    PosGesture(i.s, Phase::Move, 2, kLeftButton, kBallHold + 710, kBallHold);
    PosGesture(i.s, Phase::Up, 2, kLeftButton, kBallHold + 710, kBallHold - 710);
    ASSERT_EQ(i.Scripts.Events.size(), 3u);
    EXPECT_EQ(i.Scripts.Events[0].Which, ScriptEvent::OnPositionScroll);
    EXPECT_THAT(i.Scripts.Events[0].Arguments, testing::ElementsAre(3, 0.5, 0, 0.5, 0));
    EXPECT_EQ(i.Scripts.Events[1].Which, ScriptEvent::OnPositionChange);
    EXPECT_THAT(i.Scripts.Events[1].Arguments, testing::ElementsAre(3, 1, -0.5));
    EXPECT_EQ(i.Scripts.Events[2].Which, ScriptEvent::OnPositionScroll);
    EXPECT_THAT(i.Scripts.Events[2].Arguments, testing::ElementsAre(3, 1, -0.5, 0.5, -0.5));
}

TEST(PosEvents, TheEndOfADragIsSentHoweverFewMovesPassedTheCounter) {
    Scripted i;
    i.s.ScrollSensitivity[1] = 100;
    PosGesture(i.s, Phase::Down, 2, kLeftButton, kBallHold, kBallHold);
    PosGesture(i.s, Phase::Move, 2, kLeftButton, kBallHold + 710, kBallHold);
    EXPECT_TRUE(i.Scripts.Events.empty());
    PosGesture(i.s, Phase::Up, 2, kLeftButton, kBallHold, kBallHold);
    ASSERT_EQ(i.Scripts.Events.size(), 2u);
    EXPECT_EQ(i.Scripts.Events[0].Which, ScriptEvent::OnPositionChange);
    EXPECT_EQ(i.Scripts.Events[1].Which, ScriptEvent::OnPositionScroll);
}

TEST(PosEvents, TheListenerIsNumberFive) {
    Scripted i;
    PosScrollEvent(i.s, kListenerBall, 0.25, 0.5, Force::No, kJoystickScroll);
    EXPECT_THAT(i.Scripts.Events[0].Arguments, testing::ElementsAre(5, 0.25, 0.5, 0.25, 0.5));
}

TEST(PosEvents, OnlyEverySoManyMovesPassAndForcePassesAtOnce) {
    Scripted i;
    i.s.ScrollSensitivity[1] = 4;
    for (int n = 1; n <= 8; ++n) PosScrollEvent(i.s, 0, n, 0, Force::No, kMapScroll);
    ASSERT_EQ(i.Scripts.Events.size(), 2u);
    EXPECT_THAT(i.Scripts.Events[1].Arguments, testing::ElementsAre(1, 8, 0, 4, 0));
    PosScrollEvent(i.s, 0, 9, 0, Force::Yes, kMapScroll);
    EXPECT_EQ(i.Scripts.Events.size(), 3u);
}

TEST(PosEvents, NothingIsSentOrCountedWhileTheEventIsOffOrAnotherEventRuns) {
    Scripted i;
    i.s.EventWanted[ScriptEvent::OnPositionScroll] = 0;
    PosScrollEvent(i.s, 0, 1, 1, Force::Yes, kMapScroll);
    EXPECT_FALSE(i.s.ScrollDelta[kMapScroll]);
    i.s.EventWanted[ScriptEvent::OnPositionScroll] = 1;
    i.s.ScriptBusy = true;
    PosScrollEvent(i.s, 0, 1, 1, Force::Yes, kMapScroll);
    PosChangeEvent(i.s, 0, 1, 1);
    EXPECT_TRUE(i.Scripts.Events.empty());
}

TEST(PosEvents, AScriptThatMovesABallIsNotCalledFromInsideItself) {
    Scripted i;
    i.Scripts.During = [&](ScriptEvent) {
        PosScrollEvent(i.s, 1, 1, 1, Force::Yes, kMapScroll);
        PosChangeEvent(i.s, 1, 1, 1);
    };
    PosScrollEvent(i.s, 0, 1, 1, Force::Yes, kMapScroll);
    EXPECT_EQ(i.Scripts.Events.size(), 1u);
    EXPECT_FALSE(i.s.ScriptBusy);
    PosChangeEvent(i.s, 0, 1, 1);
    EXPECT_EQ(i.Scripts.Events.size(), 2u);
}

TEST(PosEvents, AFailingScriptIsReportedAndTheMapStaysAsItIs) {
    Scripted i;
    i.Scripts.Fail = true;
    PosGesture(i.s, Phase::Down, 0, kLeftButton, kBallHold, kBallHold);
    PosGesture(i.s, Phase::Up, 0, kLeftButton, kBallHold + 30, kBallHold);
    EXPECT_THAT(i.Scripts.Reports, testing::ElementsAre("OnPosScroll", "OnPosScroll"));
    EXPECT_EQ(i.s.BallPos[0].X, 30);
    EXPECT_FALSE(i.s.ScriptBusy);
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnPositionScroll], 0);
}

}  // namespace
}  // namespace marvolin
