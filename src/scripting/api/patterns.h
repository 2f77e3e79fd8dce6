#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for patterns and steps.
std::span<const ApiFunction> PatternsFunctions();

}  // namespace marvolin
