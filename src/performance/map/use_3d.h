#pragma once
/// \file
/// 3D sound, on or off.

#include "core/session.h"

namespace marvolin {

/// Whether 3D sound is in use.
bool GetUse3D(const Session& s);
/// Switches 3D sound: the audio device is taken down and set up afresh, since buffers with 3D and with pan differ. All
/// LoopTracks are empty afterwards. Does nothing when the state does not change.
void SetUse3D(Session& s, bool on);

/// The player switched the box `Enable3d`: the whole session is saved to a temporary file before the change and
/// loaded from it afterwards. Without a temporary file the samples are lost.
void Enable3d_Click(Session& s, bool on);

/// Enables or disables the controls of the map, and sets the box `Enable3d` to match without running its click.
void MapEnable(Session& s, bool on);

}  // namespace marvolin
