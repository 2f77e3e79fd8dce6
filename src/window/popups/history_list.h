#pragma once

#include <QListWidget>
#include <optional>

#include "core/drag_source.h"
#include "core/session.h"
#include "window/popups/second_press.h"

namespace marvolin {

/// `HistoryList`: the palette of a row. A click on an entry loads it into that row, a drag into the row it is dropped
/// on.
class HistoryList : public QListWidget {
public:
    HistoryList(Session& session, QWidget* parent);
    /// Fills the list from the session and opens it below `button` (a rectangle in the window), or above it when there
    /// is no room below; where neither side has room for all of it, on the larger one.
    void Open(const QRect& button);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    Session& s;
    SecondPress second_{*this};
    std::optional<DragSource> pressed_;  // the drag that the pressed entry may become
    bool dragging_ = false;
    QPoint origin_;
};

}  // namespace marvolin
