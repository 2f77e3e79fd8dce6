#pragma once
/// \file
/// What all drawn controls of the instrument have in common: a row of the table of controls, and the way from the
/// toolkit's events to the gesture procedures.

#include <QWidget>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/session.h"
#include "window/descriptions/described.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/theme.h"

namespace marvolin {

/// A control that paints from the session and forwards its gestures. It decides nothing and keeps no value of the
/// session, only the state of the pointer on it. Where its row of the table names no keys, Tab passes it by.
class Control : public QWidget {
public:
    /// `name` and `index` choose the row of the table. `index` is -1 for a control that belongs to no array.
    Control(Session& session, QWidget* parent, std::string_view name, int index = -1);

    /// Shows the values of the session again. Repaints the whole control; an override may repaint less.
    virtual void Refresh() { update(); }
    /// Makes a drop on this control a drop on `row`; -1 (the default) takes no drops.
    void TakeDropsFor(Row row);

protected:
    Session& s;
    const Row index;
    Described& described;  ///< the row of the table; belongs to this widget

    /// A press, move or release of the pointer, in twips. `button` is the button of the event; for a move, the sum of
    /// the held buttons.
    virtual void Gesture(Phase, std::int16_t /*button*/, QPointF /*twips*/) {}
    /// The second press of a double click. A control without a double click takes it as a press.
    virtual void DoubleClick(std::int16_t button, QPointF twips) { Gesture(Phase::Down, button, twips); }
    /// A fine step of the wheel or an arrow key; up and right are positive.
    virtual void Step(int /*units*/) {}
    /// Space or Return while the control has the focus: a left click in its middle.
    virtual void Activate();
    /// A drop of another control.
    virtual void Drop(const DragSource& source);

    /// Lets the held pointer become a drag of `source` once it has moved. A release before that drops the source on
    /// this control.
    void ArmDrag(DragSource source) { armed_ = std::move(source); }
    /// Starts a drag of this control; returns when it has ended.
    void BeginDrag(const DragSource& source);
    bool Held() const { return held_ != kNoButton; }
    theme::FaceState Face() const { return {isEnabled(), underMouse(), Held(), hasFocus()}; }
    /// The text that is drawn on the control.
    QString Caption() const { return QString::fromStdString(described.Caption()); }

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void EndHold();

    std::int16_t held_ = kNoButton;
    QPointF last_;                     // last place of the pointer on the screen: a control may move under it
    std::optional<DragSource> armed_;  // the drag that the held pointer may become
    QPointF press_;                    // place of the press on the screen
    int wheelRest_ = 0;                // eighths of a degree short of a notch
    Row dropRow_ = -1;
};

/// The number that the gesture procedures use for a button of the toolkit.
std::int16_t ButtonNumber(Qt::MouseButton button);
/// The sum of the numbers of the held buttons.
std::int16_t ButtonMask(Qt::MouseButtons buttons);

}  // namespace marvolin
