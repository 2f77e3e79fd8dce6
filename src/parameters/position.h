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

/// Stores the place of a ball (0..3 LoopTracks, 4 the listener) in map units and passes it on as the `flags` say.
/// Raises `SoundError` when the service refuses; the place is then not stored.
void PositionSet(Session& s, int ball, float x, float y, PositionFlags flags);
/// The same for a gesture, a wander or a file. False when the service refuses, which is shown as "placing sound"; the
/// place is then unchanged, and a wander is switched off.
bool TryPositionSet(Session& s, int ball, float x, float y, PositionFlags flags);
/// Sends the listener's heading to the service while 3D sound is in use. The number of degrees is used as radians, so
/// what is heard is not the angle shown. Raises `SoundError`.
void SendHeading(Session& s, std::int32_t degrees);
/// Sends the listener's position and heading to a newly opened device. Errors: "placing sound", "turning listener".
void ListenerRestore(Session& s);
/// Places the ball from its map units, only while the 3D state is on; what is written beside the map follows in any
/// case.
void PositionRefresh(Session& s, int ball);
/// Place of a ball in map units.
BallPoint MapUnits(const Session& s, int ball);
/// Map units as twips. Both axes use the half width, also on a map that is not square.
double MapTwips(const Session& s, double mapUnits);
/// Left and top of a ball on the map, in twips, from its map units.
BallPoint MapBallPlace(const Session& s, int ball);
/// Moves the highlighted face to a LoopTrack's ball and brings the ball to the front; the listener's ball is only
/// brought to the front. Nothing happens unless the map's tab is open. A LoopTrack that is highlighted when the
/// listener comes to the front keeps its face, also after another one gets it.
void PosSetHighlight(Session& s, int ball);

/// Sets the listener's roll-off factor while `Use3D`. Errors: "setting roll off".
void SetRollOff(Session& s, float value);
/// The roll-off factor in use.
float GetRoll(const Session& s);
/// Sets the gauge `RollOff` to the factor in use, while 3D sound is in use.
void RefreshRollOff(Session& s);

}  // namespace marvolin
