#pragma once

#include <QListWidget>

#include "core/session.h"

namespace marvolin {

/// `HistoryList`: the palette of a row. An entry is clicked to go into that row, or dragged onto another one.
class HistoryList : public QListWidget {
public:
    HistoryList(Session& session, QWidget* parent);
    /// Fills the list from the session and opens it below `button` (a place in the window), or above where the window
    /// would end.
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
    bool pressed_ = false;  // an entry is under the held button
    bool dragging_ = false;
    QPoint origin_;
};

}  // namespace marvolin
