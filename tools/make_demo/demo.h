#pragma once
/// \file
/// The demo of the first start.

#include <string>

namespace marvolin::demo {

/// Names of the demo in the program's folder: enabled, and disabled by the player.
inline constexpr const char* kDemoFile = "startup.mvp";
inline constexpr const char* kDisabledDemoFile = "disabledstartup.mvp";

/// Writes the demo as a package into the program's folder, which must hold "Samples"; the four samples are copied
/// beside it. If the player has disabled the demo, the new one is disabled too. Returns "", or what went wrong.
std::string WriteDemo(const std::string& programFolder);

}  // namespace marvolin::demo
