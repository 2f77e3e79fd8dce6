#pragma once

#include <cstddef>

namespace marvolin::test {

/// Starts to measure: from here on `HeapPeak` counts.
void ResetHeapPeak();
/// The most bytes that the program has held at one time since `ResetHeapPeak`, beyond those that it held then.
std::size_t HeapPeak();

}  // namespace marvolin::test
