#pragma once

#include "window/controls/folder_target.h"

namespace marvolin {

/// `PickDir`: the folder button of a bin.
class PickDir : public FolderTarget {
public:
    PickDir(Session& session, QWidget* parent, int bin);
    void Refresh() override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
