#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The page of the mix pad.
std::span<const Description> MixPadDescriptions();

}  // namespace marvolin
