#pragma once
/// \file
/// The calls that wait for their frame.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "audio/openal/call.h"

namespace marvolin {

inline constexpr int kLongestPiece = 256;  ///< frames mixed at a time; a change of gain is spread over one piece
inline constexpr int kShortestPiece =
    32;  ///< unless something starts: a shorter piece would make a change of gain click

/// Keeps calls in the order of their frames, and those of one frame in the order in which they came. Belongs to the
/// thread that renders. Nothing is allocated after it is made.
class Schedule {
public:
    explicit Schedule(std::size_t room);

    bool HasRoom_rt() const noexcept { return starts_.size() < room_ && others_.size() < room_; }
    /// There must be room.
    void Add_rt(const Call& call) noexcept;
    /// The next call that is to be applied before frame `position` is rendered; null when there is none. A call that
    /// starts nothing is put off, by less than twice `kShortestPiece`, where it would leave a shorter piece.
    const Call* Due_rt(std::int64_t position) noexcept;
    /// The first of all calls, whenever it is due; null when there is none.
    const Call* Earliest_rt() noexcept;
    /// Removes the call that was returned last.
    void Drop_rt() noexcept;
    /// How many of the next `left` frames to render before calls are applied again: 1 to `kLongestPiece`. What is due
    /// and has not been taken waits for `kShortestPiece` frames.
    int Piece_rt(std::int64_t position, int left) const noexcept;

private:
    struct Entry {
        std::uint64_t Order = 0;
        Call What;
    };
    using Heap = std::vector<Entry>;
    static bool After(const Entry& a, const Entry& b);
    static std::int64_t First(const Heap& heap);

    std::size_t room_;
    Heap starts_;  ///< heaps, the earliest call first
    Heap others_;
    Heap* due_ = nullptr;  ///< holds the call that was returned last
    std::uint64_t added_ = 0;
    std::int64_t startedAt_ = -1;  ///< the last position at which something started
};

}  // namespace marvolin
