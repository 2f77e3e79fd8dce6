#include "allocation_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

// In a file of its own, so that the compiler cannot inline these where memory is allocated and freed.

namespace {

// The toolkit has threads of its own.
std::atomic<long> allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++allocations;
    return std::malloc(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace marvolin::test {

long Allocations() { return allocations; }

}  // namespace marvolin::test
