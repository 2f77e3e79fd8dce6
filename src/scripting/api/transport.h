#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for playing, stopping, play modes, the limit.
std::span<const ApiFunction> TransportFunctions();

}  // namespace marvolin
