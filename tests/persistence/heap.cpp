#include "persistence/heap.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

// In a file of their own, so that the compiler cannot inline them where memory is allocated and freed.

namespace {

std::size_t held = 0;
std::size_t peak = 0;
std::size_t base = 0;

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* memory = std::malloc(size);
    if (memory == nullptr) return nullptr;
    held += ::malloc_usable_size(memory);
    peak = std::max(peak, held);
    return memory;
}
void* operator new(std::size_t size) {
    void* memory = operator new(size, std::nothrow);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void operator delete(void* memory) noexcept {
    held -= ::malloc_usable_size(memory);
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace marvolin::test {

void ResetHeapPeak() { peak = base = held; }
std::size_t HeapPeak() { return peak - base; }

}  // namespace marvolin::test
