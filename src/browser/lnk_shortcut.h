#pragma once

#include <string>

#include "browser/shortcuts.h"

namespace marvolin {

/// Reads the paths in a shortcut file. False when it cannot be read as one.
bool ReadShortcut(const std::string& file, ShortcutPaths& paths);

/// Full path of the file that the shortcut `file` points to; "" when it cannot be read or its target is missing.
std::string ResolveLnkShortcut(const std::string& file);

}  // namespace marvolin
