#pragma once

#include <QObject>
#include <QPointer>
#include <optional>
#include <string>

#include "core/drag_source.h"
#include "core/session.h"
#include "window/toolkit/former_status.h"

class QKeyEvent;
class QLabel;
class QMimeData;
class QWidget;

namespace marvolin {

/// Drags by key, for every control and list of the program.
///
/// Insert (or F9) picks up what the mouse would drag from the control with the focus, with Shift what the right button
/// would. The focus then goes on by Tab as always, or by the arrows to the places that take it: to the next one, up and
/// down to another row. Insert again drops it on the focus, Escape lets it go.
///
/// What is carried is what was picked up: where that has changed meanwhile, the drop lets go. Nothing is carried in
/// other windows, or while a list or a question is open: there the keys have their own meaning. A drag of the mouse
/// lets go.
class KeyDrag : public QObject {
public:
    explicit KeyDrag(Session& session);
    ~KeyDrag() override;

    /// What is carried; none when nothing is.
    const std::optional<DragSource>& Load() const { return load_; }

    /// A key that `focus` would get; true when it is one of a drag.
    bool TakeKey(QWidget& focus, const QKeyEvent& key);
    /// The mouse has begun a drag of its own.
    void MouseDrags();

private:
    bool CarryOn(QWidget& focus, const QKeyEvent& key);
    void PickUp(QWidget& focus, std::int16_t button);
    void DropOn(QWidget& focus);
    void LetGo();
    void Say(const std::string& text);
    void GoToTarget(QWidget& focus, bool forward, bool otherRow);
    /// A drag of `data` comes to a control, which is left or dropped on next.
    bool Enters(QWidget& at, const QMimeData& data);
    bool TakenBy(QWidget& widget);
    void ShowSign(const QWidget& focus);
    void ShowWhere(QWidget* focus);

    Session& s;
    std::optional<DragSource> load_;
    std::string carried_;  // its name
    std::string said_;     // in the status line
    std::optional<FormerStatus> former_;
    std::string content_;    // what it stood for at the pick-up
    bool asks_ = false;      // a control is asked whether it takes it
    QPointer<QLabel> sign_;  // shows what is carried
};

}  // namespace marvolin
