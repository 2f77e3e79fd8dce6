#pragma once
/// \file
/// Finding the file that a shortcut points to.

#include <string>

namespace marvolin {

/// The paths to its target that a shortcut holds; "" for one that it does not hold.
struct ShortcutPaths {
    std::string Relative;  ///< from the shortcut's folder
    std::string Local;     ///< a whole path, with a drive
};

/// Full path, as it is spelled on disk, of the file that the shortcut `file` points to: by the relative path first,
/// then by the local one. "\" separates like "/". Letter case is ignored where no entry has the exact spelling. "" when
/// neither path leads to a file.
std::string ShortcutTarget(const std::string& file, const ShortcutPaths& paths);

}  // namespace marvolin
