#pragma once
/// \file
/// The calls on their way from the user-interface thread to the thread that renders.

#include <atomic>
#include <cstddef>
#include <vector>

#include "audio/openal/call.h"

namespace marvolin {

/// A ring with one writer and one reader. Neither waits, and nothing is allocated after it is made.
class CallRing {
public:
    /// `room` is a power of two.
    explicit CallRing(std::size_t room);

    /// Writes a call, which the reader sees after the next `Publish`. False when there is no room.
    bool Write(const Call& call);
    /// Shows the reader everything written so far, all at once.
    void Publish() { published_.store(written_, std::memory_order_release); }
    /// Calls written and not yet published.
    std::size_t Held() const { return written_ - published_.load(std::memory_order_relaxed); }
    std::size_t Room() const { return calls_.size(); }
    /// Calls written and not yet read.
    std::size_t Waiting() const { return written_ - read_.load(std::memory_order_acquire); }
    bool Full() const { return Waiting() == calls_.size(); }

    /// Takes the oldest published call. False when there is none.
    bool Read_rt(Call& call) noexcept;

private:
    static constexpr std::size_t kCacheLine = 64;
    std::vector<Call> calls_;
    std::size_t written_ = 0;  ///< the writer's own
    alignas(kCacheLine) std::atomic<std::size_t> published_{0};
    alignas(kCacheLine) std::atomic<std::size_t> read_{0};
};

}  // namespace marvolin
