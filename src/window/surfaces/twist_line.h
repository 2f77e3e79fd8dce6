#pragma once

#include "window/surfaces/ball.h"

namespace marvolin {

/// `TwistBall`: the ball of the twist, with a face for what it moves. Hidden under a pad type without a twist.
class TwistBall : public Ball {
public:
    TwistBall(Session& session, QWidget* parent);
    void Refresh() override;

protected:
    void Step(int units) override;
    void paintEvent(QPaintEvent* event) override;
};

/// `TwistIndicator`: the line of `TwistBall`, the wires of the channels at its ends, and what the twist moves. As long
/// as the pad is wide, so that the ball follows the hand.
class TwistLine : public QWidget {
public:
    TwistLine(Session& session, QWidget* parent);
    /// Shows the ball and the words again.
    void Refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
    TwistBall* const ball_;  // owned by the toolkit
};

}  // namespace marvolin
