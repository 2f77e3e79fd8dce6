#include "audio/openal/call_sender.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace marvolin {

namespace {

constexpr Instant kBudget = Instant{kLatenessBudget} * kFramesASecond / 1000;

/// A start, a stop or a jump: what belongs together must not come apart.
bool MovesTheCursor(CallKind kind) {
    return kind == CallKind::Play || kind == CallKind::Stop || kind == CallKind::Jump;
}

/// A newer call of this kind to the same voice makes an older one of no account.
bool Supersedes(CallKind kind) {
    switch (kind) {
        case CallKind::Gains:
        case CallKind::Pitch:
        case CallKind::Place:
        case CallKind::Distances:
        case CallKind::Rolloff:
        case CallKind::ListenerPlace:
        case CallKind::ListenerTurn:
        case CallKind::Jump:
            return true;
        default:
            return false;
    }
}

}  // namespace

CallSender::CallSender(CallRing& ring) : ring_(ring) { held_.reserve(ring.Room()); }

void CallSender::SetClock(std::shared_ptr<CardClock> clock) {
    Flush();
    clock_ = std::move(clock);
    if (clock_) clock_->Renew();
}

void CallSender::Post(const Call& call, Pace pace, std::int64_t& last) {
    if (held_.empty()) time_ = clock_ ? clock_->TimeOfCall() : CallTime{};
    held_.push_back({call, pace, last, &last});
    // A group that fills half of the ring is not held back any longer: it would fill the ring before its end.
    if (!Holding() || held_.size() >= ring_.Room() / 2) Release();
}

void CallSender::Forget(const std::int64_t& last) {
    for (HeldCall& held : held_)
        if (held.Last == &last) held.Last = nullptr;
}

bool CallSender::OnFrame() const {
    const auto isOnFrame = [](const HeldCall& held) { return held.When == Pace::OnFrame; };
    return clock_ && (time_.InTick || std::any_of(held_.begin(), held_.end(), isOnFrame));
}

std::int64_t CallSender::FrameOfGroup() {
    Instant at = time_.At;
    if (time_.Moves) {
        const auto now = static_cast<Instant>(std::floor(clock_->Now()));
        if (now - at > kBudget) at = now;
    }
    at += clock_->Lead();
    // The card has lost its place and an instant has a lower frame now. Voices that have been called and voices that
    // have not would come apart.
    if (clock_->FrameOf(highestAt_) < highest_) lowest_ = highest_;
    const std::int64_t frame = std::max(clock_->FrameOf(at), lowest_);
    if (frame > highest_) {
        highest_ = frame;
        highestAt_ = at;
    }
    return frame;
}

bool CallSender::StaysTogether() const {
    if (together_) return true;
    return !time_.InTick &&
           std::any_of(held_.begin(), held_.end(), [](const HeldCall& held) { return MovesTheCursor(held.What.Kind); });
}

void CallSender::Release() {
    if (held_.empty()) return;
    const bool onFrame = OnFrame();
    std::int64_t frame = onFrame ? FrameOfGroup() : 0;
    if (StaysTogether())
        for (const HeldCall& held : held_) frame = std::max(frame, held.After);
    for (HeldCall& held : held_) {
        held.What.Frame = std::max(frame, held.After);
        held.What.Soon = !onFrame;
        if (held.Last != nullptr) *held.Last = held.What.Frame;
        Write(held.What);
    }
    held_.clear();
    together_ = holds_ > 0;
    ring_.Publish();
}

void CallSender::Write(const Call& call) {
    if (overflow_.empty() && ring_.Write(call)) return;
    ++overflowed_;
    if (Call* older = Superseded(call))
        *older = call;
    else
        overflow_.push_back(call);
}

Call* CallSender::Superseded(const Call& call) {
    if (!Supersedes(call.Kind)) return nullptr;
    for (auto older = overflow_.rbegin(); older != overflow_.rend(); ++older) {
        if (older->Voice != call.Voice) continue;
        if (older->Kind == call.Kind) return &*older;
        // A start is heard with what was called before it, and starts and stops are all kept.
        if (!Supersedes(older->Kind)) return nullptr;
    }
    return nullptr;
}

void CallSender::Hold() {
    ++holds_;
    together_ = true;
}

void CallSender::LetGo() {
    if (--holds_ > 0) return;
    if (held_.empty()) together_ = false;
    if (!Holding()) Release();
}

void CallSender::Flush() {
    Release();
    CatchUp();
}

void CallSender::Renew() {
    Flush();
    if (clock_) clock_->Renew();
}

void CallSender::CatchUp() {
    if (overflow_.empty()) return;
    while (!overflow_.empty() && ring_.Write(overflow_.front())) overflow_.pop_front();
    ring_.Publish();
}

}  // namespace marvolin
