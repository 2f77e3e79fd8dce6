#pragma once
/// \file
/// 3D sound, on or off.

#include "core/session.h"

namespace marvolin {

bool GetUse3D(const Session& s);
/// Switches 3D sound: the audio device is taken down and set up afresh, since buffers with 3D and with pan differ. All
/// LoopTracks are empty afterwards. Nothing when the state is so already.
void SetUse3D(Session& s, bool on);

/// The player switched the box `Enable3d`: the whole session is kept across the change by way of a temporary file. When
/// none can be had, the samples are lost.
void Enable3d_Click(Session& s, bool on);

/// Enables or disables the controls of the map, and sets the box `Enable3d` to match, without its click.
void MapEnable(Session& s, bool on);

}  // namespace marvolin
