#pragma once
/// \file
/// The card's clock, made from the times at which the card asks for sound.

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/card_time.h"

namespace marvolin {

/// Lateness of the event loop, in milliseconds, within which nothing is heard late.
inline constexpr int kLatenessBudget = 4;

/// What a call of the sound service is to be heard at.
struct CallTime {
    Instant At = 0;        ///< the group's instant, or the moment of the call
    bool InTick = false;   ///< the group is a tick: even a continuous value waits for `At` + `Lead`
};

/// A straight line from the system's steady clock to the frames of the card, and the open groups. It outlives the
/// devices: one that opens goes on where the clock stands.
class CardClock final : public CardTime {
public:
    /// Nanoseconds of a clock that never goes back.
    using Steady = std::function<std::int64_t()>;
    /// Without an argument: the system's steady clock.
    explicit CardClock(Steady steady = {});

    double Now() override;
    void Begin(std::optional<Instant> at) override;
    void End() override;

    /// A device that renders `period` frames at a time opens; its frame 0 stands at the instant returned.
    Instant Open(int period);
    /// The device closes; the clock goes on by the steady clock. Its callback has ended before.
    void Close();
    /// Called by the callback of the open device, before it renders: the card asks at `nanoseconds` of the steady clock
    /// and has been given `frames` frames so far.
    void Called_rt(std::int64_t nanoseconds, std::int64_t frames) noexcept;
    /// Now, on the steady clock, for `Called_rt`.
    std::int64_t Steadily() const { return steady_(); }

    /// Frames between an instant and the frame at which it is heard: a period of the open device and the budget.
    int Lead() const;

    /// The time of a call that is made now.
    CallTime TimeOfCall();
    /// True while a group is open: calls may be held back until it ends.
    bool InGroup() const { return !groups_.empty(); }
    /// `flush` is called when a group ends or an inner one begins: the calls made so far are complete. One at a time;
    /// null for none.
    void SetFlush(std::function<void()> flush) { flush_ = std::move(flush); }

private:
    struct Group {
        std::optional<Instant> At;
        bool IsTick = false;
    };
    Steady steady_;
    std::vector<Group> groups_;
    std::function<void()> flush_;
    int period_ = 0;
};

}  // namespace marvolin
