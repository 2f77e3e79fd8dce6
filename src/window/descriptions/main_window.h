#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The main window around rows and tabs: toolbar, selectors, tab captions, status bars, list of sessions.
std::span<const Description> MainWindowDescriptions();

}  // namespace marvolin
