#pragma once
/// \file
/// What can be told of a file before it is loaded as a sample.

#include <string>

namespace marvolin {

/// True for what is there and is no sample: a folder, a pipe or a device, and a file whose name does not end in ".wav"
/// (in any capitals) and which does not begin as a WAV file. False for a path at which nothing is, and for a WAV file
/// whose inside is damaged. Reads at most 12 bytes.
bool IsNoSample(const std::string& path);

/// The name of a file for the status line: what follows the last "/". A "\" is a letter of the name.
std::string FileNameOf(const std::string& path);

}  // namespace marvolin
