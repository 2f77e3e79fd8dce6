#pragma once

#include <QListWidget>

#include "window/controls/control.h"

namespace marvolin {

/// `ClipBoardList`: one row for each clip. LoopTracks are dropped here, clips are dragged away.
class ClipList : public QListWidget, public Carries {
public:
    ClipList(Session& session, QWidget* parent);
    void Refresh();
    std::optional<DragSource> Carried(std::int16_t button) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// The second press of two is a press like the first.
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
    std::int16_t button_ = kNoButton;  // the button that holds a clip
    QPoint press_;
};

/// `Trash`: a drop of a clip removes it.
class Trash : public Control {
public:
    Trash(Session& session, QWidget* parent);

protected:
    bool TakesDrop(const DragSource& source) const override;
    void Drop(const DragSource& source) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
