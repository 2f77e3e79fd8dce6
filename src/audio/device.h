#pragma once
/// \file
/// The one audio device of the session.

#include "core/session.h"

namespace marvolin {

/// Fills `Drivers` with the drivers of the service, followed by "No Sound". Called once, before any device is chosen.
void InitAudioDriversList(Session& s);

/// Changes to the device of `entry` in `cboDrivers`, which the player or the start has chosen. While `DeviceSwapArmed`
/// the instrument is carried across the change (`CarryAcross`); when that cannot be done, the old device stays, and the
/// list shows its previous entry again.
void cboDrivers_Click(Session& s, std::int16_t entry);

/// How it went with an output that was to be opened again.
enum class TakenOutput : std::uint8_t {
    Taken,
    Refused,  ///< the service cannot open it; nothing has changed
    NotKept,  ///< the instrument cannot be carried across; nothing has changed, and the player knows
};

/// Changes to the device of `entry`, which has come back, and carries the instrument there. Other than a choice of the
/// player it opens the device first, so that one that refuses costs nothing, and no box says so.
TakenOutput TakeOutput(Session& s, std::int16_t entry);

/// Opens the device that `Driver` names. "No Sound" opens none and shows nothing. A failure is shown as "creating sound
/// device"; `DSReady` is then true if the device can be used all the same.
void InitDirectSound(Session& s);

/// Empties all LoopTracks and closes the device.
void UnInitDirectSound(Session& s);

}  // namespace marvolin
