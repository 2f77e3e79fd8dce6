#pragma once
/// \file
/// Keeps the two threads out of the library's lock on its sources.

#include <mutex>

namespace marvolin {

/// Whoever calls OpenAL about sources holds the gate, because the library has a lock of its own there, for which the
/// thread that renders would have to wait. At the gate it does not wait: it tries for some microseconds, about as long
/// as the binding of a source takes, and else renders a short piece first.
class SourceGate {
public:
    /// For the user-interface thread, around a single call of the library.
    void lock() { mutex_.lock(); }
    void unlock() noexcept { mutex_.unlock(); }

    /// True when the gate is held now.
    bool Try_rt() noexcept {
        for (int i = 0; i < kTries; ++i)
            if (mutex_.try_lock()) return true;
        return false;
    }

private:
    static constexpr int kTries = 300;
    std::mutex mutex_;
};

}  // namespace marvolin
