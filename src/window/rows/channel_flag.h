#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `ChannelFlag`: the wire of a row. Its eight pictures have two parts, white or black, and a stroke through them when
/// the row is disconnected.
class ChannelFlagControl : public Control {
public:
    ChannelFlagControl(Session& session, QWidget* parent, Row row);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void Activate() override;
    void DoubleActivate() override { Activate(); }
    bool TakesRightClick() const override { return true; }
    void paintEvent(QPaintEvent* event) override;
};

/// Draws picture 0..7 of a wire.
void DrawWire(QPainter& p, const QRectF& rect, int picture);

}  // namespace marvolin
