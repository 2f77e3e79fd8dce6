#include "audio/counted_malloc.h"

#include <atomic>
#include <cstddef>

// These take the place of the C library's functions in the whole program, its shared libraries included. A counter of
// `operator new` would not see what a library written in C allocates.

namespace {

std::atomic<long> mallocs{0};

}  // namespace

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

void* malloc(std::size_t size) {
    ++mallocs;
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    ++mallocs;
    return __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
    ++mallocs;
    return __libc_realloc(memory, size);
}
void* memalign(std::size_t alignment, std::size_t size) {
    ++mallocs;
    return __libc_memalign(alignment, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = memalign(alignment, size);
    return *memory == nullptr ? 12 : 0;
}

}  // extern "C"

namespace marvolin::test {

long Mallocs() { return mallocs; }

}  // namespace marvolin::test
