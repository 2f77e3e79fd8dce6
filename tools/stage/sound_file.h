#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace marvolin::stage {

/// Captured sound: 16-bit stereo at 44100 Hz, each side by itself.
struct Captured {
    std::vector<std::int16_t> left;
    std::vector<std::int16_t> right;

    std::size_t Frames() const { return left.size(); }
};

/// Reads the captured sound that has been written so far; a growing file may end anywhere. Frames before `fromFrame`
/// are left out. A file that cannot be read gives no frames.
Captured ReadCaptured(const std::filesystem::path& file, std::size_t fromFrame = 0);

}  // namespace marvolin::stage
