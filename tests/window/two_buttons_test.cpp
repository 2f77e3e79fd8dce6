// A second button during a hold or a drag, on every control.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QListWidget>
#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <span>

#include "performance/tabs.h"
#include "whole_hand.h"
#include "window/descriptions/described.h"

namespace marvolin {
namespace {

using test::Changed;
using test::Facts;
using test::FactsOf;
using test::Spot;
using test::WholeHand;
using testing::Contains;
using testing::IsEmpty;

constexpr QPointF kTremble{2, 1};
constexpr QPointF kFar{18, 14};
constexpr QPointF kFarther{24, 20};

/// A hold by `First`; `Second` is pressed while it lasts.
struct Chord {
    Qt::MouseButton First;
    Qt::MouseButton Second;
    bool FirstLeaves;  ///< the first button is released before the second
};

/// What came of a hold and the plain click after it.
struct Outcome {
    Facts Held;
    Facts Clicked;
    std::vector<std::string> Sound;
    std::vector<std::string> Forms;
    std::vector<std::string> Files;
    std::vector<std::string> Shown;  ///< after the hold, and after the click
    std::vector<DragSource> Drags;
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

/// A call of the sound service without the number of its buffer: each load takes a new one.
std::string Unnumbered(std::string call) {
    for (std::size_t at = 0; (at = call.find(" b", at)) != std::string::npos;) {
        const std::size_t end = call.find_first_not_of("0123456789", at + 2);
        const std::size_t digits = std::min(end, call.size()) - at - 2;
        if (digits == 0) {
            at += 2;
        } else {
            call.erase(at, digits + 2);
        }
    }
    return call;
}

/// Holds the control with the first button of the chord, alone or with the second, and then clicks on it.
Outcome Hold(WholeHand& hand, QWidget& widget, const Chord& chord, bool alone) {
    hand.Begin();
    hand.Reveal(widget);
    const Spot spot = hand.SpotOn(widget);
    hand.PressAt(spot, chord.First);
    hand.MoveTo(spot, kTremble);
    if (!alone) hand.PressAt(spot, chord.Second, kTremble);
    hand.MoveTo(spot, kFar);
    if (chord.FirstLeaves) hand.ReleaseAt(spot, chord.First, kFar);
    if (!alone && !chord.FirstLeaves) hand.ReleaseAt(spot, chord.Second, kFar);
    hand.MoveTo(spot, kFarther);
    if (!alone && chord.FirstLeaves) hand.ReleaseAt(spot, chord.Second, kFarther);
    if (!chord.FirstLeaves) hand.ReleaseAt(spot, chord.First, kFarther);
    hand.Settle();
    Outcome outcome;
    outcome.Held = FactsOf(hand.s);
    outcome.Shown = hand.Shown();
    hand.Reveal(widget);
    hand.ClickAt(hand.SpotOn(widget));
    hand.FinishDrags();
    outcome.Clicked = FactsOf(hand.s);
    for (const std::string& call : hand.Sound.Log) {
        if (call.find("GetCurrentPosition") == std::string::npos)
            outcome.Sound.push_back(Unnumbered(call));  // a painting asks
    }
    outcome.Forms = hand.Forms.Log;
    outcome.Files = hand.Store.Log;
    for (const std::string& shown : hand.Shown()) outcome.Shown.push_back(shown);
    outcome.Drags = hand.Drags;
    return outcome;
}

/// Nothing is held, and the pointer is free.
void ExpectNoGesture(WholeHand& hand, const QWidget& widget) {
    const Session& s = hand.s;
    EXPECT_EQ(s.Drag.Dragging, False);
    EXPECT_EQ(s.Drag.DragPlayModeRow, -1);
    EXPECT_EQ(s.SelectDragTag, kNoButton);
    EXPECT_EQ(s.BandDrag.Lane, -1);
    EXPECT_EQ(s.PatternDrawRow, -1);
    EXPECT_EQ(s.PatternRandomRow, -1);
    EXPECT_TRUE(s.CursorFree);
    bool caged = false;
    for (const std::string& call : hand.Desk.Log) {
        if (call.starts_with("ClipCursor")) caged = true;
        if (call == "ReleaseCursor") caged = false;
    }
    EXPECT_FALSE(caged);
    EXPECT_EQ(QApplication::mouseButtons(), Qt::NoButton);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        EXPECT_FALSE(button->isDown());
    }
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(&widget)) {
        EXPECT_FALSE(slider->isSliderDown());
    }
}

constexpr std::array<Qt::MouseButton, 3> kButtons{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};

/// Each pair of these buttons, each order of release.
void EachChord(std::span<const Qt::MouseButton> buttons, const std::function<void(const Chord&)>& act) {
    for (const Qt::MouseButton first : buttons) {
        for (const Qt::MouseButton second : buttons) {
            if (first == second) continue;
            for (const bool firstLeaves : {true, false}) act({first, second, firstLeaves});
        }
    }
}

std::vector<std::string> NamesOf(const std::vector<QWidget*>& controls) {
    std::vector<std::string> names;
    for (const QWidget* control : controls) names.push_back(control->objectName().toStdString());
    return names;
}

TEST(TwoButtons, TheHandReachesEveryControlThatHoldsThePointerOrStartsADrag) {
    WholeHand hand;
    const std::vector<std::string> names = NamesOf(hand.Controls());
    for (const char* name : {
             "Letr_0",          "Letr_4",
             "PosBall_0",       "PosBall_4",
             "PadBall",         "TwistBall",
             "VolKnob_5",       "PanKnob_1",
             "HzKnob_4",        "SndDisp_2",
             "SndDisp_4",       "LoopIt_3",
             "LoopIt_5",        "ChannelFlag_0",
             "ChannelFlag_4",   "Limiter",
             "FadeFactor",      "MapSize",
             "RollOff",         "NSteps",
             "TimeDigit_0",     "TimeDigit_14",
             "PatternGraph_0",  "PatternGraph_2",
             "Patterns",        "AllTiming",
             "CloneTime_1",     "Eraser",
             "TabControl",      "Tab_2",
             "Selected_3",      "Bands",
             "DropDown_0",      "PickDir_1",
             "PickFile_0",      "PickFile_2",
             "ClipBoardList",   "ScrollSensitivity_0",
             "ResSlider",       "JoyFactor_2",
             "PlayStop",        "Play_1",
             "Thumb_2",         "SelectorRadio_3",
             "ResetVars",       "HistoryList",
             "SlctGroup",       "QuickLoad",
             "FolderTreeview1", "Selector_1",
             "Elements_0_3",    "SaveIt",
             "SaveItAs",        "OpenIt",
             "Reload",
         }) {
        EXPECT_THAT(names, Contains(name));
    }
}

void TryEveryChordOn(WholeHand& hand, QWidget& widget, std::span<const Qt::MouseButton> buttons) {
    std::map<std::pair<Qt::MouseButton, bool>, Outcome> alone;
    EachChord(buttons, [&](const Chord& chord) {
        SCOPED_TRACE(widget.objectName().toStdString() + ": " + std::to_string(chord.First) + ", then " +
                     std::to_string(chord.Second) + (chord.FirstLeaves ? ", first leaves" : ", second leaves"));
        const auto key = std::pair(chord.First, chord.FirstLeaves);
        if (!alone.contains(key)) alone[key] = Hold(hand, widget, chord, true);
        const Outcome& one = alone.at(key);
        const Outcome both = Hold(hand, widget, chord, false);
        ExpectNoGesture(hand, widget);
        EXPECT_THAT(Changed(one.Held, both.Held), IsEmpty());
        EXPECT_THAT(Changed(one.Clicked, both.Clicked), IsEmpty());
        EXPECT_EQ(one.Sound, both.Sound);
        EXPECT_EQ(one.Forms, both.Forms);
        EXPECT_EQ(one.Files, both.Files);
        EXPECT_EQ(one.Shown, both.Shown);
        EXPECT_EQ(one.Drags, both.Drags);
    });
}

/// Buttons to try on a control. In an array the first member takes them all, as do the rows of the selection and of the
/// master, which are unlike the others; left and right are enough for the rest.
std::span<const Qt::MouseButton> ButtonsFor(const QWidget& widget) {
    const int index = DescribedOf(widget)->Index();
    const bool first = index <= 0 || index == kSelectionRow || index == kMasterRow;
    return std::span(kButtons).first(first ? 3 : 2);
}

TEST(TwoButtons, ASecondButtonChangesNothingOnAnyControl) {
    WholeHand hand;
    hand.LookAway();
    for (QWidget* widget : hand.Controls()) {
        if (qobject_cast<QComboBox*>(widget) != nullptr) continue;  // a press opens it and holds nothing
        if (widget->objectName() == "Enable3d") continue;           // below, as it makes all sounds anew
        TryEveryChordOn(hand, *widget, ButtonsFor(*widget));
        if (HasFailure()) break;
    }
}

TEST(TwoButtons, ASecondButtonChangesNothingOnTheBoxOfThe3dSound) {
    EachChord(kButtons, [&](const Chord& chord) {
        const auto after = [&](bool alone) {
            WholeHand hand;
            hand.LookAway();
            const Outcome outcome = Hold(hand, *hand.At("Enable3d"), chord, alone);
            ExpectNoGesture(hand, *hand.At("Enable3d"));
            return outcome.Clicked;
        };
        EXPECT_THAT(Changed(after(true), after(false)), IsEmpty());
    });
}

TEST(TwoButtons, ABallWhoseTabAnotherHandChangesLetsThePointerGo) {
    WholeHand hand;
    for (const char* ball : {"PosBall_0", "PosBall_4", "PadBall", "TwistBall"}) {
        for (const Qt::MouseButton button : kButtons) {
            SCOPED_TRACE(ball);
            hand.Begin();
            QWidget& widget = *hand.At(ball);
            hand.Reveal(widget);
            const Spot spot = hand.SpotOn(widget);
            hand.PressAt(spot, button);
            hand.MoveTo(spot, kTremble);
            SetTab(hand.s, kOptionTab);  // as the hat of the stick does
            hand.Settle();
            EXPECT_TRUE(hand.s.CursorFree);
            EXPECT_EQ(hand.s.Drag.Dragging, False);
            hand.ReleaseAt(spot, button, kTremble);
            ExpectNoGesture(hand, widget);
        }
    }
}

TEST(TwoButtons, AButtonThatComesDownWhileAnotherHasClosedAListHoldsNothing) {
    WholeHand hand;
    hand.LookAway();
    for (const char* name : {"Limiter", "HzKnob_1", "Play_2"}) {
        SCOPED_TRACE(name);
        hand.Begin();
        QWidget& widget = hand.Named(name);
        QWidget& list = hand.Named("SetChannel");
        hand.Reveal(widget);
        if (!list.isVisible()) continue;
        const Spot spot = hand.SpotOn(widget);
        hand.ClickAt(hand.SpotOn(list));
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        const Facts before = FactsOf(hand.s);
        hand.PressAt(spot, Qt::LeftButton);
        ASSERT_EQ(QApplication::activePopupWidget(), nullptr);
        hand.PressAt(spot, Qt::MiddleButton);
        hand.ReleaseAt(spot, Qt::LeftButton);
        hand.ReleaseAt(spot, Qt::MiddleButton);
        ExpectNoGesture(hand, widget);
        EXPECT_THAT(Changed(before, FactsOf(hand.s)), IsEmpty());
        // The next press is one like any other.
        if (widget.objectName() != "Limiter") continue;
        hand.PressAt(spot, Qt::LeftButton);
        EXPECT_EQ(hand.s.Drag.Dragging, True);
        hand.ReleaseAt(spot, Qt::LeftButton);
        ExpectNoGesture(hand, widget);
    }
}

TEST(TwoButtons, InThePaletteTheButtonThatPressedAnEntryChoosesIt) {
    WholeHand hand;
    hand.Begin();
    hand.Reveal(*hand.At("DropDown_0"));
    hand.Click("DropDown_0", {40, 20});
    auto& list = *hand.Form->findChild<QListWidget*>("HistoryList");
    const QPoint entry = list.visualItemRect(list.item(1)).center();  // "<Empty Looptrack>"
    const Spot spot{&list, list.viewport()->mapTo(hand.Form.get(), entry)};
    hand.PressAt(spot, Qt::LeftButton);
    hand.PressAt(spot, Qt::RightButton);
    hand.ReleaseAt(spot, Qt::RightButton);
    EXPECT_EQ(hand.s.Run[0].Loaded, True);
    EXPECT_TRUE(list.isVisible());
    hand.ReleaseAt(spot, Qt::LeftButton);
    EXPECT_EQ(hand.s.Run[0].Loaded, False);
    EXPECT_FALSE(list.isVisible());
}

}  // namespace
}  // namespace marvolin
