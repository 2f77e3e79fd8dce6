#include "audio/openal/pace_watch.h"

#include <cmath>

#include "core/card_time.h"

namespace marvolin {

namespace {

constexpr std::int64_t kStretch = 400'000'000;  // nanoseconds
constexpr double kNanosecondsAFrame = 1e9 / kFramesASecond;
// A driver that never waits makes one endless burst.
constexpr std::int64_t kLongestStretch = 600'000'000;
// Some milliseconds of jitter may fall into a stretch.
constexpr double kMostOff = 0.025;
// A server that asks for more in advance, or that makes up for a pause, is too fast in one of them or in two.
constexpr int kStretches = 3;

}  // namespace

void PaceWatch::Add_rt(std::int64_t nanoseconds, std::int64_t frames, bool endsBurst) noexcept {
    const std::int64_t passed = nanoseconds - begin_;
    if (hasBegun_ && passed < (endsBurst ? kStretch : kLongestStretch)) return;
    if (hasBegun_) {
        const double off = static_cast<double>(frames - frames_) * kNanosecondsAFrame / static_cast<double>(passed) - 1;
        fast_ = off > kMostOff ? fast_ + 1 : 0;
        if (fast_ >= kStretches) keepsTime_ = false;
        if (std::abs(off) <= kMostOff) keepsTime_ = true;
    }
    hasBegun_ = true;
    begin_ = nanoseconds;
    frames_ = frames;
}

}  // namespace marvolin
