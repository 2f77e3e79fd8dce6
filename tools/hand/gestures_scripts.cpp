#include <QApplication>

#include "gestures.h"
#include "places.h"
#include "window/editor/frm_scripts.h"

namespace marvolin::hand {

namespace {

struct EditorKey {
    Qt::Key Key;
    Qt::KeyboardModifiers Held;
};

/// What the window of scripts has keys for, and what its text has.
EditorKey SomeEditorKey(Dice& dice) {
    static const EditorKey kKeys[] = {
        {Qt::Key_F5, {}},
        {Qt::Key_F5, Qt::ShiftModifier},
        {Qt::Key_N, Qt::ControlModifier},
        {Qt::Key_O, Qt::ControlModifier},
        {Qt::Key_S, Qt::ControlModifier},
        {Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier},
        {Qt::Key_F, Qt::ControlModifier},
        {Qt::Key_F3, {}},
        {Qt::Key_F3, Qt::ShiftModifier},
        {Qt::Key_Tab, Qt::ControlModifier},
        {Qt::Key_Z, Qt::ControlModifier},
        {Qt::Key_Y, Qt::ControlModifier},
        {Qt::Key_A, Qt::ControlModifier},
        {Qt::Key_C, Qt::ControlModifier},
        {Qt::Key_X, Qt::ControlModifier},
        {Qt::Key_V, Qt::ControlModifier},
        {Qt::Key_Space, Qt::ControlModifier},
        {Qt::Key_Return, {}},
        {Qt::Key_Tab, {}},
        {Qt::Key_Backspace, {}},
        {Qt::Key_Delete, {}},
        {Qt::Key_Escape, {}},
        {Qt::Key_Home, Qt::ControlModifier},
        {Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier},
        {Qt::Key_Up, {}},
        {Qt::Key_PageDown, Qt::ShiftModifier},
    };
    return dice.Of(kKeys);
}

QWidget* OpenScripts(const World& world) {
    QWidget* window = world.ScriptWindow();
    return window != nullptr && window->isVisible() ? window : nullptr;
}

}  // namespace

// By its button, wherever the program stands.
void OpenScriptWindow(Turn& turn) {
    turn.Mouse.LetGo();
    auto* button = turn.W.Main().findChild<QWidget*>("Scripts");
    if (button == nullptr || !button->isVisible()) return;
    turn.Mouse.Press(PlaceIn(*button, QRectF(button->rect()).center()), Qt::LeftButton);
    turn.Mouse.LetGo();
}

void WriteScriptText(Turn& turn) {
    QWidget* window = OpenScripts(turn.W);
    if (window == nullptr) {
        if (turn.D.OneIn(6)) OpenScriptWindow(turn);
        return;
    }
    static constexpr const char* kTexts[] = {"marvolin.",     "print(1)",    "function OnClock()",  "end", "error('x')",
                                             "while true do", "-- a remark", "marvolin.volume('A',"};
    window->activateWindow();
    if (turn.D.OneIn(2)) turn.W.ScriptWindow()->View->Widget().setFocus();
    World::Settle();
    if (turn.D.OneIn(2)) {
        const char* text = turn.D.Of(kTexts);
        turn.Words += text;
        turn.Keys.Type(text);
        if (turn.D.OneIn(2)) turn.Keys.Click(Qt::Key_Return, {});
        return;
    }
    const int times = turn.D.Between(1, 4);
    for (int i = 0; i < times; ++i) {
        const auto [key, held] = SomeEditorKey(turn.D);
        turn.Words += (i > 0 ? ", " : "") + KeyName(key, held);
        turn.Keys.Click(key, held);
    }
}

}  // namespace marvolin::hand
