#pragma once
/// \file
/// The demo that plays itself at the first start.

#include <string>

namespace marvolin::demo {

/// Names of the demo in the program's folder: as it plays at the start, and as the player has put it away.
inline constexpr const char* kDemoFile = "startup.mvp";
inline constexpr const char* kDemoPutAway = "disabledstartup.mvp";

/// Writes the demo as a package into the program's folder, which must hold "Samples"; the four samples go beside it.
/// Where a player has put the demo away, the new one is put away too. "" or what went wrong.
std::string WriteDemo(const std::string& programFolder);

}  // namespace marvolin::demo
