#pragma once
/// \file
/// What all controls of the instrument have in common: a name, a hint, and the way from the toolkit's events to the
/// gesture procedures.

#include <QWidget>
#include <cstdint>
#include <optional>

#include "core/session.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/theme.h"

namespace marvolin {

/// A control that paints from the session and forwards its gestures. It decides nothing, and holds no value but those
/// of the pointer on it.
class Control : public QWidget {
public:
    /// `objectName` becomes `name`, or `name` + "_" + `index` for `index` >= 0. `label` is the accessible name and the
    /// tool tip.
    Control(Session& session, QWidget* parent, const char* name, int index, const QString& label);

    /// Shows the values of the session again. Repaints all of the control unless it knows better.
    virtual void Refresh() { update(); }
    /// A drop on a control that is part of a row goes to this row; -1 (the default) takes none.
    void TakeDropsFor(Row row);
    /// Switches a control off whose feature the program does not have yet, and says so.
    void SetNotBuilt();

protected:
    Session& s;
    const int index;

    /// A press, move or release of the pointer, in twips. `button` is that of the event; in a move those that are held.
    virtual void Gesture(Phase, std::int16_t /*button*/, QPointF /*twips*/) {}
    /// The second press of a double click; a plain press unless the control knows a double click.
    virtual void DoubleClick(std::int16_t button, QPointF twips) { Gesture(Phase::Down, button, twips); }
    /// A fine step of the wheel or an arrow key, upwards or to the right positive.
    virtual void Step(int /*units*/) {}
    /// Space or Return while the control has the keys: a left click in its middle.
    virtual void Activate();
    /// The hint at a place, "" when the gesture procedure shows it itself.
    virtual std::string_view Hint(QPointF /*place*/) const { return {}; }
    /// A drop of another control.
    virtual void Drop(const DragSource& source);

    /// Lets the held pointer become a drag of `source` once it has moved; let go where it was pressed, the source is
    /// dropped on the control itself.
    void ArmDrag(DragSource source) { armed_ = std::move(source); }
    /// Starts a drag of this control; returns when it has ended.
    void BeginDrag(const DragSource& source);
    bool Held() const { return held_ != kNoButton; }
    theme::FaceState Face() const { return {isEnabled(), underMouse(), Held(), hasFocus()}; }

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
    void ShowHint(std::string_view hint);

    std::int16_t held_ = kNoButton;
    QPointF last_;                     // where the pointer was last, on the screen: a control may move under it
    std::optional<DragSource> armed_;  // the drag that the held pointer may become
    QPointF press_;                    // where it was pressed, on the screen
    int wheelRest_ = 0;                // eighths of a degree short of a notch
    Row dropRow_ = -1;
};

/// The number by which the gestures know a button of the toolkit.
std::int16_t ButtonNumber(Qt::MouseButton button);
/// The held buttons as one number.
std::int16_t ButtonMask(Qt::MouseButtons buttons);

}  // namespace marvolin
