#pragma once

#include "core/session.h"

namespace marvolin {

/// Sets `BeatStart` (1/100 s), limited in place to the length of the sample, and `BeatStartBytes`. The only way to set
/// them.
void LoopSetBeatStart(Session& s, Row row, std::int32_t& hundredths);

}  // namespace marvolin
