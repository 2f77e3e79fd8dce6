// Drags by key: Insert picks up, Insert drops, Escape lets go.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QListWidget>
#include <QMimeData>
#include <QWindow>
#include <vector>

#include "core/routines.h"
#include "key_hand.h"
#include "performance/drops/palette.h"
#include "performance/selection/bands.h"
#include "window/descriptions/described.h"
#include "window/toolkit/drop_ring.h"

namespace marvolin {
namespace {

using test::FactsOf;
using test::KeyHand;
using testing::IsEmpty;

struct CarryHand : KeyHand {
    CarryHand() { SetBand(s, 0, {}); }
    /// Carries from one control to another.
    void Carry(const char* from, const char* to, Qt::KeyboardModifiers held = Qt::NoModifier) {
        Go(from);
        Key(Qt::Key_Insert, held);
        Go(to);
        Key(Qt::Key_Insert);
    }
    QWidget* Ring() { return DropRing::Of(*qApp).Target(); }
};

TEST(KeyDrag, TheDropperTakesAllSettingsOnALetterAndTheVolumeOnTheSound) {
    CarryHand hand;
    hand.Carry("Letr_0", "Letr_3");
    EXPECT_EQ(hand.s.Set[0].Vol, 103);
    EXPECT_EQ(hand.s.Set[0].Pan, 303);
    EXPECT_EQ(hand.s.Set[0].PlayMode, kDrum);
    hand.Carry("Letr_1", "SndDisp_3");
    EXPECT_EQ(hand.s.Set[1].Vol, 103);
    EXPECT_EQ(hand.s.Set[1].Pan, 301);
}

TEST(KeyDrag, WithShiftALetterCarriesItsFade) {
    CarryHand hand;
    hand.Carry("Letr_0", "Letr_2", Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Run[0].FadeState, kFalling);
    EXPECT_EQ(hand.s.Run[2].FadeState, kRising);
}

TEST(KeyDrag, ASampleGoesToAnotherLoopTrackAndToTheClipboard) {
    CarryHand hand;
    hand.s.Set[0].FileName = (hand.Folder / "one.wav").string();
    hand.Carry("DropDown_0", "DropDown_1");
    EXPECT_EQ(hand.s.Set[1].FileName, hand.s.Set[0].FileName);
    const std::size_t clips = hand.s.Clips.List.size();
    hand.Carry("DropDown_0", "ClipBoardList");
    EXPECT_EQ(hand.s.Clips.List.size(), clips + 1);
}

TEST(KeyDrag, ASampleOfABinAndAClipComeToTheRows) {
    CarryHand hand;
    hand.s.Bins[0].Selected = 1;
    hand.Go("PickFile_0");
    hand.Forms.Log.clear();
    hand.Key(Qt::Key_Insert);
    EXPECT_THAT(hand.Forms.Log, testing::Contains(testing::HasSubstr("BringToFront")));
    hand.Go("Play_2");
    hand.Key(Qt::Key_F9);
    EXPECT_EQ(hand.s.Set[2].FileName, (hand.Folder / hand.s.Bins[0].Rows[1].File).string());
    hand.Go("ClipBoardList");
    hand.Key(Qt::Key_Home);
    hand.Key(Qt::Key_Insert);
    hand.s.Set[3].Vol = 7;
    hand.Go("VolKnob_3");
    hand.Key(Qt::Key_Insert);
    EXPECT_EQ(hand.s.Set[3].Vol, hand.s.Clips.ClipStore[0].Vol);
}

TEST(KeyDrag, AnEntryOfThePaletteGoesToAnotherLoopTrack) {
    CarryHand hand;
    hand.Go("DropDown_0");
    hand.Key(Qt::Key_Space);
    auto& palette = dynamic_cast<QListWidget&>(hand.Named("HistoryList"));
    ASSERT_TRUE(palette.hasFocus());
    palette.setCurrentRow(kHistorySamples);
    hand.Key(Qt::Key_Insert);
    EXPECT_FALSE(palette.isVisible());
    EXPECT_EQ(hand.Focus(), "DropDown_0");
    hand.Go("Letr_3");
    hand.Key(Qt::Key_Insert);
    EXPECT_EQ(hand.s.Set[3].FileName, (hand.Folder / "one.wav").string());
}

TEST(KeyDrag, PatternsAndTimingAreCopiedAndTheEraserErases) {
    CarryHand hand;
    hand.s.CurrentLoop = 0;
    hand.s.Set[0].Pattern[kHzPattern][1] = 1234;
    hand.s.Set[0].StepDuration = 77;
    hand.Carry("PatternGraph_1", "LoopIt_3");
    EXPECT_EQ(hand.s.Set[3].Pattern[kHzPattern][1], 1234);
    EXPECT_NE(hand.s.Set[3].StepDuration, 77);
    hand.Carry("CloneTime_0", "ChannelFlag_3");
    EXPECT_EQ(hand.s.Set[3].StepDuration, 77);
    hand.s.Set[0].Swing = 5;
    hand.Carry("AllTiming", "Letr_2");
    EXPECT_EQ(hand.s.Set[2].Swing, 5);
    hand.Carry("Patterns", "Letr_1");
    EXPECT_EQ(hand.s.Set[1].Pattern[kHzPattern][1], 1234);
    hand.s.Set[0].Swing = 6;
    hand.Carry("Tab_2", "Letr_1");
    EXPECT_EQ(hand.s.Set[1].Swing, 6);
    hand.Carry("Eraser", "PatternGraph_1");
    EXPECT_EQ(hand.s.Set[0].Pattern[kHzPattern][1], 1000);
}

TEST(KeyDrag, AFolderGoesToAnotherBin) {
    CarryHand hand;
    const std::string folder = hand.s.Bins[0].Folder;
    hand.s.Bins[2].Folder = "/elsewhere";
    hand.Carry("PickDir_0", "PickDir_2");
    EXPECT_EQ(hand.s.Bins[2].Folder, folder);
}

TEST(KeyDrag, EscapeLetsGoAndNothingHasChanged) {
    CarryHand hand;
    const auto before = FactsOf(hand.s);
    hand.Go("Letr_0");
    hand.Key(Qt::Key_Insert);
    EXPECT_THAT(hand.s.StatusText, testing::HasSubstr("key Insert Drop"));
    hand.Go("Letr_3");
    EXPECT_EQ(hand.Ring(), &hand.Named("Letr_3"));
    hand.Key(Qt::Key_Escape);
    EXPECT_EQ(hand.Ring(), nullptr);
    auto after = FactsOf(hand.s);
    EXPECT_THAT(test::Changed(before, after), IsEmpty());
}

TEST(KeyDrag, WhatStoodInTheStatusLineComesBackWhenItIsLetGo) {
    CarryHand hand;
    hand.Go("Letr_0");
    ShowStatus(hand.s, "a report");
    hand.Key(Qt::Key_Insert);
    ASSERT_NE(hand.s.StatusText, "a report");
    hand.Key(Qt::Key_Escape);
    EXPECT_EQ(hand.s.StatusText, "a report");
}

TEST(KeyDrag, AReportOfBeforeDoesNotStandAgainAfterADropThatReportsNothing) {
    CarryHand hand;
    hand.Go("PickDir_0");
    ShowStatus(hand.s, "a report");
    hand.Carry("PickDir_0", "PickDir_2");
    EXPECT_NE(hand.s.StatusText, "a report");
}

TEST(KeyDrag, AReportOfTheMeantimeStaysWhenItIsLetGo) {
    CarryHand hand;
    hand.Go("Letr_0");
    ShowStatus(hand.s, "a report");
    hand.Key(Qt::Key_Insert);
    ShowStatus(hand.s, "another report");
    hand.Key(Qt::Key_Escape);
    EXPECT_EQ(hand.s.StatusText, "another report");
}

TEST(KeyDrag, TheHintOfAnotherControlDoesNotComeBack) {
    CarryHand hand;
    hand.Go("Letr_0");
    Described* other = DescribedOf(hand.Named("Play_2"));
    ASSERT_NE(other, nullptr);
    other->ShowHint(0, false);
    const std::string hint = hand.s.StatusText;
    ASSERT_NE(hint, "");
    hand.Key(Qt::Key_Insert);
    hand.Key(Qt::Key_Escape);
    EXPECT_NE(hand.s.StatusText, hint);
}

TEST(KeyDrag, ADropThatWouldDoNothingIsRefusedAndTheLoadIsKept) {
    CarryHand hand;
    hand.Go("Letr_0");
    hand.Key(Qt::Key_Insert);
    hand.Go("Browse");
    EXPECT_EQ(hand.Ring(), nullptr);
    hand.Key(Qt::Key_Insert);
    EXPECT_THAT(hand.s.StatusText, testing::HasSubstr("cannot be dropped here"));
    hand.Go("Letr_3");
    hand.Key(Qt::Key_Insert);
    EXPECT_EQ(hand.s.Set[0].Vol, 103);
}

TEST(KeyDrag, WhatCannotBeDraggedCannotBePickedUp) {
    CarryHand hand;
    for (const char* name : {"Play_0", "SelectorRadio_2", "ChannelFlag_1", "Tab_0", "VolKnob_2"}) {
        SCOPED_TRACE(name);
        hand.s.ActiveTab = kMixPadTab;
        hand.Screen.ShowTab();
        const auto before = FactsOf(hand.s);
        hand.Go(name);
        hand.Key(Qt::Key_Insert);
        auto after = FactsOf(hand.s);
        EXPECT_EQ(hand.s.StatusText, "Nothing can be picked up here");
        EXPECT_THAT(test::Changed(before, after), IsEmpty());
    }
}

TEST(KeyDrag, ArrowsGoToThePlacesThatTakeItUpAndDownToOtherRows) {
    CarryHand hand;
    hand.Go("Letr_0");
    hand.Key(Qt::Key_Insert);
    hand.Key(Qt::Key_Down);
    EXPECT_EQ(hand.Focus(), "Letr_1");
    hand.Key(Qt::Key_Down);
    EXPECT_EQ(hand.Focus(), "Letr_2");
    hand.Key(Qt::Key_Right);
    EXPECT_EQ(hand.Focus(), "Play_2");
    hand.Key(Qt::Key_Left);
    EXPECT_EQ(hand.Focus(), "Letr_2");
    hand.Key(Qt::Key_Up);
    EXPECT_EQ(hand.Focus(), "ChannelFlag_1");
    hand.Key(Qt::Key_Escape);
    hand.Key(Qt::Key_Down);  // the arrows are the control's own again
    EXPECT_EQ(hand.Focus(), "ChannelFlag_1");
}

TEST(KeyDrag, ASecondKeyWhileTheMouseHoldsSomethingDoesNothing) {
    CarryHand hand;
    hand.Go("Letr_0");
    QWidget& knob = hand.Named("VolKnob_3");
    QTest::mousePress(hand.Form->windowHandle(), Qt::LeftButton, {}, knob.mapTo(hand.Form.get(), knob.rect().center()));
    hand.Key(Qt::Key_Insert);
    QTest::mouseRelease(hand.Form->windowHandle(), Qt::LeftButton, {},
                        knob.mapTo(hand.Form.get(), knob.rect().center()));
    hand.s.StatusText = "kept";
    hand.Go("Letr_3");
    EXPECT_EQ(hand.Ring(), nullptr);
}

TEST(KeyDrag, WhatHasChangedSinceThePickUpIsLetGo) {
    CarryHand hand;
    hand.s.Bins[0].Selected = 1;
    hand.Go("PickFile_0");
    hand.Key(Qt::Key_Insert);
    hand.s.Bins[0].Selected = 0;
    const std::string before = hand.s.Set[2].FileName;
    hand.Go("Play_2");
    hand.Key(Qt::Key_Insert);
    EXPECT_EQ(hand.s.Set[2].FileName, before);
    EXPECT_THAT(hand.s.StatusText, testing::HasSubstr("is not there any more"));
    EXPECT_EQ(hand.Ring(), nullptr);
}

TEST(KeyDrag, WhatIsCarriedStandsBesideTheFocusUntilItIsLetGo) {
    CarryHand hand;
    hand.Go("Letr_0");
    hand.Key(Qt::Key_Insert);
    hand.Go("Browse");
    hand.s.StatusText = "something else";
    auto* sign = hand.Form->findChild<QWidget*>("Carried");
    ASSERT_NE(sign, nullptr);
    EXPECT_TRUE(sign->isVisible());
    hand.Key(Qt::Key_Escape);
    EXPECT_EQ(hand.Form->findChild<QWidget*>("Carried"), nullptr);
}

TEST(WindowKey, F6GoesFromWindowToWindowAndBack) {
    CarryHand hand;
    hand.Save.hide();
    hand.Form->activateWindow();
    QApplication::setActiveWindow(hand.Form.get());
    hand.Go("Letr_0");
    hand.Key(Qt::Key_F6);
    hand.Settle();
    EXPECT_EQ(QApplication::activeWindow(), &hand.Window);
    QTest::keyClick(&hand.Window, Qt::Key_F6, Qt::ShiftModifier);
    hand.Settle();
    EXPECT_EQ(QApplication::activeWindow(), hand.Form.get());
}

TEST(WindowKey, F6PassesAMinimisedWindowBy) {
    CarryHand hand;
    hand.Save.show();
    hand.Window.showMinimized();
    hand.Settle();
    hand.Go("Letr_0");
    for (int times = 0; times < 4; ++times) {
        QTest::keyClick(QApplication::activeWindow(), Qt::Key_F6);
        hand.Settle();
        EXPECT_NE(QApplication::activeWindow(), &hand.Window);
        EXPECT_TRUE(hand.Window.isMinimized());
    }
    EXPECT_EQ(QApplication::activeWindow(), hand.Form.get()) << "four times through main window and Save/Open";
    hand.Save.hide();
    QTest::keyClick(hand.Form.get(), Qt::Key_F6);
    hand.Settle();
    EXPECT_EQ(QApplication::activeWindow(), hand.Form.get()) << "there is no other window";
    hand.Window.showNormal();
}

TEST(WindowKey, F6GoesNowhereWhileAListIsOpen) {
    CarryHand hand;
    hand.On("SelectPopUp", Qt::Key_Space);
    QWidget& list = hand.Named("SlctGroup");
    ASSERT_TRUE(list.isVisible());
    QTest::keyClick(&list, Qt::Key_F6);
    EXPECT_TRUE(list.isVisible());
    EXPECT_NE(QApplication::activeWindow(), &hand.Window);
    list.hide();
}

/// The controls that moves of drags come to while it lives.
struct MoveWatch : QObject {
    MoveWatch() { qApp->installEventFilter(this); }
    ~MoveWatch() override { qApp->removeEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::DragMove && object->isWidgetType()) Names.push_back(object->objectName());
        return false;
    }
    std::vector<QString> Names;
};

TEST(KeyDrag, TheNextDragOfTheMouseMovesOverNothingThatWasAskedForTheKeys) {
    CarryHand hand;
    hand.Go("Letr_0");
    hand.Key(Qt::Key_Insert);
    hand.Key(Qt::Key_Right);
    ASSERT_NE(hand.Ring(), nullptr);
    hand.Key(Qt::Key_Escape);
    QMimeData words;
    words.setText("no file");
    QWidget& knob = hand.Named("VolKnob_2");
    QWindow& window = *knob.window()->windowHandle();
    const QPoint place = knob.mapTo(knob.window(), knob.rect().center());
    const MoveWatch watch;
    QDragEnterEvent enter(place, Qt::CopyAction, &words, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    EXPECT_FALSE(enter.isAccepted());
    QDragMoveEvent move(place, Qt::CopyAction, &words, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &move);
    QDragLeaveEvent leave;
    QApplication::sendEvent(&window, &leave);
    EXPECT_THAT(watch.Names, IsEmpty());
}

TEST(KeyDrag, TheRingStaysWhereTheFocusStaysAsNothingElseTakesTheDrop) {
    CarryHand hand;
    hand.Go("Letr_0");
    hand.Key(Qt::Key_Insert);
    hand.Key(Qt::Key_Right);
    QWidget* const ring = hand.Ring();
    ASSERT_NE(ring, nullptr);
    for (QWidget* other : ring->window()->findChildren<QWidget*>()) {
        if (other != ring) other->setFocusPolicy(Qt::NoFocus);
    }
    hand.Key(Qt::Key_Right);
    EXPECT_TRUE(ring->hasFocus());
    EXPECT_EQ(hand.Ring(), ring);
}

}  // namespace
}  // namespace marvolin
