#include "browser/shortcuts.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/files/name_order.h"
#include "core/files/paths.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

/// The entry `name` of `folder`, or else one that differs from it in case only; empty when there is none.
fs::path EntryNamed(const fs::path& folder, const std::string& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) return folder / name;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (SameIgnoringCase(entry->path().filename().string(), name)) return entry->path();
    }
    return {};
}

/// Follows `path` from `start`, part by part. "" when a part is missing or the last one is no file.
std::string Follow(fs::path start, std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    for (const fs::path& part : fs::path(path).relative_path()) {
        const std::string name = part.string();
        if (name.empty() || name == ".") continue;
        start = name == ".." ? start / name : EntryNamed(start, name);
        if (start.empty()) return "";
    }
    std::error_code error;
    return fs::is_regular_file(start, error) ? start.lexically_normal().string() : "";
}

/// `path` without the letter of its drive.
std::string WithoutDrive(const std::string& path) { return path.size() >= 2 && path[1] == ':' ? path.substr(2) : path; }

}  // namespace

std::string ShortcutTarget(const std::string& file, const ShortcutPaths& paths) {
    std::string folder;
    std::string name;
    SplitPath(file, folder, name);
    if (!paths.Relative.empty()) {
        const std::string target = Follow(folder, paths.Relative);
        if (!target.empty()) return target;
    }
    return paths.Local.empty() ? "" : Follow("/", WithoutDrive(paths.Local));
}

}  // namespace marvolin
