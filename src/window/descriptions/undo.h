#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The two buttons that take steps back and do them again.
std::span<const Description> UndoDescriptions();

}  // namespace marvolin
