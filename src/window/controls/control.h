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
#include "window/descriptions/described.h"
#include "window/keys/carried.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/theme.h"

namespace marvolin {

/// A control that paints from the session and forwards its gestures. It decides nothing and keeps no value of the
/// session, only the state of the pointer on it. Where its row of the table names no keys, Tab passes it by.
class Control : public QWidget, public Carries {
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
    Session& s;
    const Row index;
    Described& described;  ///< the row of the table; belongs to this widget

    /// A press, move or release of the pointer, in twips. `button` is the one that holds the control; for a move of a
    /// pointer that does not hold it, `kNoButton`. While one button holds the control, presses and releases of others
    /// do not come here; each press is followed by one release, by a drag that was armed, or by `PointerLost`; an armed
    /// press that loses the pointer ends without any.
    virtual void Gesture(Phase, std::int16_t /*button*/, QPointF /*twips*/) {}
    /// The control has lost the pointer during a hold: it was hidden or disabled, its window is no longer active, or
    /// the release did not come. What a click does must not happen then; a drag ends with what it has reached. This is
    /// the end of a drag; a control that acts at the release of a click overrides it.
    virtual void PointerLost(std::int16_t button, QPointF twips) { Gesture(Phase::Up, button, twips); }
    /// The second press of a double click with the left button. A control without a double click takes it as a press;
    /// so are two clicks of another button.
    virtual void DoubleClick(std::int16_t button, QPointF twips) { Gesture(Phase::Down, button, twips); }
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

    /// Lets the press that is being handled become a drag of `source` once the pointer has gone the desktop's drag
    /// distance. The release then goes to the drag; before that it is the release of a click.
    void ArmDrag(DragSource source) { armed_ = std::move(source); }
    bool Held() const { return held_ != kNoButton; }
    theme::FaceState Face() const { return {isEnabled(), underMouse(), Held(), hasFocus()}; }
    QPointF MiddleTwips() const { return QRectF(rect()).center() * kTwipsPerPixel; }
    /// The text that is drawn on the control.
    QString Caption() const { return QString::fromStdString(described.Caption()); }

    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void PressByKey(const QKeyEvent& event);
    void ReleaseKey(bool lost);
    void SetHolder(std::int16_t button);
    void WatchWhileHeld();
    bool BeginHold(const QMouseEvent& event);
    void EndHold();
    void BeginDrag();

    std::int16_t held_ = kNoButton;    // the button of the hold
    QPointF last_;                     // last place of the pointer on the screen: a control may move under it
    std::optional<DragSource> armed_;  // the drag that the held pointer may become
    QPointF press_;                    // place of the press on the screen
    int rightKey_ = 0;                 // the key that stands for the right button and is down; 0 none
    int wheelRest_ = 0;                // eighths of a degree short of a notch
    Row dropRow_ = -1;
};

/// The number that the gesture procedures use for a button of the toolkit; `kNoButton` for one that they do not know.
std::int16_t ButtonNumber(Qt::MouseButton button);

}  // namespace marvolin
