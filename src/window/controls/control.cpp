#include "window/controls/control.h"

#include <QApplication>
#include <QCursor>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "instrument/dropped_files.h"
#include "instrument/loop_drops.h"
#include "window/toolkit/drag.h"

namespace marvolin {

namespace {

QPointF Twips(QPointF pixels) { return pixels * kTwipsPerPixel; }

constexpr int kPage = 10;  // steps

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

Control::Control(Session& session, QWidget* parent, std::string_view name, int controlIndex)
    : QWidget(parent),
      s(session),
      index(static_cast<Row>(controlIndex)),
      described(Describe(session, *this, name, controlIndex)) {
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(described.Row().Taken == Keys::None ? Qt::NoFocus : Qt::TabFocus);
}

void Control::TakeDropsFor(Row row) {
    dropRow_ = row;
    setAcceptDrops(row >= 0);
}

void Control::Activate() {
    Gesture(Phase::Down, kLeftButton, MiddleTwips());
    armed_.reset();  // a key drags nothing
    Gesture(Phase::Up, kLeftButton, MiddleTwips());
}

void Control::RightButton(Phase phase) {
    Gesture(phase, kRightButton, MiddleTwips());
    armed_.reset();
}

// The second press of a double click, and its release.
void Control::DoubleActivate() {
    DoubleClick(kLeftButton, MiddleTwips());
    armed_.reset();
    Gesture(Phase::Up, kLeftButton, MiddleTwips());
}

void Control::TurnTo(double value) {
    const ControlScale scale = described.Scale();
    if (scale.Step > 0) Step(static_cast<int>(std::lround((value - scale.Now) / scale.Step)));
}

void Control::PressByRequest() {
    if (isEnabled()) Activate();
}

void Control::SetByRequest(double value) {
    const ControlScale scale = described.Scale();
    if (isEnabled() && scale.Step > 0) TurnTo(std::clamp(value, scale.Low, scale.High));
}

void Control::MenuByRequest() {
    if (!isEnabled() || !TakesRightClick()) return;
    RightButton(Phase::Down);
    RightButton(Phase::Up);
}

std::optional<DragSource> Control::Carried(std::int16_t button) {
    if (!Takes(described.Row().Taken, Keys::Carry)) return std::nullopt;
    Gesture(Phase::Down, button, MiddleTwips());
    return std::exchange(armed_, std::nullopt);
}

void Control::Drop(const DragSource& source) {
    if (dropRow_ >= 0) LoopDragDrop(s, dropRow_, source);
}

bool Control::TakesDrop(const DragSource& source) const { return dropRow_ >= 0 && LoopTakesDrop(s, dropRow_, source); }

void Control::BeginDrag() {
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
bool Control::event(QEvent* event) {
    const bool lost = event->type() == QEvent::UngrabMouse || event->type() == QEvent::Hide ||
                      event->type() == QEvent::WindowBlocked ||
                      (event->type() == QEvent::WindowDeactivate && !ReportHasCome()) ||
                      (event->type() == QEvent::EnabledChange && !isEnabled());
    if (lost && Held()) EndHold();
    if (lost) ReleaseKey(true);
    return QWidget::event(event);
}

// Escape lets go of what the mouse holds. One hand at a time: a press of the mouse ends what a key holds.
bool Control::eventFilter(QObject* object, QEvent* event) {
    const bool press = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press) ReleaseKey(true);
    // When another drag has taken the mouse, only the window gets these events: they also show that the button is up.
    if (Held() && object->isWindowType() && event->type() == QEvent::MouseButtonRelease) {
        const auto look = [this] { return Held() && IsUp(held_, QApplication::mouseButtons()) ? EndHold() : void(); };
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

void Control::SetHolder(std::int16_t button) {
    held_ = button;
    WatchWhileHeld();
}

void Control::WatchWhileHeld() {
    qApp->removeEventFilter(this);
    if (Held() || rightKey_ != 0) qApp->installEventFilter(this);
}

// Other buttons do not come here while one holds the control: a hold that is still open has lost its release.
bool Control::BeginHold(const QMouseEvent& event) {
    const std::int16_t button = ButtonNumber(event.button());
    if (button == kNoButton) return false;
    if (Held()) EndHold();
    SetHolder(button);
    last_ = press_ = event.globalPosition();
    armed_.reset();
    return true;
}

// Ends the hold without a click: a press that armed a drag has begun nothing else.
void Control::EndHold() {
    const std::int16_t button = held_;
    const bool armed = armed_.has_value();
    SetHolder(kNoButton);
    armed_.reset();
    if (!armed) PointerLost(button, Twips(mapFromGlobal(last_)));
    update();
}

void Control::mousePressEvent(QMouseEvent* event) {
    if (!BeginHold(*event)) return;
    Gesture(Phase::Down, held_, Twips(event->position()));
    update();
}

void Control::mouseMoveEvent(QMouseEvent* event) {
    last_ = event->globalPosition();
    // A release that never came: the hand has let go.
    if (Held() && event->buttons() == Qt::NoButton) EndHold();
    const bool far = (last_ - press_).manhattanLength() >= QApplication::startDragDistance();
    if (armed_ && Held() && far) return BeginDrag();
    Gesture(Phase::Move, held_, Twips(event->position()));
}

void Control::mouseReleaseEvent(QMouseEvent* event) {
    const std::int16_t button = ButtonNumber(event->button());
    if (!Held() || button != held_) return;
    SetHolder(kNoButton);
    armed_.reset();
    Gesture(Phase::Up, button, Twips(event->position()));
    update();
}

void Control::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!BeginHold(*event)) return;
    const QPointF place = Twips(event->position());
    // Two clicks of another button are two clicks.
    held_ == kLeftButton ? DoubleClick(held_, place) : Gesture(Phase::Down, held_, place);
    update();
}

void Control::wheelEvent(QWheelEvent* event) {
    wheelRest_ += event->angleDelta().y();
    const int notches = wheelRest_ / QWheelEvent::DefaultDeltasPerStep;
    wheelRest_ %= QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0) Step(notches);
    event->accept();
}

void Control::keyPressEvent(QKeyEvent* event) {
    const bool fine = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Right:
            return TurnByKey(1, fine);
        case Qt::Key_Down:
        case Qt::Key_Left:
            return TurnByKey(-1, fine);
        case Qt::Key_PageUp:
            return TurnByKey(kPage, fine);
        case Qt::Key_PageDown:
            return TurnByKey(-kPage, fine);
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return PressByKey(*event);
        default:
            event->ignore();
    }
}

void Control::PressByKey(const QKeyEvent& event) {
    if (event.isAutoRepeat()) return;
    if (event.modifiers().testFlag(Qt::ShiftModifier)) {
        if (!TakesRightClick()) return;
        ReleaseKey(true);
        rightKey_ = event.key();
        WatchWhileHeld();
        RightButton(Phase::Down);
    } else if (Takes(described.Row().Taken, Keys::Press)) {
        event.modifiers().testFlag(Qt::ControlModifier) ? DoubleActivate() : Activate();
    }
}

void Control::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != rightKey_ || rightKey_ == 0) return event->ignore();
    if (!event->isAutoRepeat()) ReleaseKey(false);
}

void Control::ReleaseKey(bool lost) {
    if (std::exchange(rightKey_, 0) == 0) return;
    WatchWhileHeld();
    if (lost) {
        PointerLost(kRightButton, MiddleTwips());
    } else {
        RightButton(Phase::Up);
    }
}

void Control::focusOutEvent(QFocusEvent* event) {
    ReleaseKey(true);
    QWidget::focusOutEvent(event);
}

void Control::dragEnterEvent(QDragEnterEvent* event) {
    const auto source = FromMimeData(*event->mimeData());
    event->setAccepted(source ? TakesDrop(*source)
                              : dropRow_ >= 0 && WhyDropIsRefused(s, dropRow_, FilePaths(*event->mimeData())).empty());
}

void Control::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    if (const auto source = FromMimeData(*event->mimeData())) {
        Drop(*source);
    } else if (dropRow_ >= 0) {
        DropFiles(s, dropRow_, FilePaths(*event->mimeData()));
    }
}

}  // namespace marvolin
