#pragma once

namespace marvolin::test {

/// How often this thread has allocated memory so far, in this program and its libraries.
long Mallocs();
/// Blocks of memory that the whole process holds.
long BlocksHeld();
/// The `n`th `new` of this thread from now on fails, counted from 0, once. Negative: none does.
void FailNew(long n);

}  // namespace marvolin::test
