#include "performance/pad/pad_gesture.h"

#include <gtest/gtest.h>

#include "performance/surfaces.h"

namespace marvolin {
namespace {

using test::Surfaces;

constexpr double kPadHold = 15 * 15;  ///< the point at which the ball is held, twips

TEST(PadBallGesture, APressPutsThePointerOnTheBallAndThenConfinesItToThePad) {
    for (const auto button : std::initializer_list<std::int16_t>{kLeftButton, kRightButton}) {
        Surfaces i;
        PadBallGesture(i.s, Phase::Down, button, kPadHold, kPadHold);
        EXPECT_FALSE(i.s.CursorFree);
        // The ball's left is (2130 - 127.5) / 15 = 133.5 pixels; the pad begins at 100, 200 and is 300 pixels wide.
        EXPECT_THAT(i.Desk.Log, testing::ElementsAre("SetCursorPos 250,350", "ClipCursor 104,204,396,496"));
    }
}

TEST(PadBallGesture, OtherButtonsDoNothingOnPressAndMove) {
    Surfaces i;
    for (const auto button : std::initializer_list<std::int16_t>{kNoButton, kMiddleButton}) {
        PadBallGesture(i.s, Phase::Down, button, 0, 0);
        PadBallGesture(i.s, Phase::Move, button, 900, 900);
    }
    EXPECT_TRUE(i.s.CursorFree);
    EXPECT_TRUE(i.Desk.Log.empty());
    EXPECT_EQ(i.s.PadTable[2].X, 0);
    EXPECT_TRUE(i.Screen.Log.empty());
}

TEST(PadBallGesture, AMoveIsRelativeToTheBallAndHeardAtOnce) {
    Surfaces i;
    i.Fill(0);
    PadBallGesture(i.s, Phase::Move, kLeftButton, kPadHold + 300, kPadHold - 150);
    PadBallGesture(i.s, Phase::Move, kRightButton, kPadHold + 45, kPadHold);
    EXPECT_EQ(i.s.PadTable[2].X, 345);
    EXPECT_DOUBLE_EQ(i.s.PadTable[2].Y, -150);
    EXPECT_EQ(i.Sound.Count("SetVolume b0"), 2);
}

TEST(PadBallGesture, OnAPadThatIsNotSquareTheVerticalMoveGoesByTheRatioOfTheSides) {
    Surfaces i;
    PadGeometryInit(i.s, 4500, 2370);
    PadBallGesture(i.s, Phase::Move, kLeftButton, kPadHold + 100, kPadHold + 100);
    EXPECT_EQ(i.s.PadTable[2].X, 100);
    EXPECT_DOUBLE_EQ(i.s.PadTable[2].Y, 100 * 1065.0 / 2130.0);
}

TEST(PadBallGesture, TheFirstReleaseLetsThePointerGoAndMovesOnceMoreTheSecondDoesNothing) {
    Surfaces i;
    PadBallGesture(i.s, Phase::Down, kLeftButton, kPadHold, kPadHold);
    i.Clear();
    PadBallGesture(i.s, Phase::Up, kLeftButton, kPadHold + 60, kPadHold);
    EXPECT_TRUE(i.s.CursorFree);
    EXPECT_THAT(i.Desk.Log, testing::ElementsAre("ReleaseCursor"));
    EXPECT_EQ(i.s.PadTable[2].X, 60);
    PadBallGesture(i.s, Phase::Up, kLeftButton, kPadHold + 60, kPadHold);
    EXPECT_THAT(i.Desk.Log, testing::ElementsAre("ReleaseCursor"));
    EXPECT_EQ(i.s.PadTable[2].X, 60);
}

TEST(PadBallGesture, ThePointerIsFreeBeforeTheLastMoveIsMade) {
    Surfaces i;
    i.Fill(0);
    PadBallGesture(i.s, Phase::Down, kLeftButton, kPadHold, kPadHold);
    // When the service refuses, a box is shown that the player must be able to close.
    i.Sound.Failures["SetVolume"] = sound_error::kGeneric;
    std::vector<bool> free;
    i.Desk.WhenReported = [&] { free.push_back(i.s.CursorFree && i.Desk.Log.back() == "ReleaseCursor"); };
    PadBallGesture(i.s, Phase::Up, kLeftButton, kPadHold, kPadHold);
    EXPECT_THAT(free, testing::ElementsAre(true));
}

TEST(PadBallGesture, ADragBeyondTheEdgeStopsAtIt) {
    Surfaces i;
    PadBallGesture(i.s, Phase::Down, kLeftButton, kPadHold, kPadHold);
    PadBallGesture(i.s, Phase::Move, kLeftButton, kPadHold + 99999, kPadHold - 99999);
    EXPECT_EQ(i.s.PadTable[2].X, Surfaces::kHalf);
    EXPECT_EQ(i.s.PadTable[2].Y, -Surfaces::kHalf);
    EXPECT_EQ(i.s.StatusText, "W: 293, WB: 500, BW: 293, B: 0, ");
}

}  // namespace
}  // namespace marvolin
