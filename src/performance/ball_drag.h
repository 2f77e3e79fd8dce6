#pragma once
/// \file
/// The pointer while it drags a ball of pad or map.

#include "core/session.h"

namespace marvolin {

/// Puts the pointer on the ball and keeps it on the surface, so that a fast drag does not leave the ball behind.
/// `place` is left and top of the ball on the surface in twips.
void TakePointer(Session& s, Surface surface, BallPoint place);
/// Lets the pointer go.
void ReleasePointer(Session& s);

/// A position within the ball, in twips, as a move from the point by which it is held.
BallPoint BallMove(Session& s, double x, double y);

}  // namespace marvolin
