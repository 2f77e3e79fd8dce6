/// \file
/// Any bytes as a shortcut file.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "browser/lnk_shortcut.h"
#include "memory_file.h"
#include "time_limit.h"

namespace {

/// Of the processor, sanitizers included.
constexpr int kMostSeconds = 10;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const marvolin::fuzz::TimeLimit limit(kMostSeconds);
    const marvolin::fuzz::MemoryFile shortcut(data, size, "fuzz.wav.lnk");
    const std::string target = marvolin::ResolveLnkShortcut(shortcut.Path());
    if (!target.empty() && ::access(target.c_str(), F_OK) != 0) std::abort();
    return 0;
}
