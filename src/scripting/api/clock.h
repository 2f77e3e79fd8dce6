#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for time, the status line and the script itself.
std::span<const ApiFunction> ClockFunctions();

}  // namespace marvolin
