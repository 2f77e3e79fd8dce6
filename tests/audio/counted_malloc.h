#pragma once

namespace marvolin::test {

/// How often this program and its libraries have allocated memory so far. Single-threaded.
long Mallocs();

}  // namespace marvolin::test
