#include "performance/ball_drag.h"

#include "core/routines.h"

namespace marvolin {

void TakePointer(Session& s, Surface surface, BallPoint place) {
    Desktop& desk = s.World.Desk;
    const double pixelX = desk.TwipsPerPixelX();
    const double pixelY = desk.TwipsPerPixelY();
    s.CursorFree = false;
    const PixelPoint origin = desk.SurfaceOrigin(surface);
    PixelRect inside;
    inside.Left = origin.X + 4;
    inside.Top = origin.Y + 4;
    inside.Right = ToI4(s.Geometry.InnerWidth / pixelX) + inside.Left - 8;
    inside.Bottom = ToI4(s.Geometry.InnerHeight / pixelY) + inside.Top - 8;
    desk.SetCursorPos({ToI4(place.X / pixelX + origin.X + kBallPutAt), ToI4(place.Y / pixelY + origin.Y + kBallPutAt)});
    desk.ClipCursor(inside);
}

void ReleasePointer(Session& s) {
    s.World.Desk.ReleaseCursor();
    s.CursorFree = true;
}

BallPoint BallMove(Session& s, double x, double y) {
    return {x - kBallHeldAt * s.World.Desk.TwipsPerPixelX(), y - kBallHeldAt * s.World.Desk.TwipsPerPixelY()};
}

}  // namespace marvolin
