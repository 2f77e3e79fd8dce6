/// \file
/// Any bytes as a shortcut file.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "browser/lnk_shortcut.h"

namespace {

/// The file that each input is written to, removed at the end.
struct ShortcutFile {
    std::string Path;
    ShortcutFile() {
        std::string name = "/tmp/fuzz.wav.lnkXXXXXX";
        const int file = ::mkstemp(name.data());
        if (file < 0) std::abort();
        ::close(file);
        Path = name;
    }
    ~ShortcutFile() { ::unlink(Path.c_str()); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ShortcutFile shortcut;
    std::ofstream(shortcut.Path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    const std::string target = marvolin::ResolveLnkShortcut(shortcut.Path);
    if (!target.empty() && ::access(target.c_str(), F_OK) != 0) std::abort();
    return 0;
}
