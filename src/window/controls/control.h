#pragma once
/// \file
/// What all drawn controls of the instrument have in common: a row of the table of controls, and the way from the
/// toolkit's events to the gesture procedures.

#include <QWidget>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/session.h"
#include "window/controls/pointer_hold.h"
#include "window/descriptions/described.h"
#include "window/keys/carried.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/theme.h"

namespace marvolin {

/// A control that paints from the session and forwards its gestures. It decides nothing and keeps no value of the
/// session, only the state of the pointer on it. Where its row of the table names no keys, Tab passes it by.
class Control : public PointerHold, public Carries {
public:
    /// `name` and `index` choose the row of the table. `index` is -1 for a control that belongs to no array.
    Control(Session& session, QWidget* parent, std::string_view name, int index = -1);

    /// Shows the values of the session again. Repaints the whole control; an override may repaint less.
    virtual void Refresh() { update(); }
    /// Makes a drop on this control a drop on `row`; -1 (the default) takes no drops.
    void TakeDropsFor(Row row);

    /// What assistive technology asks for: a press, the nearest value that a step can reach, the right button. A
    /// disabled control does nothing.
    void PressByRequest();
    void SetByRequest(double value);
    void MenuByRequest();
    /// By default what a press in the middle with this button drags.
    std::optional<DragSource> Carried(std::int16_t button) override;
    /// Where the keys are on a control that has a cursor, in words; else "".
    virtual std::string CursorWords() const { return {}; }

protected:
    const Row index;
    Described& described;  ///< the row of the table; belongs to this widget

    /// A fine step of the wheel; up and right are positive.
    virtual void Step(int /*units*/) {}
    /// A step of an arrow key: as `Step`, or coarser. With Shift it is `Step` itself.
    virtual void CoarseStep(int units) { Step(units); }
    /// Space or Return while the control has the focus: a left click in its middle.
    virtual void Activate();
    /// Whether a click with the right button does something here. Without it the keys have no right button.
    virtual bool TakesRightClick() const { return false; }
    /// The same keys with Shift: the right button, which is down in the middle for as long as the key.
    virtual void RightButton(Phase phase);
    /// The same keys with Ctrl: a double click in the middle.
    virtual void DoubleActivate();
    /// An arrow key or Page Up and Page Down; `units` are 1 or 10, up and right are positive.
    virtual void TurnByKey(int units, bool fine) { fine ? Step(units) : CoarseStep(units); }
    /// Sets the value of `Description::Scale`.
    virtual void TurnTo(double value);
    /// Whether a drop of another control would change anything. The pointer shows it.
    virtual bool TakesDrop(const DragSource& source) const;
    /// A drop of another control.
    virtual void Drop(const DragSource& source);

    theme::FaceState Face() const { return {isEnabled(), underMouse(), Held(), hasFocus()}; }
    QPointF MiddleTwips() const { return QRectF(rect()).center() * kTwipsPerPixel; }
    /// The text that is drawn on the control.
    QString Caption() const { return QString::fromStdString(described.Caption()); }

    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool KeyHolds() const override { return rightKey_ != 0; }
    void ReleaseKey(bool lost) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void PressByKey(const QKeyEvent& event);

    int rightKey_ = 0;   // the key that stands for the right button and is down; 0 none
    int wheelRest_ = 0;  // eighths of a degree short of a notch
    Row dropRow_ = -1;
};

}  // namespace marvolin
