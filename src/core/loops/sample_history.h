#pragma once
/// \file
/// The samples that a row has held.

#include <string>

#include "core/session.h"

namespace marvolin {

/// Puts a path in front of the row's history, unless the history has it already. Rows 0..3 keep 20 paths, row 4 100.
void HistoryAdd(Session& s, Row row, const std::string& path);

}  // namespace marvolin
