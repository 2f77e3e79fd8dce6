#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace marvolin::stage {

/// Captured sound: 16-bit stereo at 44100 Hz, the two sides apart.
struct Captured {
    std::vector<std::int16_t> left;
    std::vector<std::int16_t> right;

    std::size_t Frames() const { return left.size(); }
};

/// Reads the captured sound as far as it has been written; a file that still grows may end anywhere.
/// Frames before `fromFrame` are left out. A file that cannot be read gives none.
Captured ReadCaptured(const std::filesystem::path& file, std::size_t fromFrame = 0);

}  // namespace marvolin::stage
