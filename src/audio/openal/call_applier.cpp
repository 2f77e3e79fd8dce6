#include "audio/openal/call_applier.h"

#include <algorithm>

namespace marvolin {

namespace {

/// Calls that can wait for their frame. A tick makes a few, and the lead is shorter than one tick.
constexpr std::size_t kWaitingCalls = 4096;

void Increase(std::atomic<std::uint64_t>& count) { count.store(count.load(std::memory_order_relaxed) + 1); }

}  // namespace

CallApplier::CallApplier(CallRing& ring, std::size_t voices) : ring_(ring), schedule_(kWaitingCalls) {
    voices_.reserve(voices);
}

int CallApplier::Prepare_rt(int left) noexcept {
    CatchUp_rt();
    Take_rt();
    ApplyDue_rt();
    const int frames = schedule_.Piece_rt(position_, left);
    for (VoicePlayer* voice : voices_) voice->Prepare_rt(position_ + frames);
    return frames;
}

void CallApplier::ApplyDue_rt() noexcept {
    std::int64_t started = -1;
    int room = kMostCalls;
    while (const Call* call = schedule_.Due_rt(position_)) {
        // What starts on one frame is not torn apart.
        if (--room < 0 && call->Frame != started) return;
        if (IsStart(*call)) started = call->Frame;
        CountLate_rt(*call);
        Apply_rt(*call);
        schedule_.Drop_rt();
    }
}

void CallApplier::Publish_rt() noexcept {
    CatchUp_rt();
    for (VoicePlayer* voice : voices_) voice->Publish_rt();
}

void CallApplier::ApplyAll_rt() noexcept {
    CatchUp_rt();
    Take_rt();
    while (const Call* call = schedule_.Earliest_rt()) {
        Apply_rt(*call);
        schedule_.Drop_rt();
        Take_rt();
    }
    Publish_rt();
}

void CallApplier::Take_rt() noexcept {
    Call call;
    // No more than the ring holds, though the other thread may go on writing.
    for (std::size_t left = ring_.Room(); left > 0 && schedule_.HasRoom_rt() && ring_.Read_rt(call); --left)
        schedule_.Add_rt(call);
}

void CallApplier::CatchUp_rt() noexcept {
    for (VoicePlayer* voice : voices_) voice->CatchUp_rt(position_);
}

void CallApplier::CountLate_rt(const Call& call) noexcept {
    const std::int64_t late = position_ - call.Frame;
    // A call that starts nothing may be put off on purpose.
    if (call.Soon || late <= (IsStart(call) ? 0 : 2 * kShortestPiece)) return;
    Increase(late_);
    longestLate_.store(std::max(late, longestLate_.load(std::memory_order_relaxed)));
}

void CallApplier::Apply_rt(const Call& call) noexcept {
    const float* numbers = call.Numbers.data();
    switch (call.Kind) {
        case CallKind::Rolloff:
            rolloff_ = numbers[0];
            for (VoicePlayer* voice : voices_) voice->SetRolloff_rt(rolloff_);
            return;
        case CallKind::ListenerPlace:
            return alListener3f(AL_POSITION, numbers[0], numbers[1], numbers[2]);
        case CallKind::ListenerTurn:
            return alListenerfv(AL_ORIENTATION, numbers);
        case CallKind::Attach:
            voices_.push_back(call.Voice);
            return call.Voice->Attach_rt(call.Number, rolloff_);
        case CallKind::Detach:
            return Detach_rt(*call.Voice);
        default:
            return ApplyToVoice_rt(*call.Voice, call);
    }
}

void CallApplier::ApplyToVoice_rt(VoicePlayer& voice, const Call& call) noexcept {
    const float* numbers = call.Numbers.data();
    switch (call.Kind) {
        case CallKind::Switch:
            return voice.Switch_rt(*call.Sources);
        case CallKind::Play:
            return voice.Play_rt(call.Serial, call.Flag);
        case CallKind::Stop:
            return voice.Stop_rt(call.Serial, call.Number);
        case CallKind::Jump:
            return voice.Jump_rt(call.Serial, call.Number, call.Flag);
        case CallKind::Gains:
            return voice.SetGains_rt(numbers[0], numbers[1]);
        case CallKind::Pitch:
            return voice.SetPitch_rt(call.Number, position_);
        case CallKind::Place:
            return voice.SetPlace_rt(numbers);
        case CallKind::Distances:
            return voice.SetDistances_rt(numbers[0], numbers[1]);
        default:
            return;
    }
}

void CallApplier::Detach_rt(VoicePlayer& voice) noexcept {
    std::erase(voices_, &voice);
    voice.Detach_rt();
}

void CallApplier::Count(CallCounts& counts) const {
    counts.Late = late_.load();
    counts.LongestLate = longestLate_.load();
}

}  // namespace marvolin
