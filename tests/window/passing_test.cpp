// Nothing acts in passing: what the wheel and the keys do to lists, and to controls that turn.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QWheelEvent>
#include <QWindow>

#include "whole_hand.h"
#include "window/descriptions/described.h"

namespace marvolin {
namespace {

using test::Changed;
using test::FactsOf;
using test::WholeHand;
using testing::Contains;
using testing::IsEmpty;

constexpr Qt::Key kArrows[] = {Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                               Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};

/// The lists of all windows, and a wheel over them.
struct Lists : WholeHand {
    std::vector<QComboBox*> Closed() {
        std::vector<QComboBox*> lists;
        for (QWidget* window : std::initializer_list<QWidget*>{Form.get(), &Window, &Save}) {
            for (QComboBox* list : window->findChildren<QComboBox*>()) lists.push_back(list);
        }
        return lists;
    }
    /// Visits the drop-down lists of the dialogues of files, each while it is open.
    void EachOfTheDialogues(const std::function<void(QComboBox&)>& visit) {
        for (const char* opener : {"SaveItAs", "OpenIt"}) {
            Begin();
            int seen = 0;
            OnDialogue = [&](QDialog& dialogue) {
                dialogue.activateWindow();
                Settle();
                for (QComboBox* list : dialogue.findChildren<QComboBox*>()) {
                    ++seen;
                    visit(*list);
                }
            };
            dynamic_cast<QPushButton&>(Named(opener)).click();
            EXPECT_EQ(seen, 2) << opener;
            OnDialogue = nullptr;
        }
    }
    /// A turn of the wheel, with the time of the hand.
    void WheelOver(QWidget& widget, int notches, quint64 pause = 1000) {
        const QPointF place = QRectF(widget.rect()).center();
        QWheelEvent event(place, widget.mapToGlobal(place), {}, QPoint(0, notches * 120), QApplication::mouseButtons(),
                          {}, Qt::NoScrollPhase, false);
        time_ += pause;
        event.setTimestamp(time_);
        QApplication::sendEvent(&widget, &event);
    }

private:
    quint64 time_ = 1'000'000;
};

void ExpectNothingFromAClosedList(Lists& hand, QComboBox& list) {
    SCOPED_TRACE(list.objectName().toStdString());
    ASSERT_GE(list.count(), 2);
    for (const bool focused : {false, true}) {
        focused ? list.setFocus() : list.clearFocus();
        ASSERT_EQ(list.hasFocus(), focused);
        // From the middle and from both ends each step would lead somewhere.
        for (const int entry : {0, list.count() / 2, list.count() - 1}) {
            {
                const QSignalBlocker quiet(&list);
                list.setCurrentIndex(entry);
            }
            const QSignalSpy chosen(&list, &QComboBox::activated);
            const test::Facts before = FactsOf(hand.s);
            for (const int notches : {1, -1, 5, -5}) hand.WheelOver(list, notches);
            for (const Qt::Key key : kArrows) QTest::keyClick(&list, key);
            QTest::keyClicks(&list, "d2n");
            EXPECT_EQ(list.currentIndex(), entry);
            EXPECT_EQ(chosen.count(), 0);
            EXPECT_THAT(Changed(before, FactsOf(hand.s)), IsEmpty());
        }
    }
}

TEST(NothingActsInPassing, AClosedListTakesNeitherWheelNorArrowsNorLetters) {
    Lists hand;
    ASSERT_GE(hand.Closed().size(), 17U);
    for (QComboBox* list : hand.Closed()) {
        hand.Reveal(*list);
        list->setEnabled(true);
        ExpectNothingFromAClosedList(hand, *list);
    }
}

TEST(NothingActsInPassing, TheClosedListsOfTheFileDialoguesNeither) {
    Lists hand;
    hand.EachOfTheDialogues([&](QComboBox& list) {
        // The list of folders is made when it is opened.
        list.showPopup();
        list.hidePopup();
        ExpectNothingFromAClosedList(hand, list);
    });
    EXPECT_THAT(hand.Store.Log, IsEmpty());
}

TEST(NothingActsInPassing, AnOpenListActsOnAChoiceOnly) {
    Lists hand;
    const auto choose = [&](QComboBox& list) {
        SCOPED_TRACE(list.objectName().toStdString());
        QSignalSpy chosen(&list, &QComboBox::activated);
        const test::Facts before = FactsOf(hand.s);
        list.showPopup();
        for (const int notches : {1, -1, 3}) hand.WheelOver(*list.view()->viewport(), notches);
        for (const Qt::Key key : kArrows) QTest::keyClick(list.view(), key);
        EXPECT_EQ(chosen.count(), 0);
        EXPECT_THAT(Changed(before, FactsOf(hand.s)), IsEmpty());
        list.view()->setCurrentIndex(list.model()->index(1, 0));
        QTest::keyClick(list.view(), Qt::Key_Return);
        EXPECT_EQ(chosen.count(), 1);
    };
    for (QComboBox* list : hand.Closed()) {
        hand.Begin();
        hand.Reveal(*list);
        list->setEnabled(true);
        choose(*list);
    }
    hand.EachOfTheDialogues(choose);
}

TEST(NothingActsInPassing, TheKeysThatOpenAListStillOpenIt) {
    Lists hand;
    auto& list = dynamic_cast<QComboBox&>(*hand.At("PadType"));
    hand.Reveal(list);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_TRUE(list.view()->isVisible());
    list.hidePopup();
    QTest::keyClick(&list, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(list.view()->isVisible());
    list.hidePopup();
}

TEST(NothingActsInPassing, TheWheelTurnsNoTabOver) {
    Lists hand;
    auto& tabs = dynamic_cast<QTabBar&>(hand.Part("Sstab"));
    for (const int notches : {1, -1}) {
        hand.WheelOver(tabs, notches);
        EXPECT_EQ(tabs.currentIndex(), 0);
    }
    for (int tab = 0; tab < kTabs; ++tab) hand.WheelOver(*hand.At(("Tab_" + std::to_string(tab)).c_str()), 1);
    EXPECT_EQ(hand.s.ActiveTab, 0);
}

TEST(NothingActsInPassing, OtherListsOnlyMoveTheirChoice) {
    Lists hand;
    for (const char* name : {"HistoryList", "SlctGroup", "QuickLoad", "FolderTreeview1", "ClipBoardList"}) {
        SCOPED_TRACE(name);
        hand.Begin();
        auto& list = dynamic_cast<QAbstractItemView&>(hand.Named(name));
        hand.Reveal(list);
        ASSERT_TRUE(list.isVisible());
        ASSERT_GE(list.model()->rowCount(list.rootIndex()), 2);
        hand.Sound.Log.clear();
        const test::Facts before = FactsOf(hand.s);
        const std::vector<std::string> shown = hand.Shown();
        const auto nothingActed = [&] {
            EXPECT_THAT(Changed(before, FactsOf(hand.s)), IsEmpty());
            EXPECT_EQ(hand.Shown(), shown);
            EXPECT_THAT(hand.Sound.Log, IsEmpty());
            EXPECT_THAT(hand.Store.Log, IsEmpty());
        };
        list.setFocus();
        for (const int notches : {1, -1}) hand.WheelOver(*list.viewport(), notches);
        nothingActed();
        for (const Qt::Key key : kArrows) QTest::keyClick(&list, key);
        nothingActed();
        EXPECT_TRUE(list.currentIndex().isValid());
    }
}

TEST(NothingActsInPassing, TheBinsOnlyScrollByTheWheelAndSelectByTheArrows) {
    Lists hand;
    for (const char* bin : {"PickFile_0", "PickFile_1", "PickFile_2"}) {
        SCOPED_TRACE(bin);
        hand.Reveal(hand.Part(bin));
        for (const bool focused : {false, true}) {
            hand.Part("PickDir_0").setFocus();
            if (focused) hand.Part(bin).setFocus();
            const test::Facts before = FactsOf(hand.s);
            for (const int notches : {1, -1}) hand.WheelOver(hand.Part(bin), notches);
            EXPECT_THAT(Changed(before, FactsOf(hand.s)), IsEmpty());
            for (const Qt::Key key : kArrows) QTest::keyClick(hand.Window.windowHandle(), key);
            EXPECT_EQ(Changed(before, FactsOf(hand.s)).size(), focused ? 1U : 0U);  // the row that is selected
            EXPECT_THAT(hand.Sound.Log, IsEmpty());
        }
    }
}

TEST(NothingActsInPassing, AListWithoutTheFocusTakesNoArrows) {
    Lists hand;
    for (const char* name : {"FolderTreeview1", "ClipBoardList"}) {
        SCOPED_TRACE(name);
        hand.Begin();
        auto& list = dynamic_cast<QAbstractItemView&>(hand.Named(name));
        hand.Reveal(list);
        auto& elsewhere = hand.Named(name == std::string_view("ClipBoardList") ? "ClearClip" : "PickDir_0");
        elsewhere.setFocus();
        ASSERT_TRUE(elsewhere.hasFocus());
        const QModelIndex before = list.currentIndex();
        for (const int notches : {1, -1}) hand.WheelOver(*list.viewport(), notches);
        for (const Qt::Key key : kArrows) QTest::keyClick(hand.Window.windowHandle(), key);
        EXPECT_EQ(list.currentIndex(), before);
    }
    // A list that opens over the window has the focus as long as it is open.
    hand.Begin();
    hand.Reveal(hand.Named("HistoryList"));
    hand.Named("DropDown_1").setFocus();
    EXPECT_THAT(hand.OpenLists(), IsEmpty());
}

/// A control that the wheel and the arrows turn, and a fact of the session that shows it.
struct Turned {
    const char* Name;
    const char* Fact;
};
constexpr Turned kTurned[] = {{"VolKnob_2", "C.Vol"},
                              {"VolKnob_5", "Master.Vol"},
                              {"PanKnob_2", "C.Pan"},
                              {"HzKnob_2", "C.Hz"},
                              {"LoopIt_2", "C.PlayMode"},
                              {"LoopIt_5", "A.PlayMode"},
                              {"ChannelFlag_2", "C.Channel"},
                              {"Limiter", "Limit"},
                              {"FadeFactor", "FadeStep"},
                              {"NSteps", "StepsShown"},
                              {"TimeDigit_2", "A.StepDuration"},
                              {"MapSize", "MapSize"},
                              {"RollOff", "RollOff"},
                              {"PadBall", "Pad0.Y"},
                              {"TwistBall", "TwistPosition"},
                              {"ResSlider", "TimingRes"},
                              {"ScrollSensitivity_1", "ScrollSensitivity1"},
                              {"JoyFactor_0", "JoyFactor0"}};

struct Turning : Lists {
    Turning() {
        // Each can go one up and one down.
        for (Row row = 0; row < kLoopTracks; ++row) s.Set[row].PlayMode = kTrack;
        s.Limit = 3;
        s.Set[0].StepDuration = 500;
        s.Set[2].Channel = 3;
        s.TimingRes = 10;
        s.ScrollSensitivity[1] = 20;
        s.Set[5].Vol = 300;
        s.PadTypeIndex = 0;
        s.Joy.Axis[0] = 0;  // no axis holds the master
        Screen.ShowOptions();
    }
    bool Changes(const Turned& turned, const std::function<void(QWidget&)>& act) {
        QWidget& widget = *At(turned.Name);
        Reveal(widget);
        const std::string before = FactsOf(s).at(turned.Fact);
        act(widget);
        return FactsOf(s).at(turned.Fact) != before;
    }
};

TEST(NothingActsInPassing, TheTableHasEveryControlThatTurns) {
    std::vector<std::string> names;
    for (const Turned& each : kTurned)
        names.push_back(std::string(each.Name).substr(0, std::string(each.Name).find('_')));
    WholeHand hand;
    for (const QWidget* control : hand.Controls()) {
        const Description& row = DescribedOf(*control)->Row();
        if (Takes(row.Taken, Keys::Turn)) {
            EXPECT_THAT(names, Contains(std::string(row.Name)));
        }
    }
}

TEST(NothingActsInPassing, WhatTurnsTurnsByTheWheelUnderThePointerAndByArrowsWithTheFocus) {
    Turning hand;
    for (const Turned& turned : kTurned) {
        SCOPED_TRACE(turned.Name);
        EXPECT_TRUE(hand.Changes(turned, [&](QWidget& widget) { hand.WheelOver(widget, -1); }));
        EXPECT_TRUE(hand.Changes(turned, [&](QWidget& widget) {
            widget.setFocus();
            QTest::keyClick(hand.Form->windowHandle(), Qt::Key_Down);
        }));
    }
}

TEST(NothingActsInPassing, NothingTurnsDuringADrag) {
    Turning hand;
    for (const Turned& turned : kTurned) {
        SCOPED_TRACE(turned.Name);
        for (const char* held : {"VolKnob_3", "ChannelFlag_3", "Selected_3"}) {
            const auto hold = [&](const std::function<void(QWidget&)>& act) {
                return [&hand, held, act](QWidget& widget) {
                    hand.Press(held, hand.Middle(held));
                    act(widget);
                    hand.Release(held, hand.Middle(held));
                };
            };
            EXPECT_FALSE(hand.Changes(turned, hold([&](QWidget& widget) { hand.WheelOver(widget, -1); })));
            EXPECT_FALSE(hand.Changes(turned, hold([&](QWidget& widget) {
                                          widget.setFocus();
                                          QTest::keyClick(hand.Form->windowHandle(), Qt::Key_Down);
                                          if (Takes(DescribedOf(widget)->Row().Taken, Keys::Press)) {
                                              QTest::keyClick(hand.Form->windowHandle(), Qt::Key_Space);
                                          }
                                      })));
        }
    }
}

TEST(NothingActsInPassing, ADragGoesOnWhileTheWheelPassesOverOtherControls) {
    Turning hand;
    const QPointF start = hand.Middle("VolKnob_3");
    const std::int16_t before = hand.s.Set[3].Vol;
    hand.Press("VolKnob_3", start);
    for (const Turned& turned : kTurned) {
        hand.WheelOver(*hand.At(turned.Name), 1);
        hand.At(turned.Name)->setFocus();
        QTest::keyClick(hand.Form->windowHandle(), Qt::Key_Up);
    }
    hand.Move("VolKnob_3", start + QPointF(4, 0));
    EXPECT_EQ(hand.s.Set[3].Vol, before + 60);
    hand.Release("VolKnob_3", start + QPointF(4, 0));
    EXPECT_EQ(hand.s.Set[3].Vol, before + 60);
}

TEST(NothingActsInPassing, AScrollThatBeganElsewhereTurnsNothing) {
    Turning hand;
    for (const Turned& turned : kTurned) {
        SCOPED_TRACE(turned.Name);
        for (const char* begun : {"StatusBar1", "Toolbar", "SndDisp_1", "VolKnob_3"}) {
            EXPECT_FALSE(hand.Changes(turned, [&](QWidget& widget) {
                hand.WheelOver(*hand.At(begun), -1);
                for (int notch = 0; notch < 5; ++notch) hand.WheelOver(widget, -1, 60);
            })) << begun;
        }
        // After a pause it is a scroll of its own, which goes on.
        EXPECT_TRUE(hand.Changes(turned, [&](QWidget& widget) { hand.WheelOver(widget, 1, 400); }));
        EXPECT_TRUE(hand.Changes(turned, [&](QWidget& widget) { hand.WheelOver(widget, -1, 60); }));
    }
}

TEST(NothingActsInPassing, AScrollThatTheWindowHandsOnGoesByItsTimesToo) {
    Turning hand;
    const auto scroll = [&](const char* name, quint64 time) {
        const QPointF place = hand.InWindow(name, hand.Middle(name));
        QWheelEvent event(place, hand.Form->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        event.setTimestamp(time);
        QApplication::sendEvent(hand.Form->windowHandle(), &event);
    };
    const std::int16_t first = hand.s.Set[2].Vol;
    const std::int16_t second = hand.s.Set[3].Vol;
    scroll("VolKnob_2", 5000);
    scroll("VolKnob_3", 5100);
    scroll("VolKnob_3", 5200);
    EXPECT_EQ(hand.s.Set[2].Vol, first - 1);
    EXPECT_EQ(hand.s.Set[3].Vol, second);
    scroll("VolKnob_3", 6000);
    EXPECT_EQ(hand.s.Set[3].Vol, second - 1);
}

}  // namespace
}  // namespace marvolin
