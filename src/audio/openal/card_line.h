#pragma once
/// \file
/// The line through the times at which the card asks for sound.

#include <atomic>
#include <cstdint>
#include <optional>

namespace marvolin {

/// The frames of one device against the steady clock, as of one callback.
struct CardLine {
    std::int64_t At = 0;     ///< nanoseconds of the steady clock
    double Frames = 0;       ///< where the line is at `At`
    double Pace = 0;         ///< frames a nanosecond; 0 before the first callback
    std::int64_t Given = 0;  ///< frames that the card has been given, those of this callback included

    double FramesAt(std::int64_t nanoseconds) const { return Frames + static_cast<double>(nanoseconds - At) * Pace; }
};

/// Filters the times of the callbacks. One thread writes it and one other reads it; neither waits for the other.
///
/// When the card asks, the line has reached the frames that were given before: it follows the earliest callbacks of the
/// last seconds, which are those at the end of a burst, and a late one does not move it.
class CardLineFilter {
public:
    /// A device that renders `period` frames at a time opens. No callback runs meanwhile.
    void Start(int period);
    /// The card asks at `nanoseconds` of the steady clock and has been given `frames` frames so far.
    void Called_rt(std::int64_t nanoseconds, std::int64_t frames) noexcept;
    /// The newest line; nothing while the other thread is writing it.
    std::optional<CardLine> Read() const;

private:
    /// How much earlier than the mean the earliest callback of the last seconds came.
    class Earliest {
    public:
        void Add_rt(std::int64_t nanoseconds, double early, std::int64_t stretch) noexcept;
        double Nanoseconds() const { return now_ > before_ ? now_ : before_; }

    private:
        double now_ = 0;     // of the stretch that runs
        double before_ = 0;  // of the stretch before it
        std::int64_t since_ = 0;
    };

    bool IsLate_rt(std::int64_t nanoseconds, double error) noexcept;
    void Shift_rt(std::int64_t nanoseconds, double error) noexcept;
    void Follow_rt(std::int64_t nanoseconds, double error, std::int64_t frames) noexcept;
    void Publish_rt(std::int64_t nanoseconds) noexcept;

    // Of the callback's thread.
    int period_ = 0;
    bool isRunning_ = false;
    std::int64_t begin_ = 0;   // the first callback
    std::int64_t frames_ = 0;  // given before the last callback
    double expected_ = 0;      // when the mean line reaches them: nanoseconds from `begin_`
    double nanosecondsAFrame_ = 1;
    std::int64_t wideSince_ = 0;
    std::int64_t lateSince_ = 0;  // 0 while the callbacks are not late
    double leastLate_ = 0;
    Earliest earliest_;

    std::atomic<std::uint32_t> version_{0};  // odd while the fields below are being written
    std::atomic<std::int64_t> sharedAt_{0};
    std::atomic<double> sharedFrames_{0};
    std::atomic<double> sharedPace_{0};
    std::atomic<std::int64_t> sharedGiven_{0};
};

}  // namespace marvolin
