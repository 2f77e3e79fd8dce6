#pragma once
/// \file
/// The twist: a second ball, on a line, that cross-fades the channels at its two ends under another pad type than the
/// one in hand. To the left channels 1 and 4 come to the front, to the right 2 and 3.

#include "core/session.h"
#include "performance/move_flags.h"

namespace marvolin {

/// The pad type that the twist moves under the current type; -1 while `TwistBall` is hidden.
std::int16_t PadTwistTarget(const Session& s);

/// Scales a position on the line from any unit (`scale` is the end of the line in it), mixes it under the type that the
/// twist moves, shows the levels and places `TwistBall`. The ball of that type stays where it is. Nothing while
/// `TwistBall` is hidden.
void PadTwist(Session& s, double x, double scale, MoveFlags flags);

/// Brings `TwistBall` to 0, heard at once. Double click on the ball, "Twist Centre" of the joystick.
void PadTwistCentre(Session& s);

/// Before the pad type changes to `entry`: what the twist has moved takes its centre values, unless `entry` is that
/// type itself, whose levels stay until its ball moves. Nothing while `TwistBall` is at 0.
void PadTwistLeave(Session& s, std::int16_t entry);

/// The pointer on `TwistBall`. `x` in twips from the ball's own left. The left and right button do the same, others
/// nothing. The first release ends the drag, a second one does nothing. The pointer is not confined to the line: it is
/// followed wherever it goes.
void TwistBallGesture(Session& s, Phase phase, std::int16_t button, double x);

}  // namespace marvolin
