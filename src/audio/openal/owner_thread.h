#pragma once
/// \file
/// The thread that an object belongs to.

#include <cassert>
#include <thread>

namespace marvolin {

/// Remembers the thread that makes it. Every entry point of the sound service asserts this thread; only functions whose
/// names end in `_rt` may be called from the thread that renders.
class OwnerThread {
public:
    /// Stops a debug build when another thread calls.
    void Assert() const noexcept { assert(owner_ == std::this_thread::get_id()); }

private:
    [[maybe_unused]] std::thread::id owner_ = std::this_thread::get_id();
};

}  // namespace marvolin
