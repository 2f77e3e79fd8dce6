#pragma once
/// \file
/// The mouse and the keys of the hand, as the window system passes them on.

#include <QEvent>
#include <QPointer>
#include <QWindow>
#include <set>
#include <string>
#include <vector>

class QWidget;

namespace marvolin::hand {

/// A place on a window of the program.
struct Place {
    QPointer<QWindow> Window;
    QPointF At;        ///< in the window, pixels; may lie outside
    std::string Name;  ///< of the control that was meant

    bool Exists() const { return !Window.isNull(); }
};

/// Presses, moves and releases, with a clock of its own. What a window has got the press of gets all until the last
/// release, as under a window system.
class Pointer {
public:
    static constexpr int kQuick = 60;   ///< ms, of a double click
    static constexpr int kSlow = 1200;  ///< ms, two clicks that are no double click

    void Press(const Place& place, Qt::MouseButton button, Qt::KeyboardModifiers held = {}, int after = kSlow);
    void MoveTo(const Place& place, Qt::KeyboardModifiers held = {});
    /// Moves by this way from where the pointer is.
    void MoveBy(QPointF way);
    void Release(Qt::MouseButton button);
    void Wheel(const Place& place, int notches, int after);

    Qt::MouseButtons Down() const { return down_; }
    bool Holds() const { return down_ != Qt::NoButton; }
    /// Where the pointer is.
    const Place& Where() const { return where_; }
    /// Releases all buttons.
    void LetGo();

private:
    void Send(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers held);
    void Follow(const Place& place);

    Qt::MouseButtons down_ = Qt::NoButton;
    Place where_;
    static int time_;  // of the last event, ms: the toolkit's clock never goes back
};

/// Keys to the window that has them. Each goes to the one that has them at its time, a modifier too: a key may close
/// the window that had the one before.
class Keyboard {
public:
    void Press(Qt::Key key, Qt::KeyboardModifiers held);
    void Release(Qt::Key key, Qt::KeyboardModifiers held);
    void Click(Qt::Key key, Qt::KeyboardModifiers held);
    /// Types a text.
    void Type(const std::string& text);
    bool Holds() const { return !down_.empty(); }
    void LetGo();

private:
    static QWindow* Target();
    static void Send(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers held, const QString& text = {});
    static void PressModifiers(Qt::KeyboardModifiers held);
    static void ReleaseModifiers(Qt::KeyboardModifiers held);
    std::set<Qt::Key> down_;
};

}  // namespace marvolin::hand
