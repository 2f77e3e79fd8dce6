#include "drums.h"

#include <array>

#include "envelopes.h"
#include "filters.h"
#include "noise.h"
#include "oscillators.h"

namespace marvolin::samples {
namespace {

double TimeOf(std::size_t frame) { return static_cast<double>(frame) / kRate; }

}  // namespace

Signal Struck(const DrumHead& head, std::uint32_t seed) {
    Signal voice(FramesOf(head.seconds));
    Phase phase;
    Noise noise(seed);
    TwoPole tick;
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = TimeOf(i);
        const double hz = head.hz + (head.topHz - head.hz) * Decay(time, head.fall);
        const double body = Sine(phase, hz) * Decay(time, head.seconds) * Attack(time, 0.001);
        const double click = tick.Band(noise.Next(), 3200, 1.2) * Decay(time, 0.02) * head.click;
        voice[i] = std::tanh(1.6 * body) / std::tanh(1.6) + click;
    }
    return voice;
}

Signal Snare(double seconds, std::uint32_t seed) {
    Signal voice(FramesOf(seconds + 0.08));
    Phase low;
    Phase high;
    Noise noise(seed);
    TwoPole wires;
    TwoPole sizzle;
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = TimeOf(i);
        const double bend = 1 + 0.35 * Decay(time, 0.05);
        const double head =
            0.55 * Sine(low, 182 * bend) * Decay(time, 0.16) + 0.3 * Sine(high, 331 * bend) * Decay(time, 0.1);
        const double white = noise.Next();
        const double rattle = 0.55 * wires.Band(white, 2300, 0.7) + 0.35 * sizzle.High(white, 5200);
        voice[i] = std::tanh(1.3 * (head + rattle * Decay(time, seconds))) * Attack(time, 0.0006);
    }
    return voice;
}

Signal Metal(double seconds, double cutHz, std::uint32_t seed) {
    constexpr std::array<double, 6> kTones = {263.1, 400.7, 421.3, 474.9, 587.2, 845.6};
    Signal voice(FramesOf(seconds));
    std::array<Phase, 6> phases;
    Noise noise(seed);
    TwoPole first;
    TwoPole second;
    const double tuning = 1 + 0.01 * noise.Next();
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = TimeOf(i);
        double metal = 0;
        for (std::size_t t = 0; t < kTones.size(); ++t) metal += Pulse(phases[t], kTones[t] * 8.1 * tuning, 0.5);
        const double mix = 0.11 * metal + 0.7 * noise.Next();
        const double bright = second.High(first.High(mix, cutHz), cutHz * 0.8);
        const double shape = 0.55 * Decay(time, seconds) + 0.45 * Decay(time, seconds * 0.3);
        voice[i] = bright * shape * Attack(time, 0.0008);
    }
    return voice;
}

Signal Clap(std::uint32_t seed) {
    Signal voice(FramesOf(0.3));
    Noise noise(seed);
    TwoPole hands;
    OnePole dull;
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = TimeOf(i);
        double shape = 0;
        for (int hand = 0; hand < 4; ++hand) {
            const double since = time - 0.011 * hand;
            if (since >= 0) shape = std::max(shape, Decay(since, hand == 3 ? 0.26 : 0.03));
        }
        voice[i] = hands.Band(noise.Next(), 1350, 1.4) * shape * 1.5;
        voice[i] = dull.Low(voice[i], 9000);
    }
    return voice;
}

Signal Rim() {
    Signal voice(FramesOf(0.09));
    Phase wood;
    Phase edge;
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = TimeOf(i);
        voice[i] = 0.7 * Sine(wood, 1710) * Decay(time, 0.05) + 0.5 * Triangle(edge, 463) * Decay(time, 0.07);
        voice[i] *= Attack(time, 0.0005);
    }
    return voice;
}

Signal Shaker(double seconds, std::uint32_t seed) {
    Signal voice(FramesOf(seconds));
    Noise noise(seed);
    TwoPole beads;
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = TimeOf(i);
        voice[i] = beads.Band(noise.Next(), 6400, 1.1) * SoftRise(time, seconds * 0.3) *
                   SoftRise(seconds - time, seconds * 0.7);
    }
    return voice;
}

}  // namespace marvolin::samples
