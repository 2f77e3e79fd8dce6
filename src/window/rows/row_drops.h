#pragma once
/// \file
/// What a drop of files on a LoopTrack row means.

#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// Files dropped from a file manager on `row`: the first loads there (row 4: into the controlled rows; a row in a band:
/// into the band), the others into the rows below, as far as there are rows. A file that is no WAV gets the message of
/// the loader.
void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths);

}  // namespace marvolin
