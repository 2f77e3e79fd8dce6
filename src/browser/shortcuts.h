#pragma once
/// \file
/// From the paths that a shortcut holds to the file that it means.

#include <string>

namespace marvolin {

/// What a shortcut says of its target, as it stands in it; "" for what it does not say.
struct ShortcutPaths {
    std::string Relative;  ///< seen from the shortcut's folder
    std::string Local;     ///< a whole path, with a drive
};

/// Full path, as it is spelled on disk, of the file that the shortcut `file` leads to: by the relative path first, then
/// by the local one. "\" separates like "/", and where no entry is spelled so, letter case is ignored. "" when neither
/// leads to a file.
std::string ShortcutTarget(const std::string& file, const ShortcutPaths& paths);

}  // namespace marvolin
