#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The window of scripts.
std::span<const Description> ScriptsDescriptions();

}  // namespace marvolin
