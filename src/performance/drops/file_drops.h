#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// Whether a drop of these paths does anything: one of them is on this machine ("" is not). It loads, or the status
/// line names it.
bool TakesFiles(const std::vector<std::string>& paths);

/// Files dropped from a file manager on `row` (0..4), played with `PlayOnLoad`. One sample loads into the row and its
/// gang; of several each loads into one row alone, `row` and those below, as far as there are rows. On the selection the
/// first loads into the controlled rows. What is no sample (`IsNoSample`) is named in the status line, changes nothing
/// and takes no row.
void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths);

}  // namespace marvolin
