#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace marvolin {

struct FreeBytes {
    void operator()(std::uint8_t* bytes) const { std::free(bytes); }
};
using ScratchBytes = std::unique_ptr<std::uint8_t[], FreeBytes>;

/// Uninitialised memory for `size` bytes. A large block takes large pages where the system has them, since most of its
/// cost is the first touch of each page.
/// Raises `std::bad_alloc`.
ScratchBytes MakeScratchBytes(std::size_t size);

}  // namespace marvolin
