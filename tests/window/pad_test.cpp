#include <gtest/gtest.h>

#include "hand.h"
#include "performance/mix_pad.h"
#include "performance/pad_tables.h"
#include "stage.h"
#include "window/tab_mix_pad.h"

namespace marvolin {
namespace {

constexpr int kVolPad = 2;
constexpr int kFar = 400;  // pixels, farther than the pad is wide

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
    QComboBox& List(const char* name) { return *dynamic_cast<QComboBox*>(At(name)); }
    QPoint Centre() { return InWindow("Pad", Middle("Pad")); }
    PadRecord& Record() { return s.PadTable[s.PadTypeIndex]; }
};

TEST(MixPad, TheBallIsDraggedToEachCornerWithEitherButtonAndStopsThere) {
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        for (const QPoint& way : {QPoint(-kFar, -kFar), QPoint(kFar, -kFar), QPoint(kFar, kFar), QPoint(-kFar, kFar)}) {
            SCOPED_TRACE(testing::Message() << button << " to " << way.x() << "," << way.y());
            Pad pad;
            pad.Drag(way, button);
            EXPECT_DOUBLE_EQ(pad.Record().X, way.x() > 0 ? pad.s.Geometry.PadHalfX : -pad.s.Geometry.PadHalfX);
            EXPECT_DOUBLE_EQ(pad.Record().Y, way.y() > 0 ? pad.s.Geometry.PadHalfY : -pad.s.Geometry.PadHalfY);
            EXPECT_TRUE(pad.s.CursorFree);
            const QPoint ball = pad.Ball() - pad.Centre();
            EXPECT_NEAR(ball.x(), way.x() > 0 ? 142 : -142, 1);
            EXPECT_NEAR(ball.y(), way.y() > 0 ? 142 : -142, 1);
        }
    }
}

TEST(MixPad, CornerToCornerFadesTheChannelsAgainstEachOther) {
    Pad pad;
    pad.Drag({-kFar, -kFar});
    EXPECT_EQ(pad.s.ChannelVol[1], 0);
    EXPECT_EQ(pad.s.ChannelVol[3], 500);
    pad.Drag({kFar, kFar});
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
    pad.Drag({-kFar, -kFar});
    pad.DoubleClick("PadBall");
    EXPECT_DOUBLE_EQ(pad.Record().X, 0);
    EXPECT_DOUBLE_EQ(pad.Record().Y, 0);
    EXPECT_EQ(pad.s.ChannelVol[3], 0);
    EXPECT_EQ(pad.s.StatusText, "W: 500, WB: 500, BW: 500, B: 500, ");
    EXPECT_TRUE(pad.s.CursorFree);
}

TEST(MixPad, AGrabThatIsLostFreesThePointer) {
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
    for (int type : {0, 1, 3, kVolPad}) {
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
        pad.Drag({-kFar, -kFar});
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
    pad.Drag({-kFar, -kFar});
    const QImage corner = pad.At("MixPadPage")->grab(levels).toImage();
    EXPECT_NE(before, corner);
    pad.DoubleClick("PadBall");
    EXPECT_EQ(pad.At("MixPadPage")->grab(levels).toImage(), before);
}

}  // namespace
}  // namespace marvolin
