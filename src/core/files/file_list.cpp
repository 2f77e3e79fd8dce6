#include "core/files/file_list.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/paths.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHead = "marvolin files 1 ";
constexpr std::string_view kProgram = "marvolin";
constexpr std::string_view kModuleEnding = ".so";
constexpr std::string_view kHelp = "Help";
constexpr std::size_t kPartBytes = 1 << 16;

/// A checksum that sees every bit, byte by byte (FNV-1a).
class Checksum {
public:
    void Add(std::string_view bytes) {
        for (const char byte : bytes) {
            sum_ ^= static_cast<unsigned char>(byte);
            sum_ *= 0x100000001b3U;
        }
        size_ += bytes.size();
    }
    /// Size and checksum as one word.
    std::string Word() const {
        std::array<char, 48> text{};
        std::snprintf(text.data(), text.size(), "%llu-%016llx", static_cast<unsigned long long>(size_),
                      static_cast<unsigned long long>(sum_));
        return text.data();
    }

private:
    std::uint64_t sum_ = 0xcbf29ce484222325U;
    std::uint64_t size_ = 0;
};

bool ComesWithTheProgram(const fs::path& name) {
    const std::string top = name.begin()->string();
    const bool inFolder = std::next(name.begin()) != name.end();
    for (const fs::path& part : name) {
        if (part.string().starts_with('.') || part.string().find('\n') != std::string::npos) return false;
    }
    if (inFolder) return top != kHelp;
    return top != kProgram && top != kListFile && !top.ends_with(kModuleEnding);
}

/// Whether a name stays inside the folder of its list.
bool IsInside(std::string_view name) {
    const fs::path path(name);
    return !name.empty() && path.is_relative() &&
           std::none_of(path.begin(), path.end(), [](const fs::path& part) { return part == ".." || part == "."; });
}

std::string Lines(const FileList& list) {
    std::string text;
    for (const ListedFile& file : list.Files) text.append(file.Mark).append(" ").append(file.Name).append("\n");
    return text;
}

/// Takes a line off the front of a text.
std::string_view NextLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::string IdIn(std::string_view line) {
    return line.starts_with(kHead) ? std::string(line.substr(kHead.size())) : "";
}

std::string ListPath(const std::string& folder) { return JoinPath(folder, std::string(kListFile)); }

}  // namespace

const ListedFile* FileList::Find(std::string_view name) const {
    const auto found =
        std::find_if(Files.begin(), Files.end(), [&](const ListedFile& file) { return file.Name == name; });
    return found == Files.end() ? nullptr : &*found;
}

std::string FileMark(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) RaiseFileError(errno);
    Checksum sum;
    std::vector<char> part(kPartBytes);
    ssize_t got = 0;
    while ((got = ::read(file, part.data(), part.size())) > 0) sum.Add({part.data(), static_cast<std::size_t>(got)});
    const int error = errno;
    ::close(file);
    if (got < 0) RaiseFileError(error);
    return sum.Word();
}

FileList ListFolder(const std::string& folder) {
    FileList list;
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path name = entry->path().lexically_relative(folder);
        std::error_code unknown;
        if (!ComesWithTheProgram(name) || !entry->is_regular_file(unknown)) continue;
        try {
            list.Files.push_back({name.string(), FileMark(entry->path().string())});
        } catch (const RuntimeError&) {
            continue;
        }
    }
    std::sort(list.Files.begin(), list.Files.end(),
              [](const ListedFile& a, const ListedFile& b) { return a.Name < b.Name; });
    Checksum sum;
    sum.Add(Lines(list));
    list.Id = sum.Word();
    return list;
}

std::string ListText(const FileList& list) { return std::string(kHead) + list.Id + "\n" + Lines(list); }

FileList ReadList(std::string_view text) {
    FileList list;
    list.Id = IdIn(NextLine(text));
    while (!text.empty()) {
        const std::string_view line = NextLine(text);
        const std::size_t blank = line.find(' ');
        if (blank == 0 || blank == std::string_view::npos || !IsInside(line.substr(blank + 1))) continue;
        list.Files.push_back({std::string(line.substr(blank + 1)), std::string(line.substr(0, blank))});
    }
    return list;
}

FileList ReadListOf(const std::string& folder) {
    std::ifstream file(ListPath(folder), std::ios::binary);
    return ReadList(std::string(std::istreambuf_iterator<char>(file), {}));
}

std::string ListIdOf(const std::string& folder) {
    std::ifstream file(ListPath(folder), std::ios::binary);
    std::string line;
    std::getline(file, line);
    return IdIn(line);
}

}  // namespace marvolin
