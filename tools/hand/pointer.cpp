#include "pointer.h"

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>
#include <QtTest/QTest>

namespace marvolin::hand {

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

void Keyboard::Press(Qt::Key key, Qt::KeyboardModifiers held) {
    down_.insert(key);
    if (QWindow* target = Target()) QTest::keyPress(target, key, held);
}

void Keyboard::Release(Qt::Key key, Qt::KeyboardModifiers held) {
    down_.erase(key);
    if (QWindow* target = Target()) QTest::keyRelease(target, key, held);
}

void Keyboard::Click(Qt::Key key, Qt::KeyboardModifiers held) {
    Press(key, held);
    Release(key, held);
}

void Keyboard::Type(const std::string& text) {
    for (const char letter : text) {
        if (QWindow* target = Target()) QTest::keyClick(target, letter);
    }
}

void Keyboard::LetGo() {
    while (!down_.empty()) Release(*down_.begin(), {});
}

}  // namespace marvolin::hand
