#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The splash.
std::span<const Description> SplashDescriptions();
/// The question about the start-up demo.
std::span<const Description> StartUpQueryDescriptions();

}  // namespace marvolin
