#include "audio/scratch_bytes.h"

#ifdef __linux__
#include <sys/mman.h>
#endif

#include <new>

namespace marvolin {

namespace {

constexpr std::size_t kLargePage = std::size_t{1} << 21;

}  // namespace

ScratchBytes MakeScratchBytes(std::size_t size) {
    const bool large = size >= 2 * kLargePage;
    void* bytes = nullptr;
    if (large) {
        const std::size_t whole = (size + kLargePage - 1) / kLargePage * kLargePage;
        bytes = std::aligned_alloc(kLargePage, whole);
#ifdef __linux__
        // Advice only: without it the pages are small ones.
        if (bytes != nullptr) madvise(bytes, whole, MADV_HUGEPAGE);
#endif
    } else {
        bytes = std::malloc(size);
    }
    if (bytes == nullptr) throw std::bad_alloc();
    return ScratchBytes(static_cast<std::uint8_t*>(bytes));
}

}  // namespace marvolin
