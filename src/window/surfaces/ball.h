#pragma once

#include "window/controls/control.h"
#include "window/descriptions/inner_parts.h"

namespace marvolin {

/// A ball that is dragged over pad or map. The session holds its place. As the ball moves while it is held, it forwards
/// the pointer by its place on the screen.
class Ball : public Control, public HasInnerParts {
public:
    static constexpr int kSize = 16;   ///< of the ball, logical pixels
    static constexpr int kMargin = 4;  ///< around it, for its shadow and ring

    /// `ballNumber`: 0..3 a LoopTrack and 4 the listener on the map, `kPadBall` or `kTwistBall`.
    Ball(Session& session, QWidget* parent, const char* name, int ballNumber);
    /// Moves the ball to its place in the session.
    void Refresh() override;
    std::optional<DragSource> Carried(std::int16_t button) override;
    /// Its way to the right and down: on the pad in percent, the twist from -100 to 100 and not down, on the map in map
    /// units from the middle; then the heading of the listener in degrees.
    int InnerCount() const override;
    InnerPart Inner(int part) const override;
    void SetInner(int part, double value) override;
    void ChooseInner(int) override {}  // the keys are on all of them

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override;
    void DoubleActivate() override { Activate(); }
    bool TakesRightClick() const override { return true; }
    /// On the ball of a LoopTrack a click of it turns the fade round.
    void RightButton(Phase phase) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QRectF BallFace() const { return QRectF(kMargin, kMargin, kSize, kSize); }

private:
    const int number_;
    std::uint64_t pressTime_ = 0;     // of the last press, ms
    std::optional<DragSource> fade_;  // of a right press: a click is a drop on the ball itself
};

}  // namespace marvolin
