#pragma once
/// \file
/// The one audio device of the session.

#include "core/session.h"

namespace marvolin {

/// Lists the drivers of the service in `Drivers`, and "No Sound" behind them. Called once, before any device is chosen.
void InitAudioDriversList(Session& s);

/// The player (or the start) chose `entry` of `cboDrivers`: the device is changed, the session kept across the change
/// by way of a temporary file while `DeviceSwapArmed`.
void cboDrivers_Click(Session& s, std::int16_t entry);

/// Opens the device that `Driver` names. "No Sound" opens none, without a word. A failure is shown as "creating sound
/// device"; `DSReady` then says how far it got.
void InitDirectSound(Session& s);

/// Empties all LoopTracks and closes the device.
void UnInitDirectSound(Session& s);

}  // namespace marvolin
