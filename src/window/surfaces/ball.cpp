#include "window/surfaces/ball.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <algorithm>
#include <cmath>
#include <utility>

#include "parameters/position.h"
#include "performance/ball_hand.h"
#include "window/surfaces/surface.h"

namespace marvolin {

namespace {

// Degrees a key. The picture of the listener shows each fifth one.
constexpr int kTurn = 15;
constexpr int kFineTurn = 5;

/// Its parts for assistive technology.
enum BallPart { kRight, kDown, kHeading };

}  // namespace

Ball::Ball(Session& session, QWidget* parent, const char* name, int ballNumber)
    : Control(session, parent, name, ballNumber > kListenerBall ? -1 : ballNumber), number_(ballNumber) {
    resize(kSize + 2 * kMargin, kSize + 2 * kMargin);
}

void Ball::Refresh() {
    const BallPoint place = BallPlace(s, number_);
    // A place between two pixels is drawn at the right and lower one.
    move(static_cast<int>(std::ceil(place.X / kTwipsPerPixel)) + BallSurface::kInset - kMargin,
         static_cast<int>(std::ceil(place.Y / kTwipsPerPixel)) + BallSurface::kInset - kMargin);
}

void Ball::mousePressEvent(QMouseEvent* event) {
    pressTime_ = event->timestamp();
    Control::mousePressEvent(event);
}

// A press moves the pointer, so the toolkit misses some double clicks. The gesture finds them by the times of the
// presses.
void Ball::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void Ball::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const QPointF pointer = mapToGlobal(twips / kTwipsPerPixel);
    const DoubleClickLimits limits{static_cast<std::uint64_t>(QApplication::doubleClickInterval()),
                                   static_cast<double>(QGuiApplication::styleHints()->mouseDoubleClickDistance())};
    const BallEvent event{phase, button, {pointer.x(), pointer.y()}, pressTime_, Held()};
    if (phase == Phase::Up && fade_) Drop(*std::exchange(fade_, std::nullopt));
    auto drag = BallGesture(s, number_, event, limits);
    if (phase == Phase::Down) fade_ = drag;
    if (drag) ArmDrag(std::move(*drag));
    if (phase == Phase::Move) return;
    if (s.CursorFree) {
        unsetCursor();
    } else {
        setCursor(Qt::BlankCursor);
    }
}

int Ball::InnerCount() const { return number_ == kListenerBall ? 3 : number_ == kTwistBall ? 1 : 2; }

InnerPart Ball::Inner(int part) const {
    if (part == kHeading) return {"heading", QAccessible::Slider, {s.ListenerAngle * 1.0, 0, 359, 1}};
    const BallPoint place = BallPlace(s, number_);
    const PadGeometry& g = s.Geometry;
    // From -1 to 1; a listener that is off the map is told at its edge.
    const double share = std::clamp(part == kRight ? (place.X + g.BallCentreX - g.PadHalfX) / g.PadHalfX
                                                   : (place.Y + g.BallCentreY - g.PadHalfY) / g.PadHalfY,
                                    -1.0, 1.0);
    const char* label = part == kRight ? "to the right" : "down";
    if (number_ == kTwistBall) return {label, QAccessible::Slider, {100 * share, -100, 100, 1}};
    if (number_ == kPadBall) return {label, QAccessible::Slider, {50 + 50 * share, 0, 100, 1}};
    return {label, QAccessible::Slider, {s.MapRange * share, -s.MapRange, s.MapRange, s.MapRange / 50}};
}

void Ball::SetInner(int part, double value) {
    const ControlScale scale = Inner(part).Scale;
    if (part == kHeading) return ListenerStep(s, static_cast<int>(std::lround(value - scale.Now)));
    const double share = (value - scale.Now) / (scale.High - scale.Low);
    const double half = part == kRight ? s.Geometry.PadHalfX : s.Geometry.PadHalfY;
    BallStep(s, number_, part == kRight ? 1 : 0, part == kRight ? 0 : 1, share * 2 * half / kTwipsPerPixel);
}

void Ball::Activate() { BallCentre(s, number_); }

std::optional<DragSource> Ball::Carried(std::int16_t) {
    if (number_ >= kLoopTracks) return std::nullopt;
    return DragSource{drags::kPosBall, static_cast<Row>(number_), kFadeTag};
}

void Ball::RightButton(Phase phase) {
    if (phase != Phase::Down) return;
    if (const auto fade = Carried(kRightButton)) Drop(*fade);
}

void Ball::keyPressEvent(QKeyEvent* event) {
    const bool fine = event->modifiers().testFlag(Qt::ShiftModifier);
    const int turn = event->key() == Qt::Key_PageUp ? -1 : event->key() == Qt::Key_PageDown ? 1 : 0;
    if (turn != 0 && number_ == kListenerBall) {
        return ListenerStep(s, turn * (fine ? kFineTurn : kTurn));
    }
    const int right = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    const int down = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
    if (right == 0 && down == 0) return Control::keyPressEvent(event);
    BallStep(s, number_, right, down, fine ? 1 : kBallStep);
}

}  // namespace marvolin
