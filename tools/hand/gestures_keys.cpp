#include <QApplication>
#include <QWidget>

#include "gestures.h"
#include "places.h"

namespace marvolin::hand {

namespace {

Qt::KeyboardModifiers SomeModifiers(Dice& dice) {
    static constexpr Qt::KeyboardModifier kModifiers[] = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    Qt::KeyboardModifiers held;
    while (dice.OneIn(3)) held |= dice.Of(kModifiers);
    return held;
}

/// Not Alt+F4, which closes a window: that is a gesture of its own.
Qt::Key SomeKey(Dice& dice) {
    static constexpr Qt::Key kKeys[] = {
        Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,  Qt::Key_Right,  Qt::Key_PageUp, Qt::Key_PageDown,
        Qt::Key_Home,   Qt::Key_End,    Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Escape,
        Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Space, Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Insert,
        Qt::Key_F2,     Qt::Key_F3,     Qt::Key_F5,    Qt::Key_F6,     Qt::Key_F7,     Qt::Key_F8,
        Qt::Key_F9,     Qt::Key_F10,    Qt::Key_F11,   Qt::Key_F12,    Qt::Key_1,      Qt::Key_5,
        Qt::Key_0,      Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Period, Qt::Key_Menu,   Qt::Key_Pause,
    };
    return dice.Of(kKeys);
}

void SayKey(Turn& turn, Qt::Key key, Qt::KeyboardModifiers held) {
    turn.Words += KeyName(key, held);
    const QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr) turn.Words += " at " + focus->objectName().toStdString();
}

}  // namespace

std::string KeyName(Qt::Key key, Qt::KeyboardModifiers held) {
    return QKeySequence(QKeyCombination(held, key)).toString(QKeySequence::PortableText).toStdString();
}

void PlayKey(Turn& turn) {
    const auto key = static_cast<Qt::Key>(turn.D.OneIn(8)   ? turn.D.Between(Qt::Key_A, Qt::Key_Z)
                                          : turn.D.OneIn(4) ? int{Qt::Key_Z}
                                                            : turn.D.Between(Qt::Key_A, Qt::Key_D));
    const Qt::KeyboardModifiers held = SomeModifiers(turn.D);
    SayKey(turn, key, held);
    turn.Keys.Click(key, held);
}

void ControlKey(Turn& turn) {
    const Qt::Key key = SomeKey(turn.D);
    const Qt::KeyboardModifiers held = SomeModifiers(turn.D);
    SayKey(turn, key, held);
    turn.Keys.Click(key, held);
}

// By Tab, or at once to any control that can have it.
void WalkFocus(Turn& turn) {
    if (turn.D.OneIn(2)) {
        const bool back = turn.D.OneIn(3);
        turn.Words += back ? "back" : "on";
        return turn.Keys.Click(back ? Qt::Key_Backtab : Qt::Key_Tab, back ? Qt::ShiftModifier : Qt::NoModifier);
    }
    QWidget* control = SomeControl(turn.W, turn.D);
    if (control == nullptr || control->focusPolicy() == Qt::NoFocus || !control->isEnabled()) return;
    turn.Words += "to " + control->objectName().toStdString();
    control->window()->activateWindow();
    control->setFocus(Qt::TabFocusReason);
    World::Settle();
}

void UndoKey(Turn& turn) {
    const bool again = turn.D.OneIn(3);
    turn.Words += again ? "redo" : "undo";
    const int times = turn.D.OneIn(6) ? turn.D.Between(2, 12) : 1;
    for (int i = 0; i < times; ++i) turn.Keys.Click(Qt::Key_Backspace, again ? Qt::ShiftModifier : Qt::NoModifier);
}

// A key that stays down while other things happen.
void HeldKey(Turn& turn) {
    if (turn.Keys.Holds()) {
        turn.Words += "let go";
        return turn.Keys.LetGo();
    }
    const Qt::Key key = turn.D.OneIn(3) ? SomeKey(turn.D) : Qt::Key_Space;
    const Qt::KeyboardModifiers held = turn.D.OneIn(2) ? Qt::ShiftModifier : Qt::NoModifier;
    SayKey(turn, key, held);
    turn.Keys.Press(key, held);
}

void TypeText(Turn& turn) {
    static constexpr const char* kTexts[] = {"night", "a/b", "", "0.5", "  ", "noon.mvn", "../up"};
    const char* text = turn.D.Of(kTexts);
    turn.Words += text;
    turn.Keys.Type(text);
}

}  // namespace marvolin::hand
