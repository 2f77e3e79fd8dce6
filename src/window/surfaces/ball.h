#pragma once

#include <optional>

#include "window/controls/control.h"

namespace marvolin {

/// A ball that is dragged over pad or map. It stands where the session says.
///
/// While a ball is held its gesture gets the pointer relative to the point by which it is held, so that the ball
/// follows whether the system let the pointer be put there or not.
///
/// A press puts the pointer elsewhere on the ball, often too far for the toolkit to see the next press as the second
/// one of a double click. So the ball tells double clicks itself: two presses of one button, without a drag between
/// them.
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
    /// Whether a double click of this button is one; its second press is a plain press otherwise.
    virtual bool CentresBy(std::int16_t button) const = 0;
    /// The double click. The ball is not held after it: it stays on the centre, whatever the hand does until it lets
    /// go.
    virtual void Centre() = 0;

    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Activate() override { Centre(); }
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QRectF BallFace() const { return QRectF(kMargin, kMargin, kSize, kSize); }

private:
    struct Press {
        std::int16_t Button = kNoButton;
        std::uint64_t Time = 0;  // milliseconds
    };

    QPointF Corner() const;
    bool BeganWith(const Press& now) const;
    Ball& Clicked(const Press& now, QPointF pointer);
    void Take(QPointF pointer, QPointF before);
    QPointF WayOfTheHand(QPointF pointer);

    Press first_;           // the press that another one may make a double click
    bool centred_ = false;  // the held button is that of a double click
    Ball* clicked_ = this;  // on this ball
    // Of the drag; places are on the screen, in pixels.
    QPointF taken_;               // the ball's corner when it was taken
    QPointF from_;                // the hand counts from here
    QPointF seen_;                // where the hand was last
    std::optional<QPointF> put_;  // where the pointer was put, until it is seen there
};

}  // namespace marvolin
