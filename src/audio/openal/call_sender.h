#pragma once
/// \file
/// The user-interface thread's end of the ring: gives each call its frame.

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "audio/openal/call_ring.h"
#include "audio/openal/card_clock.h"

namespace marvolin {

/// When a call is to be heard.
enum class Pace : std::uint8_t {
    OnFrame,  ///< at the group's instant and the lead, by a tick and by hand: starts and jumps
    Soon,     ///< the same in a tick; by hand as soon as can be
};

/// Gives calls their frames and writes them into the ring. The calls of a group of the clock are held back until it
/// ends and are heard together:
///
/// - those of a tick at its instant and the lead;
/// - those of a gesture that contains a call `OnFrame` at its instant and the lead, the others too;
/// - those of one that has lasted longer than the budget for lateness at its end and the lead;
/// - those of another gesture as soon as can be.
///
/// No call precedes an earlier one to the same voice. A voice that has to wait for its own earlier calls keeps the
/// whole gesture waiting if it contains a start, a stop or a jump, else each voice waits for itself. It does not keep a
/// tick: the steps of other voices stay on their grid.
///
/// A full ring makes nobody wait: what finds no room follows later, in order. Meanwhile a newer value or jump of a
/// voice replaces the older one, unless a start or stop lies between them.
class CallSender {
public:
    explicit CallSender(CallRing& ring);

    /// From now on calls follow `clock`. Null: every call is to be heard as soon as can be.
    void SetClock(std::shared_ptr<CardClock> clock);

    /// Takes a call, whose `Frame` and `Soon` it sets. `last` is the frame of the last call to the same voice. It is
    /// brought up to date when the group ends, so it must live until then or be forgotten.
    void Post(const Call& call, Pace pace, std::int64_t& last);
    /// `last` ends; the calls posted with it are still heard.
    void Forget(const std::int64_t& last);
    /// Holds calls back, as in a group, until as many `LetGo`. They are heard at one frame, in a tick too.
    void Hold();
    void LetGo();
    bool Holds() const { return holds_ > 0; }
    /// Shows the other thread everything posted so far, as far as there is room.
    void Flush();
    /// Something that takes long begins: what was called before it is heard meanwhile, and the rest of the gesture has
    /// an instant of its own.
    void Renew();
    /// True when the next call finds no room.
    bool Full() const { return !overflow_.empty() || ring_.Full(); }
    /// Calls on their way that the other thread has not taken yet.
    std::size_t Waiting() const { return overflow_.size() + ring_.Waiting(); }
    /// Writes what found no room, if there is room now.
    void CatchUp();
    /// How many calls found no room.
    std::uint64_t Overflowed() const { return overflowed_; }

private:
    struct HeldCall {
        Call What;
        Pace When = Pace::Soon;
        std::int64_t After = 0;        ///< the frame of the last call to the voice
        std::int64_t* Last = nullptr;  ///< null when it is forgotten
    };

    bool Holding() const { return holds_ > 0 || (clock_ && clock_->InGroup()); }
    bool OnFrame() const;
    /// What is held is heard at one frame, though a voice has to wait for its own earlier calls.
    bool StaysTogether() const;
    /// The frame at which a group is heard whose calls are on a frame.
    std::int64_t FrameOfGroup();
    void Release();
    void Write(const Call& call);
    /// The call in `overflow_` that a newer one makes of no account; null when there is none.
    Call* Superseded(const Call& call);

    CallRing& ring_;
    std::shared_ptr<CardClock> clock_;
    int holds_ = 0;
    std::vector<HeldCall> held_;
    CallTime time_;             ///< of what is held
    bool together_ = false;     ///< something held is to be heard at one frame even in a tick
    std::int64_t highest_ = 0;  ///< the highest frame given to a group
    Instant highestAt_ = 0;     ///< the instant, with the lead, to which it belonged
    std::int64_t lowest_ = 0;   ///< no group gets a lower frame
    /// Found no room. A card that never asks makes it no longer than voices and starts and stops are many.
    std::deque<Call> overflow_;
    std::uint64_t overflowed_ = 0;
};

}  // namespace marvolin
