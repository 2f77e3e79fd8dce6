#pragma once
/// \file
/// The pointer while it drags a ball of pad or map.

#include "core/session.h"

namespace marvolin {

/// Pixels from a ball's left and top, on both axes, to the point at which a gesture holds it ...
inline constexpr double kBallHeldAt = 15;
/// ... and to where the pointer is put.
inline constexpr double kBallPutAt = 16;

/// Puts the pointer on the ball and keeps it on the surface, so that a fast drag does not leave the ball behind.
/// `place` is left and top of the ball on the surface in twips.
void TakePointer(Session& s, Surface surface, BallPoint place);
/// Lets the pointer leave the surface again.
void ReleasePointer(Session& s);

/// The distance, in twips, from the point at which the ball is held to a position within the ball.
BallPoint BallMove(Session& s, double x, double y);

}  // namespace marvolin
