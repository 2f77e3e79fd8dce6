// What Help promises of the keys of a control, compared with what they do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSlider>
#include <cmath>
#include <set>

#include "fakes/file_bytes.h"
#include "performance/ball_hand.h"
#include "whole_hand.h"
#include "window/controls/control.h"
#include "window/descriptions/described.h"

namespace marvolin {
namespace {

using test::WholeHand;

std::string PageOf(std::int32_t topic) {
    return test::ReadBytes(std::string(MARVOLIN_ROOT) + "/assets/Help/" + std::to_string(topic) + ".html");
}

/// The number of a control, wherever it keeps it.
double NumberOf(const Session& s, const QWidget& widget) {
    if (widget.objectName() == "PadBall") return BallPlace(s, kPadBall).X;
    if (const auto* slider = qobject_cast<const QSlider*>(&widget)) return slider->value();
    return DescribedOf(widget)->Scale().Now;
}

/// How far the key turns the control from where `Begin` has put it; in the other direction where it is at its end.
double Way(WholeHand& hand, QWidget& widget, Qt::KeyboardModifiers held) {
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left}) {
        hand.Begin();
        hand.s.Joy.Axis[0] = 0;  // else the stick holds the master
        hand.Reveal(widget);
        QApplication::setActiveWindow(widget.window());
        widget.setFocus(Qt::TabFocusReason);
        const double before = NumberOf(hand.s, widget);
        QTest::keyClick(&widget, key, held);
        const double way = std::abs(NumberOf(hand.s, widget) - before);
        if (way > 0) return way;
    }
    return 0;
}

TEST(KeyWords, PromiseAFinerStepWithShiftExactlyWhereThereIsOne) {
    WholeHand hand;
    hand.LookAway();
    hand.Begin();
    std::set<std::int32_t> fine;
    std::set<std::int32_t> plain;
    for (QWidget* widget : hand.Controls()) {
        const Description& row = DescribedOf(*widget)->Row();
        if (!Takes(row.Taken, Keys::Turn)) continue;
        const double coarse = Way(hand, *widget, Qt::NoModifier);
        if (coarse == 0) continue;  // a digit that the others hold
        const bool finer = Way(hand, *widget, Qt::ShiftModifier) < coarse;
        (finer ? fine : plain).insert(row.Topic);
        EXPECT_EQ(PageOf(row.Topic).find("with Shift finely") != std::string::npos, finer)
            << widget->objectName().toStdString() << ", page " << row.Topic;
    }
    EXPECT_EQ(fine, (std::set<std::int32_t>{10010, 10026, 10027, 10028, 10042, 10109}));
    EXPECT_GE(plain.size(), 8U);
}

TEST(KeyWords, CtrlAndSpaceOnAPlayButtonIsTheClickThatThePageSays) {
    WholeHand hand;
    hand.Begin();
    EXPECT_NE(PageOf(10023).find("Space or Return: plays or stops, with Ctrl, too"), std::string::npos);
    QWidget& play = hand.Named("Play_1");
    const auto before = hand.s.Run[1].Playing;
    QTest::keyClick(&play, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_NE(hand.s.Run[1].Playing, before);
    QTest::keyClick(&play, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(hand.s.Run[1].Playing, before);
}

}  // namespace
}  // namespace marvolin
