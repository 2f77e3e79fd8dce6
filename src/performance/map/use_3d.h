#pragma once
/// \file
/// 3D sound, on or off.

#include "core/session.h"

namespace marvolin {

/// Whether 3D sound is in use.
bool GetUse3D(const Session& s);
/// Switches 3D sound: the audio device is taken down and opened again, since buffers with 3D and with pan differ. All
/// LoopTracks are empty afterwards. Does nothing when the state does not change.
void SetUse3D(Session& s, bool on);

/// Switches 3D sound and carries the instrument across (`CarryAcross`), for the player and for a session file. When
/// the session cannot be kept, the state stays as it is. Does nothing when the state does not change.
void ChangeUse3D(Session& s, bool on);

/// The player switched the box `Enable3d`. Does nothing while `MapEnable` sets the box.
void Enable3d_Click(Session& s, bool on);

/// Enables or disables the controls of the map, and sets the box `Enable3d` to match without running its click.
void MapEnable(Session& s, bool on);

}  // namespace marvolin
