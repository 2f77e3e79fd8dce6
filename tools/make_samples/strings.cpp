#include "strings.h"

#include "envelopes.h"
#include "filters.h"
#include "noise.h"

namespace marvolin::samples {

Signal Plucked(double hz, double seconds, double brightness, double held, std::uint32_t seed) {
    const double damp = 0.12;
    Signal voice(FramesOf(std::min(seconds, held + damp)));
    // The mean of two neighbours delays by half a frame; the rest of the period is the ring and a first-order all-pass.
    const double turn = kRate / hz - 0.5;
    const auto whole = static_cast<std::size_t>(turn - 0.3);
    const double part = turn - static_cast<double>(whole);
    const double tuning = (1 - part) / (1 + part);
    Signal ring(whole);
    Noise noise(seed);
    OnePole softness;
    double mean = 0;
    for (double& value : ring) mean += value = softness.Low(noise.Next(), 900 + 9000 * brightness);
    mean /= static_cast<double>(whole);
    for (double& value : ring) value -= mean;

    const double gain = std::pow(10.0, -3 / (seconds * hz));
    double last = 0;
    double passIn = 0;
    double passOut = 0;
    for (std::size_t i = 0, at = 0; i < voice.size(); ++i, at = (at + 1) % whole) {
        const double now = ring[at];
        const double smooth = (now + last) / 2;
        last = now;
        passOut = tuning * (smooth - passOut) + passIn;
        passIn = smooth;
        ring[at] = passOut * gain;
        const double time = static_cast<double>(i) / kRate;
        voice[i] = now * Attack(time, 0.002) * SoftRise(static_cast<double>(voice.size()) / kRate - time, damp);
    }
    return voice;
}

}  // namespace marvolin::samples
