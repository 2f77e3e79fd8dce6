#include "browser/lnk_shortcut.h"

// The library's header asks for the headers of a stream library of which nothing is used here.
#include <liblnk/features.h>
#undef LIBLNK_HAVE_BFIO
#include <liblnk.h>

#include <filesystem>
#include <system_error>
#include <vector>

namespace marvolin {

namespace {

// A shortcut is a few hundred bytes; anything much larger is something else.
constexpr std::uintmax_t kLargestShortcut = 1 << 20;

using SizeOf = int (*)(liblnk_file_t*, size_t*, liblnk_error_t**);
using TextOf = int (*)(liblnk_file_t*, std::uint8_t*, size_t, liblnk_error_t**);

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
    if (error || bytes > kLargestShortcut) return false;
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
