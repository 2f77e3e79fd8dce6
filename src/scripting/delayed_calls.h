#pragma once
/// \file
/// The calls that a script has asked for after a while.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace marvolin {

/// How many calls may wait at once.
inline constexpr std::size_t kMostDelayedCalls = 256;
/// Time between two looks at them.
inline constexpr std::int32_t kDelayInterval = 10;  // ms

/// References to functions, each with the time at which it is due. Time passes only by `Pass`.
class DelayedCalls {
public:
    DelayedCalls() { calls_.reserve(kMostDelayedCalls); }
    /// Whether another call can be added.
    bool HasRoom() const { return calls_.size() < kMostDelayedCalls; }
    /// Adds a call, for which there must be room.
    void Add(std::int32_t milliseconds, int reference);
    void Pass(std::int32_t milliseconds) { now_ += milliseconds; }
    /// Takes out the call that has been due longest, of those that were added before the last `Pass`; none when no
    /// call is due.
    std::optional<int> TakeDue();
    bool Empty() const { return calls_.empty(); }

private:
    struct Delayed {
        std::int64_t Due;
        std::int64_t Added;
        int Reference;
    };
    std::vector<Delayed> calls_;  ///< in the order in which they were added
    std::int64_t now_ = 0;
};

}  // namespace marvolin
