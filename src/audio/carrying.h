#pragma once
/// \file
/// Carrying the instrument across a change that takes the audio device down: another device, "No Sound", 3D sound on or
/// off, also by a session file.

#include <functional>

#include "core/session.h"

namespace marvolin {

/// Makes a change that empties the LoopTracks, and leaves the instrument as it was. The whole session is saved to a
/// temporary file, the change is made, and the LoopTracks are loaded from the file, which is then deleted. What a file
/// does not keep is carried beside it: pan, pan patterns and places across 3D, what sounds and where, pauses, fades,
/// steps, reversals, the order of thinning, the histories. Nothing but the LoopTracks is loaded, since nothing else is
/// lost by the change; pad, channels, clips, bins and options stay as they are.
///
/// While no device is open after the change, the LoopTracks are empty, and each row's sample waits in `InHand` for the
/// next change that opens one. So does the sample of a single row that does not load, because the device refuses it or
/// its file is away, until the row gets another sample or is emptied.
///
/// False when the session cannot be kept; the change is then not made. A box says so when no temporary file can be
/// made; a failed save shows its own box, and the status line says that nothing has changed. When the load fails, its
/// own report is followed by one with the path of the file, which stays, under a name
/// ending in ".mvn" when that is free. When the file is gone, a report says that.
bool CarryAcross(Session& s, const std::function<void()>& change);

}  // namespace marvolin
