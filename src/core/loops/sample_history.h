#pragma once
/// \file
/// The samples that a row has held.

#include <string>

#include "core/session.h"

namespace marvolin {

/// Puts a path in front of the row's history, unless it is there already; 20 entries for rows 0..3, 100 for row 4.
void HistoryAdd(Session& s, Row row, const std::string& path);

}  // namespace marvolin
