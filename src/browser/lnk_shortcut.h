#pragma once

#include <string>

#include "browser/shortcuts.h"

namespace marvolin {

/// Reads the paths in a shortcut file. False when it cannot be read as one.
bool ReadShortcut(const std::string& file, ShortcutPaths& paths);

/// Full path of what the shortcut `file` leads to; "" when it cannot be read or leads nowhere.
std::string ResolveLnkShortcut(const std::string& file);

}  // namespace marvolin
