#include "window/controls/control.h"

#include <QApplication>
#include <QCursor>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWheelEvent>

#include "instrument/loop_drops.h"
#include "performance/drops/file_drops.h"
#include "window/toolkit/drag.h"

namespace marvolin {

namespace {

constexpr int kNotch = 120;  // eighths of a degree of one wheel step

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

std::int16_t ButtonMask(Qt::MouseButtons buttons) {
    int mask = kNoButton;
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (buttons.testFlag(button)) mask |= ButtonNumber(button);
    }
    return static_cast<std::int16_t>(mask);
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
    Gesture(Phase::Up, kLeftButton, middle);
}

void Control::Drop(const DragSource& source) {
    if (dropRow_ >= 0) LoopDragDrop(s, dropRow_, source);
}

void Control::BeginDrag(const DragSource& source) {
    armed_.reset();
    held_ = kNoButton;  // the release goes to the drag
    RunDrag(*this, s, source);
    // The event that the pointer left the control may have gone to the drag as well.
    if (underMouse() && !rect().contains(mapFromGlobal(QCursor::pos()))) {
        QEvent left(QEvent::Leave);
        QCoreApplication::sendEvent(this, &left);
    }
    update();
}

bool Control::event(QEvent* event) {
    // When the control loses the pointer, the drag ends as with a release at the last place.
    const bool lost = event->type() == QEvent::UngrabMouse || event->type() == QEvent::Hide ||
                      (event->type() == QEvent::WindowDeactivate && !ReportHasCome()) ||
                      (event->type() == QEvent::EnabledChange && !isEnabled());
    if (lost && Held()) EndHold();
    return QWidget::event(event);
}

void Control::EndHold() {
    const std::int16_t button = held_;
    held_ = kNoButton;
    Gesture(Phase::Up, button, Twips(mapFromGlobal(last_)));
    update();
}

void Control::mousePressEvent(QMouseEvent* event) {
    held_ = ButtonNumber(event->button());
    last_ = press_ = event->globalPosition();
    armed_.reset();
    Gesture(Phase::Down, held_, Twips(event->position()));
    update();
}

void Control::mouseMoveEvent(QMouseEvent* event) {
    last_ = event->globalPosition();
    if (armed_ && Held() && (last_ - press_).manhattanLength() >= QApplication::startDragDistance()) {
        const DragSource source = *armed_;
        armed_.reset();
        return BeginDrag(source);
    }
    Gesture(Phase::Move, ButtonMask(event->buttons()), Twips(event->position()));
}

void Control::mouseReleaseEvent(QMouseEvent* event) {
    const std::int16_t button = ButtonNumber(event->button());
    held_ = kNoButton;
    if (armed_) {
        const DragSource source = *armed_;
        armed_.reset();
        Drop(source);
    }
    Gesture(Phase::Up, button, Twips(event->position()));
    update();
}

void Control::mouseDoubleClickEvent(QMouseEvent* event) {
    held_ = ButtonNumber(event->button());
    last_ = press_ = event->globalPosition();
    armed_.reset();
    DoubleClick(held_, Twips(event->position()));
    update();
}

void Control::wheelEvent(QWheelEvent* event) {
    wheelRest_ += event->angleDelta().y();
    const int notches = wheelRest_ / kNotch;
    wheelRest_ -= notches * kNotch;
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
    if (event->mimeData()->hasUrls() || IsDragSource(*event->mimeData())) event->acceptProposedAction();
}

void Control::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    if (const auto source = FromMimeData(*event->mimeData())) {
        Drop(*source);
    } else if (dropRow_ >= 0) {
        DropFilesOnRow(s, dropRow_, FilePaths(*event->mimeData()));
    }
}

}  // namespace marvolin
