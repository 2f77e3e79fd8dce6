#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// The functions for the samples of the rows.
std::span<const ApiFunction> SamplesFunctions();

}  // namespace marvolin
