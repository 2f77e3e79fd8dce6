#pragma once

#include <QListWidget>

#include "window/controls/control.h"

namespace marvolin {

/// `ClipBoardList`: one row for each clip. LoopTracks are dropped here, clips are dragged away.
class ClipList : public QListWidget {
public:
    ClipList(Session& session, QWidget* parent);
    void Refresh();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    /// Selects nothing, unlike the toolkit's own list: a press has begun a drag.
    void mouseMoveEvent(QMouseEvent*) override {}
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
};

/// `Trash`: a drop of a clip removes it.
class Trash : public Control {
public:
    Trash(Session& session, QWidget* parent);

protected:
    void Drop(const DragSource& source) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
