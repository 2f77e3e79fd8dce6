#include "core/files/hidden_names.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "core/files/file_errors.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHiddenStem = ".marvolin-";
constexpr std::string_view kUnknownStart = "00000000000000000000000000000000";
constexpr std::time_t kDay = 86400;

bool IsNumber(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

/// What process numbers are unique in: the start of the system, as 32 hexadecimal digits, and the container, as a
/// number. A start of zeros is unknown.
std::string ProcessSpace() {
    std::string start;
    std::ifstream("/proc/sys/kernel/random/boot_id") >> start;
    std::erase(start, '-');
    std::error_code error;
    std::string container = fs::read_symlink("/proc/self/ns/pid", error).string();
    std::erase_if(container, [](unsigned char c) { return std::isdigit(c) == 0; });
    if (start.size() != kUnknownStart.size()) start = kUnknownStart;
    return start + "-" + (container.empty() ? "0" : container);
}

/// A hidden name in its parts.
struct HiddenName {
    std::string Space;
    pid_t Process = 0;
};

/// The parts of a name of exactly the form that `UnderHiddenName` gives; process 0 for any other.
HiddenName PartsOf(std::string_view name) {
    if (!name.starts_with(kHiddenStem)) return {};
    name.remove_prefix(kHiddenStem.size());
    std::array<std::string_view, 4> parts;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        const bool last = part + 1 == parts.size();
        const std::size_t end = last ? name.size() : name.find('-');
        if (end == std::string_view::npos) return {};
        parts[part] = name.substr(0, end);
        name.remove_prefix(last ? end : end + 1);
    }
    const auto isHex = [](unsigned char c) { return std::isxdigit(c) != 0; };
    if (parts[0].size() != kUnknownStart.size() || !std::all_of(parts[0].begin(), parts[0].end(), isHex)) return {};
    if (!IsNumber(parts[1]) || !IsNumber(parts[2]) || !IsNumber(parts[3])) return {};
    HiddenName hidden{std::string(parts[0]) + "-" + std::string(parts[1])};
    std::from_chars(parts[2].data(), parts[2].data() + parts[2].size(), hidden.Process);
    return hidden;
}

}  // namespace

std::string UnderHiddenName(const std::string& folder, const std::function<bool(const std::string&)>& make) {
    const std::string stem =
        folder + "/" + std::string(kHiddenStem) + ProcessSpace() + "-" + std::to_string(::getpid()) + "-";
    for (int number = 1;; ++number) {
        const std::string name = stem + std::to_string(number);
        if (make(name)) return name;
        if (errno != EEXIST) RaiseFileError(errno);
    }
}

void RemoveLeftovers(const std::string& folder, std::time_t now) {
    const std::string space = ProcessSpace();
    const bool isKnown = !space.starts_with(kUnknownStart);
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const HiddenName hidden = PartsOf(entry->path().filename().string());
        if (hidden.Process <= 0) continue;
        struct stat state {};
        // The time of the last change of the names: a replaced file may be old itself.
        const bool isOld = ::lstat(entry->path().c_str(), &state) == 0 && state.st_ctim.tv_sec + kDay < now;
        const bool isGone = hidden.Space == space && isKnown ? ::kill(hidden.Process, 0) != 0 && errno == ESRCH : isOld;
        if (isGone) ::unlink(entry->path().c_str());
    }
}

}  // namespace marvolin
