#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `PickDir`: the folder button of a bin. It takes the folder of another button, and folders of the tree.
class PickDir : public Control {
public:
    PickDir(Session& session, QWidget* parent, int bin);
    void Refresh() override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    bool TakesDrop(const DragSource& source) const override;
    void Drop(const DragSource& source) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
