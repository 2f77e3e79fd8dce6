#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for volume, pan, frequency, fades.
std::span<const ApiFunction> SoundFunctions();

}  // namespace marvolin
