#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for step duration, swing and sample start.
std::span<const ApiFunction> TimingFunctions();

}  // namespace marvolin
