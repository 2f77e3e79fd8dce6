#pragma once
/// \file
/// The user-interface thread's end of the ring: gives each call its frame.

#include <cstdint>
#include <deque>
#include <memory>

#include "audio/openal/call_ring.h"
#include "audio/openal/card_clock.h"

namespace marvolin {

/// When a call is to be heard.
enum class Pace : std::uint8_t {
    OnFrame,  ///< at the group's instant and the lead, by a tick and by hand: starts and jumps
    Soon,     ///< the same in a tick; by hand as soon as can be
};

/// Stamps calls and writes them into the ring. While a group of the clock is open they are held back, so that they are
/// heard together. A full ring makes nobody wait: what finds no room follows later, in order.
class CallSender {
public:
    explicit CallSender(CallRing& ring) : ring_(ring) {}

    /// From now on calls follow `clock`. Null: every call is to be heard as soon as can be.
    void SetClock(std::shared_ptr<CardClock> clock);

    /// Sets `Frame` and `Soon` of a call. `last` is the frame of the last call to the same voice, which no later call
    /// may precede; it is brought up to date.
    void Stamp(Call& call, Pace pace, std::int64_t& last) const;
    void Write(const Call& call);
    /// Holds calls back until as many `LetGo`.
    void Hold() { ++holds_; }
    void LetGo();
    /// Shows the other thread everything written so far, as far as there is room.
    void Flush();
    /// True when the next call finds no room.
    bool Full() const { return !overflow_.empty() || ring_.Full(); }
    /// Writes what found no room, if there is room now.
    void CatchUp();
    /// How many calls found no room.
    std::uint64_t Overflowed() const { return overflowed_; }

private:
    bool Holding() const { return holds_ > 0 || (clock_ && clock_->InGroup()); }

    CallRing& ring_;
    int holds_ = 0;
    std::shared_ptr<CardClock> clock_;
    std::deque<Call> overflow_;
    std::uint64_t overflowed_ = 0;
};

}  // namespace marvolin
