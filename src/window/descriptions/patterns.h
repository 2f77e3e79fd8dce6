#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The page of the patterns and the timing.
std::span<const Description> PatternDescriptions();

}  // namespace marvolin
