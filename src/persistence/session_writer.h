#pragma once

#include <string>

#include "core/session.h"

namespace marvolin {

/// Writes the session to a file: of the LoopTracks those that `loops` names, and the sections that `switches` select.
///
/// A name that ends in ".mvp" makes a package: the samples of the loaded LoopTracks are copied beside it. An existing
/// file of that name is kept with "~" added to its name, and replaces an older such copy.
/// True when the file was written to its end. Failures: "Error Creating File: " and the name when the old file cannot
/// be moved away or the new one not be made; "Error Saving " and the description of the error for any later failure,
/// which leaves the file partial.
bool SaveSession(Session& s, const std::string& fileName, LoopsSaved loops, const clsSwitchRecord& switches);

}  // namespace marvolin
