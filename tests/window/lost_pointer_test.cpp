// A control that loses the pointer in the middle of a hold: its tab is closed, its window is left, it is disabled.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDrag>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <array>
#include <functional>
#include <set>

#include "performance/tabs.h"
#include "whole_hand.h"
#include "window/controls/control.h"
#include "window/popups/popup_list.h"

namespace marvolin {
namespace {

using test::Changed;
using test::Facts;
using test::FactsOf;
using test::Spot;
using test::Stage;
using test::WholeHand;
using testing::Contains;
using testing::IsEmpty;

/// A way of losing the pointer.
struct Loss {
    const char* Name;
    std::function<void(WholeHand&, QWidget&)> Take;
    std::function<void(WholeHand&, QWidget&)> GiveBack;
};

const std::array<Loss, 3> kLosses{{
    {"hidden", [](WholeHand&, QWidget& widget) { widget.hide(); },
     [](WholeHand& hand, QWidget& widget) {
         widget.show();
         hand.Settle();
     }},
    {"window left",
     [](WholeHand& hand, QWidget& widget) {
         QWidget& other = widget.window() == hand.Form.get() ? static_cast<QWidget&>(hand.Window) : *hand.Form;
         other.activateWindow();
         hand.Settle();
         ASSERT_TRUE(other.isActiveWindow());
     },
     [](WholeHand& hand, QWidget& widget) {
         widget.window()->activateWindow();
         hand.Settle();
     }},
    {"disabled", [](WholeHand&, QWidget& widget) { widget.setEnabled(false); },
     [](WholeHand&, QWidget& widget) { widget.setEnabled(true); }},
}};

/// What is set, without the state of a gesture that is open, and without what row Z shows of the others.
Facts Settings(const Session& s) {
    Facts facts = FactsOf(s);
    for (const char* open : {"Dragging", "DragPlayModeRow", "SelectDragTag", "BandDrag.Lane", "PatternDrawRow",
                             "PatternRandomRow", "CursorFree", "Z.Playing"}) {
        facts.erase(open);
    }
    return facts;
}

void ExpectNothingHeld(const Session& s, const QWidget& widget) {
    EXPECT_EQ(s.Drag.Dragging, False);
    EXPECT_EQ(s.BandDrag.Lane, -1);
    EXPECT_EQ(s.PatternDrawRow, -1);
    EXPECT_TRUE(s.CursorFree);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        EXPECT_FALSE(button->isDown());
    }
}

TEST(LostPointer, AHeldClickDoesNothingOnAnyControl) {
    WholeHand hand;
    hand.LookAway();
    std::set<std::string> tried;
    for (QWidget* widget : hand.Controls()) {
        if (qobject_cast<QComboBox*>(widget) != nullptr) continue;  // a press opens it and holds nothing
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            for (const Loss& loss : kLosses) {
                SCOPED_TRACE(widget->objectName().toStdString() + ", button " + std::to_string(button) + ", " +
                             loss.Name);
                hand.Begin();
                hand.Reveal(*widget);
                const Spot spot = hand.SpotOn(*widget);
                hand.PressAt(spot, button);
                const Facts pressed = Settings(hand.s);
                const std::vector<std::string> forms = hand.Forms.Log;
                loss.Take(hand, *widget);
                hand.Settle();
                EXPECT_THAT(Changed(pressed, Settings(hand.s)), IsEmpty());
                EXPECT_EQ(hand.Forms.Log, forms);
                ExpectNothingHeld(hand.s, *widget);
                loss.GiveBack(hand, *widget);
                // The release comes at last, when nothing waits for it.
                if (dynamic_cast<Control*>(widget) != nullptr) {
                    hand.ReleaseAt(spot, button);
                    EXPECT_THAT(Changed(pressed, Settings(hand.s)), IsEmpty());
                    EXPECT_EQ(hand.Forms.Log, forms);
                } else {
                    hand.ReleaseAt({hand.Form.get(), {4, 4}}, button);
                }
            }
        }
        tried.insert(widget->objectName().toStdString());
    }
    for (const char* name : {"Play_0", "PlayStop", "CentreAll", "PosPop", "ChannelFlag_0", "Thumb_1", "DropDown_2",
                             "SaveOpen", "PickFile_1", "PickDir_0", "Bands", "LoopIt_0", "ClearClip"}) {
        EXPECT_THAT(tried, Contains(name));
    }
}

TEST(LostPointer, AClickThatTheHatTakesAwayWithTheTabCentresNothing) {
    WholeHand hand;
    hand.Begin();
    QWidget& button = *hand.At("CentreAll");
    hand.Reveal(button);
    const Spot spot = hand.SpotOn(button);
    const float before = hand.s.Set[0].PositionX;
    ASSERT_NE(before, 0);
    hand.PressAt(spot, Qt::LeftButton);
    SetTab(hand.s, kOptionTab);
    hand.Settle();
    EXPECT_EQ(hand.s.Set[0].PositionX, before);
    SetTab(hand.s, kMapTab);
    hand.Settle();
    hand.ReleaseAt(spot, Qt::LeftButton);
    EXPECT_EQ(hand.s.Set[0].PositionX, before);
    hand.ClickAt(spot);
    EXPECT_EQ(hand.s.Set[0].PositionX, 0);
}

TEST(LostPointer, ADragEndsWithWhatItHasReached) {
    for (const Loss& loss : kLosses) {
        SCOPED_TRACE(loss.Name);
        WholeHand hand;
        hand.s.DragAxis = 0;
        const auto drag = [&](const char* name, QPointF way) {
            QWidget& widget = *hand.At(name);
            hand.Reveal(widget);
            const Spot spot = hand.SpotOn(widget);
            hand.PressAt(spot, Qt::LeftButton);
            hand.MoveTo(spot, way / 2);
            hand.MoveTo(spot, way);
            hand.Sound.Log.clear();
            loss.Take(hand, widget);
            loss.GiveBack(hand, widget);
            hand.ReleaseAt(spot, Qt::LeftButton, way);
            EXPECT_EQ(hand.s.Drag.Dragging, False);
        };
        drag("VolKnob_2", {0, -10});
        EXPECT_EQ(hand.s.Set[2].Vol, 102 + 150);
        drag("LoopIt_2", {0, 7});
        EXPECT_EQ(hand.s.Set[2].PlayMode, kLoop);
        drag("Limiter", {0, 3});
        EXPECT_EQ(hand.s.Limit, 1);
        hand.s.Set[2].Channel = 1;
        drag("ChannelFlag_2", {0, -14});
        EXPECT_EQ(hand.s.Set[2].Channel, 3);
        EXPECT_EQ(hand.Sound.Count("SetVolume"), 1) << "it is heard";
    }
}

TEST(LostPointer, ABoxThatComesWhileAnotherWindowIsActiveEndsADrag) {
    WholeHand hand;
    hand.s.DragAxis = 0;
    QWidget& knob = *hand.At("VolKnob_2");
    hand.Reveal(knob);
    const Spot spot = hand.SpotOn(knob);
    hand.Window.activateWindow();
    hand.Settle();
    hand.PressAt(spot, Qt::LeftButton);
    hand.MoveTo(spot, {0, -5});
    hand.MoveTo(spot, {0, -10});
    ASSERT_TRUE(hand.Window.isActiveWindow());
    ASSERT_NE(hand.s.Drag.Dragging, False);
    QMessageBox box;
    box.setModal(true);
    box.show();
    hand.Settle();
    EXPECT_EQ(hand.s.Drag.Dragging, False);
    EXPECT_EQ(hand.s.Set[2].Vol, 102 + 150);
    box.close();
    hand.Settle();
    hand.ReleaseAt(spot, Qt::LeftButton, {0, -10});
    EXPECT_EQ(hand.s.Set[2].Vol, 102 + 150);
}

/// Presses a button on a control and moves a little.
Spot BeginHoldOn(WholeHand& hand, QWidget& widget, Qt::MouseButton button) {
    hand.s.DragAxis = 0;
    hand.Reveal(widget);
    const Spot spot = hand.SpotOn(widget);
    hand.PressAt(spot, button);
    hand.MoveTo(spot, {0, -3});
    return spot;
}

TEST(LostPointer, AMoveWithoutAButtonTurnsDrawsAndClicksNothing) {
    for (const char* name : {"VolKnob_2", "LoopIt_2", "Limiter", "ChannelFlag_2", "PatternGraph_0", "Play_0"}) {
        SCOPED_TRACE(name);
        WholeHand hand;
        QWidget& widget = *hand.At(name);
        const Spot spot = BeginHoldOn(hand, widget, Qt::LeftButton);
        const auto hover = [&](QPointF way) {
            const QPointF place = QRectF(widget.rect()).center() + way;
            QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
            QApplication::sendEvent(&widget, &move);
        };
        hover({0, -4});
        const Facts ended = Settings(hand.s);
        hover({0, -30});
        hover({0, 30});
        EXPECT_THAT(Changed(ended, Settings(hand.s)), IsEmpty());
        ExpectNothingHeld(hand.s, widget);
        hand.ReleaseAt(spot, Qt::LeftButton);
        EXPECT_THAT(Changed(ended, Settings(hand.s)), IsEmpty());
    }
}

/// A drag that something else begins, as the text of a window does. It ends at once, and the toolkit no longer knows
/// which control has the mouse.
void TakeTheMouseAway(QWidget& other) {
    auto* drag = new QDrag(&other);
    drag->setMimeData(new QMimeData);
    drag->exec();
}

TEST(LostPointer, AReleaseThatOnlyTheWindowGetsEndsWhatIsHeld) {
    for (const char* name : {"VolKnob_2", "LoopIt_2", "Limiter", "ChannelFlag_2", "PatternGraph_0", "TwistBall"}) {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            SCOPED_TRACE(name);
            WholeHand hand;
            QWidget& widget = *hand.At(name);
            const Spot spot = BeginHoldOn(hand, widget, button);
            TakeTheMouseAway(hand.Window);
            hand.MoveTo(spot, {0, -6});
            hand.ReleaseAt(spot, button, {0, -6});
            hand.Settle();
            ExpectNothingHeld(hand.s, widget);
            const Facts ended = Settings(hand.s);
            hand.MoveTo(spot, {0, -30});
            EXPECT_THAT(Changed(ended, Settings(hand.s)), IsEmpty());
        }
    }
}

TEST(LostPointer, AMoveOrAPressInAnotherWindowWithoutTheButtonEndsWhatIsHeld) {
    for (const bool press : {false, true}) {
        SCOPED_TRACE(press);
        WholeHand hand;
        QWidget& knob = *hand.At("VolKnob_2");
        hand.Reveal(knob);
        hand.PressAt(hand.SpotOn(knob), Qt::LeftButton);
        const auto send = [&](Qt::MouseButtons others) {
            QMouseEvent event(press ? QEvent::MouseButtonPress : QEvent::MouseMove, {3, 3},
                              hand.Window.mapToGlobal(QPointF(3, 3)), press ? Qt::RightButton : Qt::NoButton,
                              others | Qt::RightButton, {});
            QApplication::sendEvent(hand.Window.windowHandle(), &event);
        };
        send(Qt::LeftButton);
        EXPECT_NE(hand.s.Drag.Dragging, False) << "the button is still down";
        send(Qt::NoButton);
        EXPECT_EQ(hand.s.Drag.Dragging, False);
        hand.ReleaseAt(hand.SpotOn(knob), Qt::LeftButton);
    }
}

TEST(LostPointer, ADrawnBandStaysAndAPressOnALaneDrawsNothing) {
    WholeHand hand;
    hand.Begin();
    QWidget& bands = *hand.At("Bands");
    hand.Reveal(bands);
    const double column = bands.width() / 4.0;
    const double lane = bands.height() / 6.0;
    const Spot spot{&bands, bands.mapTo(hand.Form.get(), QPointF(2.5 * column, 2.5 * lane))};
    hand.PressAt(spot, Qt::LeftButton);
    bands.hide();
    bands.show();
    hand.Settle();
    EXPECT_EQ(hand.s.Run[2].InBand, False);
    hand.ReleaseAt(spot, Qt::LeftButton);
    hand.PressAt(spot, Qt::LeftButton);
    hand.MoveTo(spot, {column, 0});
    bands.hide();
    bands.show();
    hand.Settle();
    EXPECT_EQ(hand.s.BandDrag.Lane, -1);
    EXPECT_EQ(hand.s.BandTable[2].First, 2);
    EXPECT_EQ(hand.s.BandTable[2].Last, 3);
    hand.ReleaseAt(spot, Qt::LeftButton, {column, 0});
}

TEST(LostPointer, ThePauseOfAHeldButtonEndsWithTheHoldAndAPauseOfBeforeStays) {
    Stage stage;
    stage.Fill(0);
    stage.Click("Play_0");
    stage.Press("Play_0", {10, 10}, Qt::RightButton);
    ASSERT_EQ(stage.s.Run[0].Paused, True);
    stage.At("Play_0")->hide();
    EXPECT_EQ(stage.s.Run[0].Paused, False);
    stage.At("Play_0")->show();
    stage.Release("Play_0", {10, 10}, Qt::RightButton);
    stage.s.Run[0].Paused = True;
    stage.Press("Play_0", {10, 10}, Qt::RightButton);
    stage.At("Play_0")->hide();
    EXPECT_EQ(stage.s.Run[0].Paused, True);
    stage.At("Play_0")->show();
    stage.Release("Play_0", {10, 10}, Qt::RightButton);
}

TEST(LostRelease, AClipWhoseReleaseWasLostIsNotDraggedByAPointerThatHoldsNothing) {
    WholeHand hand;
    auto& list = dynamic_cast<QListWidget&>(hand.Part("ClipBoardList"));
    hand.Begin();
    hand.Reveal(list);
    QWidget& view = *list.viewport();
    const QPointF clip = list.visualItemRect(list.item(0)).center();
    const auto move = [&](Qt::MouseButtons buttons) {
        const QPointF to = clip + QPointF(30, 0);
        QMouseEvent event(QEvent::MouseMove, to, view.mapToGlobal(to), Qt::NoButton, buttons, {});
        QApplication::sendEvent(&view, &event);
        hand.FinishDrags();
    };
    const auto press = [&](QPointF at) {
        QMouseEvent event(QEvent::MouseButtonPress, at, view.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(&view, &event);
    };
    press(clip);
    move({});
    EXPECT_THAT(hand.Drags, IsEmpty());
    // Nor is it dragged by a press beside the clips.
    press(clip);
    press({clip.x(), view.height() - 4.0});
    move(Qt::LeftButton);
    EXPECT_THAT(hand.Drags, IsEmpty());
    press(clip);
    move(Qt::LeftButton);
    EXPECT_EQ(hand.Drags.size(), 1U);
}

TEST(LostRelease, AListThatIsOpenedAgainForgetsThePressOfBefore) {
    Stage stage;
    PopupList list(stage.s, stage.Form.get(), "QuickLoad");
    std::vector<int> chosen;
    list.OnChoose = [&](int row) { chosen.push_back(row); };
    const QRect at(stage.Form->mapToGlobal(QPoint(20, 20)), QSize(60, 20));
    list.Open({"one", "two"}, at);
    const QPoint row = list.visualItemRect(list.item(1)).center();
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, row);
    list.hide();
    list.Open({"one", "two"}, at);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, row);
    EXPECT_THAT(chosen, IsEmpty());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(chosen, std::vector<int>{1});
}

TEST(LostRelease, APaletteThatIsOpenedAgainForgetsThePressOfBefore) {
    WholeHand hand;
    hand.Begin();
    hand.Reveal(*hand.At("DropDown_0"));
    hand.Click("DropDown_0", {40, 20});
    auto& list = *hand.Form->findChild<QListWidget*>("HistoryList");
    const QPoint entry = list.visualItemRect(list.item(1)).center();  // "<Empty Looptrack>"
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, entry);
    hand.Screen.ShowHistoryList(false);
    hand.Screen.ShowHistoryList(true);
    hand.Settle();
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, entry);
    EXPECT_EQ(hand.s.Run[0].Loaded, True);
}

}  // namespace
}  // namespace marvolin
