#include "window/controls/control.h"

#include <QApplication>
#include <QCursor>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWheelEvent>

#include "instrument/dropped_files.h"
#include "instrument/loop_drops.h"
#include "window/toolkit/drag.h"

namespace marvolin {

namespace {

QPointF Twips(QPointF pixels) { return pixels * kTwipsPerPixel; }

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
    const QPointF middle = Twips(QRectF(rect()).center());
    Gesture(Phase::Down, kLeftButton, middle);
    armed_.reset();  // a key drags nothing
    Gesture(Phase::Up, kLeftButton, middle);
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

bool Control::event(QEvent* event) {
    const bool lost = event->type() == QEvent::UngrabMouse || event->type() == QEvent::Hide ||
                      (event->type() == QEvent::WindowDeactivate && !ReportHasCome()) ||
                      (event->type() == QEvent::EnabledChange && !isEnabled());
    if (lost && Held()) EndHold();
    return QWidget::event(event);
}

// Other buttons do not come here while one holds the control: a hold that is still open has lost its release.
bool Control::BeginHold(const QMouseEvent& event) {
    const std::int16_t button = ButtonNumber(event.button());
    if (button == kNoButton) return false;
    if (Held()) EndHold();
    held_ = button;
    last_ = press_ = event.globalPosition();
    armed_.reset();
    return true;
}

// Ends the hold without a click: a press that armed a drag has begun nothing else.
void Control::EndHold() {
    const std::int16_t button = held_;
    const bool armed = armed_.has_value();
    held_ = kNoButton;
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
    held_ = kNoButton;
    armed_.reset();
    Gesture(Phase::Up, button, Twips(event->position()));
    update();
}

void Control::mouseDoubleClickEvent(QMouseEvent* event) {
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

void Control::wheelEvent(QWheelEvent* event) {
    wheelRest_ += event->angleDelta().y();
    const int notches = wheelRest_ / QWheelEvent::DefaultDeltasPerStep;
    wheelRest_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0) Step(notches);
    event->accept();
}

void Control::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Right:
            Step(1);
            return;
        case Qt::Key_Down:
        case Qt::Key_Left:
            Step(-1);
            return;
        case Qt::Key_PageUp:
            Step(10);
            return;
        case Qt::Key_PageDown:
            Step(-10);
            return;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!Takes(described.Row().Taken, Keys::Press)) break;
            if (!event->isAutoRepeat()) Activate();
            return;
        default:
            break;
    }
    event->ignore();
}

void Control::dragEnterEvent(QDragEnterEvent* event) {
    const auto source = FromMimeData(*event->mimeData());
    const bool takes = source ? TakesDrop(*source)
                              : dropRow_ >= 0 && WhyDropIsRefused(s, dropRow_, FilePaths(*event->mimeData())).empty();
    event->setAccepted(takes);
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
