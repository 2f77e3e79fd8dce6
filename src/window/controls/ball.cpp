#include "window/controls/ball.h"

#include <QCursor>
#include <cmath>

#include "window/controls/surface.h"

namespace marvolin {

namespace {

constexpr double kHeldAt = 15;  // pixels from the ball's corner to the point by which a gesture takes it

}  // namespace

Ball::Ball(Session& session, QWidget* parent, const char* name, int ballIndex, const QString& label)
    : Control(session, parent, name, ballIndex, label) {
    resize(kSize + 2 * kMargin, kSize + 2 * kMargin);
}

QPointF Ball::Corner() const {
    const BallPoint place = Place();
    const QPoint origin = parentWidget()->mapToGlobal(QPoint(BallSurface::kInset, BallSurface::kInset));
    return QPointF(place.X, place.Y) / kTwipsPerPixel + origin;
}

void Ball::Refresh() {
    const BallPoint place = Place();
    // The half pixel of a place is drawn to the right and below.
    move(static_cast<int>(std::ceil(place.X / kTwipsPerPixel)) + BallSurface::kInset - kMargin,
         static_cast<int>(std::ceil(place.Y / kTwipsPerPixel)) + BallSurface::kInset - kMargin);
}

void Ball::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const QPointF pointer = mapToGlobal(twips / kTwipsPerPixel);
    if (phase == Phase::Down) {
        BallGesture(phase, button, kHeldAt * kTwipsPerPixel, pointer.y() * kTwipsPerPixel);
        // The gesture may have put the pointer elsewhere; where it could not, the pointer is where it was pressed.
        const QPointF now = QCursor::pos();
        const bool moved = !s.CursorFree && (now - Corner()).manhattanLength() < 3 * kSize;
        grip_ = (moved ? now : pointer) - Corner();
        return;
    }
    if (s.CursorFree) {
        // Not held by a left drag: the turn of a listener reads plain distances on the screen. A button that is still
        // down after the grab was lost drags nothing.
        const bool lost = phase == Phase::Move && !Held();
        BallGesture(phase, lost ? static_cast<std::int16_t>(kNoButton) : button, pointer.x() * kTwipsPerPixel,
                    pointer.y() * kTwipsPerPixel);
        return;
    }
    const QPointF held = (pointer - Corner() - grip_ + QPointF(kHeldAt, kHeldAt)) * kTwipsPerPixel;
    BallGesture(phase, button, held.x(), held.y());
}

}  // namespace marvolin
