#pragma once

#include <QListWidget>

#include "window/controls/control.h"

namespace marvolin {

/// `ClipBoardList`: one row a clip. Takes LoopTracks, gives clips.
class ClipList : public QListWidget {
public:
    ClipList(Session& session, QWidget* parent);
    void Refresh();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
};

/// `Trash`: a clip dropped here is removed.
class Trash : public Control {
public:
    Trash(Session& session, QWidget* parent);

protected:
    std::string_view Hint(QPointF place) const override;
    void Activate() override {}
    void Drop(const DragSource& source) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
