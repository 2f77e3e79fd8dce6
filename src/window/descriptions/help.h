#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The window of Help.
std::span<const Description> HelpDescriptions();

}  // namespace marvolin
