#include "pointer.h"

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>
#include <QtTest/QTest>
#include <array>

namespace marvolin::hand {

namespace {

struct ModifierKey {
    Qt::Key Key;
    Qt::KeyboardModifier Flag;
};
/// In the order in which they go down.
constexpr std::array<ModifierKey, 3> kModifierKeys{{
    {Qt::Key_Shift, Qt::ShiftModifier},
    {Qt::Key_Control, Qt::ControlModifier},
    {Qt::Key_Alt, Qt::AltModifier},
}};

// Where a window has gone under the pointer, its next event goes to the one below.
QWindow* AnyWindow() {
    const QWidget* active = QApplication::activeWindow();
    if (active != nullptr && active->windowHandle() != nullptr) return active->windowHandle();
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == "frmMain") return window->windowHandle();
    }
    return nullptr;
}

QString TextOf(Qt::Key key) {
    const char letter = QTest::keyToAscii(key);
    return letter == 0 ? QString() : QString(QChar::fromLatin1(letter));
}

}  // namespace

int Pointer::time_ = 100'000;

void Pointer::Follow(const Place& place) {
    if (!Holds() || !where_.Exists()) {
        where_ = place;
        return;
    }
    if (!place.Exists()) return;
    where_.At = where_.Window->mapFromGlobal(place.Window->mapToGlobal(place.At));
    where_.Name = place.Name;
}

void Pointer::Send(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers held) {
    if (!where_.Exists()) where_ = {AnyWindow(), {1, 1}, "the window below"};
    if (!where_.Exists()) return;
    QWindow* window = where_.Window;
    qt_handleMouseEvent(window, where_.At, window->mapToGlobal(where_.At), down_, button, type, held, time_);
    QCoreApplication::processEvents();
}

void Pointer::Press(const Place& place, Qt::MouseButton button, Qt::KeyboardModifiers held, int after) {
    Follow(place);
    time_ += after;
    down_.setFlag(button);
    Send(QEvent::MouseButtonPress, button, held);
}

void Pointer::MoveTo(const Place& place, Qt::KeyboardModifiers held) {
    Follow(place);
    time_ += 8;
    Send(QEvent::MouseMove, Qt::NoButton, held);
}

void Pointer::MoveBy(QPointF way) {
    where_.At += way;
    time_ += 8;
    Send(QEvent::MouseMove, Qt::NoButton, {});
}

void Pointer::Release(Qt::MouseButton button) {
    time_ += 20;
    down_.setFlag(button, false);
    Send(QEvent::MouseButtonRelease, button, {});
}

void Pointer::Wheel(const Place& place, int notches, int after) {
    Follow(place);
    if (!where_.Exists()) return;
    time_ += after;
    QWindow* window = where_.Window;
    QWheelEvent event(where_.At, window->mapToGlobal(where_.At), {}, QPoint(0, notches * 120), down_, {},
                      Qt::NoScrollPhase, false);
    event.setTimestamp(static_cast<quint64>(time_));
    QApplication::sendEvent(window, &event);
    QCoreApplication::processEvents();
}

void Pointer::LetGo() {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (down_.testFlag(button)) Release(button);
    }
}

QWindow* Keyboard::Target() {
    for (QWidget* widget :
         {QApplication::activePopupWidget(), QApplication::activeModalWidget(), QApplication::activeWindow()}) {
        if (widget != nullptr) return widget->window()->windowHandle();
    }
    return nullptr;
}

void Keyboard::Send(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers held, const QString& text) {
    QWindow* target = Target();
    if (target == nullptr) return;
    qt_handleKeyEvent(target, type, key, held, text);
    QCoreApplication::processEvents();
}

void Keyboard::PressModifiers(Qt::KeyboardModifiers held) {
    Qt::KeyboardModifiers down;
    for (const auto& [key, flag] : kModifierKeys) {
        if (!held.testFlag(flag)) continue;
        Send(QEvent::KeyPress, key, down);
        down |= flag;
    }
}

void Keyboard::ReleaseModifiers(Qt::KeyboardModifiers held) {
    for (auto modifier = kModifierKeys.rbegin(); modifier != kModifierKeys.rend(); ++modifier) {
        if (!held.testFlag(modifier->Flag)) continue;
        Send(QEvent::KeyRelease, modifier->Key, held);
        held.setFlag(modifier->Flag, false);
    }
}

void Keyboard::Press(Qt::Key key, Qt::KeyboardModifiers held) {
    down_.insert(key);
    PressModifiers(held);
    Send(QEvent::KeyPress, key, held, TextOf(key));
}

void Keyboard::Release(Qt::Key key, Qt::KeyboardModifiers held) {
    down_.erase(key);
    Send(QEvent::KeyRelease, key, held, TextOf(key));
    ReleaseModifiers(held);
}

void Keyboard::Click(Qt::Key key, Qt::KeyboardModifiers held) {
    Press(key, held);
    Release(key, held);
}

void Keyboard::Type(const std::string& text) {
    for (const char letter : text) {
        const Qt::Key key = QTest::asciiToKey(letter);
        const QString written(QChar::fromLatin1(letter));
        Send(QEvent::KeyPress, key, {}, written);
        Send(QEvent::KeyRelease, key, {}, written);
    }
}

void Keyboard::LetGo() {
    while (!down_.empty()) Release(*down_.begin(), {});
}

}  // namespace marvolin::hand
