#include "audio/openal/call_sender.h"

#include <algorithm>
#include <utility>

namespace marvolin {

void CallSender::SetClock(std::shared_ptr<CardClock> clock) {
    Flush();
    clock_ = std::move(clock);
}

void CallSender::Stamp(Call& call, Pace pace, std::int64_t& last) const {
    std::int64_t frame = 0;
    call.Soon = true;
    if (clock_) {
        const CallTime time = clock_->TimeOfCall();
        if (time.InTick || pace == Pace::OnFrame) {
            frame = clock_->FrameOf(time.At + clock_->Lead());
            call.Soon = false;
        }
    }
    call.Frame = last = std::max(frame, last);
}

void CallSender::Write(const Call& call) {
    if (!overflow_.empty() || !ring_.Write(call)) {
        overflow_.push_back(call);
        ++overflowed_;
    }
    // A group that fills half of the ring is not held back any longer: it would fill the ring before its end.
    if (!Holding() || ring_.Held() >= ring_.Room() / 2) ring_.Publish();
}

void CallSender::LetGo() {
    if (--holds_ == 0 && !Holding()) ring_.Publish();
}

void CallSender::Flush() {
    CatchUp();
    ring_.Publish();
}

void CallSender::CatchUp() {
    if (overflow_.empty()) return;
    while (!overflow_.empty() && ring_.Write(overflow_.front())) overflow_.pop_front();
    ring_.Publish();
}

}  // namespace marvolin
