#pragma once
/// \file
/// Applies the calls at their frames.

#include <atomic>
#include <cstdint>
#include <vector>

#include "audio/openal/call_ring.h"
#include "audio/openal/schedule.h"
#include "audio/openal/voice_player.h"

namespace marvolin {

/// The voices and the listener on the thread that renders, and the frame at which the device stands. All but `Count` is
/// for that thread, with the mixer's context current and its sources held (`SourceGate`). Allocates nothing after it is
/// made.
class CallApplier {
public:
    /// Calls applied before a piece is rendered, however many are due: a period must not be missed. More are only those
    /// of a frame at which something starts.
    static constexpr int kMostCalls = 256;

    /// For at most `voices` voices at a time.
    CallApplier(CallRing& ring, std::size_t voices);

    /// Applies what is due, and returns how many of the next `left` frames to render before the next time.
    int Prepare_rt(int left) noexcept;
    void Rendered_rt(int frames) noexcept { position_ += frames; }
    /// Tells the other thread where every voice stands.
    void Publish_rt() noexcept;
    /// Applies everything in the ring, whenever it is due.
    void ApplyAll_rt() noexcept;
    /// Frames rendered so far.
    std::int64_t Position() const { return position_; }

    /// Adds the figures of this side. Any thread.
    void Count(CallCounts& counts) const;

private:
    void Take_rt() noexcept;
    void ApplyDue_rt() noexcept;
    void CatchUp_rt() noexcept;
    void CountLate_rt(const Call& call) noexcept;
    void Apply_rt(const Call& call) noexcept;
    void ApplyToVoice_rt(VoicePlayer& voice, const Call& call) noexcept;
    void Detach_rt(VoicePlayer& voice) noexcept;

    CallRing& ring_;
    Schedule schedule_;
    std::vector<VoicePlayer*> voices_;
    float rolloff_ = 1;
    std::int64_t position_ = 0;
    std::atomic<std::uint64_t> late_{0};
    std::atomic<std::int64_t> longestLate_{0};
};

}  // namespace marvolin
