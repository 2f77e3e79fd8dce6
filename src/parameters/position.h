#pragma once
/// \file
/// Places on the sound map and the roll-off at their lowest level: the record, the ball and the call to the service.

#include "core/session.h"

namespace marvolin {

/// Number of the listener's ball, behind those of the LoopTracks.
inline constexpr int kListenerBall = 4;

/// The flags of `PositionSet`.
struct PositionFlags {
    bool Apply = true;       ///< the sound service gets the place, while `Use3D`
    bool Refresh = true;     ///< the ball is drawn at its new place
    bool Quiet = false;      ///< passed along, read by nothing
    bool StoreBall = false;  ///< `BallPos` follows; otherwise the caller keeps it
};

/// Stores the place of a ball (0..3 LoopTracks, 4 the listener) in map units and passes it on as `flags` say. Raises
/// `SoundError` when the service refuses; the place is then not stored.
void PositionSet(Session& s, int ball, float x, float y, PositionFlags flags);
/// The same for a gesture, a wander or a file. False when the service refuses, which is told as "placing sound"; the
/// ball then stays where it was, and a wander goes off.
bool TryPositionSet(Session& s, int ball, float x, float y, PositionFlags flags);
/// Tells the service the listener's heading while 3D sound is in use; the number of degrees goes into sine and cosine
/// as it stands. A failure of the service rises.
void SendHeading(Session& s, std::int32_t degrees);
/// Tells the listener of a device that was opened just now where its ball stands and whither it looks. Errors: "placing
/// sound", "turning listener".
void ListenerRestore(Session& s);
/// Places the ball from its map units; only while the 3D state is on.
void PositionRefresh(Session& s, int ball);
/// Left and top of a ball on the map, in twips, from its map units.
BallPoint MapBallPlace(const Session& s, int ball);
/// Gives a LoopTrack's ball the highlighted face and the front, in place of the one that had it, and the listener's the
/// front; only while the map's tab is open. After the listener's turn the former LoopTrack keeps its face.
void PosSetHighlight(Session& s, int ball);

/// Sets the listener's roll-off factor while `Use3D`. Errors: "setting roll off".
void SetRollOff(Session& s, float value);
/// The roll-off factor in use.
float GetRoll(const Session& s);
/// Makes the gauge `RollOff` show the factor in use, while `Enable3d` is on.
void RefreshRollOff(Session& s);

}  // namespace marvolin
