#pragma once

#include <string>

#include "core/session.h"

namespace marvolin {

/// Writes the session, or with `selectionsOnly` its selected LoopTracks, to a file; `switches` say which sections.
///
/// A name that ends in ".mvp" makes a package: the samples of the loaded LoopTracks are copied beside it. A file that
/// stands there already is kept under its name with "~" behind it, in the place of an older such copy.
/// True when the file was written to its end. Failures: "Error Creating File: " and the name when the old file cannot
/// go or the new one not be made; "Error Saving " and the description of the error for any later one, which leaves the
/// file partial.
bool SaveSession(Session& s, const std::string& fileName, bool selectionsOnly, const clsSwitchRecord& switches);

}  // namespace marvolin
