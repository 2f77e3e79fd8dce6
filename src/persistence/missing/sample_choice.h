#pragma once
/// \file
/// Which of several files of one name a set meant.

#include <string>
#include <vector>

namespace marvolin {

/// Of `paths`, the one in whose end most folders are those of `stored`, by name, ASCII case ignored: the kick of "kit2"
/// comes from a folder "kit2". Of several the first; "" of none. `stored` may be a path of another system.
std::string BestMatch(const std::string& stored, const std::vector<std::string>& paths);

}  // namespace marvolin
