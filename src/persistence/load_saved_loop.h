#pragma once

#include <string>

#include "core/session.h"
#include "persistence/loop_record.h"

namespace marvolin {

/// Puts a stored LoopTrack back into its slot, piece by piece as `loadSwitch` says, through the setters of the
/// player's gestures; the patterns, `Swing` and `StepDuration` are copied as they stand.
///
/// `newUse3D` is the 3D state under which it was stored: pan and position come back only under the same. For a package
/// the sample is looked for in `openPath` (which ends in a separator), else where it lay. Values that no setter limits
/// and that other routines cannot work with are kept out: `NSteps` is limited to 0..31, an unknown `PlayMode` and a
/// position that is no number are left alone.
/// True when a sample was asked for, whether or not it came up. A slot of 4 or more is left alone.
bool LoadSavedLoop(Session& s, const SavedLoop& saved, const clsSwitchRecord& loadSwitch, std::int16_t newUse3D,
                   bool forPackage, const std::string& openPath);

/// True when the slot of `saved` (0..3) holds the sample that it was stored with: after a load that found no sample, it
/// may still hold the one of before.
bool HoldsSavedSample(const Session& s, const SavedLoop& saved, bool forPackage, const std::string& openPath);

}  // namespace marvolin
