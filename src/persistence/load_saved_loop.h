#pragma once

#include <string>

#include "audio/sample_loading.h"
#include "core/session.h"
#include "persistence/loop_record.h"

namespace marvolin {

/// What there is to know of a stored LoopTrack beside itself.
struct SavedFrom {
    std::int16_t NewUse3d = False;  ///< 3D state under which it was stored
    bool ForPackage = false;        ///< its sample lies in `OpenPath`, else where it lay when it was stored
    std::string OpenPath;           ///< folder of the package, with its separator
    SampleOrigin Origin = SampleOrigin::Session;
};

/// Puts a stored LoopTrack back into its slot, piece by piece as `loadSwitch` says, through the setters of the
/// player's gestures; the patterns, `Swing` and `StepDuration` are copied as they stand.
///
/// Pan and position come back only under the 3D state in which they were stored. Values that no setter limits and that
/// other routines cannot work with are kept out: `NSteps` is limited to 0..31, an unknown `PlayMode` and a position
/// that is no number are left alone. True when a sample was asked for, whether or not it came up. A slot of 4 or more
/// is left alone.
bool LoadSavedLoop(Session& s, const SavedLoop& saved, const clsSwitchRecord& loadSwitch, const SavedFrom& from);

/// True when the slot of `saved` (0..3) holds the sample that it was stored with: after a load that found no sample, it
/// may still hold the one of before.
bool HoldsSavedSample(const Session& s, const SavedLoop& saved, const SavedFrom& from);

}  // namespace marvolin
