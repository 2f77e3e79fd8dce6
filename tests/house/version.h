#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace marvolin::house {

/// True when `text` names `version`, such as "2.1.0"; not as a part of a longer number.
bool NamesVersion(const std::string& text, const std::string& version);

/// The texts below `root` that name `version`, as sorted paths from there, without those in `leftOut`. What
/// `.gitignore` of `root` names, the repository's own data and files with a byte 0 are no texts.
std::vector<std::string> TextsThatName(const std::filesystem::path& root, const std::string& version,
                                       const std::set<std::string>& leftOut);

/// The day in the heading of `version` on the page of changes, "## 2.1.0 (2000-12-31)"; "" without one.
std::string DayOfVersion(const std::string& changes, const std::string& version);

}  // namespace marvolin::house
