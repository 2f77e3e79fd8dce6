#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `ChannelFlag`: the wire of a row, one of eight pictures: two parts white or black, struck through when disconnected.
class ChannelFlagControl : public Control {
public:
    ChannelFlagControl(Session& session, QWidget* parent, Row row);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void Activate() override;
    void paintEvent(QPaintEvent* event) override;

private:
    const Row row_;
};

/// Draws picture 0..7 of a wire.
void DrawWire(QPainter& p, const QRectF& rect, int picture);

}  // namespace marvolin
