// Buttons and keys beside the one that holds a control.

#include <gtest/gtest.h>

#include <QListWidget>

#include "whole_hand.h"
#include "window/controls/folder_tree.h"

namespace marvolin {
namespace {

using test::Spot;
using test::WholeHand;

/// The hand at the folder tree of a bin.
struct AtTheTree : WholeHand {
    AtTheTree() {
        Begin();
        Reveal(Part("PickDir_2"));
        ClickOn("PickDir_2");
        Settle();
        Place = {&Tree(), Tree().viewport()->mapTo(&Window, QPointF(60, 30))};
    }
    FolderTree& Tree() { return *Window.Bins->Tree; }
    Spot Place;
};

TEST(OtherButtons, TheReleaseOfAButtonWhosePressWasRefusedIsRefusedAfterTheHoldToo) {
    AtTheTree hand;
    ASSERT_TRUE(hand.Tree().isVisible());
    hand.PressAt(hand.Place, Qt::LeftButton);
    hand.PressAt(hand.Place, Qt::RightButton);
    hand.ReleaseAt(hand.Place, Qt::LeftButton);
    hand.ReleaseAt(hand.Place, Qt::RightButton);
    EXPECT_TRUE(hand.Tree().isVisible());
    hand.ClickAt(hand.Place, Qt::RightButton);
    EXPECT_FALSE(hand.Tree().isVisible());
}

TEST(OtherButtons, AButtonAtTheSideOfTheMouseHoldsNothing) {
    for (const Qt::MouseButton side : {Qt::BackButton, Qt::ForwardButton}) {
        WholeHand hand;
        hand.Begin();
        hand.s.DragAxis = 0;
        QWidget& knob = *hand.At("VolKnob_2");
        hand.Reveal(knob);
        const Spot spot = hand.SpotOn(knob);
        hand.PressAt(spot, side);
        hand.MoveTo(spot, {0, -4});
        EXPECT_EQ(hand.s.Set[2].Vol, 102);
        hand.PressAt(spot, Qt::LeftButton, {0, -4});
        hand.MoveTo(spot, {0, -14});
        EXPECT_EQ(hand.s.Set[2].Vol, 102 + 150) << "the left button drags beside it";
        hand.ReleaseAt(spot, side, {0, -14});
        hand.MoveTo(spot, {0, -24});
        EXPECT_EQ(hand.s.Set[2].Vol, 102 + 300);
        hand.ReleaseAt(spot, Qt::LeftButton, {0, -24});
        EXPECT_EQ(hand.s.Drag.Dragging, False);
    }
}

TEST(OtherButtons, AButtonAtTheSideOfTheMouseChoosesNoClip) {
    WholeHand hand;
    hand.Begin();
    auto& list = dynamic_cast<QListWidget&>(hand.Part("ClipBoardList"));
    hand.Reveal(list);
    list.setCurrentRow(0);
    const QPointF second = list.viewport()->mapTo(&hand.Window, QPointF(list.visualItemRect(list.item(1)).center()));
    hand.ClickAt({&list, second}, Qt::BackButton);
    EXPECT_EQ(list.currentRow(), 0);
    hand.ClickAt({&list, second}, Qt::LeftButton);
    EXPECT_EQ(list.currentRow(), 1);
}

TEST(OtherButtons, DeleteRemovesNoClipThatIsHeld) {
    WholeHand hand;
    hand.Begin();
    auto& list = dynamic_cast<QListWidget&>(hand.Part("ClipBoardList"));
    hand.Reveal(list);
    const Spot clip{&list, list.viewport()->mapTo(&hand.Window, QPointF(list.visualItemRect(list.item(0)).center()))};
    hand.PressAt(clip, Qt::LeftButton);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(hand.s.Clips.List.size(), 2U);
    hand.ReleaseAt(clip, Qt::LeftButton);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(hand.s.Clips.List.size(), 1U);
}

}  // namespace
}  // namespace marvolin
