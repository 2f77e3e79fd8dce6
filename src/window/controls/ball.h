#pragma once

#include "window/control.h"

namespace marvolin {

/// A ball that is dragged over pad or map. It stands where the session says.
///
/// While a ball is held its gesture gets the pointer relative to the point by which it is held, so that the ball
/// follows whether the system let the pointer be put there or not.
class Ball : public Control {
public:
    static constexpr int kSize = 16;   ///< of the ball, logical pixels
    static constexpr int kMargin = 4;  ///< around it, for its shadow and ring

    Ball(Session& session, QWidget* parent, const char* name, int index, const QString& label);
    /// Puts the ball where the session says.
    void Refresh() override;

protected:
    /// Left and top of the ball on its surface, twips.
    virtual BallPoint Place() const = 0;
    /// The gesture, with the pointer relative to the ball's left and top, twips.
    virtual void BallGesture(Phase phase, std::int16_t button, double x, double y) = 0;

    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    /// Takes hold of a ball that has moved from `before` (its old corner on the surface) since the pointer was read.
    void HoldMoved(std::int16_t button, QPointF twips, QPoint before) {
        Gesture(Phase::Down, button, twips + QPointF(before - pos()) * kTwipsPerPixel);
    }
    QRectF BallFace() const { return QRectF(kMargin, kMargin, kSize, kSize); }

private:
    QPointF Corner() const;

    QPointF grip_;  // from the ball's corner to the pointer that holds it, screen pixels
};

}  // namespace marvolin
