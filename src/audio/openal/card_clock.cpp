#include "audio/openal/card_clock.h"

#include <chrono>
#include <cmath>

namespace marvolin {

CardClock::CardClock(Steady steady) : steady_(std::move(steady)) {
    if (!steady_) {
        steady_ = [] {
            return std::int64_t{std::chrono::duration_cast<std::chrono::nanoseconds>(
                                    std::chrono::steady_clock::now().time_since_epoch())
                                    .count()};
        };
    }
}

double CardClock::Now() { return static_cast<double>(steady_()) * kFramesASecond / 1e9; }

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
    period_ = period;
    return static_cast<Instant>(std::floor(Now()));
}

void CardClock::Close() { period_ = 0; }

void CardClock::Called_rt(std::int64_t, std::int64_t) noexcept {}

int CardClock::Lead() const { return period_ + kLatenessBudget * kFramesASecond / 1000; }

CallTime CardClock::TimeOfCall() {
    if (groups_.empty()) return {static_cast<Instant>(std::floor(Now())), false};
    Group& group = groups_.back();
    if (!group.At) group.At = static_cast<Instant>(std::floor(Now()));
    return {*group.At, group.IsTick};
}

}  // namespace marvolin
