#include "window/controls/control.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "instrument/dropped_files.h"
#include "instrument/loop_drops.h"

namespace marvolin {

namespace {

constexpr int kPage = 10;  // steps

}  // namespace

Control::Control(Session& session, QWidget* parent, std::string_view name, int controlIndex)
    : PointerHold(session, parent),
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
    TakeArmed();  // a key drags nothing
    Gesture(Phase::Up, kLeftButton, MiddleTwips());
}

void Control::RightButton(Phase phase) {
    Gesture(phase, kRightButton, MiddleTwips());
    TakeArmed();
}

// The second press of a double click, and its release.
void Control::DoubleActivate() {
    DoubleClick(kLeftButton, MiddleTwips());
    TakeArmed();
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
    return TakeArmed();
}

void Control::Drop(const DragSource& source) {
    if (dropRow_ >= 0) LoopDragDrop(s, dropRow_, source);
}

bool Control::TakesDrop(const DragSource& source) const { return dropRow_ >= 0 && LoopTakesDrop(s, dropRow_, source); }

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
        if (event.modifiers().testFlag(Qt::ControlModifier)) {
            DoubleActivate();
        } else {
            Activate();
        }
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
