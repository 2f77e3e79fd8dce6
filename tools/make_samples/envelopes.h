#pragma once

#include <algorithm>

#include "signal.h"

namespace marvolin::samples {

/// A fall from 1 that reaches a thousandth (-60 dB) after `seconds`.
inline double Decay(double time, double seconds) { return std::exp(-6.9078 * time / seconds); }

/// A straight rise from 0 to 1 in `seconds`.
inline double Attack(double time, double seconds) { return seconds <= 0 ? 1 : std::clamp(time / seconds, 0.0, 1.0); }

/// A rise from 0 to 1 in `seconds` along half a cosine; soft at both ends.
inline double SoftRise(double time, double seconds) {
    return 0.5 - 0.5 * std::cos(std::numbers::pi * Attack(time, seconds));
}

/// The envelope of a held note: rises softly, holds, falls softly so that it is 0 at `length`.
inline double Held(double time, double length, double rise, double fall) {
    return SoftRise(time, rise) * SoftRise(length - time, fall);
}

}  // namespace marvolin::samples
