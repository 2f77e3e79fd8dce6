#pragma once
/// \file
/// Stereo frames on their way from the thread that renders to the one that writes them.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace marvolin {

/// A ring of stereo frames of 16 bits with one writer and one reader. Neither waits, and nothing is allocated after it
/// is made.
class FrameRing {
public:
    /// `room` frames, a power of two.
    explicit FrameRing(std::size_t room) : samples_(2 * room) {}

    /// Writes `count` frames; those that find no room are counted in `Missed`.
    void Write_rt(const std::int16_t* frames, std::size_t count) noexcept;

    /// Copies the oldest frames into `out`, which has room for whole ones, and takes them away. Returns how many.
    std::size_t Read(std::span<std::int16_t> out);
    /// Forgets what is in the ring and what was missed. The reader's own.
    void Clear();
    /// Frames that have found no room since `Clear`.
    std::uint64_t Missed() const { return missed_.load(std::memory_order_relaxed) - missedBefore_; }

private:
    std::size_t Room() const { return samples_.size() / 2; }

    std::vector<std::int16_t> samples_;
    std::atomic<std::size_t> written_{0};
    std::atomic<std::size_t> read_{0};
    std::atomic<std::uint64_t> missed_{0};
    std::uint64_t missedBefore_ = 0;  // the reader's own
};

}  // namespace marvolin
