#pragma once

namespace marvolin::test {

/// How often this program has allocated memory so far.
long Allocations();

}  // namespace marvolin::test
