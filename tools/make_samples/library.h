#pragma once

#include <filesystem>
#include <span>

#include "signal.h"

namespace marvolin::samples {

/// A file of the library: where it stands and who makes it.
struct LibraryEntry {
    const char* folder;
    const char* name;  ///< As a player reads it, without ".wav".
    Clip (*make)();
    double loudness;  ///< Asked of a loop; of no effect on a sound that is played once.
};

/// The whole library, in the order of its folders.
std::span<const LibraryEntry> Library();

/// Makes an entry's sound, finished as it goes into its file.
Clip Make(const LibraryEntry& entry);

/// Writes the whole library under `root`, making folders as needed and replacing files of the same name.
/// Throws std::runtime_error or std::filesystem::filesystem_error if something cannot be written.
void WriteLibrary(const std::filesystem::path& root);

}  // namespace marvolin::samples
