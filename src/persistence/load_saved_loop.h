#pragma once

#include <string>

#include "audio/sample_loading.h"
#include "core/session.h"
#include "persistence/loop_record.h"

namespace marvolin {

/// Where a stored LoopTrack comes from.
struct SavedFrom {
    std::int16_t NewUse3d = False;  ///< 3D state under which it was stored
    bool ForPackage = false;        ///< the sample is in `OpenPath`; otherwise at its stored path
    std::string OpenPath;           ///< folder of the package, with its separator
    SampleOrigin Origin = SampleOrigin::Session;
    std::string Found = "";  ///< whole path of a sample that was found elsewhere; "" for the place where it should be
};

/// Restores a stored LoopTrack in its slot, as far as `loadSwitch` selects, through the setters that the player's
/// gestures use. Only patterns, `Swing` and `StepDuration` are copied as they are.
///
/// Pan and position are restored only under the 3D state in which they were stored. Values that no setter limits and
/// with which other routines could not work are not stored: `NSteps` is limited to 0..31, an unknown `PlayMode` and a
/// position that is no number are ignored. True when a sample was to be loaded, whether or not that succeeded. A slot
/// of 4 or more is ignored.
bool LoadSavedLoop(Session& s, const SavedLoop& saved, const clsSwitchRecord& loadSwitch, const SavedFrom& from);

/// Where the sample of a stored LoopTrack lies; "" when its path names no file.
std::string SavedSample(const SavedLoop& saved, const SavedFrom& from);

/// True when the slot of `saved` (0..3) holds the sample with which it was stored. After a load that did not find it,
/// the slot still holds the previous one. A sample that waits in `InHand`, since no device is open or the open one has
/// refused it, counts.
bool HoldsSavedSample(const Session& s, const SavedLoop& saved, const SavedFrom& from);

/// Starts a LoopTrack (0..3) that `LoadSavedLoop` has filled. One whose sample waits sounds with the next device.
void PlaySavedLoop(Session& s, Row row);

}  // namespace marvolin
