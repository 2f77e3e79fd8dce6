#include "window/controls/pointer_hold.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "window/toolkit/drag.h"

namespace marvolin {

namespace {

QPointF Twips(QPointF pixels) { return pixels * kTwipsPerPixel; }

// Whether the button that holds a control is no longer among those that are down.
bool IsUp(std::int16_t holder, Qt::MouseButtons down) {
    constexpr Qt::MouseButton kButtons[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    return std::ranges::none_of(kButtons, [&](auto b) { return ButtonNumber(b) == holder && down.testFlag(b); });
}

// Some desktops activate every new window, also one that takes no focus and gives the activation back.
bool ReportHasCome() {
    const QWidget* active = QApplication::activeWindow();
    return active != nullptr && active->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus);
}

}  // namespace

std::int16_t ButtonNumber(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return kLeftButton;
        case Qt::RightButton:
            return kRightButton;
        case Qt::MiddleButton:
            return kMiddleButton;
        default:
            return kNoButton;
    }
}

void PointerHold::BeginDrag() {
    const DragSource source = *armed_;
    EndHold();  // the release goes to the drag
    RunDrag(*this, s, source);
    // The event that the pointer left the control may have gone to the drag as well.
    if (underMouse() && !rect().contains(mapFromGlobal(QCursor::pos()))) {
        QEvent left(QEvent::Leave);
        QCoreApplication::sendEvent(this, &left);
    }
    update();
}

// A box keeps the release from a window that it covers, also while another one is active.
bool PointerHold::event(QEvent* event) {
    const bool lost = event->type() == QEvent::UngrabMouse || event->type() == QEvent::Hide ||
                      event->type() == QEvent::WindowBlocked ||
                      (event->type() == QEvent::WindowDeactivate && !ReportHasCome()) ||
                      (event->type() == QEvent::EnabledChange && !isEnabled());
    if (lost && Held()) EndHold();
    if (lost) ReleaseKey(true);
    return QWidget::event(event);
}

// Escape lets go of what the mouse holds. One hand at a time: a press of the mouse ends what a key holds.
bool PointerHold::eventFilter(QObject* object, QEvent* event) {
    const bool press = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press) ReleaseKey(true);
    // When another drag has taken the mouse, only the window gets these events: they also show that the button is up.
    if (Held() && object->isWindowType() && event->type() == QEvent::MouseButtonRelease) {
        const auto look = [this] {
            if (Held() && IsUp(held_, QApplication::mouseButtons())) EndHold();
        };
        QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
    } else if (Held() && object->isWindowType() && (press || event->type() == QEvent::MouseMove)) {
        const auto& of = static_cast<const QMouseEvent&>(*event);
        if (IsUp(held_, of.buttons() & ~Qt::MouseButtons(of.button()))) EndHold();
    }
    const bool key = Held() && event->type() == QEvent::KeyPress;
    if (!key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
    EndHold();
    return true;
}

void PointerHold::SetHolder(std::int16_t button) {
    held_ = button;
    WatchWhileHeld();
}

void PointerHold::WatchWhileHeld() {
    qApp->removeEventFilter(this);
    if (Held() || KeyHolds()) qApp->installEventFilter(this);
}

// Other buttons do not come here while one holds the control: a hold that is still open has lost its release.
bool PointerHold::BeginHold(const QMouseEvent& event) {
    const std::int16_t button = ButtonNumber(event.button());
    if (button == kNoButton) return false;
    if (Held()) EndHold();
    SetHolder(button);
    last_ = press_ = event.globalPosition();
    armed_.reset();
    return true;
}

// Ends the hold without a click: a press that armed a drag has begun nothing else.
void PointerHold::EndHold() {
    const std::int16_t button = held_;
    const bool armed = armed_.has_value();
    SetHolder(kNoButton);
    armed_.reset();
    if (!armed) PointerLost(button, Twips(mapFromGlobal(last_)));
    update();
}

void PointerHold::mousePressEvent(QMouseEvent* event) {
    if (!BeginHold(*event)) return;
    Gesture(Phase::Down, held_, Twips(event->position()));
    update();
}

void PointerHold::mouseMoveEvent(QMouseEvent* event) {
    last_ = event->globalPosition();
    // A release that never came: the hand has let go.
    if (Held() && event->buttons() == Qt::NoButton) EndHold();
    const bool far = (last_ - press_).manhattanLength() >= QApplication::startDragDistance();
    if (armed_ && Held() && far) return BeginDrag();
    Gesture(Phase::Move, held_, Twips(event->position()));
}

void PointerHold::mouseReleaseEvent(QMouseEvent* event) {
    const std::int16_t button = ButtonNumber(event->button());
    if (!Held() || button != held_) return;
    SetHolder(kNoButton);
    armed_.reset();
    Gesture(Phase::Up, button, Twips(event->position()));
    update();
}

void PointerHold::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!BeginHold(*event)) return;
    const QPointF place = Twips(event->position());
    // Two clicks of another button are two clicks.
    if (held_ == kLeftButton) {
        DoubleClick(held_, place);
    } else {
        Gesture(Phase::Down, held_, place);
    }
    update();
}

}  // namespace marvolin
