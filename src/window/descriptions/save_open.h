#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The Save/Open form.
std::span<const Description> SaveOpenDescriptions();

}  // namespace marvolin
