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
    if (taken < count) Lose_rt(written + taken, count - taken);
}

// A gap grows until a frame is written after it.
void FrameRing::Lose_rt(std::size_t at, std::size_t count) noexcept {
    missed_.fetch_add(count, std::memory_order_relaxed);
    const std::size_t made = gapsMade_.load(std::memory_order_relaxed);
    const std::size_t waiting = made - gapsTaken_.load(std::memory_order_acquire);
    Gap& last = gaps_[(made - 1) % kMostGaps];
    if (waiting > 0 && last.At == at) {
        last.Frames.fetch_add(count, std::memory_order_release);
    } else if (waiting < kMostGaps) {
        Gap& next = gaps_[made % kMostGaps];
        next.At = at;
        next.Frames.store(count, std::memory_order_relaxed);
        gapsMade_.store(made + 1, std::memory_order_release);
    }
}

std::size_t FrameRing::Copy(std::span<std::int16_t> out, std::size_t most) {
    const std::size_t read = read_.load(std::memory_order_relaxed);
    const std::size_t taken = std::min(out.size() / 2, most);
    const std::size_t at = read & (Room() - 1);
    const std::size_t first = std::min(taken, Room() - at);
    std::copy_n(samples_.begin() + static_cast<std::ptrdiff_t>(2 * at), 2 * first, out.begin());
    std::copy_n(samples_.begin(), 2 * (taken - first), out.begin() + static_cast<std::ptrdiff_t>(2 * first));
    read_.store(read + taken, std::memory_order_release);
    return taken;
}

std::size_t FrameRing::Read(std::span<std::int16_t> out) {
    for (;;) {
        const std::size_t read = read_.load(std::memory_order_relaxed);
        const std::size_t written = written_.load(std::memory_order_acquire);
        const std::size_t taken = gapsTaken_.load(std::memory_order_relaxed);
        if (gapsMade_.load(std::memory_order_acquire) == taken) return Copy(out, written - read);
        const Gap& gap = gaps_[taken % kMostGaps];
        if (gap.At != read) return Copy(out, std::min(written, gap.At) - read);
        const std::size_t left = gap.Frames.load(std::memory_order_acquire) - silent_;
        if (left > 0) {
            const std::size_t silent = std::min(left, out.size() / 2);
            std::fill_n(out.begin(), 2 * silent, std::int16_t{0});
            silent_ += silent;
            return silent;
        }
        if (written == read) return 0;  // it may still grow
        silent_ = 0;
        gapsTaken_.store(taken + 1, std::memory_order_release);
    }
}

void FrameRing::Clear() {
    read_.store(written_.load(std::memory_order_acquire), std::memory_order_release);
    missedBefore_ = missed_.load(std::memory_order_relaxed);
    gapsTaken_.store(gapsMade_.load(std::memory_order_acquire), std::memory_order_release);
    silent_ = 0;
}

}  // namespace marvolin
