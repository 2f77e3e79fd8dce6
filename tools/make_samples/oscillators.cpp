#include "oscillators.h"

namespace marvolin::samples {
namespace {

/// The polynomial that rounds the jump of a saw over the two frames beside it, which removes most of the aliasing.
double RoundedJump(double at, double step) {
    if (at < step) {
        const double x = at / step;
        return x + x - x * x - 1;
    }
    if (at > 1 - step) {
        const double x = (at - 1) / step;
        return x * x + x + x + 1;
    }
    return 0;
}

}  // namespace

double Sine(Phase& phase, double hz) { return std::sin(kTwoPi * phase.Advance(hz)); }

double Saw(Phase& phase, double hz) {
    const double at = phase.Advance(hz);
    return -(2 * at - 1 - RoundedJump(at, phase.Step()));
}

double Pulse(Phase& phase, double hz, double width) {
    const double at = phase.Advance(hz);
    double fall = at + 1 - width;
    fall -= std::floor(fall);
    return (at < width ? 1.0 : -1.0) + RoundedJump(at, phase.Step()) - RoundedJump(fall, phase.Step());
}

double Triangle(Phase& phase, double hz) { return 1 - 4 * std::fabs(phase.Advance(hz) - 0.5); }

}  // namespace marvolin::samples
