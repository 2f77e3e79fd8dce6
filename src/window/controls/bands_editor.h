#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `Bands`: six lanes, one for each band in its colour, and four columns, one for each LoopTrack.
class BandsEditor : public Control {
public:
    BandsEditor(Session& session, QWidget* parent);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Row LaneAt(QPointF twips) const;

    Row lane_ = 0;  // lane of the press
};

}  // namespace marvolin
