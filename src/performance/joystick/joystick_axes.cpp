#include "performance/joystick/joystick_axes.h"

#include <algorithm>
#include <array>

namespace marvolin {

namespace {

constexpr int kThrottle = 6;
constexpr int kRudder = 7;

/// The first of the wanted offsets that no axis has yet; `kNoOffset` when all are taken.
std::int32_t FirstFree(const std::vector<std::int32_t>& taken, std::initializer_list<std::int32_t> wanted) {
    for (const std::int32_t offset : wanted) {
        if (std::find(taken.begin(), taken.end(), offset) == taken.end()) return offset;
    }
    return kNoOffset;
}

}  // namespace

std::vector<std::int32_t> AxisOffsetsByCount(int axes) {
    // Four axes are most often stick, throttle and twist; six and more come in the order of the record.
    static constexpr std::array<std::int32_t, 5> kStick{kOffsetX, kOffsetY, kOffsetZ, kOffsetRZ, kOffsetSlider0};
    std::vector<std::int32_t> offsets;
    for (int axis = 0; axis < axes; ++axis) {
        if (axes <= static_cast<int>(kStick.size())) {
            offsets.push_back(kStick[static_cast<std::size_t>(axis)]);
        } else {
            offsets.push_back(axis * 4 <= kOffsetSlider1 ? axis * 4 : kNoOffset);
        }
    }
    return offsets;
}

std::vector<std::int32_t> AxisOffsetsByCodes(std::span<const int> codes) {
    std::vector<std::int32_t> offsets;
    for (const int code : codes) {
        if (code < kThrottle) {
            offsets.push_back(code * 4);
        } else if (code == kThrottle) {
            offsets.push_back(FirstFree(offsets, {kOffsetZ, kOffsetSlider0, kOffsetSlider1}));
        } else if (code == kRudder) {
            offsets.push_back(FirstFree(offsets, {kOffsetRZ, kOffsetSlider0, kOffsetSlider1}));
        } else {
            offsets.push_back(FirstFree(offsets, {kOffsetSlider0, kOffsetSlider1}));
        }
    }
    return offsets;
}

}  // namespace marvolin
