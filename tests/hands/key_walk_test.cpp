// The Tab key: it reaches every control of every form once, in the order in which one reads, and the control that has
// the focus shows it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QTextBrowser>
#include <algorithm>
#include <set>

#include "all_forms.h"
#include "performance/tabs.h"
#include "whole_hand.h"
#include "window/controls/control.h"
#include "window/descriptions/described.h"
#include "window/toolkit/theme.h"

namespace marvolin {
namespace {

using test::AllForms;
using test::Stage;
using test::WholeHand;
using testing::IsEmpty;

bool IsReached(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0;
}

/// The names of the controls that Tab reaches in `form`, in its order, until it comes round. Real keys.
std::vector<QWidget*> Walk(QWidget& form, Qt::Key key = Qt::Key_Tab) {
    std::vector<QWidget*> reached;
    for (int i = 0; i < 300; ++i) {
        QTest::keyClick(form.windowHandle(), key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        QWidget* focus = QApplication::focusWidget();
        const bool stays = !reached.empty() && focus == reached.back();
        if (stays && key == Qt::Key_Tab) {  // in a text Tab is a letter, and in a page it goes from link to link
            if (qobject_cast<QTextBrowser*>(focus) != nullptr) continue;
            QTest::keyClick(form.windowHandle(), key, Qt::ControlModifier);
            focus = QApplication::focusWidget();
        }
        if (focus == nullptr || (!reached.empty() && focus == reached.front())) break;
        reached.push_back(focus);
    }
    return reached;
}

void Activate(QWidget& form) {
    form.show();
    form.activateWindow();
    QApplication::setActiveWindow(&form);
    QCoreApplication::processEvents();
}

/// The place of the widget on its form.
QRect PlaceOf(const QWidget& widget) { return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()}; }

/// Whether one who reads comes to `next` after `one`: it is not as a whole both above and left of it, nor above it in
/// the same column.
bool ReadsOn(const QRect& one, const QRect& next) {
    const bool above = next.bottom() < one.top();
    const bool left = next.right() < one.left();
    const bool column = next.left() < one.right() && one.left() < next.right();
    return !(above && (left || column)) &&
           !(left && !above && next.top() < one.bottom() && next.bottom() <= one.bottom());
}

struct TabWalk : testing::TestWithParam<int> {};

TEST_P(TabWalk, ReachesEveryControlOfTheMainWindowOnceInTheOrderOfReading) {
    WholeHand hand;
    hand.Begin();
    hand.s.JoyEnabled = true;
    hand.Screen.ShowJoystick();
    hand.s.ActiveTab = static_cast<std::int16_t>(std::min(GetParam(), 3));
    hand.s.ActiveSubTab = static_cast<std::int16_t>(std::max(GetParam() - 3, 0));
    hand.Screen.ShowTab();
    Activate(*hand.Form);
    hand.Form->setFocus();
    const std::vector<QWidget*> reached = Walk(*hand.Form);
    std::set<QWidget*> once(reached.begin(), reached.end());
    EXPECT_EQ(once.size(), reached.size());
    std::vector<std::string> missed;
    for (QWidget* widget : hand.Form->findChildren<QWidget*>()) {
        const Described* described = DescribedOf(*widget);
        if (described == nullptr || described->Row().Taken == Keys::None) continue;
        if (!widget->isVisible() || !widget->isEnabled() || widget->window() != hand.Form.get()) continue;
        if (!once.contains(widget)) missed.push_back(widget->objectName().toStdString());
    }
    EXPECT_THAT(missed, IsEmpty());
    EXPECT_GT(reached.size(), 75U);
    std::vector<std::string> against;
    for (std::size_t i = 1; i < reached.size(); ++i) {
        if (!ReadsOn(PlaceOf(*reached[i - 1]), PlaceOf(*reached[i]))) {
            against.push_back(reached[i - 1]->objectName().toStdString() + ", " +
                              reached[i]->objectName().toStdString());
        }
    }
    EXPECT_THAT(against, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Tabs, TabWalk, testing::Range(0, 7));

TEST(TabWalkBack, ShiftAndTabGoTheSameWayBack) {
    WholeHand hand;
    hand.Begin();
    Activate(*hand.Form);
    hand.Form->setFocus();
    std::vector<QWidget*> there = Walk(*hand.Form);
    hand.Form->setFocus();
    const std::vector<QWidget*> back = Walk(*hand.Form, Qt::Key_Backtab);
    std::reverse(there.begin(), there.end());
    EXPECT_EQ(there, back);
}

TEST(TabWalkOthers, EveryControlOfTheOtherFormsIsReached) {
    AllForms forms;
    forms.s.DialogueFile = "set.mvn";
    forms.s.SaveItEnabled = true;
    forms.Save.Refresh();
    std::vector<std::string> missed;
    int reachedOnes = 0;
    const auto walk = [&](const std::string& form, QWidget& window) {
        Activate(window);
        window.setFocus();
        const std::vector<QWidget*> reached = Walk(window);
        const std::set<QWidget*> once(reached.begin(), reached.end());
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const Described* described = DescribedOf(*widget);
            if (described == nullptr || described->Row().Taken == Keys::None || widget->window() != &window) continue;
            if (!widget->isVisible() || !widget->isEnabled()) continue;
            ++reachedOnes;
            if (!once.contains(widget)) missed.push_back(form + " " + widget->objectName().toStdString());
        }
    };
    forms.Each([&](const std::string& form, QWidget& window) {
        if (form == "frmMain" || form == "frmSplash") return;
        if (form != "frmBrowse") return walk(form, window);
        for (const int tab : {0, 3}) {
            forms.OpenTab(tab);
            walk(form, window);
        }
    });
    EXPECT_THAT(missed, IsEmpty());
    EXPECT_GT(reachedOnes, 70);
}

/// The number of pixels that change by three to one or more when the widget gets the focus.
int ChangedBy(QWidget& widget) {
    QWidget& form = *widget.window();
    const QRect around = PlaceOf(widget).adjusted(-4, -4, 4, 4).intersected(form.rect());
    form.setFocus();
    if (widget.hasFocus()) widget.clearFocus();
    const QImage without = form.grab(around).toImage();
    widget.setFocus(Qt::TabFocusReason);
    const QImage with = form.grab(around).toImage();
    int changed = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (theme::Contrast(with.pixelColor(x, y), without.pixelColor(x, y)) >= 3) ++changed;
        }
    }
    return changed;
}

/// A control whose focus is seen by less than the length of one of its longer sides.
void ExpectSeen(QWidget& form, int atLeast) {
    std::vector<std::string> unseen;
    int seen = 0;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        if (!IsReached(*widget) || widget->window() != &form || DescribedOf(*widget) == nullptr) continue;
        const int wanted = std::min(60, std::max(widget->width(), widget->height()));
        const int changed = ChangedBy(*widget);
        if (changed < wanted) {
            unseen.push_back(widget->objectName().toStdString() + ": " + std::to_string(changed) + " of " +
                             std::to_string(wanted));
        }
        ++seen;
    }
    EXPECT_THAT(unseen, IsEmpty());
    EXPECT_GE(seen, atLeast);
}

TEST(Focus, IsSeenOnEveryControlOfTheMainWindow) {
    WholeHand hand;
    for (int tab = 0; tab < 7; ++tab) {
        hand.Begin();
        hand.s.SelectionControlled = true;  // a lit control has the colour of the ring itself
        hand.s.JoyEnabled = true;
        hand.Screen.ShowJoystick();
        hand.s.ActiveTab = static_cast<std::int16_t>(std::min(tab, 3));
        hand.s.ActiveSubTab = static_cast<std::int16_t>(std::max(tab - 3, 0));
        hand.Screen.ShowTab();
        Activate(*hand.Form);
        ExpectSeen(*hand.Form, 75);
    }
}

TEST(Focus, IsSeenOnEveryControlOfTheOtherForms) {
    AllForms forms;
    forms.s.DialogueFile = "set.mvn";
    forms.s.SaveItEnabled = true;
    forms.Save.Refresh();
    forms.Each([&](const std::string& form, QWidget& window) {
        if (form == "frmMain" || form == "frmSplash") return;
        SCOPED_TRACE(form);
        Activate(window);
        ExpectSeen(window, 1);
        if (form != "frmBrowse") return;
        forms.OpenTab(3);
        ExpectSeen(window, 8);
    });
}

TEST(Focus, IsOnNoControlBeforeTheFirstTab) {
    Stage stage;
    EXPECT_EQ(stage.Form->focusWidget(), stage.Form.get());
}

}  // namespace
}  // namespace marvolin
