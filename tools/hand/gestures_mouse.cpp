#include <QApplication>
#include <QTabBar>
#include <QTreeView>
#include <QtTest/QTest>

#include "browser/bin_gestures.h"
#include "gestures.h"
#include "places.h"

namespace marvolin::hand {

namespace {

constexpr int kTreeTime = 5000;  // ms in which a folder of a few files is listed

Qt::MouseButton SomeButton(Dice& dice) {
    const int n = dice.Below(10);
    if (n < 6) return Qt::LeftButton;
    return n < 9 ? Qt::RightButton : Qt::MiddleButton;
}

const char* ButtonName(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return "left";
    return button == Qt::RightButton ? "right" : "middle";
}

Qt::KeyboardModifiers ModifiersOfMouse(Dice& dice) {
    static constexpr Qt::KeyboardModifier kModifiers[] = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return dice.OneIn(8) ? Qt::KeyboardModifiers(dice.Of(kModifiers)) : Qt::KeyboardModifiers();
}

/// A way as a hand goes: mostly short, now and then out of the window.
QPointF SomeWay(Dice& dice) {
    const int reach = dice.OneIn(6) ? 900 : dice.OneIn(2) ? 120 : 20;
    return {static_cast<double>(dice.Between(-reach, reach)), static_cast<double>(dice.Between(-reach, reach))};
}

void SayMouse(Turn& turn, Qt::MouseButton button, const Place& place) {
    turn.Words += std::string(ButtonName(button)) + " on " + place.Name;
}

/// Where a button goes down, and which.
struct Aim {
    Place Where;
    Qt::MouseButton Button;
};

Aim SomeAim(Turn& turn) {
    const Place place = SomePlace(turn.W, turn.D);
    const Qt::MouseButton button = SomeButton(turn.D);
    SayMouse(turn, button, place);
    return {place, button};
}

}  // namespace

void ClickControl(Turn& turn) {
    turn.Mouse.LetGo();
    const auto [place, button] = SomeAim(turn);
    turn.Mouse.Press(place, button, ModifiersOfMouse(turn.D), turn.D.OneIn(4) ? Pointer::kQuick : Pointer::kSlow);
    turn.Mouse.Release(button);
}

void DoubleClickControl(Turn& turn) {
    turn.Mouse.LetGo();
    const auto [place, button] = SomeAim(turn);
    turn.Mouse.Press(place, button);
    turn.Mouse.Release(button);
    turn.Mouse.Press(turn.Mouse.Where(), button, {}, Pointer::kQuick);
    turn.Mouse.Release(button);
}

void DragControl(Turn& turn) {
    turn.Mouse.LetGo();
    const auto [place, button] = SomeAim(turn);
    turn.Mouse.Press(place, button, ModifiersOfMouse(turn.D));
    const int moves = turn.D.Between(1, 5);
    for (int i = 0; i < moves && turn.Mouse.Holds(); ++i) turn.Mouse.MoveBy(SomeWay(turn.D));
    if (turn.Mouse.Holds()) turn.Mouse.Release(button);
}

void PressOrMove(Turn& turn) {
    if (turn.Mouse.Holds()) {
        turn.Words += "move";
        return turn.Mouse.MoveBy(SomeWay(turn.D));
    }
    const auto [place, button] = SomeAim(turn);
    turn.Mouse.Press(place, button, ModifiersOfMouse(turn.D));
}

void ReleaseButton(Turn& turn) { turn.Mouse.LetGo(); }

void SecondButton(Turn& turn) {
    const Qt::MouseButton button = SomeButton(turn.D);
    SayMouse(turn, button, turn.Mouse.Where());
    if (turn.Mouse.Down().testFlag(button)) return turn.Mouse.Release(button);
    turn.Mouse.Press(turn.Mouse.Where(), button, {}, Pointer::kQuick);
    if (turn.D.OneIn(2) && turn.Mouse.Holds()) turn.Mouse.Release(button);
}

void TurnWheel(Turn& turn) {
    const Place place = SomePlace(turn.W, turn.D);
    const int notches = turn.D.Between(-4, 4);
    turn.Words += std::to_string(notches) + " over " + place.Name;
    turn.Mouse.Wheel(place, notches, turn.D.OneIn(3) ? Pointer::kQuick : Pointer::kSlow);
}

void Hover(Turn& turn) {
    const Place place = SomePlace(turn.W, turn.D);
    turn.Words += place.Name;
    turn.Mouse.MoveTo(place);
}

void OpenTab(Turn& turn) {
    turn.Mouse.LetGo();
    if (turn.D.OneIn(3)) {
        for (const QPointer<QWidget>& control : turn.W.Controls()) {
            auto* tabs = qobject_cast<QTabBar*>(control.data());
            if (tabs == nullptr || !tabs->isVisible()) continue;
            turn.Words += "of the browser";
            turn.Mouse.Press(PlaceIn(*tabs, tabs->tabRect(turn.D.Below(tabs->count())).center()), Qt::LeftButton);
            return turn.Mouse.LetGo();
        }
    }
    const QString name =
        turn.D.OneIn(3) ? QString("OptionSubTab_%1").arg(turn.D.Below(4)) : QString("Tab_%1").arg(turn.D.Below(kTabs));
    auto* tab = turn.W.Main().findChild<QWidget*>(name);
    if (tab == nullptr || !tab->isVisible()) return;
    turn.Words += name.toStdString();
    turn.Mouse.Press(PlaceIn(*tab, QRectF(tab->rect()).center()), Qt::LeftButton);
    turn.Mouse.LetGo();
}

// The folders are listed in the background, so the hand waits until the tree shows what it asks for, and leaves it
// closed: nothing that comes later depends on when they were listed.
void UseFolderTree(Turn& turn) {
    turn.Mouse.LetGo();
    const int bin = turn.D.Below(kBins);
    PickDir_Click(turn.W.s, static_cast<std::int16_t>(bin));
    QTreeView* tree = nullptr;
    for (const QPointer<QWidget>& control : turn.W.Controls()) {
        if (tree == nullptr) tree = qobject_cast<QTreeView*>(control.data());
    }
    if (tree == nullptr || !tree->isVisible()) return;
    const bool listed = QTest::qWaitFor(
        [&] { return tree->viewport()->rect().contains(tree->visualRect(tree->currentIndex())); }, kTreeTime);
    turn.Words += "of bin " + std::to_string(bin);
    if (listed && turn.D.OneIn(2)) {
        const Place folder = PlaceIn(*tree->viewport(), tree->visualRect(tree->currentIndex()).center());
        turn.Mouse.Press(folder, Qt::LeftButton);
        if (turn.D.OneIn(2)) turn.Mouse.MoveBy({0, -40});
        turn.Mouse.LetGo();
    }
    if (tree->isVisible()) turn.Keys.Click(Qt::Key_Escape, {});
    if (tree->isVisible()) turn.W.s.World.Screen.ShowFolderTree(false);
}

}  // namespace marvolin::hand
