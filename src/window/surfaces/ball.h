#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// A ball that is dragged over pad or map. It stands where the session says, and forwards the hand with its place on
/// the screen: the ball moves while it is held.
class Ball : public Control {
public:
    static constexpr int kSize = 16;   ///< of the ball, logical pixels
    static constexpr int kMargin = 4;  ///< around it, for its shadow and ring

    /// `ballNumber`: 0..3 a LoopTrack and 4 the listener on the map, `kPadBall` the one of the pad.
    Ball(Session& session, QWidget* parent, const char* name, int ballNumber, const QString& label);
    /// Puts the ball where the session says.
    void Refresh() override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QRectF BallFace() const { return QRectF(kMargin, kMargin, kSize, kSize); }

private:
    const int number_;
    std::uint64_t pressTime_ = 0;  // ms
};

}  // namespace marvolin
