#pragma once
/// \file
/// The real audio service on a card's clock, with time and callbacks made by hand.

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>

#include "audio/loopback_rig.h"

namespace marvolin::test {

/// The steady clock, advanced by hand.
struct HandTime {
    std::atomic<std::int64_t> Nanoseconds{0};
    std::shared_ptr<CardClock> MakeClock() {
        return std::make_shared<CardClock>([this] { return Nanoseconds.load(); });
    }
    void PassFrames(double frames) { Nanoseconds += static_cast<std::int64_t>(frames * 1e9 / kFramesASecond); }
};

/// Made before the rig that uses the clock.
struct ClockedParts {
    HandTime Time;
    std::shared_ptr<CardClock> Clock = Time.MakeClock();
};

class ClockedRig : protected ClockedParts, public LoopbackRig {
protected:
    static constexpr int kPeriod = 128;
    static constexpr int kLevel = 20000;

    explicit ClockedRig(int period = kPeriod) : LoopbackRig(Clock, period), period_(period) {}

    /// Callbacks of one period each, on time, until `frames` frames have been rendered. The sound is appended to `All`.
    void Play(int frames) {
        for (int done = 0; done < frames; done += period_) {
            Callback(period_);
            Time.PassFrames(period_);
        }
    }
    void Callback(int frames) {
        const Heard heard = Render(frames);
        All.Left.insert(All.Left.end(), heard.Left.begin(), heard.Left.end());
        All.Right.insert(All.Right.end(), heard.Right.begin(), heard.Right.end());
    }
    int Rendered() const { return static_cast<int>(All.Left.size()); }
    /// The frame of the device at which a call of a tick at `at` is heard when it is made now.
    int FrameOf(Instant at) const { return static_cast<int>(Clock->FrameOf(at + Clock->Lead())); }
    /// The instant of a tick whose calls, made now, are heard at a frame of the device.
    Instant InstantFor(int frame) const {
        const auto now = static_cast<Instant>(Clock->Now());
        return now + frame - FrameOf(now);
    }
    /// The first frame from `from` on at which the left side is louder than `level`; -1 when there is none.
    int Onset(int from = 0, int level = kLevel / 2) const {
        for (int i = from; i < Rendered(); ++i)
            if (std::abs(All.Left[static_cast<std::size_t>(i)]) > level) return i;
        return -1;
    }
    int LeftAt(int frame) const { return All.Left[static_cast<std::size_t>(frame)]; }
    CallCounts Counts() const { return OpenAlCallCounts(*root_); }

    int period_;
    Heard All;
};

}  // namespace marvolin::test
