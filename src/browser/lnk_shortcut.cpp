#include "browser/lnk_shortcut.h"

// The library's header includes those of a stream library, of which nothing is needed here.
#include <liblnk/features.h>
#undef LIBLNK_HAVE_BFIO
#include <liblnk.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

namespace marvolin {

namespace {

// A shortcut is a few hundred bytes; anything much larger is something else.
constexpr std::uintmax_t kLargestShortcut = 1 << 20;

using SizeOf = int (*)(liblnk_file_t*, size_t*, liblnk_error_t**);
using TextOf = int (*)(liblnk_file_t*, std::uint8_t*, size_t, liblnk_error_t**);

/// A reading position in the bytes of a file.
class Walk {
public:
    explicit Walk(const std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}
    bool Has(std::uint64_t count) const { return count <= bytes_.size() - at_; }
    /// Skips `count` bytes; false when fewer are left.
    bool Skip(std::uint64_t count) {
        if (!Has(count)) return false;
        at_ += static_cast<std::size_t>(count);
        return true;
    }
    /// The next number of 2 or 4 bytes, without skipping it; 0 at the end.
    std::uint64_t Peek(std::size_t width) const {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < width && Has(width); ++i) value |= std::uint64_t{bytes_[at_ + i]} << (8 * i);
        return value;
    }

private:
    const std::vector<std::uint8_t>& bytes_;
    std::size_t at_ = 0;
};

/// True when no block of the shortcut claims more than the file holds. The library would allocate what a block claims.
bool BlocksFit(const std::vector<std::uint8_t>& bytes) {
    constexpr std::size_t kHeader = 76;
    constexpr std::size_t kFlagsAt = 20;
    Walk walk(bytes);
    if (!walk.Skip(kFlagsAt)) return false;
    const std::uint64_t flags = walk.Peek(4);
    if (!walk.Skip(kHeader - kFlagsAt)) return false;
    if ((flags & 0x1) != 0 && !walk.Skip(2 + walk.Peek(2))) return false;
    if ((flags & 0x2) != 0 && !(walk.Peek(4) >= 4 && walk.Skip(walk.Peek(4)))) return false;
    const std::uint64_t character = (flags & 0x80) != 0 ? 2 : 1;
    for (const std::uint64_t text : {0x4U, 0x8U, 0x10U, 0x20U, 0x40U}) {
        if ((flags & text) != 0 && !walk.Skip(2 + character * walk.Peek(2))) return false;
    }
    while (walk.Peek(4) >= 4) {
        if (!walk.Skip(walk.Peek(4))) return false;
    }
    return true;
}

std::vector<std::uint8_t> BytesOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// One text of an open shortcut; "" when it has none.
std::string Text(liblnk_file_t* link, SizeOf sizeOf, TextOf textOf) {
    size_t size = 0;
    if (sizeOf(link, &size, nullptr) != 1 || size == 0 || size > kLargestShortcut) return "";
    std::vector<std::uint8_t> bytes(size, 0);
    if (textOf(link, bytes.data(), size, nullptr) != 1) return "";
    bytes.back() = 0;
    return reinterpret_cast<const char*>(bytes.data());
}

}  // namespace

bool ReadShortcut(const std::string& file, ShortcutPaths& paths) {
    std::error_code error;
    const std::uintmax_t bytes = std::filesystem::file_size(file, error);
    if (error || bytes > kLargestShortcut || !BlocksFit(BytesOf(file))) return false;
    liblnk_file_t* link = nullptr;
    if (liblnk_file_initialize(&link, nullptr) != 1) return false;
    const bool open = liblnk_file_open(link, file.c_str(), LIBLNK_OPEN_READ, nullptr) == 1;
    if (open) {
        paths.Relative = Text(link, liblnk_file_get_utf8_relative_path_size, liblnk_file_get_utf8_relative_path);
        paths.Local = Text(link, liblnk_file_get_utf8_local_path_size, liblnk_file_get_utf8_local_path);
        liblnk_file_close(link, nullptr);
    }
    liblnk_file_free(&link, nullptr);
    return open;
}

std::string ResolveLnkShortcut(const std::string& file) {
    ShortcutPaths paths;
    return ReadShortcut(file, paths) ? ShortcutTarget(file, paths) : "";
}

}  // namespace marvolin
