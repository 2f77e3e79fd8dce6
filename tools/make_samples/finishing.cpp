#include "finishing.h"

#include <algorithm>
#include <cmath>

#include "envelopes.h"

namespace marvolin::samples {
namespace {

void Scale(Clip& clip, double gain) {
    for (Signal& channel : clip.channels) {
        for (double& value : channel) value *= gain;
    }
}

void TakeConstantAway(Clip& clip) {
    for (Signal& channel : clip.channels) {
        double sum = 0;
        for (const double value : channel) sum += value;
        const double mean = sum / static_cast<double>(channel.size());
        for (double& value : channel) value -= mean;
    }
}

/// Linear up to the knee, then bent towards kLoopPeak, which it never exceeds.
double Bend(double value) {
    constexpr double kKnee = 0.19;
    const double size = std::fabs(value);
    if (size <= kKnee) return value;
    const double room = kLoopPeak - kKnee;
    return std::copysign(kKnee + room * std::tanh((size - kKnee) / room), value);
}

void BendPeaks(Clip& clip) {
    for (Signal& channel : clip.channels) {
        for (double& value : channel) value = Bend(value);
    }
}

void EndInSilence(Clip& clip) {
    const double length = static_cast<double>(clip.Frames()) / kRate;
    for (Signal& channel : clip.channels) {
        for (std::size_t i = 0; i < channel.size(); ++i) {
            channel[i] *= SoftRise(length - static_cast<double>(i + 1) / kRate, 0.02);
        }
    }
}

}  // namespace

double Loudness(const Clip& clip) {
    double sum = 0;
    for (const Signal& channel : clip.channels) {
        for (const double value : channel) sum += value * value;
    }
    return std::sqrt(sum / static_cast<double>(clip.Frames() * clip.channels.size()));
}

double Peak(const Clip& clip) {
    double peak = 0;
    for (const Signal& channel : clip.channels) {
        for (const double value : channel) peak = std::max(peak, std::fabs(value));
    }
    return peak;
}

void Finish(Clip& clip, double loudness) {
    TakeConstantAway(clip);
    if (clip.loops) {
        // Bending lowers the loudness a little, so repeat; a few passes are enough.
        for (int turn = 0; turn < 4; ++turn) {
            Scale(clip, loudness / Loudness(clip));
            BendPeaks(clip);
        }
    } else {
        EndInSilence(clip);
        Scale(clip, kPeak / Peak(clip));
    }
    TakeConstantAway(clip);
}

}  // namespace marvolin::samples
