#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The page of the options with its sub-tabs.
std::span<const Description> OptionDescriptions();

}  // namespace marvolin
