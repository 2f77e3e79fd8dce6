#include <algorithm>

#include "canvas.h"
#include "effects.h"
#include "envelopes.h"
#include "filters.h"
#include "oscillators.h"
#include "parts.h"
#include "patterns.h"
#include "strings.h"

namespace marvolin::samples {
namespace {

/// Shape of a bass note: the filter opens to `opening` times its floor and falls back in `fall` seconds.
struct BassSound {
    double floorHz;
    double opening;
    double fall;
    double resonance;
    double width;  ///< 0: a saw; otherwise a pulse of that width.
    double sub;    ///< Share of a sine an octave below.
};

Signal BassNote(const Event& e, const BassSound& sound) {
    const double release = 0.06;
    Signal voice(FramesOf(e.length + release));
    Phase main;
    Phase under;
    TwoPole first;
    TwoPole second;
    const double hz = NoteHz(e.note);
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = static_cast<double>(i) / kRate;
        const double wave = sound.width > 0 ? Pulse(main, hz, sound.width) : Saw(main, hz);
        const double cutoff = sound.floorHz * (1 + sound.opening * e.strength * Decay(time, sound.fall));
        const double filtered = second.Low(first.Low(wave, cutoff, sound.resonance), cutoff * 1.5);
        const double level = SoftRise(time, 0.004) * SoftRise(e.length + release - time, release);
        voice[i] = (0.8 * filtered + sound.sub * Sine(under, hz / 2)) * level * (0.5 + 0.5 * e.strength);
    }
    return voice;
}

Clip BassPart(const std::vector<Event>& events, const BassSound& sound, double drive) {
    Canvas c = Canvas::Loop(1);
    for (const Event& e : events) c.Add(BassNote(e, sound), e.seconds, 0.35);
    Clip clip = c.Take();
    Drive(clip, drive);
    return clip;
}

}  // namespace

Clip BassWalking() {
    const std::vector<Event> line = Notes({{0, 3.6, 38, 0.9},
                                           {4, 3.4, 41, 0.7},
                                           {8, 3.6, 45, 0.8},
                                           {12, 2.6, 43, 0.7},
                                           {15, 0.9, 35, 0.4},
                                           {16, 3.6, 34, 0.9},
                                           {20, 2.8, 41, 0.7},
                                           {23, 0.9, 38, 0.4},
                                           {24, 3.6, 36, 0.85},
                                           {28, 2.2, 40, 0.7},
                                           {31, 0.9, 37, 0.5}},
                                          0.7);
    return BassPart(line, {260, 3.5, 0.45, 0.9, 0, 0.12}, 1.5);
}

Clip BassPulse() {
    std::vector<Written> part;
    for (const Harmony& h : Chords()) {
        for (int step = h.step; step < h.step + h.steps; step += 2) {
            const bool up = step % 8 == 6;
            part.push_back({step, step % 4 == 0 ? 1.2 : 1.6, h.root + (up ? 12 : 0), step % 4 == 0 ? 0.6 : 0.95});
        }
    }
    return BassPart(Notes(part), {180, 7, 0.28, 1.6, 0.46, 0.3}, 1.8);
}

Clip BassAcid() {
    struct Slide {
        double note;
        double strength;  ///< 0 is a rest.
        bool glide;       ///< Glides from the previous note.
    };
    constexpr Slide kLine[kLoopSteps / 2] = {{38, 1, false},   {38, 0.5, false}, {50, 0.7, true},  {0, 0, false},
                                             {41, 0.6, false}, {38, 1, true},    {36, 0.5, false}, {50, 0.9, false},
                                             {38, 0.6, false}, {0, 0, false},    {53, 1, false},   {50, 0.6, true},
                                             {48, 0.5, false}, {38, 0.9, true},  {45, 0.6, false}, {36, 0.6, true}};
    Clip clip{{Signal(kLoopFrames)}, true};
    Phase phase;
    TwoPole first;
    TwoPole second;
    const auto stepFrames = FramesOf(kStep);
    double note = 36;
    double level = 0;
    double accent = 0;
    double since = 0;
    // Two passes: the second begins with the filter and the glide in the state that the first left.
    for (std::size_t frame = 0; frame < 2 * kLoopFrames; ++frame) {
        const std::size_t at = frame % kLoopFrames;
        const std::size_t step = std::min<std::size_t>(at / stepFrames, kLoopSteps - 1);
        const Slide& now = kLine[step % 16];
        const Slide& next = kLine[(step + 1) % 16];
        const double within = static_cast<double>(at - step * stepFrames) / kRate;
        if (at == step * stepFrames && now.strength > 0 && !now.glide) since = 0;
        if (now.strength > 0) {
            note += (now.note - note) * (now.glide ? 0.0009 : 0.02);
            accent += (now.strength - accent) * 0.004;
        }
        const bool held = now.strength > 0 && (within < kStep * 0.62 || next.glide);
        level += ((held ? 1.0 : 0.0) - level) * 0.0035;
        // The filter opens and closes once in the two bars under the stabs of the single notes.
        const double open = 0.5 - 0.5 * std::cos(kTwoPi * static_cast<double>(at) / kLoopFrames);
        const double cutoff = (240 + 700 * open) * (1 + 4.5 * accent * Decay(since, 0.32));
        const double out = second.Low(first.Low(Saw(phase, NoteHz(note)), cutoff, 3.6), cutoff * 1.3, 1.2);
        if (frame >= kLoopFrames) clip.channels[0][at] = 0.4 * out * level;
        since += 1.0 / kRate;
    }
    // The oscillator does not end at the phase where it began, so the last few milliseconds are silent, as before every
    // note.
    Signal& sound = clip.channels[0];
    for (std::size_t i = 0; i < sound.size(); ++i) {
        sound[i] *= SoftRise(static_cast<double>(sound.size() - 1 - i) / kRate, 0.012) *
                    SoftRise(static_cast<double>(i) / kRate, 0.002);
    }
    Drive(clip, 2.2);
    return clip;
}

Clip BassSub() {
    Canvas c = Canvas::Loop(1);
    for (const Harmony& h : Chords()) {
        const double length = h.steps * kStep;
        Signal voice(FramesOf(length));
        Phase phase;
        Phase above;
        for (std::size_t i = 0; i < voice.size(); ++i) {
            const double time = static_cast<double>(i) / kRate;
            const double hz = NoteHz(h.root) * (1 + 0.02 * Decay(time, 0.08));
            const double swell = 0.8 + 0.2 * std::cos(kTwoPi * 2 * time);
            voice[i] = (Sine(phase, hz) + 0.22 * Sine(above, 2 * hz)) * swell * Held(time, length, 0.02, 0.09);
        }
        c.Add(voice, h.step * kStep, 0.8);
    }
    Clip clip = c.Take();
    Drive(clip, 1.8);
    return clip;
}

Clip BassPlucked() {
    const std::vector<Event> line = Notes({{0, 3, 38, 0.95},
                                           {3, 2, 38, 0.6},
                                           {6, 3, 45, 0.8},
                                           {10, 2, 48, 0.7},
                                           {12, 2, 50, 0.8},
                                           {14, 2, 45, 0.6},
                                           {16, 3, 34, 0.95},
                                           {19, 2, 34, 0.6},
                                           {22, 2, 41, 0.7},
                                           {24, 3, 36, 0.9},
                                           {27, 2, 43, 0.7},
                                           {30, 2, 40, 0.6}},
                                          0.4);
    Canvas c = Canvas::Loop(1);
    for (const Event& e : line) {
        c.Add(Plucked(NoteHz(e.note), 1.6, 0.35, e.length + 0.05, static_cast<std::uint32_t>(e.step + 3)), e.seconds,
              0.8 * e.strength);
    }
    Clip clip = c.Take();
    Drive(clip, 1.5);
    return clip;
}

}  // namespace marvolin::samples
