#include "keys.h"

#include <array>

#include "envelopes.h"
#include "filters.h"
#include "oscillators.h"

namespace marvolin::samples {
namespace {

/// A voice of `seconds` from a function of the time.
template <class Frame>
Signal Voice(double seconds, const Frame& frame) {
    Signal voice(FramesOf(seconds));
    for (std::size_t i = 0; i < voice.size(); ++i) voice[i] = frame(static_cast<double>(i) / kRate);
    return voice;
}

}  // namespace

Signal SawChoir(double hz, double length, double rise, double fall) {
    constexpr std::array<double, 5> kDetune = {-0.0065, -0.0029, 0, 0.0033, 0.0061};
    // The saws start at different phases; otherwise all five would begin with one large edge.
    std::array<Phase, 5> phases = {Phase(0.11), Phase(0.37), Phase(0.59), Phase(0.73), Phase(0.91)};
    return Voice(length, [&, hz, length, rise, fall](double time) {
        double sum = 0;
        for (std::size_t i = 0; i < phases.size(); ++i) sum += Saw(phases[i], hz * (1 + kDetune[i]));
        return 0.35 * sum * Held(time, length, rise, fall);
    });
}

Signal Stab(double hz, double length) {
    std::array<Phase, 3> phases = {Phase(0.2), Phase(0.5), Phase(0.8)};
    TwoPole filter;
    return Voice(length + 0.1, [&, hz, length](double time) {
        const double wave =
            Saw(phases[0], hz * 0.996) + Saw(phases[1], hz * 1.004) + 0.6 * Pulse(phases[2], hz / 2, 0.5);
        const double cutoff = 500 + 5200 * Decay(time, 0.3);
        return 0.4 * filter.Low(wave, cutoff, 1.8) * Held(time, length + 0.1, 0.003, 0.1);
    });
}

Signal TinePiano(double hz, double length, double touch) {
    Phase tone;
    Phase tine;
    double seconds = 3.2;
    return Voice(length + 0.15, [&, hz, length, touch, seconds](double time) {
        const double ring = std::sin(kTwoPi * tine.Advance(hz * 14)) * 0.25 * touch * Decay(time, 0.5);
        const double bark = std::sin(kTwoPi * tone.Advance(hz)) * (0.3 + 1.1 * touch * Decay(time, 1.0));
        const double out = std::sin(kTwoPi * hz * time + bark) + ring * 0.5;
        return out * Decay(time, seconds) * Attack(time, 0.002) * SoftRise(length + 0.15 - time, 0.15);
    });
}

Signal Bell(double hz, double seconds, double touch) {
    Phase first;
    Phase second;
    return Voice(seconds, [&, hz, seconds, touch](double time) {
        const double shimmer = Sine(first, hz * 3.503) * 2.2 * touch * Decay(time, seconds * 0.35);
        const double body = Sine(second, hz * 1.0015) * 0.6 * Decay(time, seconds * 0.6);
        const double out =
            0.7 * std::sin(kTwoPi * hz * time + shimmer) + 0.4 * std::sin(kTwoPi * hz * 2.0 * time + body);
        return out * Decay(time, seconds) * Attack(time, 0.0015) * SoftRise(seconds - time, 0.05);
    });
}

Signal Marimba(double hz, double touch) {
    Phase tone;
    Phase fourth;
    Phase tenth;
    return Voice(0.9, [&, hz, touch](double time) {
        const double out = Sine(tone, hz) * Decay(time, 0.9) +
                           0.35 * touch * Sine(fourth, hz * 3.93) * Decay(time, 0.25) +
                           0.2 * touch * Sine(tenth, hz * 9.6) * Decay(time, 0.06);
        return out * Attack(time, 0.0015) * SoftRise(0.9 - time, 0.05);
    });
}

Signal Lead(double hz, double fromHz, double length, double touch) {
    Phase saw;
    Phase pulse(0.4);
    Phase sway;
    TwoPole filter;
    return Voice(length + 0.08, [&, hz, fromHz, length, touch](double time) {
        const double glide = hz + (fromHz - hz) * Decay(time, 0.12);
        const double vibrato = 1 + 0.007 * SoftRise(time - 0.2, 0.35) * Sine(sway, 5.5);
        const double wave = 0.6 * Saw(saw, glide * vibrato) + 0.5 * Pulse(pulse, glide * vibrato * 0.999, 0.35);
        const double cutoff = 900 + 2600 * touch * (0.4 + 0.6 * Decay(time, 0.6));
        return filter.Low(wave, cutoff, 1.3) * Held(time, length + 0.08, 0.012, 0.08);
    });
}

}  // namespace marvolin::samples
