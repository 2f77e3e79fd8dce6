#pragma once

#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// Why a drop of these paths on `row` (0..4) would do nothing, for the status line; "" when it does something: when one
/// of the first 48 can be a sample, and a LoopTrack takes it. A path of "" is not on this machine.
std::string WhyFilesAreRefused(const Session& s, Row row, const std::vector<std::string>& paths);

/// Files dropped from a file manager on `row` (0..4), played with `PlayOnLoad`. One sample loads into the row and its
/// gang; of several each loads into one row alone, `row` and those below, as far as there are rows. On the selection
/// the first loads into the controlled rows. What is no sample (`IsNoSample`) is named in the status line, changes
/// nothing and takes no row; samples for which no row is left, and all that are missing or refused, are named there,
/// too.
void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths);

}  // namespace marvolin
