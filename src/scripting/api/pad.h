#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for the mix pad and the wires.
std::span<const ApiFunction> PadFunctions();

}  // namespace marvolin
