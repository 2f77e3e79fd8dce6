#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// Files dropped from a file manager on `row` (0..4): the first loads into the row and its gang, the others into the
/// rows below, as far as there are rows; they are played with `PlayOnLoad`. A file that is no sample shows the message
/// of the loader.
void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths);

}  // namespace marvolin
