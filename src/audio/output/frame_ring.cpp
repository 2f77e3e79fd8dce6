#include "audio/output/frame_ring.h"

#include <algorithm>

namespace marvolin {

void FrameRing::Write_rt(const std::int16_t* frames, std::size_t count) noexcept {
    const std::size_t written = written_.load(std::memory_order_relaxed);
    const std::size_t room = Room() - (written - read_.load(std::memory_order_acquire));
    const std::size_t taken = std::min(count, room);
    const std::size_t at = written & (Room() - 1);
    const std::size_t first = std::min(taken, Room() - at);
    std::copy_n(frames, 2 * first, samples_.begin() + static_cast<std::ptrdiff_t>(2 * at));
    std::copy_n(frames + 2 * first, 2 * (taken - first), samples_.begin());
    written_.store(written + taken, std::memory_order_release);
    if (taken < count) missed_.fetch_add(count - taken, std::memory_order_relaxed);
}

std::size_t FrameRing::Read(std::span<std::int16_t> out) {
    const std::size_t read = read_.load(std::memory_order_relaxed);
    const std::size_t taken = std::min(out.size() / 2, written_.load(std::memory_order_acquire) - read);
    const std::size_t at = read & (Room() - 1);
    const std::size_t first = std::min(taken, Room() - at);
    std::copy_n(samples_.begin() + static_cast<std::ptrdiff_t>(2 * at), 2 * first, out.begin());
    std::copy_n(samples_.begin(), 2 * (taken - first), out.begin() + static_cast<std::ptrdiff_t>(2 * first));
    read_.store(read + taken, std::memory_order_release);
    return taken;
}

void FrameRing::Clear() {
    read_.store(written_.load(std::memory_order_acquire), std::memory_order_release);
    missedBefore_ = missed_.load(std::memory_order_relaxed);
}

}  // namespace marvolin
