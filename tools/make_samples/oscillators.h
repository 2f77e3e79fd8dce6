#pragma once

#include "signal.h"

namespace marvolin::samples {

/// A phase that wraps in 0..1. One object for each oscillator; the shapes read it.
class Phase {
public:
    explicit Phase(double start = 0) : at_(start) {}

    /// Advances by one frame at `hz` and returns the phase before that.
    double Advance(double hz) {
        const double now = at_;
        step_ = hz / kRate;
        at_ += step_;
        at_ -= std::floor(at_);
        return now;
    }

    /// The part of a turn of the last step; needed to round the corners of the shapes.
    double Step() const { return step_; }

private:
    double at_;
    double step_ = 0;
};

/// Next frame of a sine at `hz`.
double Sine(Phase& phase, double hz);

/// Next frame of a band-limited falling saw at `hz`, -1..1.
double Saw(Phase& phase, double hz);

/// Next frame of a band-limited pulse at `hz`, high for the share `width` (0..1) of a turn.
double Pulse(Phase& phase, double hz, double width);

/// Next frame of a triangle at `hz`, -1..1.
double Triangle(Phase& phase, double hz);

}  // namespace marvolin::samples
