#include "performance/pad/pad_gesture.h"

#include "performance/ball_drag.h"
#include "performance/pad/mix_pad.h"

namespace marvolin {

namespace {

void MoveBall(Session& s, std::int16_t button, double x, double y) {
    if (button != kLeftButton && button != kRightButton) return;
    const BallPoint move = BallMove(s, x, y);
    PadMove(s, move.X, move.Y, s.Geometry.PadHalfX, {.Absolute = false, .Apply = true});
}

}  // namespace

void PadBallGesture(Session& s, Phase phase, std::int16_t button, double x, double y) {
    switch (phase) {
        case Phase::Down:
            if (button == kLeftButton || button == kRightButton) TakePointer(s, Surface::Pad, PadBallPlace(s));
            break;
        case Phase::Move:
            MoveBall(s, button, x, y);
            break;
        case Phase::Up:
            if (s.CursorFree) break;
            ReleasePointer(s);
            MoveBall(s, button, x, y);
            break;
    }
}

}  // namespace marvolin
