#include "filters.h"

#include <algorithm>

namespace marvolin::samples {

TwoPole::Outputs TwoPole::Next(double in, double hz, double resonance) {
    const double g = std::tan(std::numbers::pi * std::clamp(hz, 10.0, 18000.0) / kRate);
    const double k = 1 / resonance;
    const double a = 1 / (1 + g * (g + k));
    const double rest = in - second_;
    const double band = a * (first_ + g * rest);
    const double low = second_ + g * band;
    first_ = 2 * band - first_;
    second_ = 2 * low - second_;
    return {low, k * band, in - k * band - low};
}

double OnePole::Low(double in, double hz) {
    const double pole = std::exp(-kTwoPi * hz / kRate);
    held_ = in + pole * (held_ - in);
    return held_;
}

}  // namespace marvolin::samples
