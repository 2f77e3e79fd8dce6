#include "performance/pad/pad_twist.h"

#include "core/routines.h"
#include "performance/ball_drag.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"

namespace marvolin {

namespace {

void MixTwist(Session& s, std::int16_t target, double x, PadMixFlags flags) {
    if (s.Geometry.PadHalfX <= 0) return;
    double y = 0;
    flags.Absolute = flags.KeepBall = true;
    flags.TwoAxes = false;
    PadMix(s, x, y, target, flags);
}

void MoveTwistBall(Session& s, std::int16_t button, double x) {
    if (button != kLeftButton && button != kRightButton) return;
    PadTwist(s, BallMove(s, x, 0).X, s.Geometry.PadHalfX, {.Absolute = false, .Apply = true});
}

}  // namespace

std::int16_t PadTwistTarget(const Session& s) {
    const PadRecord& pad = s.PadTable[s.PadTypeIndex];
    return pad.TwistIcon == kNoTwistIcon ? std::int16_t{-1} : pad.TwistTarget;
}

void PadTwist(Session& s, double x, double scale, MoveFlags flags) {
    const std::int16_t target = PadTwistTarget(s);
    const double half = s.Geometry.PadHalfX;
    if (target < 0) return;
    double place = x * half / scale;
    if (!flags.Absolute) place += s.TwistPosition;
    ClampR8(place, -half, half);
    const std::int16_t position = ToI2(place);
    MixTwist(s, target, position, {.Apply = flags.Apply, .ReadOut = !flags.Quiet});
    PadTwistMove(s, position);
}

void PadTwistCentre(Session& s) { PadTwist(s, 0, 500.0, {.Absolute = true, .Apply = true}); }

void PadTwistLeave(Session& s, std::int16_t entry) {
    const std::int16_t target = PadTwistTarget(s);
    if (s.TwistPosition == 0 || target < 0 || target == entry) return;
    MixTwist(s, target, 0, {.Apply = true, .ReadOut = false});
}

void TwistBallGesture(Session& s, Phase phase, std::int16_t button, double x) {
    switch (phase) {
        case Phase::Down:
            if (button == kLeftButton || button == kRightButton) s.CursorFree = false;
            break;
        case Phase::Move:
            MoveTwistBall(s, button, x);
            break;
        case Phase::Up:
            if (s.CursorFree) break;
            s.CursorFree = true;
            MoveTwistBall(s, button, x);
            break;
    }
}

}  // namespace marvolin
