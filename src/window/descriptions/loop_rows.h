#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// What stands in the rows of the LoopTracks, the selection and the master, and the lists that open from them.
std::span<const Description> LoopRowDescriptions();

}  // namespace marvolin
