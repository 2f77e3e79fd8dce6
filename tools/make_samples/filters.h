#pragma once

#include "signal.h"

namespace marvolin::samples {

/// A two-pole filter with low, band and high output at once, stable while its cutoff moves.
class TwoPole {
public:
    struct Outputs {
        double low;
        double band;  ///< About 1 at the cutoff, whatever the resonance.
        double high;
    };

    /// Filters one frame. `hz` is limited to 10..18000; `resonance` is 0.5 (dull) to about 12 (whistling).
    Outputs Next(double in, double hz, double resonance);

    double Low(double in, double hz, double resonance = 0.707) { return Next(in, hz, resonance).low; }
    double Band(double in, double hz, double resonance) { return Next(in, hz, resonance).band; }
    double High(double in, double hz, double resonance = 0.707) { return Next(in, hz, resonance).high; }

private:
    double first_ = 0;
    double second_ = 0;
};

/// A one-pole low pass, 6 dB an octave.
class OnePole {
public:
    double Low(double in, double hz);
    double High(double in, double hz) { return in - Low(in, hz); }

private:
    double held_ = 0;
};

}  // namespace marvolin::samples
