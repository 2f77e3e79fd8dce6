#pragma once
/// \file
/// A recording whose frames tell where they belong.

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

namespace marvolin::kills {

/// Records numbered frames into `path` until `frames` of them have passed, or the disk takes no more. `recorded`
/// becomes how many are in the file, as the recorder knows. Returns what ended it before, in words; "" for nothing.
std::string RecordNumbered(const std::string& path, std::int64_t frames, std::atomic<std::int64_t>& recorded);

/// Frames of a recording, which must open as a sample and have each number at its place; nothing when it is not whole.
std::optional<std::int64_t> NumberedFramesIn(const std::string& path);

}  // namespace marvolin::kills
