#include "audio/openal/card_clock.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace marvolin {

namespace {

constexpr double kPace = kFramesASecond / 1e9;  // frames a nanosecond

// How much faster or slower than the card the clock may run until both agree: by so much and, further away, as much
// more as brings them together within half a second or so.
constexpr double kLeastBend = 0.02;
constexpr double kMostBend = 0.5;
constexpr double kBendTime = 0.25 * kFramesASecond;
// So far away there is nothing left to keep together.
constexpr double kLost = 0.25 * kFramesASecond;

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
    const double card = static_cast<double>(origin_) + line_.FramesAt(read_);
    if (line_.Pace == 0 || following_ == Following::Lost || std::abs(card - now_ - passed * kPace) > kLost) {
        now_ += passed * kPace;
        if (line_.Pace != 0) origin_ = std::llround(now_ - line_.FramesAt(read_));
    } else {
        const double step = passed * line_.Pace;
        const double ahead = card - now_ - step;
        const double bend = step * std::clamp(std::abs(ahead) / kBendTime, kLeastBend, kMostBend);
        now_ += step + std::clamp(ahead, -bend, bend);
    }
    return now_;
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
    return line_.Pace == 0 ? frame : std::min(frame, line_.Given + Lead() + 3 * std::int64_t{period_} + kFurthest);
}

CallTime CardClock::TimeOfCall() {
    if (groups_.empty()) return {static_cast<Instant>(std::floor(Now())), false};
    Group& group = groups_.back();
    if (!group.At) group.At = static_cast<Instant>(std::floor(Now()));
    return {*group.At, group.IsTick};
}

}  // namespace marvolin
