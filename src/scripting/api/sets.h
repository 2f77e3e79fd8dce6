#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for saved sets.
std::span<const ApiFunction> SetsFunctions();

}  // namespace marvolin
