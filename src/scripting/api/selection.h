#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for which LoopTracks a row of controls acts on.
std::span<const ApiFunction> SelectionFunctions();

}  // namespace marvolin
