#pragma once
/// \file
/// The samples of a soak.

#include <string>
#include <vector>

namespace marvolin::soak {

/// Length of the click, frames of 44100 Hz.
inline constexpr int kClickFrames = 400;

/// Writes samples of all accepted widths, some at rates that have to be brought down, into a folder. Returns their
/// paths.
std::vector<std::string> WriteSamples(const std::string& folder);

/// Writes a sample that begins at full level, to be found in what is heard. Returns its path.
std::string WriteClick(const std::string& folder);

}  // namespace marvolin::soak
