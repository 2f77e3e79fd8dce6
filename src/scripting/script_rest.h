#pragma once

#include <cstdint>

namespace marvolin {

/// What a script owes the instrument: each of its calls is followed by as long a rest, in which nothing of the kind
/// that repeats is called. Small calls add up before they count. So a script has at most about half of the time.
class ScriptRest {
public:
    /// Delayed calls wait while more than this is owed.
    static constexpr std::int64_t kBeforeDelayed = 10'000'000;  // ns
    /// `OnClock` is left out while more than this is owed. It has ten calls a second, so it gives way later: only after
    /// loads, and after events of the hand.
    static constexpr std::int64_t kBeforeClock = 50'000'000;  // ns
    /// The most that calls add up to; a single one that took longer counts whole.
    static constexpr std::int64_t kMostTogether = 1'000'000'000;  // ns

    /// A call has ended at `now` after `taken` ns.
    void Charge(std::int64_t now, std::int64_t taken);
    /// What is owed at `now`, in ns.
    std::int64_t Owed(std::int64_t now) const { return now < end_ ? end_ - now : 0; }
    void Forgive() { end_ = 0; }

private:
    std::int64_t end_ = 0;  ///< of the rest
};

}  // namespace marvolin
