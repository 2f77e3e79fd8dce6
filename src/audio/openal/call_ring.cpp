#include "audio/openal/call_ring.h"

#include <cassert>

namespace marvolin {

CallRing::CallRing(std::size_t room) : calls_(room) { assert((room & (room - 1)) == 0); }

bool CallRing::Write(const Call& call) {
    if (Full()) return false;
    calls_[written_ & (calls_.size() - 1)] = call;
    ++written_;
    return true;
}

bool CallRing::Read_rt(Call& call) noexcept {
    const std::size_t read = read_.load(std::memory_order_relaxed);
    if (read == published_.load(std::memory_order_acquire)) return false;
    call = calls_[read & (calls_.size() - 1)];
    read_.store(read + 1, std::memory_order_release);
    return true;
}

}  // namespace marvolin
