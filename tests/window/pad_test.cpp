#include <gtest/gtest.h>

#include "hand.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "stage.h"
#include "window/descriptions/described.h"
#include "window/surfaces/pad_surface.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin {
namespace {

constexpr int kBeyond = 400;  // pixels, farther than the pad is wide

struct Pad : test::Stage {
    Pad() {
        PadGeometryInit(s, TabMixPad::InnerWidth(), TabMixPad::InnerHeight());
        PadListInit(s);
        PadTablesInit(s);
        Settle();
    }
    QPoint Ball() { return InWindow("PadBall", Middle("PadBall")); }
    void Drag(QPoint way, Qt::MouseButton button = Qt::LeftButton) {
        const QPoint start = Ball();
        QTest::mousePress(Form->windowHandle(), button, {}, start);
        QTest::mouseMove(Form->windowHandle(), start + way);
        QTest::mouseRelease(Form->windowHandle(), button, {}, start + way);
    }
    /// Lets a press move the pointer to the centre of the ball; the place of the press, well apart from there.
    QPoint PutByPress() {
        const QPoint press = Ball() - QPoint(7, 7);
        test::LetPointerBePut(Desk, *dynamic_cast<TabMixPad*>(At("MixPadPage"))->Pad, Form->mapToGlobal(press));
        return press;
    }
    QWindow& Window() { return *Form->windowHandle(); }
    QPoint Pointer() { return Form->mapFromGlobal(QCursor::pos()); }
    QPointF Place() { return {Record().X, Record().Y}; }
    void StandAt(double x, double y) { PadMove(s, x, y, s.Geometry.PadHalfX, {.Absolute = true, .Apply = true}); }
    QComboBox& List(const char* name) { return *dynamic_cast<QComboBox*>(At(name)); }
    QPoint Centre() { return InWindow("Pad", Middle("Pad")); }
    PadRecord& Record() { return s.PadTable[s.PadTypeIndex]; }
};

TEST(MixPad, TheBallIsDraggedToEachCornerWithEitherButtonAndStopsThere) {
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        for (const QPoint& way : {QPoint(-kBeyond, -kBeyond), QPoint(kBeyond, -kBeyond), QPoint(kBeyond, kBeyond),
                                  QPoint(-kBeyond, kBeyond)}) {
            SCOPED_TRACE(testing::Message() << button << " to " << way.x() << "," << way.y());
            Pad pad;
            pad.Drag(way, button);
            EXPECT_DOUBLE_EQ(pad.Record().X, way.x() > 0 ? pad.s.Geometry.PadHalfX : -pad.s.Geometry.PadHalfX);
            EXPECT_DOUBLE_EQ(pad.Record().Y, way.y() > 0 ? pad.s.Geometry.PadHalfY : -pad.s.Geometry.PadHalfY);
            EXPECT_TRUE(pad.s.CursorFree);
            const QPoint ball = pad.Ball() - pad.Centre();
            EXPECT_NEAR(ball.x(), way.x() > 0 ? 142 : -142, 1);
            EXPECT_NEAR(ball.y(), way.y() > 0 ? 142 : -142, 1);
            // The ball and its ring are not clipped.
            EXPECT_TRUE(pad.At("Pad")->rect().contains(pad.At("PadBall")->geometry().adjusted(2, 2, -2, -2)));
        }
    }
}

TEST(MixPad, CornerToCornerCrossfadesTheChannels) {
    Pad pad;
    pad.Drag({-kBeyond, -kBeyond});
    EXPECT_EQ(pad.s.ChannelVol[1], 0);
    EXPECT_EQ(pad.s.ChannelVol[3], 500);
    pad.Drag({kBeyond, kBeyond});
    EXPECT_EQ(pad.s.ChannelVol[1], 500);
    EXPECT_EQ(pad.s.ChannelVol[3], 0);
    EXPECT_EQ(pad.s.StatusText, "W: 0, WB: 293, BW: 500, B: 293, ");
}

TEST(MixPad, TheBallFollowsTheHandPixelByPixel) {
    Pad pad;
    pad.Drag({30, -20});
    EXPECT_DOUBLE_EQ(pad.Record().X, 450);
    EXPECT_DOUBLE_EQ(pad.Record().Y, -300);
    pad.Drag({-10, 5});
    EXPECT_DOUBLE_EQ(pad.Record().X, 300);
    EXPECT_DOUBLE_EQ(pad.Record().Y, -225);
}

TEST(MixPad, APressBesideTheMiddleOfTheBallDoesNotMoveIt) {
    Pad pad;
    const QPoint edge = pad.Ball() + QPoint(6, 5);
    QTest::mousePress(pad.Form->windowHandle(), Qt::LeftButton, {}, edge);
    EXPECT_FALSE(pad.s.CursorFree);
    QTest::mouseRelease(pad.Form->windowHandle(), Qt::LeftButton, {}, edge);
    EXPECT_DOUBLE_EQ(pad.Record().X, 0);
    EXPECT_DOUBLE_EQ(pad.Record().Y, 0);
}

TEST(MixPad, TheMiddleButtonMovesNothing) {
    Pad pad;
    pad.Drag({50, 50}, Qt::MiddleButton);
    EXPECT_DOUBLE_EQ(pad.Record().X, 0);
    EXPECT_TRUE(pad.s.CursorFree);
}

TEST(MixPad, ADoubleClickOnTheBallCentresIt) {
    Pad pad;
    pad.Drag({-kBeyond, -kBeyond});
    pad.DoubleClick("PadBall");
    EXPECT_DOUBLE_EQ(pad.Record().X, 0);
    EXPECT_DOUBLE_EQ(pad.Record().Y, 0);
    EXPECT_EQ(pad.s.ChannelVol[3], 0);
    EXPECT_EQ(pad.s.StatusText, "W: 500, WB: 500, BW: 500, B: 500, ");
    EXPECT_TRUE(pad.s.CursorFree);
}

TEST(MixPad, TwoPressesApartBecauseThePointerWasMovedAreADoubleClickOfEitherButton) {
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        SCOPED_TRACE(button);
        Pad pad;
        pad.StandAt(900, -600);
        const QPoint press = pad.PutByPress();
        test::QuickClick(pad.Window(), press, button);
        EXPECT_EQ(pad.Place(), QPointF(900, -600));
        const QPoint put = pad.Pointer();
        ASSERT_GT((put - press).manhattanLength(), 10);
        test::QuickClick(pad.Window(), put, button);
        EXPECT_EQ(pad.Place(), QPointF(0, 0));
        EXPECT_EQ(pad.s.StatusText, "W: 500, WB: 500, BW: 500, B: 500, ");
        EXPECT_TRUE(pad.s.CursorFree);
    }
}

TEST(MixPad, ADoubleClickActsOnceAndTheNextPressGrabsTheBall) {
    Pad pad;
    pad.Fill(0);
    pad.StandAt(900, -600);
    pad.Sound.Log.clear();
    const QPoint ball = pad.Ball();
    test::QuickClick(pad.Window(), ball);
    const auto clicked = pad.Sound.Log.size();
    QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, ball, 60);
    EXPECT_EQ(pad.Place(), QPointF(0, 0));
    EXPECT_EQ(pad.Sound.Log.size(), clicked + 1);
    EXPECT_TRUE(pad.s.CursorFree);
    QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, ball);
    EXPECT_EQ(pad.Sound.Log.size(), clicked + 1);
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
    QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, pad.Ball(), 60);
    EXPECT_FALSE(pad.s.CursorFree);
    QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, pad.Ball());
}

TEST(MixPad, ACentredBallStaysUntilTheButtonIsReleased) {
    for (bool put : {false, true}) {
        SCOPED_TRACE(put);
        Pad pad;
        pad.StandAt(900, -600);
        const QPoint place = put ? pad.PutByPress() : pad.Ball();
        // All events are queued before the first is handled.
        QTest::mouseDClick(&pad.Window(), Qt::LeftButton, {}, place);
        EXPECT_EQ(pad.Place(), QPointF(0, 0));
        EXPECT_TRUE(pad.s.CursorFree);
        test::QuickClick(pad.Window(), pad.Ball());
        const QPoint centre = pad.Ball();
        QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, centre, 60);
        QTest::mouseMove(&pad.Window(), centre + QPoint(30, 30));
        QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, centre + QPoint(40, 40));
        EXPECT_EQ(pad.Place(), QPointF(0, 0));
        // After that a move without a button does not drag either.
        QTest::mouseMove(&pad.Window(), pad.Ball() + QPoint(3, 3));
        EXPECT_EQ(pad.Place(), QPointF(0, 0));
        pad.Desk.PutPointer = nullptr;
        pad.Drag({20, 0});
        EXPECT_EQ(pad.Place(), QPointF(300, 0));
    }
}

TEST(MixPad, PressesThatAreNotADoubleClickLeaveTheBallUnchanged) {
    struct Case {
        const char* Words;
        Qt::MouseButton First;
        Qt::MouseButton Second;
        int After;
    };
    for (const Case& at :
         {Case{"a slow second press", Qt::LeftButton, Qt::LeftButton, QApplication::doubleClickInterval()},
          Case{"another button", Qt::LeftButton, Qt::RightButton, 60},
          Case{"the other way", Qt::RightButton, Qt::LeftButton, 60},
          Case{"the middle button", Qt::MiddleButton, Qt::MiddleButton, 60}}) {
        for (bool put : {false, true}) {
            SCOPED_TRACE(testing::Message() << at.Words << ", " << put);
            Pad pad;
            pad.StandAt(900, -600);
            const QPoint place = put ? pad.PutByPress() : pad.Ball();
            test::QuickClick(pad.Window(), place, at.First);
            const bool moved = put && at.First != Qt::MiddleButton;
            test::QuickClick(pad.Window(), moved ? pad.Pointer() : place, at.Second, at.After);
            EXPECT_EQ(pad.Place(), QPointF(900, -600));
            EXPECT_TRUE(pad.s.CursorFree);
        }
    }
}

TEST(MixPad, TwoPressesWithADragBetweenThemAreNotADoubleClick) {
    for (int way : {3, 8}) {
        SCOPED_TRACE(way);
        Pad pad;
        const QPoint ball = pad.Ball();
        QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, ball);
        QTest::mouseMove(&pad.Window(), ball + QPoint(way, 0));
        QTest::mouseMove(&pad.Window(), ball + QPoint(1, 0));
        QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, ball + QPoint(1, 0));
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        test::QuickClick(pad.Window(), ball + QPoint(1, 0));
        EXPECT_EQ(pad.Place(), QPointF(way == 3 ? 0 : 15, 0));
    }
}

TEST(MixPad, AClickWhoseReleaseReportsTheOldPlaceDoesNotMoveTheBall) {
    Pad pad;
    pad.StandAt(900, -600);
    const QPoint press = pad.PutByPress();
    QTest::mouseClick(&pad.Window(), Qt::LeftButton, {}, press);
    ASSERT_GT((pad.Pointer() - press).manhattanLength(), 10);
    EXPECT_EQ(pad.Place(), QPointF(900, -600));
}

TEST(MixPad, ADragCountsFromWhereTheProgramMovedThePointer) {
    Pad pad;
    const QPoint press = pad.PutByPress();
    QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, press);
    const QPoint put = pad.Pointer();
    QTest::mouseMove(&pad.Window(), put + QPoint(10, -5));
    EXPECT_EQ(pad.Place(), QPointF(150, -75));
    QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, put + QPoint(20, -10));
    EXPECT_EQ(pad.Place(), QPointF(300, -150));
}

/// Drops the first move with a held button, as the system does when several moves are queued: it reports the last.
struct MoveLoser : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::MouseMove) return false;
        return static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton && Lost++ == 0;
    }
    int Lost = 0;
};

TEST(MixPad, AMoveBeforeTheMovedPointerIsReportedReachesTheCorner) {
    Pad pad;
    const QPoint press = pad.PutByPress();
    MoveLoser loser;
    pad.Window().installEventFilter(&loser);
    QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, press);
    ASSERT_EQ(loser.Lost, 1);
    const QPoint put = pad.Pointer();
    QCursor::setPos(pad.Window().mapToGlobal(press - QPoint(20, 20)));
    pad.Settle();
    EXPECT_EQ(pad.Place(), QPointF(press - QPoint(20, 20) - put) * kTwipsPerPixel);
    QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, press - QPoint(20, 20));
    EXPECT_EQ(pad.Place(), QPointF(press - QPoint(20, 20) - put) * kTwipsPerPixel);
}

TEST(MixPad, AMoveThatContinuesAtOnceFromTheMovedPointerReachesTheCorner) {
    Pad pad;
    const QPoint press = pad.PutByPress();
    const QPoint on(-70, -55);
    QPoint put;
    pad.Desk.PutPointer = [&](PixelPoint place) {
        put = pad.Form->mapFromGlobal(QPoint(place.X, place.Y));
        QCursor::setPos(QPoint(place.X, place.Y) + on);
    };
    QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, press);
    EXPECT_EQ(pad.Place(), QPointF(on) * kTwipsPerPixel);
    QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, put + 2 * on);
    EXPECT_EQ(pad.Place(), QPointF(2 * on) * kTwipsPerPixel);
}

TEST(MixPad, AMoveThatIsAlreadyOutOfDateCountsFromWhereThePointerWasMoved) {
    Pad pad;
    const QPoint press = pad.PutByPress();
    MoveLoser loser;
    pad.Window().installEventFilter(&loser);
    QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, press);
    ASSERT_EQ(loser.Lost, 1);
    const QPoint put = pad.Pointer();
    QTest::mouseMove(&pad.Window(), put + QPoint(3, 1));  // the pointer itself is elsewhere
    EXPECT_EQ(pad.Place(), QPointF(45, 15));
    QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, put + QPoint(30, 10));
    EXPECT_EQ(pad.Place(), QPointF(450, 150));
}

TEST(MixPad, ADragFollowsTheHandWhenThePointerCannotBeMoved) {
    Pad pad;
    const QPoint press = pad.PutByPress();
    pad.Desk.PutPointer = [](PixelPoint) {};
    QTest::mousePress(&pad.Window(), Qt::LeftButton, {}, press);
    QTest::mouseMove(&pad.Window(), press + QPoint(10, -5));
    QTest::mouseRelease(&pad.Window(), Qt::LeftButton, {}, press + QPoint(20, -10));
    EXPECT_EQ(pad.Place(), QPointF(300, -150));
}

TEST(MixPad, OnlyAHeldBallHidesThePointer) {
    Pad pad;
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        SCOPED_TRACE(button);
        QTest::mousePress(&pad.Window(), button, {}, pad.Ball());
        EXPECT_EQ(pad.At("PadBall")->cursor().shape() == Qt::BlankCursor, button != Qt::MiddleButton);
        QTest::mouseRelease(&pad.Window(), button, {}, pad.Ball());
        EXPECT_NE(pad.At("PadBall")->cursor().shape(), Qt::BlankCursor);
    }
}

TEST(MixPad, LosingTheMouseGrabFreesThePointer) {
    Pad pad;
    const QPoint start = pad.Ball();
    QTest::mousePress(pad.Form->windowHandle(), Qt::LeftButton, {}, start);
    QTest::mouseMove(pad.Form->windowHandle(), start + QPoint(40, 0));
    QEvent lost(QEvent::UngrabMouse);
    QApplication::sendEvent(pad.At("PadBall"), &lost);
    EXPECT_TRUE(pad.s.CursorFree);
    EXPECT_DOUBLE_EQ(pad.Record().X, 600);
    QTest::mouseRelease(pad.Form->windowHandle(), Qt::LeftButton, {}, start + QPoint(90, 0));
    EXPECT_DOUBLE_EQ(pad.Record().X, 600);
}

TEST(MixPad, TheKeysMoveAndCentreTheBall) {
    Pad pad;
    QTest::keyClick(pad.At("PadBall"), Qt::Key_Right);
    QTest::keyClick(pad.At("PadBall"), Qt::Key_Down);
    EXPECT_DOUBLE_EQ(pad.Record().X, 60);
    EXPECT_DOUBLE_EQ(pad.Record().Y, 60);
    QTest::keyClick(pad.At("PadBall"), Qt::Key_Return);
    EXPECT_DOUBLE_EQ(pad.Record().X, 0);
}

TEST(MixPad, AnotherTypeIsChosenFromTheListAndShowsItsCurve) {
    Pad pad;
    for (int type : {0, 1, 3, int{kVolPad}}) {
        SCOPED_TRACE(type);
        test::Choose(pad.List("PadType"), type);
        EXPECT_EQ(pad.s.PadTypeIndex, type);
        EXPECT_EQ(pad.List("PadFunction").currentIndex(), type == kVolPad ? 1 : 0);
    }
}

TEST(MixPad, TheSameEntryChosenAgainCentresTheBall) {
    for (const char* list : {"PadFunction", "PadType"}) {
        SCOPED_TRACE(list);
        Pad pad;
        pad.Drag({-kBeyond, -kBeyond});
        test::Choose(pad.List(list), pad.List(list).currentIndex());
        EXPECT_DOUBLE_EQ(pad.Record().X, 0);
        EXPECT_EQ(pad.s.ChannelVol[3], 0);
    }
}

TEST(MixPad, AnotherCurveActsOnTheNextMove) {
    Pad pad;
    test::Choose(pad.List("PadFunction"), 0);
    EXPECT_EQ(pad.Record().Function, 1);
    EXPECT_EQ(pad.s.ChannelVol[1], 250);
}

TEST(MixPad, AWireSetWiresAllLoopTracksEachTimeItIsChosen) {
    Pad pad;
    QComboBox& sets = pad.List("SetChannel");
    EXPECT_EQ(sets.itemText(5), "Alternate by 2");
    for (int time = 0; time < 2; ++time) {
        test::Choose(sets, 5);
        EXPECT_EQ(pad.s.Set[1].Channel, 2);
        EXPECT_EQ(pad.s.Set[3].Channel, 2);
        pad.s.Set[1].Channel = 4;
    }
}

TEST(MixPad, TheLevelsOfTheChannelsAreShownAsTheBallMoves) {
    Pad pad;
    const QRect levels(640, 8, 368, 170);
    const QImage before = pad.At("MixPadPage")->grab(levels).toImage();
    pad.Drag({-kBeyond, -kBeyond});
    const QImage corner = pad.At("MixPadPage")->grab(levels).toImage();
    EXPECT_NE(before, corner);
    pad.DoubleClick("PadBall");
    EXPECT_EQ(pad.At("MixPadPage")->grab(levels).toImage(), before);
}

struct Twist : Pad {
    QPoint Ball() { return InWindow("TwistBall", Middle("TwistBall")); }
    void Drag(int way, int down = 0, Qt::MouseButton button = Qt::LeftButton) {
        const QPoint start = Ball();
        QTest::mousePress(&Window(), button, {}, start);
        QTest::mouseMove(&Window(), start + QPoint(way, down));
        QTest::mouseRelease(&Window(), button, {}, start + QPoint(way, down));
    }
    int FromTheMiddle() { return Ball().x() - InWindow("TwistIndicator", Middle("TwistIndicator")).x(); }
};

TEST(Twist, TheBallFollowsTheHandAlongItsLineAndStopsAtTheEnds) {
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        SCOPED_TRACE(button);
        Twist twist;
        twist.Drag(30, 90, button);
        EXPECT_EQ(twist.s.TwistPosition, 450);
        EXPECT_NEAR(twist.FromTheMiddle(), 30, 1);
        twist.Drag(-kBeyond, 0, button);
        EXPECT_EQ(twist.s.TwistPosition, -2130);
        EXPECT_NEAR(twist.FromTheMiddle(), -142, 1);
        EXPECT_EQ(twist.s.ChannelPan[1], 0);
        EXPECT_EQ(twist.s.ChannelPan[2], 1000);
        EXPECT_EQ(twist.s.StatusText, "W: -500, WB: 500, BW: 500, B: -500, ");
        twist.Drag(kBeyond, 0, button);
        twist.Drag(kBeyond, 0, button);
        EXPECT_EQ(twist.s.TwistPosition, 2130);
        EXPECT_TRUE(twist.s.CursorFree);
        EXPECT_TRUE(
            twist.At("TwistIndicator")->rect().contains(twist.At("TwistBall")->geometry().adjusted(2, 2, -2, -2)));
    }
}

TEST(Twist, ADoubleClickBringsTheBallToTheMiddle) {
    Twist twist;
    twist.Drag(60);
    twist.DoubleClick("TwistBall");
    EXPECT_EQ(twist.s.TwistPosition, 0);
    EXPECT_EQ(twist.s.ChannelPan[1], 500);
    EXPECT_EQ(twist.FromTheMiddle(), 0);
}

TEST(Twist, TheMiddleButtonMovesNothing) {
    Twist twist;
    twist.Drag(60, 0, Qt::MiddleButton);
    EXPECT_EQ(twist.s.TwistPosition, 0);
    EXPECT_TRUE(twist.s.CursorFree);
}

TEST(Twist, AnotherPadTypeBringsTheBallToTheMiddleAndTellsWhatItMovesNow) {
    Twist twist;
    twist.Drag(60);
    const std::string before = DescribedOf(*twist.At("TwistBall"))->Hint(0, false);
    PadType_Click(twist.s, kPitch400Pad);
    twist.Settle();
    EXPECT_EQ(twist.FromTheMiddle(), 0);
    EXPECT_EQ(before, "drg Fade Pan of the Channels; dblclk Centre");
    EXPECT_EQ(DescribedOf(*twist.At("TwistBall"))->Hint(0, false), "drg Fade Vol of the Channels; dblclk Centre");
    twist.Drag(kBeyond);
    EXPECT_EQ(twist.s.ChannelVol[1], 500);
    EXPECT_EQ(twist.s.ChannelVol[2], 0);
}

TEST(Twist, ATypeWithoutATwistHidesTheBall) {
    Twist twist;
    EXPECT_TRUE(twist.At("TwistBall")->isVisible());
    twist.s.PadTable[kVolPad].TwistIcon = kNoTwistIcon;
    PadTwistShow(twist.s, kVolPad);
    EXPECT_FALSE(twist.At("TwistBall")->isVisible());
}

}  // namespace
}  // namespace marvolin
