#pragma once
/// \file
/// The card's clock, made from the times at which the card asks for sound.

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "audio/openal/card_line.h"
#include "core/card_time.h"

namespace marvolin {

/// What a call of the sound service is to be heard at.
struct CallTime {
    Instant At = 0;       ///< the group's instant, or the moment of the call
    bool InTick = false;  ///< the group is a tick: even a continuous value waits for `At` + `Lead`
    bool Moves = true;    ///< a group that lasts longer than the budget is heard at its end; a tick only after `Renew`
};

/// A straight line from the system's steady clock to the frames of the card, and the open groups. It outlives the
/// devices: one that opens goes on where the clock stands. One device is open at a time.
///
/// The clock follows the card by running a little faster or slower, never by a jump. When it is a quarter of a second
/// off, because the card stopped for long or the machine was suspended, the clock goes on and `FrameOf` changes
/// instead. So it does when a device has been pulled out and its driver asks at a pace of its own.
class CardClock final : public CardTime {
public:
    /// Nanoseconds of a clock that never goes back.
    using Steady = std::function<std::int64_t()>;
    /// Without an argument: the system's steady clock. `steady` is called by both threads.
    explicit CardClock(Steady steady = {});

    double Now() override;
    std::int64_t Until(double place) override;
    void Begin(std::optional<Instant> at) override;
    void End() override;

    /// A device that renders `period` frames at a time opens. Returns the instant of its frame 0, which stays unless
    /// the first callback is long in coming or the card loses its place; `FrameOf` always knows it.
    Instant Open(int period);
    /// The device closes; the clock goes on by the steady clock. Its callback has ended before.
    void Close();
    /// Called by the callback of the open device, before it renders: the card asks at `nanoseconds` of the steady clock
    /// and has been given `frames` frames so far. From the first call with `hasGone` on, the clock goes by the steady
    /// clock until another device opens.
    void Called_rt(std::int64_t nanoseconds, std::int64_t frames, bool hasGone = false) noexcept {
        filter_.Called_rt(nanoseconds, frames, hasGone);
    }
    /// Now, on the steady clock, for `Called_rt`.
    std::int64_t Steadily() const { return steady_(); }

    /// Frames between an instant and the frame at which it is heard: a period of the open device, the budget, and
    /// `kFramesForCalls`.
    int Lead() const;
    /// The frame of the open device at `instant`, negative before its frame 0. While the card stands still it is at
    /// most a quarter of a second ahead of what the card has been given, so that no calls pile up for later.
    std::int64_t FrameOf(Instant instant) const;

    /// The time of a call that is made now.
    CallTime TimeOfCall();
    /// The next call of an open gesture is the first of its rest and gives it an instant: what came in between took
    /// long. A tick keeps its instant as long as that can be heard in time.
    void Renew();
    /// True while a group is open: calls may be held back until it ends.
    bool InGroup() const { return !groups_.empty(); }
    /// `flush` is called when a group ends or an inner one begins: the calls made so far are complete. One at a time;
    /// null for none.
    void SetFlush(std::function<void()> flush) { flush_ = std::move(flush); }

private:
    struct Group {
        std::optional<Instant> At;
        bool IsTick = false;
        bool WasRenewed = false;
    };

    // True when the card's line is too far ahead of the clock, in frames, or behind it, to be followed.
    bool IsLost(double ahead);
    bool FollowsCard() const { return line_.Pace != 0 && line_.KeepsTime; }
    // How far the card's line is ahead of what was last returned, in frames.
    double Ahead() const { return static_cast<double>(origin_) + line_.FramesAt(read_) - now_; }

    Steady steady_;
    std::vector<Group> groups_;
    std::function<void()> flush_;

    int period_ = 0;
    bool isOpen_ = false;
    std::int64_t read_ = 0;              // when the steady clock was last read
    std::optional<std::int64_t> begin_;  // when the first callback was noticed
    double now_ = 0;                     // what was last returned
    Instant origin_ = 0;                 // instant of the device's frame 0
    CardLine line_;                      // the newest that was read
    CardLineFilter filter_;
};

}  // namespace marvolin
