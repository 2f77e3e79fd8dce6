#include "audio/output/seam.h"

#include <algorithm>

namespace marvolin {

namespace {

std::int16_t Between_rt(std::int16_t from, std::int16_t to, int step, int steps) noexcept {
    return static_cast<std::int16_t>(from + (to - from) * step / steps);
}

}  // namespace

void Seam::Open() noexcept {
    before_ = heard_;
    left_ = kLength;
}

void Seam::Pass_rt(std::int16_t* frames, int count) noexcept {
    for (int i = 0; i < count && left_ > 0; ++i, --left_) {
        const int step = std::max(kFade + 1 - left_, 0);
        for (int side = 0; side < 2; ++side) {
            std::int16_t& sample = frames[2 * i + side];
            const auto mirrored = static_cast<std::size_t>(2 * (left_ - 1) + side);
            sample = Between_rt(before_[mirrored], sample, step, kFade + 1);
        }
    }
    Remember_rt(frames, count);
}

void Seam::Remember_rt(const std::int16_t* frames, int count) noexcept {
    const int kept = std::max(kLength - count, 0);
    std::copy(heard_.end() - 2 * kept, heard_.end(), heard_.begin());
    const int taken = kLength - kept;
    std::copy(frames + 2 * (count - taken), frames + 2 * count, heard_.begin() + 2 * kept);
}

}  // namespace marvolin
