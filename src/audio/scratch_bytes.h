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

/// Memory for `size` bytes that are soon to be written all; what stands in them is not said. A large block comes in
/// large pages where the system has them, since the first touch of each page is what costs most of its time.
/// Raises `std::bad_alloc`.
ScratchBytes MakeScratchBytes(std::size_t size);

}  // namespace marvolin
