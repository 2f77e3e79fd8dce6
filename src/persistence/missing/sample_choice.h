#pragma once
/// \file
/// Which of several files of one name a set meant.

#include <string>
#include <vector>

namespace marvolin {

/// Of `paths`, the one in whose end most folders are those of `stored`, by name, ASCII case ignored: the kick of "kit2"
/// comes from a folder "kit2". Of several the first; "" of none. `stored` may be a path of another system.
std::string BestMatch(const std::string& stored, const std::vector<std::string>& paths);

/// A path that a set has, and the files that could be the one meant.
struct WantedFile {
    std::string Stored;
    std::vector<std::string> Paths;
};
/// The file for each of `wanted`; "" for none. Two that are not the same file, ASCII case ignored, get two files: each
/// the one that matches best, the nearer match first, then the earlier one.
std::vector<std::string> ShareOut(const std::vector<WantedFile>& wanted);

}  // namespace marvolin
