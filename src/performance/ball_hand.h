#pragma once
/// \file
/// The hand on the balls of pad and map: which presses are a double click, and how far a hand that holds a ball has
/// gone.
///
/// A press puts the pointer on the middle of the ball where the system allows it. The hand then counts from there, else
/// from where it pressed. Events from before the pointer was put may arrive after it and still report the old place.
/// The second press of a double click may fall far from the first, or on another ball that lies over the one clicked.

#include <cstdint>
#include <optional>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

/// Number of the pad's ball, behind those of the map: 0..3 the LoopTracks, 4 the listener.
inline constexpr int kPadBall = 5;
/// Number of `TwistBall`.
inline constexpr int kTwistBall = 6;

/// A press, move or release on a ball as the window saw it.
struct BallEvent {
    Phase What = Phase::Move;
    std::int16_t Button = kNoButton;  ///< that of a press or release; in a move all that are held
    ScreenPoint Pointer;              ///< where it happened
    std::uint64_t Time = 0;           ///< ms; of a press
    bool Held = false;                ///< a button was pressed on this ball and the window still follows it
};

/// What the desktop takes for a double click.
struct DoubleClickLimits {
    std::uint64_t Interval = 0;  ///< ms: the second press comes sooner after the first
    double Distance = 0;         ///< pixels on an axis: a hand that goes farther drags
};

/// The pointer on `ball`. A double click puts the ball that was clicked on the centre, where it stays until the button
/// is released; everything else is the gesture of pad or map. Returns what the window is to drag when a drag and drop
/// begins.
std::optional<DragSource> BallGesture(Session& s, int ball, const BallEvent& event, DoubleClickLimits limits);

/// Left and top of a ball on its surface, twips.
BallPoint BallPlace(const Session& s, int ball);
/// Puts the ball on the centre, as a double click does.
void BallCentre(Session& s, int ball);
/// A step of a ball by key, pixels; a fine one is one pixel.
inline constexpr double kBallStep = 4;
/// Moves the ball by steps of `pixels`, to the right and down positive, heard at once. On the map the script gets what
/// a drag sends. `TwistBall` goes up to the right.
void BallStep(Session& s, int ball, int right, int down, double pixels = kBallStep);
/// Turns the listener by `degrees`, heard at once.
void ListenerStep(Session& s, int degrees);

}  // namespace marvolin
