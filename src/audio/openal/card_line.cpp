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

// A quartz is wrong by less than a thousandth; a server that resamples, or a file as the output, may be far off.
constexpr double kSlowest = 2 * kNominal;
constexpr double kFastest = kNominal / 2;

// A callback further from the line than this and four periods does not belong to it. An early one shows that the device
// asks for more in advance. After one that is too late a burst may make up for the time, so the line waits before it
// starts anew.
constexpr double kTooEarly = 0.02 * kSecond;
constexpr double kTooLate = 0.1 * kSecond;
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
    course_ = 0;
    frames_ = 0;
    earliest_ = {};
    Publish_rt(0);
}

void CardLineFilter::Called_rt(std::int64_t nanoseconds, std::int64_t frames) noexcept {
    const std::int64_t passed = frames - frames_;
    frames_ = frames;
    if (course_ == 0) {
        Restart_rt(nanoseconds);
        return Publish_rt(nanoseconds);
    }
    expected_ += static_cast<double>(passed) * nanosecondsAFrame_;
    const double error = static_cast<double>(nanoseconds - begin_) - expected_;
    const double jitter = 4 * period_ * kNominal;
    if (error > kTooLate + jitter) {
        if (!late_) lateSince_ = nanoseconds;
        late_ = true;
        if (nanoseconds - lateSince_ > kPatience) Restart_rt(nanoseconds);
        return Publish_rt(nanoseconds);
    }
    late_ = false;
    if (error < -kTooEarly - jitter) {
        Restart_rt(nanoseconds);
    } else {
        Follow_rt(nanoseconds, error, passed);
    }
    Publish_rt(nanoseconds);
}

void CardLineFilter::Restart_rt(std::int64_t nanoseconds) noexcept {
    ++course_;
    begin_ = nanoseconds;
    expected_ = 0;
    nanosecondsAFrame_ = kNominal;
    late_ = false;
}

void CardLineFilter::Follow_rt(std::int64_t nanoseconds, double error, std::int64_t frames) noexcept {
    if (frames <= 0) return;
    const bool isWide = nanoseconds - begin_ < kWideTime;
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
    sharedCourse_.store(course_, std::memory_order_release);
    sharedAt_.store(nanoseconds, std::memory_order_release);
    sharedFrames_.store(static_cast<double>(frames_) + since / nanosecondsAFrame_, std::memory_order_release);
    sharedPace_.store(1 / nanosecondsAFrame_, std::memory_order_release);
    sharedGiven_.store(frames_ + period_, std::memory_order_release);
    version_.store(version + 2, std::memory_order_release);
}

std::optional<CardLine> CardLineFilter::Read() const {
    // The writer may be held up in the middle; a reader that has the line before goes on along that.
    for (int i = 0; i < kTries; ++i) {
        const std::uint32_t version = version_.load(std::memory_order_acquire);
        CardLine line;
        line.Course = sharedCourse_.load(std::memory_order_acquire);
        line.At = sharedAt_.load(std::memory_order_acquire);
        line.Frames = sharedFrames_.load(std::memory_order_acquire);
        line.Pace = sharedPace_.load(std::memory_order_acquire);
        line.Given = sharedGiven_.load(std::memory_order_acquire);
        if (version % 2 == 0 && version_.load(std::memory_order_relaxed) == version) return line;
    }
    return std::nullopt;
}

}  // namespace marvolin
