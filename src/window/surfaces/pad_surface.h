#pragma once

#include "window/surfaces/ball.h"
#include "window/surfaces/surface.h"

namespace marvolin {

/// `PadBall`: the ball of the mix pad, with a face for each pad type.
class PadBall : public Ball {
public:
    PadBall(Session& session, QWidget* parent);

protected:
    void Step(int units) override;
    void paintEvent(QPaintEvent* event) override;
};

/// `Pad`: the field in the colour of its type, with the lines of its curve and a wire in each corner.
class PadSurface : public BallSurface {
public:
    PadSurface(Session& session, QWidget* parent);
    PadBall* const Ball;  // owned by the toolkit

protected:
    void PaintField(QPainter& p) const override;
    QString FieldMark() const override;
};

}  // namespace marvolin
