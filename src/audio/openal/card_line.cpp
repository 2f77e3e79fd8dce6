#include "audio/openal/card_line.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "core/card_time.h"

namespace marvolin {

namespace {

constexpr double kSecond = 1e9;  // nanoseconds
constexpr double kMillisecond = kSecond / 1000;
constexpr double kNominal = kSecond / kFramesASecond;

// The loop of F. Adriaensen, "Using a DLL to filter time", 2005: of second order, with b = sqrt(2) w, c = w * w and
// w = 2 pi B T for a bandwidth B and the time T between two observations. It is wide until it has found the line, then
// narrow.
constexpr double kWide = 1.0;    // Hz
constexpr double kNarrow = 0.1;  // Hz
constexpr std::int64_t kWideTime = 4'000'000'000;
// With long periods the jitter of a single one would bend the line.
constexpr double kLargestW = 0.1;

// A quartz is wrong by less than a thousandth, the clock of a virtual machine by a hundredth or so.
constexpr double kSlowest = kNominal * 1.02;
constexpr double kFastest = kNominal / 1.02;

// A callback further from the line than this and some periods does not belong to it. An early one shows that the device
// asks for more in advance. After one that is late a burst may make up for the time, so the line waits before it
// concludes that the device has lost its place.
constexpr double kTooEarly = 20 * kMillisecond;
constexpr double kTooLate = 5 * kMillisecond;
constexpr std::int64_t kPatience = 200'000'000;
// A device that asks far in advance and comes back to its place is expected to do so again if it has done it twice
// within this time.
constexpr std::int64_t kAgain = 30'000'000'000;

// The earliest callback is forgotten so slowly that one every quarter of a minute still counts.
constexpr double kForgotten = 0.1 * kMillisecond / kSecond;

// How much earlier still the line runs: for what the mean line may wander, for what has been forgotten, and, until it
// is known how the device asks, for callbacks that are earlier than those seen so far.
constexpr double kGuard = 0.25 * kMillisecond;
constexpr double kGuardOfSpread = 1.0 / 4;
constexpr double kFirstGuard = 5 * kMillisecond;
// Long periods or bursts tell little in the same time.
constexpr double kGuardOfBurst = 0.015;
constexpr double kFirstGuardOfBurst = 0.08;

// Pieces in which the pace is measured.
constexpr std::int64_t kStretch = 400'000'000;  // nanoseconds
// A driver that never waits makes one endless burst.
constexpr std::int64_t kLongestStretch = 600'000'000;
// Some milliseconds of jitter may fall into a stretch.
constexpr double kMostOff = 0.025;
// A server that asks for more in advance, or that makes up for a pause, is too fast in one of them or in two.
constexpr int kStretches = 3;

constexpr int kTries = 4;

}  // namespace

void PaceWatch::Add_rt(std::int64_t nanoseconds, std::int64_t frames, bool endsBurst) noexcept {
    const std::int64_t passed = nanoseconds - begin_;
    if (hasBegun_ && passed < (endsBurst ? kStretch : kLongestStretch)) return;
    if (hasBegun_) {
        const double off = static_cast<double>(frames - frames_) * kNominal / static_cast<double>(passed) - 1;
        fast_ = off > kMostOff ? fast_ + 1 : 0;
        if (fast_ >= kStretches) keepsTime_ = false;
        if (std::abs(off) <= kMostOff) keepsTime_ = !isLost_;
    }
    hasBegun_ = true;
    begin_ = nanoseconds;
    frames_ = frames;
}

void CardLineFilter::Start(int period) {
    period_ = period;
    burst_ = period;
    isRunning_ = false;
    last_ = 0;
    frames_ = 0;
    wasEarly_ = isEarlyAgain_ = false;
    watch_ = {};
    Publish_rt();
}

void CardLineFilter::Called_rt(std::int64_t nanoseconds, std::int64_t frames, bool hasGone) noexcept {
    if (hasGone) watch_.Lose_rt();
    const std::int64_t last = std::exchange(last_, nanoseconds);
    if (!isRunning_) {
        isRunning_ = true;
        begin_ = nanoseconds;
        frames_ = frames;
        Restart_rt();
        return Publish_rt();
    }
    const auto passed = static_cast<double>(nanoseconds - last);
    const bool endsBurst = passed >= 0.5 * period_ * kNominal;
    const bool keptTime = watch_.KeepsTime_rt();
    watch_.Add_rt(last, frames_, endsBurst);
    if (endsBurst) EndBurst_rt(last);
    expected_ += static_cast<double>(frames - frames_) * nanosecondsAFrame_;
    earliest_ = std::max(earliest_ - passed * kForgotten, 0.0);
    frames_ = frames;
    if (keptTime && watch_.KeepsTime_rt())
        Judge_rt();
    else
        Restart_rt();
    Publish_rt();
}

void CardLineFilter::EndBurst_rt(std::int64_t nanoseconds) noexcept {
    isFirstBurst_ = false;
    expectedEarly_ = earliest_;
    const std::int64_t frames = frames_ - std::exchange(observed_, frames_);
    if (frames <= 0 || lateSince_ != 0) return;
    burst_ = frames;
    const double error = static_cast<double>(nanoseconds - begin_) - expected_;
    const double bandwidth = Wideness_rt() > 0 ? kWide : kNarrow;
    const double w =
        std::min(2 * std::numbers::pi * bandwidth * static_cast<double>(frames) / kFramesASecond, kLargestW);
    const double moved = std::numbers::sqrt2 * w * error;
    expected_ += moved;
    // The line that is published stays.
    earliest_ = std::max(earliest_ + moved, 0.0);
    nanosecondsAFrame_ =
        std::clamp(nanosecondsAFrame_ + w * w * error / static_cast<double>(frames), kFastest, kSlowest);
}

void CardLineFilter::Judge_rt() noexcept {
    const double error = Error_rt();
    const bool isTooEarly = error < -kTooEarly - 4 * period_ * kNominal - expectedEarly_;
    if (isTooEarly) {
        isEarlyAgain_ = wasEarly_ && last_ - earlyAt_ < kAgain;
        wasEarly_ = true;
        earlyAt_ = last_;
    }
    // The burst in which the line was put elsewhere may go on.
    if (isTooEarly || (isFirstBurst_ && error < 0)) return Restart_rt();
    earliest_ = std::max(earliest_, -error);
    JudgeLate_rt(error);
}

void CardLineFilter::JudgeLate_rt(double error) noexcept {
    if (error <= kTooLate + 2 * period_ * kNominal) {
        lateSince_ = 0;
        return;
    }
    leastLate_ = lateSince_ == 0 ? error : std::min(leastLate_, error);
    if (lateSince_ == 0) lateSince_ = last_;
    if (last_ - lateSince_ <= kPatience) return;
    expected_ += leastLate_;
    if (isEarlyAgain_) earliest_ += leastLate_;
    wideSince_ = last_;
    lateSince_ = 0;
}

// The line goes through the last callback.
void CardLineFilter::Restart_rt() noexcept {
    expected_ = static_cast<double>(last_ - begin_);
    nanosecondsAFrame_ = kNominal;
    observed_ = frames_;
    earliest_ = expectedEarly_ = 0;
    wideSince_ = last_;
    isFirstBurst_ = true;
    lateSince_ = 0;
}

// From 1 to 0 while the line is being found.
double CardLineFilter::Wideness_rt() const noexcept {
    return std::max(1 - static_cast<double>(last_ - wideSince_) / kWideTime, 0.0);
}

// Readers take a line only when the version was even before and the same after. Each field is stored with release and
// loaded with acquire, so whoever reads a new field also sees the odd version that came before it.
void CardLineFilter::Publish_rt() noexcept {
    const double burst = static_cast<double>(burst_) * kNominal;
    const double guard = kGuard + kGuardOfBurst * burst + kGuardOfSpread * earliest_ +
                         (kFirstGuard + kFirstGuardOfBurst * burst) * Wideness_rt();
    const double since = Error_rt() + earliest_ + guard;
    const std::uint32_t version = version_.load(std::memory_order_relaxed);
    version_.store(version + 1, std::memory_order_relaxed);
    sharedKeepsTime_.store(watch_.KeepsTime_rt(), std::memory_order_release);
    sharedAt_.store(last_, std::memory_order_release);
    sharedFrames_.store(static_cast<double>(frames_) + since / nanosecondsAFrame_, std::memory_order_release);
    sharedPace_.store(isRunning_ ? 1 / nanosecondsAFrame_ : 0, std::memory_order_release);
    sharedGiven_.store(frames_ + period_, std::memory_order_release);
    version_.store(version + 2, std::memory_order_release);
}

std::optional<CardLine> CardLineFilter::Read() const {
    // The writer may be held up in the middle; a reader that has the line before goes on along that.
    for (int i = 0; i < kTries; ++i) {
        const std::uint32_t version = version_.load(std::memory_order_acquire);
        CardLine line;
        line.KeepsTime = sharedKeepsTime_.load(std::memory_order_acquire);
        line.At = sharedAt_.load(std::memory_order_acquire);
        line.Frames = sharedFrames_.load(std::memory_order_acquire);
        line.Pace = sharedPace_.load(std::memory_order_acquire);
        line.Given = sharedGiven_.load(std::memory_order_acquire);
        if (version % 2 == 0 && version_.load(std::memory_order_relaxed) == version) return line;
    }
    return std::nullopt;
}

}  // namespace marvolin
