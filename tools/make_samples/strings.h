#pragma once

#include <cstdint>

#include "signal.h"

namespace marvolin::samples {

/// A plucked string: a short noise in a tuned, damped delay loop. `seconds` is the time to -60 dB, `brightness` (0..1)
/// how much of the pluck's edge remains, `held` the seconds until a finger damps it.
Signal Plucked(double hz, double seconds, double brightness, double held, std::uint32_t seed);

}  // namespace marvolin::samples
