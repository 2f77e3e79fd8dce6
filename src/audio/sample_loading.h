#pragma once
/// \file
/// Putting samples into LoopTracks.

#include <string>

#include "core/session.h"

namespace marvolin {

/// Puts the sample `folder`/`fileName` into `row`. Every way of loading ends here.
/// Says "No File Name!!" or "File Doesn't Exist !!" and changes nothing; a file that the service refuses leaves the row
/// empty; a failure while setting up says "Error setting up loaded loop" in the status line. Rows 4 and 5 are left
/// alone.
void LoopLoad(Session& s, Row row, const std::string& folder, const std::string& fileName);

/// A player's gesture: loads `name` + ".WAV" into the row, its band, or for row 4 the controlled rows, and plays them
/// when `playAfter`. Any other row does nothing. A file on disk whose extension is spelled otherwise is found.
void LoopLoadRows(Session& s, const std::string& folder, const std::string& name, Row row, bool playAfter);

/// Text shown for the row: the name of its sample, "" when empty.
std::string LoopFileName(const Session& s, Row row);

}  // namespace marvolin
