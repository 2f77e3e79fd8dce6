#include "window/surfaces/ball.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QStyleHints>
#include <cmath>

#include "window/surfaces/surface.h"

namespace marvolin {

namespace {

constexpr double kHeldAt = 15;  // pixels from the ball's corner to the point by which a gesture takes it
constexpr double kPutAt = 16;   // and to where it puts the pointer

double Distance(QPointF a, QPointF b) { return (a - b).manhattanLength(); }
/// The same place: on a scaled display a pointer stands between whole pixels.
bool Near(QPointF a, QPointF b) { return Distance(a, b) < 2; }

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

bool Ball::BeganWith(const Press& now) const {
    return now.Button == first_.Button && now.Time >= first_.Time &&
           now.Time - first_.Time < static_cast<std::uint64_t>(QApplication::doubleClickInterval());
}

/// The ball that was clicked where this press comes: the pointer may have been put under the ball of another.
Ball& Ball::Clicked(const Press& now, QPointF pointer) {
    // A tap may have been over before the pointer was put: then the ball has not seen it there.
    const auto left = [&](const Ball& ball) {
        return Near(ball.seen_, pointer) || (ball.put_ && Near(*ball.put_, pointer));
    };
    for (QObject* child : parentWidget()->children()) {
        auto* other = dynamic_cast<Ball*>(child);
        if (other != nullptr && other != this && other->BeganWith(now) && left(*other)) return *other;
    }
    return *this;
}

void Ball::mousePressEvent(QMouseEvent* event) {
    const Press now{ButtonNumber(event->button()), event->timestamp()};
    Ball& ball = Clicked(now, event->globalPosition());
    const bool second = ball.BeganWith(now);
    ball.first_ = second ? Press{} : now;
    if (second && CentresBy(now.Button)) {
        clicked_ = &ball;
        Control::mouseDoubleClickEvent(event);
    } else {
        Control::mousePressEvent(event);
    }
}

// What the toolkit takes for a double click may have had its first press elsewhere, or a drag in between.
void Ball::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void Ball::DoubleClick(std::int16_t, QPointF) {
    centred_ = true;
    clicked_->Centre();
}

/// Where the gesture could put the pointer, the hand counts from there; else from where it pressed. `before` is where
/// the pointer stood before the gesture.
void Ball::Take(QPointF pointer, QPointF before) {
    taken_ = Corner();
    from_ = seen_ = pointer;
    put_.reset();
    const QPointF now = QCursor::pos();
    if (s.CursorFree || now == before) return;
    // A quick hand may already have gone on from there.
    const QPointF aim(std::nearbyint(taken_.x() + kPutAt), std::nearbyint(taken_.y() + kPutAt));
    put_ = Near(now, aim) ? now : aim;
}

/// Moves and releases from before the pointer was put still tell its old place. They go on from the place before; one
/// that is nearer to where it was put, or tells where the pointer stands now, comes after that.
QPointF Ball::WayOfTheHand(QPointF pointer) {
    if (put_ && (Near(pointer, QCursor::pos()) || Distance(pointer, *put_) < Distance(pointer, seen_))) {
        from_ = Near(pointer, *put_) ? pointer : *put_;
        put_.reset();
    }
    seen_ = pointer;
    const QPointF way = pointer - from_;
    const int still = QGuiApplication::styleHints()->mouseDoubleClickDistance();
    if (std::abs(way.x()) > still || std::abs(way.y()) > still) first_ = {};
    return way;
}

void Ball::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const QPointF pointer = mapToGlobal(twips / kTwipsPerPixel);
    if (phase == Phase::Down) {
        centred_ = false;
        const QPointF before = QCursor::pos();
        BallGesture(phase, button, kHeldAt * kTwipsPerPixel, pointer.y() * kTwipsPerPixel);
        return Take(pointer, before);
    }
    if (centred_) {
        centred_ = phase == Phase::Move && Held();
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
    const QPointF held = (WayOfTheHand(pointer) + taken_ - Corner() + QPointF(kHeldAt, kHeldAt)) * kTwipsPerPixel;
    BallGesture(phase, button, held.x(), held.y());
}

}  // namespace marvolin
