#pragma once
/// \file
/// The mix pad: one ball on a square, turned into one value for each of the four channels.
///
/// Positions are twips relative to the pad's centre, right and down positive.

#include "core/session.h"

namespace marvolin {

/// Computes `Geometry` from the inner size of the sound map in twips, which is also that of the pad. Called once at
/// start, before the pad or the map is first used.
void PadGeometryInit(Session& s, double innerWidth, double innerHeight);

/// Turns a position into the levels of channels 1..4 under `padType`.
///
/// `x`, `y` are limited in place to the pad. Without `absolute` they are a move from where the ball stands. With
/// `apply` all LoopTracks take the new levels; with `readOut` the status line shows them. Without `twoAxes` only `x`
/// counts: a cross-fade from the left pair of channels to the right pair. A type outside 0..4 is a `SubscriptError`.
void PadMix(Session& s, double& x, double& y, std::int16_t padType, bool absolute, bool apply, bool readOut,
            bool twoAxes);

/// Scales a position from any unit (`scale` is the edge) and mixes it under the current type, then places the ball.
void PadMove(Session& s, double x, double y, double scale, bool absolute, bool apply);

/// The ball to the centre, heard at once.
void PadRecentre(Session& s);
/// Double click on the ball.
void PadBall_DblClick(Session& s);

/// Puts `TwistBall` on `position` of its line, twips from the middle.
void PadTwistMove(Session& s, std::int16_t position);

/// Left and top of `PadBall` on the pad, twips.
BallPoint PadBallPlace(const Session& s);
/// Left of `TwistBall` on its line, twips.
double TwistBallLeft(const Session& s);

}  // namespace marvolin
