#include "performance/map/map_gesture.h"

#include "core/routines.h"
#include "parameters/position.h"
#include "parameters/scroll_events.h"
#include "performance/ball_drag.h"
#include "performance/map/listener.h"
#include "performance/map/map_events.h"
#include "performance/map/sound_map.h"

namespace marvolin {

namespace {

/// Boxes "Update 3d position while moving:".
enum UpdateBox { kUpdateListener = 0, kUpdateLoop = 1, kUpdateRotation = 2 };

constexpr double kDegreesATwip = 0.3;

void TakeBall(Session& s, int ball) {
    TakePointer(s, Surface::Map, MapBallPlace(s, ball));
    const BallPoint place = MapUnits(s, ball);
    ScrollCounter(s, kMapScroll).Reset(place.X, place.Y);
    if (ball == kListenerBall) ScrollCounter(s, kJoystickScroll).Reset(place.X, place.Y);
}

void TakeHeading(Session& s, double y) {
    s.Drag.DragOrigin = static_cast<float>(y);
    s.Drag.DragStartValue = s.ListenerAngle;
    s.Drag.Dragging = True;
}

void DragBall(Session& s, int ball, double x, double y, bool apply) {
    const BallPoint move = BallMove(s, x, y);
    PosScaled(s, move.X, move.Y, ball, s.Geometry.PadHalfX, {.Absolute = false, .Apply = apply, .Quiet = true});
}

void EndBallDrag(Session& s, int ball, double x, double y) {
    ReleasePointer(s);
    DragBall(s, ball, x, y, true);
    const BallPoint place = MapUnits(s, ball);
    PosChangeEvent(s, ball, place.X, place.Y);
    PosScrollEvent(s, ball, place.X, place.Y, Force::Yes, kMapScroll);
}

void EndTurn(Session& s) {
    RotateListener(s, s.ListenerAngle, Apply::Yes);
    s.Drag.Dragging = False;
}

/// The press of a second button ends what the first one holds: the ball stays where the hand has brought it.
void EndOpenGesture(Session& s, int ball) {
    if (!s.CursorFree) {
        EndBallDrag(s, ball, kBallHeldAt * s.World.Desk.TwipsPerPixelX(), kBallHeldAt * s.World.Desk.TwipsPerPixelY());
    } else if (ball == kListenerBall && s.Drag.Dragging != False) {
        EndTurn(s);
    }
}

bool Down(Session& s, int ball, std::int16_t button, double y) {
    EndOpenGesture(s, ball);
    if (button == kLeftButton) TakeBall(s, ball);
    if (button != kRightButton) return false;
    if (ball != kListenerBall) return true;
    TakeHeading(s, y);
    return false;
}

void Move(Session& s, int ball, std::int16_t button, double x, double y) {
    if (button == kLeftButton) {
        DragBall(s, ball, x, y, s.PositionUpdate[ball == kListenerBall ? kUpdateListener : kUpdateLoop]);
        const BallPoint place = MapUnits(s, ball);
        PosScrollEvent(s, ball, place.X, place.Y, Force::No, kMapScroll);
    } else if (s.Drag.Dragging != False) {
        const double angle = s.Drag.DragStartValue - Int((y - s.Drag.DragOrigin) * kDegreesATwip);
        RotateListener(s, ToI4(ClampVar(angle, -32000, 32000)),
                       s.PositionUpdate[kUpdateRotation] ? Apply::Yes : Apply::No);
    }
}

void Up(Session& s, int ball, double x, double y) {
    if (!s.CursorFree) {
        EndBallDrag(s, ball, x, y);
    } else if (s.Drag.Dragging != False) {
        EndTurn(s);
    }
}

}  // namespace

void MapStep(Session& s, int ball, double x, double y) {
    const BallPoint before = MapUnits(s, ball);
    ScrollCounter(s, kMapScroll).Reset(before.X, before.Y);
    PosMove(s, x, y, ball, {.Absolute = false, .Apply = true, .Quiet = true});
    const BallPoint place = MapUnits(s, ball);
    PosChangeEvent(s, ball, place.X, place.Y);
    PosScrollEvent(s, ball, place.X, place.Y, Force::Yes, kMapScroll);
}

bool PosGesture(Session& s, Phase phase, int ball, std::int16_t button, double x, double y) {
    switch (phase) {
        case Phase::Down:
            return Down(s, ball, button, y);
        case Phase::Move:
            Move(s, ball, button, x, y);
            return false;
        case Phase::Up:
            Up(s, ball, x, y);
            return false;
    }
    return false;
}

}  // namespace marvolin
