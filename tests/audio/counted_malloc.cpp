#include "audio/counted_malloc.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

// These take the place of the C library's functions in the whole program, its shared libraries included. A counter of
// `operator new` would not see what a library written in C allocates.

namespace {

thread_local long mallocs = 0;
thread_local long newsLeft = -1;
std::atomic<long> held{0};

void* Count(void* memory) {
    ++mallocs;
    if (memory != nullptr) ++held;
    return memory;
}

}  // namespace

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);

void* malloc(std::size_t size) { return Count(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) { return Count(__libc_calloc(count, size)); }
void* realloc(void* memory, std::size_t size) {
    if (memory == nullptr) return malloc(size);
    ++mallocs;
    return __libc_realloc(memory, size);
}
void* memalign(std::size_t alignment, std::size_t size) { return Count(__libc_memalign(alignment, size)); }
void free(void* memory) {
    if (memory != nullptr) --held;
    __libc_free(memory);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = memalign(alignment, size);
    return *memory == nullptr ? 12 : 0;
}

}  // extern "C"

void* operator new(std::size_t size) {
    if (newsLeft >= 0 && newsLeft-- == 0) throw std::bad_alloc();
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace marvolin::test {

long Mallocs() { return mallocs; }
long BlocksHeld() { return held; }
void FailNew(long n) { newsLeft = n; }

}  // namespace marvolin::test
