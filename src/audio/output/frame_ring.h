#pragma once
/// \file
/// Stereo frames on their way from the thread that renders to the one that writes them.

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace marvolin {

/// A ring of stereo frames of 16 bits with one writer and one reader. Neither waits, and nothing is allocated after it
/// is made. Frames that find no room come out as so much silence at their place, so that what follows stays in time.
class FrameRing {
public:
    /// Gaps that can wait for the reader. Frames of a further one are missing without silence in their place.
    static constexpr std::size_t kMostGaps = 512;

    /// `room` frames, a power of two.
    explicit FrameRing(std::size_t room) : samples_(2 * room) {}

    /// Writes `count` frames; those that find no room are counted in `Missed`.
    void Write_rt(const std::int16_t* frames, std::size_t count) noexcept;

    /// Copies the oldest frames into `out`, which has room for whole ones, and takes them away. Returns how many; 0
    /// only when there are none.
    std::size_t Read(std::span<std::int16_t> out);
    /// Forgets what is in the ring and what was missed. The reader's own.
    void Clear();
    /// Frames that have found no room since `Clear`.
    std::uint64_t Missed() const { return missed_.load(std::memory_order_relaxed) - missedBefore_; }

private:
    struct Gap {
        std::size_t At = 0;  // number of the frame that follows it
        std::atomic<std::size_t> Frames{0};
    };

    std::size_t Room() const { return samples_.size() / 2; }
    void Lose_rt(std::size_t at, std::size_t count) noexcept;
    std::size_t Copy(std::span<std::int16_t> out, std::size_t most);

    std::vector<std::int16_t> samples_;
    std::atomic<std::size_t> written_{0};
    std::atomic<std::size_t> read_{0};
    std::atomic<std::uint64_t> missed_{0};
    std::uint64_t missedBefore_ = 0;  // the reader's own

    std::array<Gap, kMostGaps> gaps_{};
    std::atomic<std::size_t> gapsMade_{0};
    std::atomic<std::size_t> gapsTaken_{0};
    std::size_t silent_ = 0;  // the reader's own: frames of the oldest gap that have come out
};

}  // namespace marvolin
