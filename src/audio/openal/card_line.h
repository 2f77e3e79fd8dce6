#pragma once
/// \file
/// The line through the times at which the card asks for sound.

#include <atomic>
#include <cstdint>
#include <optional>

namespace marvolin {

/// The frames of one device against the steady clock, as of one callback.
struct CardLine {
    bool KeepsTime = true;   ///< false: the callbacks come faster than a card's, so no clock may follow them
    std::int64_t At = 0;     ///< nanoseconds of the steady clock
    double Frames = 0;       ///< where the line is at `At`
    double Pace = 0;         ///< frames a nanosecond, about the nominal one; 0 before the first callback
    std::int64_t Given = 0;  ///< frames that the card has been given, those of this callback included

    double FramesAt(std::int64_t nanoseconds) const { return Frames + static_cast<double>(nanoseconds - At) * Pace; }
};

/// Whether a device asks for sound as a card does: measures the pace of the callbacks of one device. When a device has
/// been pulled out, its driver goes on asking after pauses of its own, up to four tenths too fast; a file as the output
/// asks as fast as it can be written.
class PaceWatch {
public:
    /// The callback at `nanoseconds` of the steady clock has been given `frames` frames before. `endsBurst`: the next
    /// one did not follow at once, so that the pace can be measured here.
    void Add_rt(std::int64_t nanoseconds, std::int64_t frames, bool endsBurst) noexcept;
    /// False once the pace has been higher than any card's for more than a second, until it has been right for a good
    /// third of one. Too slow a pace is that of a card which loses its place now and then.
    bool KeepsTime_rt() const noexcept { return keepsTime_; }
    /// The device has gone: it never keeps time again.
    void Lose_rt() noexcept {
        isLost_ = true;
        keepsTime_ = false;
    }

private:
    bool hasBegun_ = false;
    std::int64_t begin_ = 0;  // of the stretch that is being measured
    std::int64_t frames_ = 0;
    int fast_ = 0;  // stretches in a row
    bool keepsTime_ = true;
    bool isLost_ = false;
};

/// Filters the times of the callbacks. One thread writes it and one other reads it; neither waits for the other.
///
/// When the card asks, the line has reached the frames that were given before: it runs through the earliest callbacks,
/// which are those at the end of a burst, and a late one does not move it.
class CardLineFilter {
public:
    /// A device that renders `period` frames at a time opens. No callback runs meanwhile.
    void Start(int period);
    /// The card asks at `nanoseconds` of the steady clock and has been given `frames` frames so far. `hasGone`: it was
    /// pulled out, and its driver asks in its place.
    void Called_rt(std::int64_t nanoseconds, std::int64_t frames, bool hasGone = false) noexcept;
    /// The newest line; nothing while the other thread is writing it.
    std::optional<CardLine> Read() const;

private:
    // The callback before, at `nanoseconds`, was the last of a burst: the mean line takes it into account.
    void EndBurst_rt(std::int64_t nanoseconds) noexcept;
    // What the last callback says of the line.
    void Judge_rt() noexcept;
    void JudgeLate_rt(double error) noexcept;
    void Restart_rt() noexcept;
    void Publish_rt() noexcept;
    double Error_rt() const noexcept { return static_cast<double>(last_ - begin_) - expected_; }
    double Wideness_rt() const noexcept;

    // Of the callback's thread.
    int period_ = 0;
    bool isRunning_ = false;
    std::int64_t begin_ = 0;     // the first callback
    std::int64_t last_ = 0;      // the last callback
    std::int64_t frames_ = 0;    // given before it
    std::int64_t observed_ = 0;  // given before the last one of a burst
    std::int64_t burst_ = 0;     // frames of the last burst
    double expected_ = 0;        // when the mean line reaches `frames_`: nanoseconds from `begin_`
    double nanosecondsAFrame_ = 1;
    double earliest_ = 0;       // by how much callbacks came before the mean line: nanoseconds
    double expectedEarly_ = 0;  // `earliest_` before the burst that is going on
    std::int64_t wideSince_ = 0;
    bool isFirstBurst_ = false;   // since the line was put elsewhere
    std::int64_t lateSince_ = 0;  // 0 while the callbacks are not late
    double leastLate_ = 0;        // since then
    bool wasEarly_ = false;       // `earlyAt_` is the last callback that was too early to belong to the line
    std::int64_t earlyAt_ = 0;
    bool isEarlyAgain_ = false;  // not long after another one
    PaceWatch watch_;

    std::atomic<std::uint32_t> version_{0};  // odd while the fields below are being written
    std::atomic<bool> sharedKeepsTime_{true};
    std::atomic<std::int64_t> sharedAt_{0};
    std::atomic<double> sharedFrames_{0};
    std::atomic<double> sharedPace_{0};
    std::atomic<std::int64_t> sharedGiven_{0};
};

}  // namespace marvolin
