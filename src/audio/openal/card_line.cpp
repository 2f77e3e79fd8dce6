#include "audio/openal/card_line.h"

#include <algorithm>
#include <numbers>

#include "core/card_time.h"

namespace marvolin {

namespace {

constexpr double kSecond = 1e9;  // nanoseconds
constexpr double kNominal = kSecond / kFramesASecond;

// The loop of F. Adriaensen, "Using a DLL to filter time", 2005: of second order, with b = sqrt(2) w, c = w * w and
// w = 2 pi B T for a bandwidth B and the time T between two callbacks. It is wide until it has found the line, then
// narrow.
constexpr double kWide = 1.0;    // Hz
constexpr double kNarrow = 0.1;  // Hz
constexpr std::int64_t kWideTime = 4'000'000'000;
// With long periods the jitter of a single one would bend the line.
constexpr double kLargestW = 0.1;

// A quartz is wrong by less than a thousandth, a server that resamples by more. What is faster or slower still, as a
// file as the output may be, is followed by shifts.
constexpr double kSlowest = kNominal * 1.02;
constexpr double kFastest = kNominal / 1.02;

// A callback further from the line than this and some periods does not belong to it. An early one shows that the device
// asks for more in advance. After one that is late a burst may make up for the time, so the line waits before it
// concludes that the device has lost its place.
constexpr double kTooEarly = 0.02 * kSecond;
constexpr double kTooLate = 0.005 * kSecond;
constexpr std::int64_t kPatience = 200'000'000;

// The earliest callback counts for one to two of these.
constexpr std::int64_t kStretch = 5'000'000'000;
constexpr std::int64_t kWideStretch = 250'000'000;

// What the mean line itself may wander while it is narrow.
constexpr double kGuard = 0.00025 * kSecond;

constexpr int kTries = 4;

}  // namespace

void CardLineFilter::Earliest::Add_rt(std::int64_t nanoseconds, double early, std::int64_t stretch) noexcept {
    if (nanoseconds - since_ > stretch) {
        before_ = now_;
        now_ = 0;
        since_ = nanoseconds;
    }
    now_ = std::max(now_, early);
}

void CardLineFilter::Start(int period) {
    period_ = period;
    isRunning_ = false;
    frames_ = 0;
    expected_ = 0;
    nanosecondsAFrame_ = kNominal;
    lateSince_ = 0;
    earliest_ = {};
    Publish_rt(0);
}

void CardLineFilter::Called_rt(std::int64_t nanoseconds, std::int64_t frames) noexcept {
    const std::int64_t passed = frames - frames_;
    frames_ = frames;
    if (!isRunning_) {
        isRunning_ = true;
        begin_ = wideSince_ = nanoseconds;
        return Publish_rt(nanoseconds);
    }
    expected_ += static_cast<double>(passed) * nanosecondsAFrame_;
    const double error = static_cast<double>(nanoseconds - begin_) - expected_;
    if (error < -kTooEarly - 4 * period_ * kNominal) {
        Shift_rt(nanoseconds, error);
    } else if (!IsLate_rt(nanoseconds, error)) {
        Follow_rt(nanoseconds, error, passed);
    }
    Publish_rt(nanoseconds);
}

bool CardLineFilter::IsLate_rt(std::int64_t nanoseconds, double error) noexcept {
    if (error <= kTooLate + 2 * period_ * kNominal) {
        lateSince_ = 0;
        return false;
    }
    leastLate_ = lateSince_ == 0 ? error : std::min(leastLate_, error);
    if (lateSince_ == 0) lateSince_ = nanoseconds;
    if (nanoseconds - lateSince_ > kPatience) Shift_rt(nanoseconds, leastLate_);
    return true;
}

void CardLineFilter::Shift_rt(std::int64_t nanoseconds, double error) noexcept {
    expected_ += error;
    wideSince_ = nanoseconds;
    lateSince_ = 0;
}

void CardLineFilter::Follow_rt(std::int64_t nanoseconds, double error, std::int64_t frames) noexcept {
    if (frames <= 0) return;
    const bool isWide = nanoseconds - wideSince_ < kWideTime;
    const double bandwidth = isWide ? kWide : kNarrow;
    const double w =
        std::min(2 * std::numbers::pi * bandwidth * static_cast<double>(frames) / kFramesASecond, kLargestW);
    expected_ += std::numbers::sqrt2 * w * error;
    nanosecondsAFrame_ =
        std::clamp(nanosecondsAFrame_ + w * w * error / static_cast<double>(frames), kFastest, kSlowest);
    earliest_.Add_rt(nanoseconds, expected_ - static_cast<double>(nanoseconds - begin_),
                     isWide ? kWideStretch : kStretch);
}

// Readers take a line only when the version was even before and the same after. Each field is stored with release and
// loaded with acquire, so whoever reads a new field also sees the odd version that came before it.
void CardLineFilter::Publish_rt(std::int64_t nanoseconds) noexcept {
    const double since = static_cast<double>(nanoseconds - begin_) - expected_ + earliest_.Nanoseconds() + kGuard;
    const std::uint32_t version = version_.load(std::memory_order_relaxed);
    version_.store(version + 1, std::memory_order_relaxed);
    sharedAt_.store(nanoseconds, std::memory_order_release);
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
        line.At = sharedAt_.load(std::memory_order_acquire);
        line.Frames = sharedFrames_.load(std::memory_order_acquire);
        line.Pace = sharedPace_.load(std::memory_order_acquire);
        line.Given = sharedGiven_.load(std::memory_order_acquire);
        if (version % 2 == 0 && version_.load(std::memory_order_relaxed) == version) return line;
    }
    return std::nullopt;
}

}  // namespace marvolin
