#pragma once

#include <QListWidget>

#include "core/session.h"

namespace marvolin {

/// `HistoryList`: the palette of a row. A click on an entry loads it into that row, a drag into the row it is dropped
/// on.
class HistoryList : public QListWidget {
public:
    HistoryList(Session& session, QWidget* parent);
    /// Fills the list from the session and opens it below `button` (a rectangle in the window), or above it when there
    /// is no room below.
    void Open(const QRect& button);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void StartEntryDrag();

    Session& s;
    bool pressed_ = false;  // an entry was pressed and may become a drag
    bool dragging_ = false;
    QPoint origin_;
};

}  // namespace marvolin
