#include "performance/ball_hand.h"

#include <gtest/gtest.h>

#include <cmath>

#include "parameters/position.h"
#include "performance/surfaces.h"

namespace marvolin {
namespace {

constexpr DoubleClickLimits kLimits{400, 5};
constexpr int kOrigin[2] = {100, 200};  // of both surfaces on the screen

/// Pad and map with a hand on their balls. The desktop puts the pointer where it is asked to while `Puts` is true.
struct Hand : test::Surfaces {
    Hand() {
        Desk.WherePointerIs = [this] { return Pointer; };
        Desk.PutPointer = [this](PixelPoint place) {
            if (Puts) Pointer = place;
        };
    }
    std::optional<DragSource> Press(int ball, PixelPoint at, std::int16_t button = kLeftButton,
                                    std::uint64_t time = 0) {
        Pointer = at;
        return Send(ball, {Phase::Down, button, At(at), time, true});
    }
    void Move(int ball, PixelPoint to, std::int16_t button = kLeftButton, bool held = true) {
        Pointer = to;
        Send(ball, {Phase::Move, button, At(to), 0, held});
    }
    void Release(int ball, PixelPoint at, std::int16_t button = kLeftButton) {
        Pointer = at;
        Send(ball, {Phase::Up, button, At(at), 0, false});
    }
    void Click(int ball, PixelPoint at, std::uint64_t time, std::int16_t button = kLeftButton) {
        Press(ball, at, button, time);
        Release(ball, Pointer, button);
    }
    /// A pixel of the ball, counted from its left and top.
    PixelPoint On(int ball, int right, int down) {
        const BallPoint place = BallPlace(s, ball);
        return {static_cast<int>(place.X / 15) + kOrigin[0] + right,
                static_cast<int>(place.Y / 15) + kOrigin[1] + down};
    }
    /// How far the ball stands from the centre, in pixels.
    PixelPoint Place(int ball) {
        const BallPoint twips =
            ball == kPadBall ? BallPoint{s.PadTable[s.PadTypeIndex].X, s.PadTable[s.PadTypeIndex].Y} : s.BallPos[ball];
        return {static_cast<int>(std::lround(twips.X / 15)), static_cast<int>(std::lround(twips.Y / 15))};
    }
    void StandAt(int ball, int x, int y) {
        if (ball == kPadBall) {
            PadMove(s, x * 15, y * 15, s.Geometry.PadHalfX, {.Absolute = true, .Apply = true});
        } else {
            PosMove(s, x * 15, y * 15, ball, {.Absolute = true, .Apply = true});
        }
    }

    PixelPoint Pointer;
    bool Puts = true;

private:
    static ScreenPoint At(PixelPoint p) { return {static_cast<double>(p.X), static_cast<double>(p.Y)}; }
    std::optional<DragSource> Send(int ball, const BallEvent& event) { return BallGesture(s, ball, event, kLimits); }
};

PixelPoint operator+(PixelPoint a, PixelPoint b) { return {a.X + b.X, a.Y + b.Y}; }

TEST(BallHand, ADragCountsFromWhereThePointerWasPut) {
    for (int ball : {0, kListenerBall, kPadBall}) {
        SCOPED_TRACE(ball);
        Hand hand;
        hand.Press(ball, hand.On(ball, 3, 2));
        const PixelPoint put = hand.Pointer;
        hand.Move(ball, put + PixelPoint{10, -5});
        EXPECT_EQ(hand.Place(ball), (PixelPoint{10, -5}));
        hand.Release(ball, put + PixelPoint{20, 7});
        EXPECT_EQ(hand.Place(ball), (PixelPoint{20, 7}));
        EXPECT_TRUE(hand.s.CursorFree);
    }
}

TEST(BallHand, ADragCountsFromThePressWhereThePointerCannotBePut) {
    Hand hand;
    hand.Puts = false;
    const PixelPoint press = hand.On(2, 3, 2);
    hand.Press(2, press);
    hand.Release(2, press + PixelPoint{20, 7});
    EXPECT_EQ(hand.Place(2), (PixelPoint{20, 7}));
}

TEST(BallHand, AMoveFromBeforeThePointerWasPutDoesNotMakeTheBallJump) {
    Hand hand;
    const PixelPoint press = hand.On(1, 2, 2);
    hand.Press(1, press);
    const PixelPoint put = hand.Pointer;
    ASSERT_NE(put, press);
    BallGesture(hand.s, 1, {Phase::Move, kLeftButton, {press.X + 1.0, press.Y + 0.0}, 0, true}, kLimits);
    EXPECT_EQ(hand.Place(1), (PixelPoint{1, 0}));
    hand.Move(1, put + PixelPoint{6, 4});
    EXPECT_EQ(hand.Place(1), (PixelPoint{6, 4}));
}

TEST(BallHand, TheSecondQuickPressOfTheButtonCentresTheBallThatWasClicked) {
    for (int ball : {3, kListenerBall, kPadBall}) {
        SCOPED_TRACE(ball);
        Hand hand;
        hand.StandAt(ball, 40, -30);
        hand.Click(ball, hand.On(ball, 3, 2), 1000);
        EXPECT_EQ(hand.Place(ball), (PixelPoint{40, -30}));
        hand.Press(ball, hand.Pointer, kLeftButton, 1399);
        EXPECT_EQ(hand.Place(ball), (PixelPoint{0, 0}));
        EXPECT_TRUE(hand.s.CursorFree);
        hand.Move(ball, hand.Pointer + PixelPoint{30, 30});
        hand.Move(ball, hand.Pointer + PixelPoint{30, 30});
        hand.Release(ball, hand.Pointer);
        EXPECT_EQ(hand.Place(ball), (PixelPoint{0, 0}));
    }
}

TEST(BallHand, PressesTooFarApartInTimeOrOfTwoButtonsAreNoDoubleClick) {
    struct Case {
        std::int16_t Second;
        std::uint64_t Time;
    };
    for (const Case& at : {Case{kLeftButton, 1400}, Case{kLeftButton, 900}, Case{kRightButton, 1100}}) {
        SCOPED_TRACE(at.Time);
        Hand hand;
        hand.StandAt(kPadBall, 40, -30);
        hand.Click(kPadBall, hand.On(kPadBall, 3, 2), 1000);
        hand.Click(kPadBall, hand.Pointer, at.Time, at.Second);
        EXPECT_EQ(hand.Place(kPadBall), (PixelPoint{40, -30}));
    }
}

TEST(BallHand, TheRightButtonCentresTheBallOfThePadAndNoneOfTheMap) {
    for (int ball : {0, kListenerBall, kPadBall}) {
        SCOPED_TRACE(ball);
        Hand hand;
        hand.StandAt(ball, 40, -30);
        hand.Click(ball, hand.On(ball, 3, 2), 1000, kRightButton);
        hand.Click(ball, hand.Pointer, 1100, kRightButton);
        EXPECT_EQ(hand.Place(ball), ball == kPadBall ? (PixelPoint{0, 0}) : (PixelPoint{40, -30}));
    }
}

TEST(BallHand, ADragBetweenTwoPressesMakesThemNoDoubleClick) {
    for (int way : {5, 6}) {
        SCOPED_TRACE(way);
        Hand hand;
        hand.StandAt(0, 40, -30);
        hand.Press(0, hand.On(0, 3, 2), kLeftButton, 1000);
        const PixelPoint put = hand.Pointer;
        hand.Move(0, put + PixelPoint{0, way});
        hand.Release(0, put);
        hand.Click(0, put, 1100);
        EXPECT_EQ(hand.Place(0), way == 5 ? (PixelPoint{0, 0}) : (PixelPoint{40, -30}));
    }
}

TEST(BallHand, ASecondPressThatFallsOnABallAboveCentresTheOneBelow) {
    Hand hand;
    hand.StandAt(0, 40, 40);
    hand.StandAt(3, 48, 48);
    hand.Click(0, hand.On(0, 3, 2), 1000);
    hand.Press(3, hand.Pointer, kLeftButton, 1100);
    EXPECT_EQ(hand.Place(0), (PixelPoint{0, 0}));
    hand.Move(3, hand.Pointer + PixelPoint{9, 9});
    hand.Release(3, hand.Pointer);
    EXPECT_EQ(hand.Place(3), (PixelPoint{48, 48}));
}

TEST(BallHand, ARightPressOnALoopTracksBallBeginsTheFadeDrag) {
    Hand hand;
    EXPECT_EQ(hand.Press(2, hand.On(2, 3, 2), kRightButton), (DragSource{"PosBall", 2, "4"}));
    EXPECT_FALSE(hand.Press(kListenerBall, hand.On(kListenerBall, 3, 2), kRightButton, 5000));
    EXPECT_FALSE(hand.Press(kPadBall, hand.On(kPadBall, 3, 2), kRightButton, 5000));
}

TEST(BallHand, AButtonStillDownAfterTheWindowHasLostThePointerDragsNothing) {
    for (int ball : {1, kListenerBall, kPadBall}) {
        SCOPED_TRACE(ball);
        Hand hand;
        hand.Press(ball, hand.On(ball, 3, 2));
        hand.Release(ball, hand.Pointer);  // what the window sends for a lost pointer
        hand.Move(ball, hand.Pointer + PixelPoint{30, 30}, kLeftButton, false);
        EXPECT_EQ(hand.Place(ball), (PixelPoint{0, 0}));
    }
}

TEST(BallHand, ARightDragTurnsTheListenerByTheDistanceOnTheScreen) {
    Hand hand;
    const PixelPoint press = hand.On(kListenerBall, 3, 2);
    hand.Press(kListenerBall, press, kRightButton, 1000);
    hand.Move(kListenerBall, press + PixelPoint{0, -10}, kRightButton);
    EXPECT_EQ(hand.s.ListenerAngle, 45);
    hand.Release(kListenerBall, press + PixelPoint{0, -10}, kRightButton);
    EXPECT_EQ(hand.s.ListenerAngle, 45);
}

TEST(BallHand, TwoButtonsTogetherNeitherCageThePointerNorMakeABallJump) {
    constexpr std::array<std::int16_t, 3> kButtons{kLeftButton, kRightButton, kMiddleButton};
    for (int ball : {0, kListenerBall, kPadBall}) {
        for (const std::int16_t first : kButtons) {
            for (const std::int16_t second : kButtons) {
                for (const bool firstUpFirst : {true, false}) {
                    if (first == second) continue;
                    SCOPED_TRACE(testing::Message() << ball << ": " << first << ", " << second << ", " << firstUpFirst);
                    Hand hand;
                    const auto both = static_cast<std::int16_t>(first | second);
                    hand.Press(ball, hand.On(ball, 15, 15), first);
                    PixelPoint at = hand.Pointer;
                    const auto go = [&](std::int16_t button) {
                        at = at + PixelPoint{2, 1};
                        hand.Move(ball, at, button);
                    };
                    go(first);
                    hand.Press(ball, at, second, 10);
                    at = hand.Pointer;
                    go(both);
                    hand.Release(ball, at, firstUpFirst ? first : second);
                    go(firstUpFirst ? second : first);
                    hand.Release(ball, at, firstUpFirst ? second : first);
                    EXPECT_TRUE(hand.s.CursorFree);
                    EXPECT_EQ(hand.s.Drag.Dragging, False);
                    // At most as far as the hand went.
                    EXPECT_LE(std::abs(hand.Place(ball).X), 6);
                    EXPECT_LE(std::abs(hand.Place(ball).Y), 3);
                    // Six pixels turn the listener by 27 degrees.
                    const int angle = hand.s.ListenerAngle;
                    EXPECT_LE(std::min(angle, 360 - angle), 27);
                    // A plain drag works afterwards.
                    const PixelPoint before = hand.Place(ball);
                    hand.Press(ball, hand.On(ball, 15, 15), kLeftButton, 5000);
                    hand.Move(ball, hand.Pointer + PixelPoint{10, 0});
                    hand.Release(ball, hand.Pointer);
                    EXPECT_EQ(hand.Place(ball).X - before.X, 10);
                }
            }
        }
    }
}

TEST(BallHand, AStepIsFourPixels) {
    for (int ball : {1, kListenerBall, kPadBall}) {
        SCOPED_TRACE(ball);
        Hand hand;
        BallStep(hand.s, ball, 1, 0);
        BallStep(hand.s, ball, 0, -2);
        EXPECT_EQ(hand.Place(ball), (PixelPoint{4, -8}));
        BallCentre(hand.s, ball);
        EXPECT_EQ(hand.Place(ball), (PixelPoint{0, 0}));
    }
}

TEST(BallHand, TheTwistFollowsTheHandAlongItsLineWithoutMovingThePointer) {
    Hand hand;
    hand.Press(kTwistBall, {500, 600});
    EXPECT_EQ(hand.Pointer, (PixelPoint{500, 600}));
    hand.Move(kTwistBall, {530, 900});
    EXPECT_EQ(hand.s.TwistPosition, 450);
    hand.Move(kTwistBall, {10, 600});
    EXPECT_EQ(hand.s.TwistPosition, -2130);
    hand.Move(kTwistBall, {490, 600});
    EXPECT_EQ(hand.s.TwistPosition, -150) << "the way counts from the press, also beyond an end";
    hand.Release(kTwistBall, {480, 600});
    EXPECT_EQ(hand.s.TwistPosition, -300);
    EXPECT_TRUE(hand.s.CursorFree);
    hand.Move(kTwistBall, {700, 600}, kNoButton, false);
    EXPECT_EQ(hand.s.TwistPosition, -300);
}

TEST(BallHand, ADoubleClickBringsTheTwistToZeroWithEitherButton) {
    for (const auto button : std::initializer_list<std::int16_t>{kLeftButton, kRightButton}) {
        Hand hand;
        BallStep(hand.s, kTwistBall, 3, 0);
        EXPECT_EQ(hand.s.TwistPosition, 180);
        BallStep(hand.s, kTwistBall, 0, -1, 1);
        EXPECT_EQ(hand.s.TwistPosition, 195) << "up is to the right";
        hand.Click(kTwistBall, {500, 600}, 1000, button);
        EXPECT_EQ(hand.s.TwistPosition, 195);
        hand.Click(kTwistBall, {500, 600}, 1200, button);
        EXPECT_EQ(hand.s.TwistPosition, 0);
    }
}

}  // namespace
}  // namespace marvolin
