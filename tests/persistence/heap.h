#pragma once

#include <cstddef>

namespace marvolin::test {

/// Forgets the peak of before.
void ResetHeapPeak();
/// The most bytes that this program has held at one time since then, beyond those that it held at that moment.
std::size_t HeapPeak();

}  // namespace marvolin::test
