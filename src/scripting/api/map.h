#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for the sound map.
std::span<const ApiFunction> MapFunctions();

}  // namespace marvolin
