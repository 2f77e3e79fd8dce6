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
constexpr double kFirstLost = 0.005 * kFramesASecond;
constexpr std::int64_t kFirstTime = 500'000'000;  // ns

// How far ahead of a card that stands still a call may be placed.
constexpr std::int64_t kFurthest = kFramesASecond / 4;

// Groups that nest deeper than this allocate.
constexpr std::size_t kDeepest = 16;

double BendOf(double ahead) { return std::clamp(std::abs(ahead) / kBendTime, kLeastBend, kMostBend); }

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
    if (isOpen_)
        if (const auto line = filter_.Read()) line_ = *line;
    const auto passed = static_cast<double>(read_ - before);
    if (!FollowsCard() || IsLost(Ahead() - passed * kPace)) {
        now_ += passed * kPace;
        if (line_.Pace != 0) origin_ = std::llround(now_ - line_.FramesAt(read_));
    } else {
        const double step = passed * line_.Pace;
        const double ahead = Ahead() - step;
        const double bend = step * BendOf(ahead);
        now_ += step + std::clamp(ahead, -bend, bend);
    }
    return now_;
}

// Right after the opening nothing is heard yet: a device that fills a long buffer first is caught up with at once.
bool CardClock::IsLost(double ahead) {
    if (!begin_) begin_ = read_;
    return std::abs(ahead) > kLost || (ahead > kFirstLost && read_ - *begin_ < kFirstTime);
}

std::int64_t CardClock::Until(double place) {
    const double frames = place - Now();
    if (frames <= 0) return 0;
    if (!FollowsCard()) return std::llround(std::ceil(frames / kPace));
    const double ahead = Ahead();
    // Until they agree, the clock bends less and less when it is far behind, so this is the time at the earliest.
    const double bend = ahead > 0 ? BendOf(ahead) : -kLeastBend;
    const double bent = (1 + bend) * ahead / bend;
    const double sooner = frames < bent ? frames / (1 + bend) : frames - ahead;
    return std::llround(std::ceil(sooner / line_.Pace));
}

void CardClock::Begin(std::optional<Instant> at) {
    if (flush_ && !groups_.empty()) flush_();
    groups_.push_back({at, at.has_value(), false});
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
    isOpen_ = true;
    line_ = {};
    begin_.reset();
    origin_ = static_cast<Instant>(std::floor(Now()));
    return origin_;
}

void CardClock::Close() {
    Now();
    period_ = 0;
    isOpen_ = false;
    line_ = {};
}

int CardClock::Lead() const { return period_ + kLatenessBudget * kFramesASecond / 1000 + kFramesForCalls; }

std::int64_t CardClock::FrameOf(Instant instant) const {
    const std::int64_t frame = instant - origin_;
    return line_.Pace == 0 ? frame : std::min(frame, line_.Given + Lead() + 3 * std::int64_t{period_} + kFurthest);
}

CallTime CardClock::TimeOfCall() {
    if (groups_.empty()) return {static_cast<Instant>(std::floor(Now())), false, true};
    Group& group = groups_.back();
    if (!group.At) group.At = static_cast<Instant>(std::floor(Now()));
    return {*group.At, group.IsTick, !group.IsTick || group.WasRenewed};
}

void CardClock::Renew() {
    if (groups_.empty()) return;
    Group& group = groups_.back();
    group.WasRenewed = true;
    if (!group.IsTick) group.At.reset();
}

}  // namespace marvolin
