#pragma once
/// \file
/// The mix pad: one ball on a square, turned into one value for each of the four channels.
///
/// Positions are twips relative to the pad's centre, right and down positive.

#include "core/session.h"
#include "performance/move_flags.h"

namespace marvolin {

/// The curves of a pad type: the keys of the list `PadFunction`. Any other number is as the first.
enum PadCurveKey : std::int16_t {
    kFadeDiagonal = 1,         ///< the weight is the distance from the corner, along the diagonal
    kFadeAfterCentre = 2,      ///< nothing until the ball has passed the centre
    kFadeAfterSideCentre = 3,  ///< nothing until it has passed the middle of a side; all at twice that distance
};

/// Computes `Geometry` from the inner size of pad and map, which is the same, in twips. Called once at start, before
/// either is used.
void PadGeometryInit(Session& s, double innerWidth, double innerHeight);

/// The flags of `PadMix`.
struct PadMixFlags {
    bool Absolute = false;  ///< the position is the ball's new place; otherwise it is a distance from where it stands
    bool Apply = true;      ///< all LoopTracks take the new levels at once
    bool ReadOut = true;    ///< the status line shows the levels
    bool TwoAxes = true;    ///< false: only `x` counts, a cross-fade from the left pair of channels to the right pair
    bool KeepBall = false;  ///< the type's ball stays where it is
};

/// Turns a position in twips into the levels of channels 1..4 under `padType`. `x`, `y` are limited in place to the
/// pad. Raises `SubscriptError` for a type outside 0..4.
void PadMix(Session& s, double& x, double& y, std::int16_t padType, PadMixFlags flags);

/// Scales a position from any unit (`scale` is the pad's edge in it), mixes it under the current type, shows the levels
/// and places the ball.
void PadMove(Session& s, double x, double y, double scale, MoveFlags flags);

/// Moves the ball to the centre and applies it.
void PadRecentre(Session& s);
/// Double click on the ball.
void PadBall_DblClick(Session& s);

/// Puts `TwistBall` at `position` on its line, twips from the middle. Nothing else: `PadTwist` is what is heard.
void PadTwistMove(Session& s, std::int16_t position);

/// Left and top of `PadBall` on the pad, twips.
BallPoint PadBallPlace(const Session& s);
/// Left of `TwistBall` on its line, twips.
double TwistBallLeft(const Session& s);

}  // namespace marvolin
