#pragma once

#include "core/session.h"

namespace marvolin {

/// Reverses the sample of the row in memory, for all rows that share it. A row without a sample is left alone.
/// Failures: "reversing sound".
void LoopReverse(Session& s, Row row);

}  // namespace marvolin
