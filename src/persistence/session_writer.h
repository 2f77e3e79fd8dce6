#pragma once

#include <string>

#include "core/session.h"

namespace marvolin {

/// Writes the session to a file: of the LoopTracks those that `loops` names, and the sections that `switches` select.
///
/// A name that ends in ".mvp" makes a package: the samples of the loaded LoopTracks are copied beside it; of a
/// link, beside the file behind it.
///
/// The set and the samples are written to files of their own and take their names once they are on the disk. A whole
/// set that had the name is kept with "~" added to it, in place of an older such copy. True when all of it is in place.
/// Failures: "Error Creating File: " and the name when the file cannot be made there or its present file cannot be
/// kept; "Error Saving " and the description of the error for any later failure. After either all files are as they
/// were.
bool SaveSession(Session& s, const std::string& fileName, LoopsSaved loops, const clsSwitchRecord& switches);

}  // namespace marvolin
