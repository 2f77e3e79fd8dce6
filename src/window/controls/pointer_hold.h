#pragma once
/// \file
/// The pointer on a control: from the press that holds it to the release, the drag or the loss that ends the hold.

#include <QPointF>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <utility>

#include "core/session.h"
#include "window/toolkit/drag_source.h"

namespace marvolin {

/// A widget that one button of the pointer holds from its press on. It turns the toolkit's events into gestures.
class PointerHold : public QWidget {
public:
    PointerHold(Session& session, QWidget* parent) : QWidget(parent), s(session) {}

protected:
    Session& s;

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
    /// Whether a key holds the control, as a button does.
    virtual bool KeyHolds() const { return false; }
    /// Ends what a key holds, if one does; `lost` when the key has not come up.
    virtual void ReleaseKey(bool /*lost*/) {}

    /// Lets the press that is being handled become a drag of `source` once the pointer has gone the desktop's drag
    /// distance. The release then goes to the drag; before that it is the release of a click.
    void ArmDrag(DragSource source) { armed_ = std::move(source); }
    bool Held() const { return held_ != kNoButton; }
    /// What the press has armed, if anything, which is then no longer armed.
    std::optional<DragSource> TakeArmed() { return std::exchange(armed_, std::nullopt); }
    /// To be called whenever a key begins or ends to hold the control.
    void WatchWhileHeld();

    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void SetHolder(std::int16_t button);
    bool BeginHold(const QMouseEvent& event);
    void EndHold();
    void BeginDrag();

    std::int16_t held_ = kNoButton;    // the button of the hold
    QPointF last_;                     // last place of the pointer on the screen: a control may move under it
    std::optional<DragSource> armed_;  // the drag that the held pointer may become
    QPointF press_;                    // place of the press on the screen
};

/// The number that the gesture procedures use for a button of the toolkit; `kNoButton` for one that they do not know.
std::int16_t ButtonNumber(Qt::MouseButton button);

}  // namespace marvolin
