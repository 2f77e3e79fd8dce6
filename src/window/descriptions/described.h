#pragma once
/// \file
/// A widget and its row of the table, and the rules that hold for every control.

#include <QObject>
#include <QPointF>
#include <string>
#include <string_view>

#include "window/descriptions/description.h"

class QMouseEvent;
class QWidget;

namespace marvolin {

class HintWindow;

/// A widget whose hint differs from part to part.
class HasParts {
public:
    virtual ~HasParts() = default;
    /// The number of the part at a place, in pixels.
    virtual int PartAt(QPointF place) const = 0;
};

/// The texts of a widget, from its row of the table. Owned by the widget; handles the widget's events before the widget
/// does. Rules for every control, the toolkit's own included, are here:
/// - A move of the pointer over the control shows its hint, and so does the Tab key that reaches it. A report that has
///   taken the place of the hint stays until the hint becomes another. The hint goes when the pointer leaves the
///   control or comes to a part without a hint, unless something else is shown by then.
/// - Nothing acts in passing. The wheel turns the control over which the scroll began; a closed list and a strip of
///   tabs take no wheel, and a closed list no key that would choose an entry. While a mouse button is down, on this
///   control or another, neither the wheel nor a key of the table acts.
/// - A hold belongs to the button that began it. Until its release the control sees no other button, and a release only
///   after the press of the same button. It never sees buttons other than left, right and middle.
class Described : public QObject {
public:
    /// `session` may be null in a window that has none. `widget` owns the object.
    Described(Session* session, QWidget& widget, const Description& row, int index);

    const Description& Row() const { return row_; }
    int Index() const { return index_; }

    std::string Caption() const;
    std::string Label() const;
    std::string Tip() const;
    std::string Value() const;
    std::string Shortcut() const;
    /// Without a scale, or without a session, `Step` is 0.
    ControlScale Scale() const;
    bool HasState() const { return row_.On != nullptr && session_ != nullptr; }
    /// Whether it is ticked, lit or open.
    bool On() const { return HasState() && row_.On({*session_, index_}); }
    /// What the status line shows: the hint, and in front of it, while the control is disabled, why it is.
    std::string Hint(int part, bool held) const;

    /// Sets the tool tip again after something changed that it depends on.
    void RefreshTip();
    /// Shows the hint in the status bar of the widget's window, or of the main window when it has none. Where there is
    /// none it takes the former one away. Without a session there is a hint only where its text is always the same.
    void ShowHint(int part, bool held);
    /// Takes the hint away that this control showed last, if it is still shown.
    void TakeHintAway();
    /// The mouse button that holds the control; `Qt::NoButton` when none does.
    Qt::MouseButton Holder() const { return holder_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool Refuses(const QEvent& event) const;
    bool TakesFromHolder(QObject& pointed, const QMouseEvent& event);
    std::string Say(const ControlText& text, int part = 0, bool held = false) const;
    void HintAt(QPointF place, bool held);
    void ForgetHints() const;
    HintWindow* Bar() const;
    bool NothingIsShown() const;

    Session* const session_;
    QWidget& widget_;
    const Description& row_;
    const int index_;
    Qt::MouseButton holder_ = Qt::NoButton;  // the button that holds the control
    Qt::MouseButtons pressedHere_;           // the buttons that are down since they came down on the control
    bool resending_ = false;
    std::string shown_;  // the hint that this control showed last
};

/// Gives `widget` its row of the table: object name, caption of a button, accessible name, tool tip, hint and the rules
/// of every control. Throws `std::out_of_range` for a name that is not in the table.
Described& Describe(Session& session, QWidget& widget, std::string_view name, int index = -1);
/// The same in a window that has no session and shows no hints.
Described& Describe(QWidget& widget, std::string_view name, int index = -1);

/// What `object` was given by `Describe`; null when it has no row.
Described* DescribedOf(const QObject& object);

}  // namespace marvolin
