#pragma once

#include <QListWidget>
#include <QPointer>
#include <optional>

#include "core/drag_source.h"
#include "core/session.h"
#include "window/keys/carried.h"
#include "window/popups/second_press.h"

namespace marvolin {

/// `HistoryList`: the palette of a row. A click on an entry loads it into that row, a drag into the row it is dropped
/// on.
class HistoryList : public QListWidget, public Carries {
public:
    HistoryList(Session& session, QWidget* parent);
    /// Fills the list from the session and opens it below `button` (a rectangle in the window), or above it when there
    /// is no room below; where neither side has room for all of it, on the larger one.
    void Open(const QRect& button);
    /// The chosen entry, for another LoopTrack. The list closes.
    std::optional<DragSource> Carried(std::int16_t button) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    Session& s;
    SecondPress second_{*this};
    std::optional<DragSource> pressed_;  // the drag that the pressed entry may become
    bool dragging_ = false;
    QPointer<QWidget> before_;  // had the focus when the list opened
    QPoint origin_;
};

}  // namespace marvolin
