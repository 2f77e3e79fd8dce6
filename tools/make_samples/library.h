#pragma once

#include <filesystem>
#include <span>

#include "signal.h"

namespace marvolin::samples {

/// A file of the library: its folder, name and maker.
struct LibraryEntry {
    const char* folder;
    const char* name;  ///< As the player sees it, without ".wav".
    Clip (*make)();
    double loudness;  ///< Target for a loop; ignored for a sound that is played once.
};

/// The whole library, in the order of its folders.
std::span<const LibraryEntry> Library();

/// Makes an entry's sound, finished for its file.
Clip Make(const LibraryEntry& entry);

/// Writes the whole library under `root`, making folders as needed and replacing files of the same name.
/// Throws std::runtime_error or std::filesystem::filesystem_error if something cannot be written.
void WriteLibrary(const std::filesystem::path& root);

}  // namespace marvolin::samples
