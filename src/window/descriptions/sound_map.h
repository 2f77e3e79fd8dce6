#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The page of the sound map.
std::span<const Description> SoundMapDescriptions();

}  // namespace marvolin
