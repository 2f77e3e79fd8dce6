#include "audio/openal/card_clock.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace marvolin {

namespace {

constexpr double kPace = kFramesASecond / 1e9;  // frames a nanosecond

// How much faster or slower than the card the clock may run until both agree. Right after the opening, while it is
// being found out how the device asks, the clock hurries.
constexpr double kBend = 0.02;
constexpr double kFirstBend = 0.5;
constexpr std::int64_t kFirstTime = 300'000'000;  // ns

// How far ahead of a card that stands still a call may be placed.
constexpr std::int64_t kFurthest = kFramesASecond / 4;

// Groups that nest deeper than this allocate.
constexpr std::size_t kDeepest = 16;

}  // namespace

CardClock::CardClock(Steady steady) : steady_(std::move(steady)) {
    if (!steady_) {
        steady_ = [] {
            return std::int64_t{std::chrono::duration_cast<std::chrono::nanoseconds>(
                                    std::chrono::steady_clock::now().time_since_epoch())
                                    .count()};
        };
    }
    read_ = steady_();
    groups_.reserve(kDeepest);
}

double CardClock::Now() {
    const std::int64_t before = read_;
    read_ = std::max(steady_(), before);
    if (following_ != Following::Nothing)
        if (const auto line = filter_.Read()) line_ = *line;
    const auto passed = static_cast<double>(read_ - before);
    if (IsOnCourse(passed)) {
        FollowCard(passed);
        return now_;
    }
    now_ += passed * kPace;
    if (line_.Course != 0) {
        course_ = line_.Course;
        origin_ = std::llround(now_ - line_.FramesAt(read_));
    }
    return now_;
}

// A device that has just opened asks for frame 0 a little later: the origin stays, and the clock waits for it.
bool CardClock::IsOnCourse(double passed) {
    if (following_ != Following::Card || line_.Course == 0) return false;
    if (course_ == 0) {
        begin_ = read_;
        if (std::abs(Ahead() - passed * kPace) < kFirstBend * kFirstTime * kPace) course_ = line_.Course;
    }
    return course_ == line_.Course;
}

double CardClock::Ahead() const { return static_cast<double>(origin_) + line_.FramesAt(read_) - now_; }

void CardClock::FollowCard(double passed) {
    const double step = passed * line_.Pace;
    const double bend = step * (read_ - begin_ < kFirstTime ? kFirstBend : kBend);
    now_ += step + std::clamp(Ahead() - step, -bend, bend);
}

void CardClock::Begin(std::optional<Instant> at) {
    if (flush_ && !groups_.empty()) flush_();
    groups_.push_back({at, at.has_value()});
}

void CardClock::End() {
    if (flush_) flush_();
    groups_.pop_back();
    // What the outer group calls from now on is heard as a group of its own.
    if (!groups_.empty()) groups_.back() = {};
}

Instant CardClock::Open(int period) {
    filter_.Start(period);
    period_ = period;
    following_ = Following::Card;
    line_ = {};
    course_ = 0;
    origin_ = static_cast<Instant>(std::floor(Now()));
    return origin_;
}

void CardClock::Lose() {
    if (following_ == Following::Card) following_ = Following::Lost;
}

void CardClock::Close() {
    Now();
    period_ = 0;
    following_ = Following::Nothing;
    line_ = {};
}

int CardClock::Lead() const { return period_ + kLatenessBudget * kFramesASecond / 1000; }

std::int64_t CardClock::FrameOf(Instant instant) const {
    const std::int64_t frame = instant - origin_;
    return line_.Course == 0 ? frame : std::min(frame, line_.Given + Lead() + 3 * std::int64_t{period_} + kFurthest);
}

CallTime CardClock::TimeOfCall() {
    if (groups_.empty()) return {static_cast<Instant>(std::floor(Now())), false};
    Group& group = groups_.back();
    if (!group.At) group.At = static_cast<Instant>(std::floor(Now()));
    return {*group.At, group.IsTick};
}

}  // namespace marvolin
