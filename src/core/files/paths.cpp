#include "core/files/paths.h"

#include <filesystem>
#include <system_error>

#include "core/routines.h"

namespace marvolin {

namespace {

constexpr std::size_t kExtension = 4;  // ".WAV"

bool IsSeparator(char c) { return c == '/' || c == '\\'; }

bool EndsInSeparator(const std::string& path) { return !path.empty() && IsSeparator(path.back()); }

}  // namespace

bool FileExists(const std::string& path) {
    // A search finds names, and a name does not end in a separator.
    if (path.empty() || EndsInSeparator(path)) return false;
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(path, error));
}

bool TargetExists(const std::string& path) {
    std::error_code error;
    return FileExists(path) && std::filesystem::exists(path, error);
}

bool DirExists(const std::string& path) {
    if (path == "/") return true;
    const std::string name = EndsInSeparator(path) ? path.substr(0, path.size() - 1) : path;
    if (name.ends_with(':')) return DriveExists(name);
    std::error_code error;
    return !name.empty() && std::filesystem::is_directory(name, error);
}

bool DriveExists(const std::string& name) { return std::string("/").find(name) != std::string::npos; }

std::string StripBackslash(const std::string& path) {
    std::string stripped = Trim(path);
    if (EndsInSeparator(stripped)) stripped.pop_back();
    return stripped;
}

std::string JoinPath(const std::string& folder, const std::string& name) {
    // A backslash separates in a path of another system; in one of this system it is a letter of a name.
    const bool separated = folder.find('/') == std::string::npos ? EndsInSeparator(folder) : folder.ends_with('/');
    return separated ? folder + name : folder + "/" + name;
}

void SplitPath(const std::string& path, std::string& folder, std::string& name) {
    const auto last = path.find_last_of("/\\");
    const std::size_t length = last == std::string::npos ? 1 : last + 1;
    const std::string whole = path;
    folder = whole.substr(0, length);
    name = whole.size() > length ? whole.substr(length) : "";
}

void SplitFilePath(const std::string& path, std::string& folder, std::string& name) {
    const auto last = path.rfind('/');
    const std::string whole = path;
    folder = last == std::string::npos ? "./" : whole.substr(0, last + 1);
    name = last == std::string::npos ? whole : whole.substr(last + 1);
}

std::string LastPathPart(const std::string& path) {
    if (path.size() >= 2 && path[path.size() - 2] == ':' && EndsInSeparator(path)) return path.substr(0, 2);
    std::string part = path;
    if (EndsInSeparator(part)) part.pop_back();
    const auto last = part.find_last_of(":/\\");
    return last == std::string::npos ? part : part.substr(last + 1);
}

std::string SampleName(const std::string& path) {
    std::string folder;
    std::string name;
    if (path.find('/') == std::string::npos) {
        SplitPath(path, folder, name);
    } else {
        SplitFilePath(path, folder, name);
    }
    const bool extended = name.size() >= kExtension && name[name.size() - kExtension] == '.';
    return extended ? name.substr(0, name.size() - kExtension) : name;
}

}  // namespace marvolin
