#pragma once
/// \file
/// The clock of the sound card, on which everything happens that is heard.

#include <cstdint>
#include <optional>

namespace marvolin {

/// A place on the card's clock: frames of `kFramesASecond` since the program began.
using Instant = std::int64_t;
inline constexpr std::int32_t kFramesASecond = 44100;
/// Lateness of the event loop, in milliseconds, within which nothing is heard late.
inline constexpr std::int32_t kLatenessBudget = 4;
/// Half a millisecond: what comes at the end of the budget takes so long to make its calls and is still heard in time.
inline constexpr std::int32_t kFramesForCalls = 22;

/// The card's clock as the user-interface thread sees it, and the groups of calls of the sound service that are heard
/// at one frame. Every operation is for the user-interface thread.
class CardTime {
public:
    virtual ~CardTime() = default;
    /// Where the card's clock stands now, in frames: smooth, never going back, and going on without a device.
    virtual double Now() = 0;
    /// Nanoseconds until the clock stands at `place`, as far as is known; 0 when it has passed it. Rather too short
    /// than too long: whoever waits asks again.
    virtual std::int64_t Until(double place) = 0;
    /// Begins a group: the calls that are made until its end are heard together. `at` is the instant of a tick; without
    /// it the group belongs to a gesture, whose instant is the moment of its first call. Groups nest, because an event
    /// may wait for other events: an inner group is heard without waiting for the outer one, whose later calls then are
    /// a group of their own.
    virtual void Begin(std::optional<Instant> at) = 0;
    virtual void End() = 0;
};

/// A group that lasts as long as this object.
class CallGroup {
public:
    explicit CallGroup(CardTime& time, std::optional<Instant> at = std::nullopt) : time_(time) { time_.Begin(at); }
    ~CallGroup() { time_.End(); }
    CallGroup(const CallGroup&) = delete;
    CallGroup& operator=(const CallGroup&) = delete;

private:
    CardTime& time_;
};

}  // namespace marvolin
