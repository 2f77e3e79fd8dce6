#pragma once
/// \file
/// Which axis of a device becomes which axis of the state record.

#include <cstdint>
#include <span>
#include <vector>

namespace marvolin {

/// Offsets of the axes in the state record.
enum AxisOffset : std::int32_t {
    kNoOffset = -1,
    kOffsetX = 0,
    kOffsetY = 4,
    kOffsetZ = 8,
    kOffsetRX = 12,
    kOffsetRY = 16,
    kOffsetRZ = 20,
    kOffsetSlider0 = 24,
    kOffsetSlider1 = 28,
};

/// Offset of each axis when only their number is known. Axes after the eighth have none.
std::vector<std::int32_t> AxisOffsetsByCount(int axes);

/// Offset of each axis from its Linux code, in rising order (0 X, 1 Y, 2 Z, 3 RX, 4 RY, 5 RZ, 6 throttle, 7 rudder,
/// ...). Where the device has no Z axis its throttle is one, and without RZ its rudder is.
std::vector<std::int32_t> AxisOffsetsByCodes(std::span<const int> codes);

}  // namespace marvolin
