#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The browser: sample bins, folder tree, clipboard.
std::span<const Description> BrowserDescriptions();

}  // namespace marvolin
