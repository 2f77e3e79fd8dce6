#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QImage>
#include <algorithm>

#include "hand.h"
#include "parameters/position.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "performance/pad/mix_pad.h"
#include "performance/tabs.h"
#include "stage.h"
#include "window/descriptions/described.h"
#include "window/surfaces/map_surface.h"
#include "window/tabs/tab_map.h"
#include "window/tabs/tab_mix_pad.h"

namespace marvolin {
namespace {

constexpr int kListener = 4;

struct Map : test::Stage {
    Map() {
        PadGeometryInit(s, TabMixPad::InnerWidth(), TabMixPad::InnerHeight());
        s.Use3D = true;
        MapInit(s);
        MapEnable(s, true);
        SetTab(s, 1);
        // Apart from each other, so that each can be pressed.
        for (int ball = 0; ball <= kListener; ++ball) {
            PositionSet(s, ball, static_cast<float>(0.5 * (ball - 2)), 0.75F, {.Apply = false, .StoreBall = true});
        }
        Settle();
        Sound.Log.clear();
    }
    static std::string Name(int ball) { return "PosBall_" + std::to_string(ball); }
    QPoint Ball(int ball) { return InWindow(Name(ball).c_str(), Middle(Name(ball).c_str())); }
    void Press(int ball, Qt::MouseButton button = Qt::LeftButton) {
        start_ = Ball(ball);
        QTest::mousePress(Form->windowHandle(), button, {}, start_);
    }
    void MoveBy(QPoint way) { QTest::mouseMove(Form->windowHandle(), start_ + way); }
    void ReleaseAt(QPoint way, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(Form->windowHandle(), button, {}, start_ + way);
    }
    QWindow& Window() { return *Form->windowHandle(); }
    QPoint Pointer() { return Form->mapFromGlobal(QCursor::pos()); }
    QPointF Place(int ball) {
        const BallPoint place = MapUnits(s, ball);
        return {place.X, place.Y};
    }
    /// Lets a press move the pointer to the centre of the ball; the place of the press, well apart from there.
    QPoint PutByPress(int ball) {
        const QPoint press = Ball(ball) - QPoint(7, 7);
        test::LetPointerBePut(Desk, *dynamic_cast<TabMap*>(At("MapPage"))->Map, Form->mapToGlobal(press));
        return press;
    }
    void FillWith3D(Row row) {
        s.Run[row].Buffer = s.DS->CreateSoundBufferFromFile("/samples/one.WAV", buffer_flags::kSample3D);
        s.Run[row].Buffer3D = s.Run[row].Buffer->GetDirectSound3dBuffer();
        s.Run[row].Loaded = True;
        Sound.Log.clear();
    }
    bool Sent(const std::string& call) {
        return std::any_of(Sound.Log.begin(), Sound.Log.end(),
                           [&](const std::string& line) { return line.find(call) != std::string::npos; });
    }

private:
    QPoint start_;
};

TEST(SoundMap, WithThreeDOffTheBallsCannotBeMoved) {
    Map map;
    MapEnable(map.s, false);
    for (const char* name : {"PosBall_0", "PosBall_4", "MapSize", "RollOff", "CentreAll"}) {
        EXPECT_FALSE(map.At(name)->isEnabled()) << name;
    }
    const float before = map.s.Set[0].PositionX;
    map.Press(0);
    map.MoveBy({20, 0});
    map.ReleaseAt({20, 0});
    EXPECT_EQ(map.s.Set[0].PositionX, before);
    MapEnable(map.s, true);
    EXPECT_TRUE(map.At("PosBall_0")->isEnabled());
}

TEST(SoundMap, BallsAreDrawnAtTheirMapUnits) {
    Map map;
    const QPoint centre = map.InWindow("Map", map.Middle("Map"));
    PositionSet(map.s, 1, 0.75F, -1.5F, {.Apply = false, .StoreBall = true});
    EXPECT_NEAR((map.Ball(1) - centre).x(), 71, 1);
    EXPECT_NEAR((map.Ball(1) - centre).y(), -142, 1);
}

TEST(SoundMap, PlacesAreTruncatedAsInTheStatusLine) {
    Map map;
    const auto places = [&](float x) {
        PositionSet(map.s, 1, x, 0.5F, {.Apply = false, .StoreBall = true});
        return map.At("MapPage")->grab(QRect(700, 30, 300, 140)).toImage();
    };
    const QImage shown = places(0.8712F);
    EXPECT_EQ(places(0.8767F), shown);
    EXPECT_NE(places(0.8812F), shown);
    // 0.7 in single precision is less than 70 hundredths in double.
    EXPECT_EQ(places(0.7F), places(0.7051F));
}

TEST(SoundMap, TheSoundFollowsADragAtOnceOrAtItsEnd) {
    for (bool atOnce : {true, false}) {
        SCOPED_TRACE(atOnce);
        Map map;
        map.FillWith3D(0);
        map.s.PositionUpdate[1] = atOnce;
        map.Press(0);
        map.MoveBy({71, -71});
        EXPECT_NEAR(map.s.Set[0].PositionX, -1 + 0.75, 0.001);
        EXPECT_NEAR(map.s.Set[0].PositionY, 0, 0.001);
        EXPECT_EQ(map.Sent("SetPosition"), atOnce);
        map.Sound.Log.clear();
        map.ReleaseAt({71, -71});
        EXPECT_TRUE(map.Sent("SetPosition"));
        EXPECT_TRUE(map.s.CursorFree);
    }
}

TEST(SoundMap, TheListenerFollowsItsOwnBox) {
    Map map;
    map.s.PositionUpdate[0] = false;
    map.Press(kListener);
    map.MoveBy({-71, 0});
    map.ReleaseAt({-71, 0});
    EXPECT_NEAR(map.s.ListenerX, 1 - 0.75, 0.001);
}

TEST(SoundMap, ARightDragTurnsTheListenerThreeDegreesForTenTwips) {
    Map map;
    const QPoint before = map.Ball(kListener);
    map.Press(kListener, Qt::RightButton);
    map.MoveBy({0, -10});
    EXPECT_EQ(map.s.ListenerAngle, 45);
    map.MoveBy({0, 10});
    EXPECT_EQ(map.s.ListenerAngle, 315);
    map.ReleaseAt({0, 10}, Qt::RightButton);
    EXPECT_EQ(map.s.ListenerAngle, 315);
    EXPECT_EQ(map.s.Drag.Dragging, False);
    EXPECT_EQ(map.Ball(kListener), before);
}

TEST(SoundMap, ARightClickOnALoopTracksBallFadesIt) {
    Map map;
    map.Fill(0);
    map.s.Run[0].Playing = True;
    const std::int16_t before = map.s.Run[0].FadeState;
    map.Press(0, Qt::RightButton);
    map.ReleaseAt({0, 0}, Qt::RightButton);
    EXPECT_NE(map.s.Run[0].FadeState, before);
}

TEST(SoundMap, ARightDragOfALoopTracksBallIsTheFadeDrag) {
    Map map;
    const auto source = test::DragOf(*map.At("PosBall_2"), [&] {
        QTest::mousePress(map.At("PosBall_2"), Qt::RightButton);
        const QPointF far(60, 12);
        QMouseEvent move(QEvent::MouseMove, far, map.At("PosBall_2")->mapToGlobal(far), Qt::NoButton, Qt::RightButton,
                         {});
        QApplication::sendEvent(map.At("PosBall_2"), &move);
    });
    EXPECT_EQ(source, (DragSource{"PosBall", 2, "4"}));
    QTest::mouseRelease(map.At("PosBall_2"), Qt::RightButton);
}

TEST(SoundMap, ADoubleClickCentresABallWhateverTheBoxesSay) {
    Map map;
    map.FillWith3D(3);
    map.s.PositionUpdate[1] = false;
    map.DoubleClick("PosBall_3");
    EXPECT_EQ(map.s.Set[3].PositionX, 0);
    EXPECT_EQ(map.s.Set[3].PositionY, 0);
    EXPECT_TRUE(map.Sent("SetPosition"));
}

TEST(SoundMap, TwoPressesApartBecauseThePointerWasMovedAreADoubleClick) {
    for (int ball = 0; ball <= kListener; ++ball) {
        SCOPED_TRACE(ball);
        Map map;
        const QPointF before = map.Place(ball);
        const QPoint press = map.PutByPress(ball);
        test::QuickClick(map.Window(), press);
        EXPECT_EQ(map.Place(ball), before);
        const QPoint put = map.Pointer();
        ASSERT_GT((put - press).manhattanLength(), 10);
        QTest::mousePress(&map.Window(), Qt::LeftButton, {}, put, 60);
        EXPECT_EQ(map.Place(ball), QPointF(0, 0));
        QTest::mouseMove(&map.Window(), put + QPoint(2, 1));
        QTest::mouseRelease(&map.Window(), Qt::LeftButton, {}, put + QPoint(20, 1));
        EXPECT_EQ(map.Place(ball), QPointF(0, 0));
        EXPECT_TRUE(map.s.CursorFree);
    }
}

TEST(SoundMap, ADoubleClickWhoseEventsArriveAtOnceCentresEachBall) {
    for (int ball = 0; ball <= kListener; ++ball) {
        for (bool put : {false, true}) {
            SCOPED_TRACE(testing::Message() << ball << ", " << put);
            Map map;
            const QPoint place = put ? map.PutByPress(ball) : map.Ball(ball);
            QTest::mouseDClick(&map.Window(), Qt::LeftButton, {}, place);
            EXPECT_EQ(map.Place(ball), QPointF(0, 0));
            EXPECT_TRUE(map.s.CursorFree);
        }
    }
}

TEST(SoundMap, AClickWhoseReleaseReportsTheOldPlaceMovesNoBall) {
    for (int ball = 0; ball <= kListener; ++ball) {
        SCOPED_TRACE(ball);
        Map map;
        const QPointF before = map.Place(ball);
        const QPoint press = map.PutByPress(ball);
        QTest::mouseClick(&map.Window(), Qt::LeftButton, {}, press);
        ASSERT_GT((map.Pointer() - press).manhattanLength(), 10);
        EXPECT_EQ(map.Place(ball), before);
    }
}

TEST(SoundMap, PressesThatAreNotADoubleClickLeaveTheBallsUnchanged) {
    struct Case {
        const char* Words;
        Qt::MouseButton First;
        Qt::MouseButton Second;
        int After;
    };
    for (const Case& at :
         {Case{"a slow second press", Qt::LeftButton, Qt::LeftButton, QApplication::doubleClickInterval()},
          Case{"right and left", Qt::RightButton, Qt::LeftButton, 60},
          Case{"left and right", Qt::LeftButton, Qt::RightButton, 60},
          Case{"the right button", Qt::RightButton, Qt::RightButton, 60},
          Case{"the middle button", Qt::MiddleButton, Qt::MiddleButton, 60}}) {
        for (int ball : {2, kListener}) {
            SCOPED_TRACE(testing::Message() << at.Words << ", " << ball);
            Map map;
            const QPointF before = map.Place(ball);
            test::QuickClick(map.Window(), map.Ball(ball), at.First);
            test::QuickClick(map.Window(), map.Ball(ball), at.Second, at.After);
            EXPECT_EQ(map.Place(ball), before);
            EXPECT_TRUE(map.s.CursorFree);
            EXPECT_EQ(map.s.Drag.Dragging, False);
        }
    }
}

TEST(SoundMap, AClickOnAnotherBallDoesNotStartADoubleClick) {
    Map map;
    const QPointF before = map.Place(1);
    test::QuickClick(map.Window(), map.Ball(0));
    test::QuickClick(map.Window(), map.Ball(1));
    EXPECT_EQ(map.Place(1), before);
}

TEST(SoundMap, ADoubleClickOnABallHalfCoveredByAnotherCentresTheOneThatWasClicked) {
    Map map;
    map.At("PosBall_3")->raise();
    const QPointF upper = map.Place(3);
    const double step = 10 / 142.0 * map.s.MapRange;
    PositionSet(map.s, 2, static_cast<float>(upper.x() - step), static_cast<float>(upper.y() - step),
                {.Apply = false, .StoreBall = true});
    const QPoint press = map.PutByPress(2);
    test::QuickClick(map.Window(), press);
    const QPoint put = map.Pointer();
    ASSERT_EQ(map.Form->childAt(put), map.At("PosBall_3"));
    test::QuickClick(map.Window(), put);
    EXPECT_EQ(map.Place(2), QPointF(0, 0));
    EXPECT_EQ(map.Place(3), upper);
    EXPECT_TRUE(map.s.CursorFree);
    // Elsewhere on the upper ball the press belongs to the upper ball.
    PositionSet(map.s, 2, static_cast<float>(upper.x() - step), static_cast<float>(upper.y() - step),
                {.Apply = false, .StoreBall = true});
    test::QuickClick(map.Window(), press);
    test::QuickClick(map.Window(), map.Pointer() + QPoint(4, 4));
    EXPECT_NE(map.Place(2), QPointF(0, 0));
    EXPECT_EQ(map.Place(3), upper);
}

TEST(SoundMap, ATapReleasedBeforeThePointerMovesUnderAnotherBallStartsADoubleClickToo) {
    Map map;
    map.At("PosBall_3")->raise();
    const QPointF upper = map.Place(3);
    const double step = 10 / 142.0 * map.s.MapRange;
    PositionSet(map.s, 2, static_cast<float>(upper.x() - step), static_cast<float>(upper.y() - step),
                {.Apply = false, .StoreBall = true});
    const QPoint press = map.PutByPress(2);
    QTest::mouseClick(&map.Window(), Qt::LeftButton, {}, press);  // the release reports the old place
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
    const QPoint put = map.Pointer();
    ASSERT_EQ(map.Form->childAt(put), map.At("PosBall_3"));
    test::QuickClick(map.Window(), put);
    EXPECT_EQ(map.Place(2), QPointF(0, 0));
    EXPECT_EQ(map.Place(3), upper);
    EXPECT_TRUE(map.s.CursorFree);
}

TEST(SoundMap, TwoQuickRightClicksFadeALoopTrackTwice) {
    Map map;
    map.Fill(2);
    map.s.Run[2].Playing = True;
    std::vector<std::int16_t> states;
    for (int click = 0; click < 2; ++click) {
        test::QuickClick(map.Window(), map.Ball(2), Qt::RightButton);
        states.push_back(map.s.Run[2].FadeState);
    }
    EXPECT_EQ(states, (std::vector<std::int16_t>{kFalling, kRising}));
}

TEST(SoundMap, TheSizeGaugeMovesTheBallsAndNotTheSounds) {
    Map map;
    const QPoint before = map.Ball(0);
    const double y = map.Middle("MapSize").y();
    map.Click("MapSize", {228, y});
    EXPECT_EQ(map.s.MapSize, 100);
    EXPECT_DOUBLE_EQ(map.s.MapRange, 5);
    EXPECT_EQ(map.s.Set[0].PositionX, -1);
    EXPECT_NE(map.Ball(0), before);
}

TEST(SoundMap, TheRollOffGaugeTakesItsValueOnReleaseAndResetsOnARightClick) {
    Map map;
    const double y = map.Middle("RollOff").y();
    map.Click("RollOff", {119, y});
    EXPECT_EQ(map.s.RollOff, 50);
    EXPECT_FLOAT_EQ(GetRoll(map.s), 5);
    map.Click("RollOff", {119, y}, Qt::RightButton);
    EXPECT_EQ(map.s.RollOff, 10);
    EXPECT_FLOAT_EQ(GetRoll(map.s), 1);
    EXPECT_EQ(map.s.StatusText, "RollOff =1");
}

TEST(SoundMap, ScatterAndWanderAreChosenFromTheirList) {
    Map map;
    auto& macros = *dynamic_cast<QComboBox*>(map.At("PosMacros"));
    for (int entry : {3, 4, 0}) {
        test::Choose(macros, entry);
        EXPECT_EQ(map.s.PosMacro, entry);
    }
    map.Screen.ShowMapControls();
    EXPECT_EQ(macros.currentText(), "Off");
}

TEST(SoundMap, CentreAllPutsEveryBallOnTheCentre) {
    Map map;
    map.Click("CentreAll");
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(map.s.Set[row].PositionX, 0);
    EXPECT_EQ(map.s.ListenerX, 0);
}

TEST(SoundMap, FindListenerBringsTheListenerBackOntoTheMap) {
    Map map;
    map.s.ListenerX = 100;
    map.s.ListenerY = -100;
    map.Click("PosPop");
    EXPECT_EQ(map.s.ListenerX, 1.5);
    EXPECT_EQ(map.s.ListenerY, -1.5);
    EXPECT_EQ(map.At("Map")->children().last(), map.At("PosBall_4"));
}

TEST(SoundMap, TheBoxSwitchesHeadphonesAndIsOffWithAWordWhy) {
    Map map;
    auto& box = *dynamic_cast<QCheckBox*>(map.At("Headphones"));
    EXPECT_TRUE(box.isEnabled());
    map.Click("Headphones", {8, 13});
    EXPECT_TRUE(map.s.Headphones);
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(map.Sent("SetHeadphones on"));
    map.Click("Headphones", {8, 13});
    EXPECT_FALSE(map.s.Headphones);
    EXPECT_TRUE(map.Sent("SetHeadphones off"));

    map.Sound.Failures["HasHeadphones"] = 1;
    map.Screen.ShowMapControls();
    EXPECT_FALSE(box.isEnabled());
    EXPECT_THAT(DescribedOf(box)->Hint(0, false), testing::StartsWith("off: OpenAL has no Data of a Head here"));
    map.s.Use3D = false;
    map.Screen.ShowMapControls();
    EXPECT_FALSE(box.isEnabled());
    EXPECT_THAT(DescribedOf(box)->Hint(0, false), testing::StartsWith("off until 3D Sound is on"));
}

TEST(SoundMap, ThePlacesAreWrittenAnewWhileTheBallsRestWithout3D) {
    Map map;
    map.s.Use3D = false;
    MapEnable(map.s, false);
    map.Settle();
    const QImage before = map.At("MapPage")->grab().toImage();
    test::PaintWatch watch;
    PositionSet(map.s, 2, 1.5F, -1.0F, {.Apply = true, .StoreBall = true});
    map.Settle();
    EXPECT_TRUE(watch.Painted.contains("MapPage"));
    EXPECT_NE(map.At("MapPage")->grab().toImage(), before);
}

}  // namespace
}  // namespace marvolin
