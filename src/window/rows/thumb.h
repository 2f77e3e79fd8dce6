#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `Thumb`: the picture button of a LoopTrack. It is highlighted for the LoopTrack that the pattern tab shows.
class ThumbControl : public Control {
public:
    ThumbControl(Session& session, QWidget* parent, Row row);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
