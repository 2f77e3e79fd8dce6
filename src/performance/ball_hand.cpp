#include "performance/ball_hand.h"

#include <cmath>

#include "parameters/position.h"
#include "performance/ball_drag.h"
#include "performance/map/listener.h"
#include "performance/map/map_gesture.h"
#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_gesture.h"
#include "performance/pad/pad_twist.h"

namespace marvolin {

namespace {

constexpr double kSamePlace = 2;  // pixels: on a scaled display a pointer stands between whole ones

double Distance(ScreenPoint a, ScreenPoint b) { return std::abs(a.X - b.X) + std::abs(a.Y - b.Y); }
bool Near(ScreenPoint a, ScreenPoint b) { return Distance(a, b) < kSamePlace; }

ScreenPoint CursorPos(const Session& s) {
    const PixelPoint place = s.World.Desk.CursorPos();
    return {static_cast<double>(place.X), static_cast<double>(place.Y)};
}

/// The two balls of the mix pad take both buttons, and hide under no other ball.
bool IsPadBall(int ball) { return ball == kPadBall || ball == kTwistBall; }

/// Left and top of a ball on the screen; of `TwistBall` as if its line were on the pad: only its way counts.
ScreenPoint Corner(const Session& s, int ball) {
    Desktop& desk = s.World.Desk;
    const PixelPoint origin = desk.SurfaceOrigin(IsPadBall(ball) ? Surface::Pad : Surface::Map);
    const BallPoint place = BallPlace(s, ball);
    return {place.X / desk.TwipsPerPixelX() + origin.X, place.Y / desk.TwipsPerPixelY() + origin.Y};
}

/// The gesture of the ball's surface; true when a drag and drop begins.
bool Forward(Session& s, int ball, Phase what, std::int16_t button, ScreenPoint place) {
    const double x = place.X * s.World.Desk.TwipsPerPixelX();
    const double y = place.Y * s.World.Desk.TwipsPerPixelY();
    if (!IsPadBall(ball)) return PosGesture(s, what, ball, button, x, y);
    if (ball == kTwistBall) {
        TwistBallGesture(s, what, button, x);
    } else {
        PadBallGesture(s, what, button, x, y);
    }
    return false;
}

/// Whether this button holds the ball, and its double click centres it. On the map two right clicks are two fades, or
/// two turns of the listener.
bool TakesBall(int ball, std::int16_t button) {
    return button == kLeftButton || (IsPadBall(ball) && button == kRightButton);
}

/// Whether `press` may be the second one of a double click on this ball.
bool BeganWith(const BallHold& hold, const BallEvent& press, DoubleClickLimits limits) {
    return press.Button == hold.FirstButton && press.Time - hold.FirstTime < limits.Interval;
}

/// The ball that was clicked where this press comes: the first press may have put the pointer under a ball that lies
/// above. A click may be over before the pointer is put; then the hand was not seen there, and `Put` stands.
int ClickedBall(const Session& s, int ball, const BallEvent& press, DoubleClickLimits limits) {
    if (IsPadBall(ball)) return ball;
    for (int other = 0; other <= kListenerBall; ++other) {
        const BallHold& hold = s.BallHolds[other];
        if (other == ball || !BeganWith(hold, press, limits)) continue;
        if (Near(hold.Seen, press.Pointer) || (hold.Put && Near(*hold.Put, press.Pointer))) return other;
    }
    return ball;
}

/// Records where the ball was pressed. `before` is the pointer's position before the gesture moved it.
void TakeBall(Session& s, int ball, ScreenPoint pointer, ScreenPoint before) {
    BallHold& hold = s.BallHolds[ball];
    hold.Taken = Corner(s, ball);
    hold.From = hold.Seen = pointer;
    hold.Put.reset();
    const ScreenPoint now = CursorPos(s);
    if (s.CursorFree || (now.X == before.X && now.Y == before.Y)) return;
    // A quick hand may already have gone on from there.
    const ScreenPoint aim{std::nearbyint(hold.Taken.X + kBallPutAt), std::nearbyint(hold.Taken.Y + kBallPutAt)};
    hold.Put = Near(now, aim) ? now : aim;
}

std::optional<DragSource> Press(Session& s, int ball, const BallEvent& press, DoubleClickLimits limits) {
    const int clicked = ClickedBall(s, ball, press, limits);
    BallHold& first = s.BallHolds[clicked];
    const bool second = BeganWith(first, press, limits);
    first.FirstButton = second ? static_cast<std::int16_t>(kNoButton) : press.Button;
    first.FirstTime = second ? 0 : press.Time;

    const bool centres = second && TakesBall(ball, press.Button);
    s.BallHolds[ball].Centred = centres;
    if (centres) {
        BallCentre(s, clicked);
        return std::nullopt;
    }
    const ScreenPoint before = CursorPos(s);
    const bool drags = Forward(s, ball, Phase::Down, press.Button, {kBallHeldAt, press.Pointer.Y});
    TakeBall(s, ball, press.Pointer, before);
    if (!drags) return std::nullopt;
    return DragSource{drags::kPosBall, static_cast<Row>(ball), kFadeTag};
}

/// How far the hand has gone since the press. Events sent before the pointer was moved continue from the previous
/// place; one that is nearer to where it was put, or reports where the pointer is now, comes after that.
ScreenPoint WayOfTheHand(const Session& s, BallHold& hold, ScreenPoint pointer, DoubleClickLimits limits) {
    if (hold.Put && (Near(pointer, CursorPos(s)) || Distance(pointer, *hold.Put) < Distance(pointer, hold.Seen))) {
        hold.From = Near(pointer, *hold.Put) ? pointer : *hold.Put;
        hold.Put.reset();
    }
    hold.Seen = pointer;
    const ScreenPoint way{pointer.X - hold.From.X, pointer.Y - hold.From.Y};
    if (std::abs(way.X) > limits.Distance || std::abs(way.Y) > limits.Distance) {
        hold.FirstButton = kNoButton;
        hold.FirstTime = 0;
    }
    return way;
}

void MoveOrRelease(Session& s, int ball, const BallEvent& event, DoubleClickLimits limits) {
    BallHold& hold = s.BallHolds[ball];
    if (hold.Centred) {
        hold.Centred = event.What == Phase::Move && event.Held;
        return;
    }
    if (s.CursorFree) {
        // No ball is held: the turn of the listener reads plain distances on the screen. A button that is still down
        // after the window has lost the pointer, or after another button has ended its drag, drags nothing.
        const bool idle = event.What == Phase::Move && (!event.Held || TakesBall(ball, event.Button));
        Forward(s, ball, event.What, idle ? static_cast<std::int16_t>(kNoButton) : event.Button, event.Pointer);
        return;
    }
    // The place within the ball, which itself moves, as if the ball had been taken at the point at which it is held.
    const ScreenPoint way = WayOfTheHand(s, hold, event.Pointer, limits);
    const ScreenPoint corner = Corner(s, ball);
    Forward(s, ball, event.What, event.Button,
            {way.X + hold.Taken.X - corner.X + kBallHeldAt, way.Y + hold.Taken.Y - corner.Y + kBallHeldAt});
}

}  // namespace

std::optional<DragSource> BallGesture(Session& s, int ball, const BallEvent& event, DoubleClickLimits limits) {
    if (event.What == Phase::Down) return Press(s, ball, event, limits);
    MoveOrRelease(s, ball, event, limits);
    return std::nullopt;
}

BallPoint BallPlace(const Session& s, int ball) {
    if (ball == kTwistBall) return {TwistBallLeft(s), 0};
    return ball == kPadBall ? PadBallPlace(s) : MapBallPlace(s, ball);
}

void BallCentre(Session& s, int ball) {
    if (ball == kPadBall) {
        PadBall_DblClick(s);
    } else if (ball == kTwistBall) {
        PadTwistCentre(s);
    } else {
        PosBall_DblClick(s, ball);
    }
}

void BallStep(Session& s, int ball, int right, int down, double pixels) {
    const double x = right * pixels * s.World.Desk.TwipsPerPixelX();
    const double y = down * pixels * s.World.Desk.TwipsPerPixelY();
    if (ball == kPadBall) {
        PadMove(s, x, y, s.Geometry.PadHalfX, {.Absolute = false, .Apply = true});
    } else if (ball == kTwistBall) {
        PadTwist(s, x - y, s.Geometry.PadHalfX, {.Absolute = false, .Apply = true});
    } else {
        MapStep(s, ball, x, y);
    }
}

void ListenerStep(Session& s, int degrees) { RotateListener(s, s.ListenerAngle + degrees, Apply::Yes); }

}  // namespace marvolin
