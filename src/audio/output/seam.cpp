#include "audio/output/seam.h"

#include <algorithm>
#include <cstddef>

namespace marvolin {

namespace {

constexpr int kShortestPeriod = 32;
constexpr int kCompareEvery = 4;  // frames: enough to find a period by, in a quarter of the time
constexpr int kJoin = 32;         // frames in which a step to the next repetition is smoothed out

std::int16_t Between_rt(std::int16_t from, std::int16_t to, int step, int steps) noexcept {
    return static_cast<std::int16_t>(from + (to - from) * step / steps);
}

}  // namespace

// The distance at which what was heard last is most like what was heard before it.
int Seam::Period() const noexcept {
    std::array<std::int32_t, kHistory> sum{};
    for (std::size_t i = 0; i < sum.size(); ++i) sum[i] = (heard_[2 * i] + heard_[2 * i + 1]) / 2;
    int best = kShortestPeriod;
    double most = 0;
    for (int period = kShortestPeriod; period <= kLongestPeriod; ++period) {
        std::int64_t alike = 0;
        std::int64_t power = 1;
        for (int i = kHistory - kCompared; i < kHistory; i += kCompareEvery) {
            const std::int64_t earlier = sum[static_cast<std::size_t>(i - period)];
            alike += sum[static_cast<std::size_t>(i)] * earlier;
            power += earlier * earlier;
        }
        if (alike <= 0) continue;
        const double likeness = static_cast<double>(alike) * static_cast<double>(alike) / static_cast<double>(power);
        if (likeness <= most) continue;
        most = likeness;
        best = period;
    }
    return best;
}

void Seam::Open() noexcept {
    const int period = Period();
    const auto heard = [this](int frame, int side) { return heard_[static_cast<std::size_t>(2 * frame + side)]; };
    for (int i = 0; i < kLength; ++i) {
        for (int side = 0; side < 2; ++side) {
            const int step = heard(kHistory - 1, side) - heard(kHistory - 1 - period, side);
            const int value =
                heard(kHistory - period + i % period, side) + step * std::max(kJoin - i % period, 0) / (kJoin + 1);
            before_[static_cast<std::size_t>(2 * i + side)] =
                static_cast<std::int16_t>(std::clamp(value, INT16_MIN, INT16_MAX));
        }
    }
    left_ = kLength;
}

void Seam::Pass_rt(std::int16_t* frames, int count) noexcept {
    for (int i = 0; i < count && left_ > 0; ++i, --left_) {
        const int step = std::max(kFade + 1 - left_, 0);
        for (int side = 0; side < 2; ++side) {
            std::int16_t& sample = frames[2 * i + side];
            const std::int16_t before = before_[static_cast<std::size_t>(2 * (kLength - left_) + side)];
            sample = Between_rt(before, sample, step, kFade + 1);
        }
    }
    Remember_rt(frames, count);
}

void Seam::Remember_rt(const std::int16_t* frames, int count) noexcept {
    const int kept = std::max(kHistory - count, 0);
    std::copy(heard_.end() - 2 * kept, heard_.end(), heard_.begin());
    const int taken = kHistory - kept;
    std::copy(frames + 2 * (count - taken), frames + 2 * count, heard_.begin() + 2 * kept);
}

}  // namespace marvolin
