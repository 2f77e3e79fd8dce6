#include "canvas.h"
#include "drums.h"
#include "effects.h"
#include "envelopes.h"
#include "filters.h"
#include "keys.h"
#include "noise.h"
#include "oscillators.h"
#include "parts.h"
#include "patterns.h"

namespace marvolin::samples {
namespace {

/// A single voice as a mono sound of its own length.
Clip Mono(const Signal& voice) { return Clip{{voice}, false}; }

}  // namespace

Clip ShotKick() {
    Clip clip = Mono(Struck(kDeepKick, 1));
    Drive(clip, 2);
    return clip;
}

Clip ShotSnare() {
    Canvas c = Canvas::Once(2, 0.7);
    c.Add(Snare(0.24, 5), 0, 1);
    Clip clip = c.Take();
    Room(clip, 0.5, 0.2);
    return clip;
}

Clip ShotClap() {
    Canvas c = Canvas::Once(2, 0.9);
    c.Add(Clap(2), 0, 0.8, -0.15);
    c.Add(Clap(9), 0.004, 0.8, 0.15);
    Clip clip = c.Take();
    Room(clip, 0.8, 0.25);
    return clip;
}

Clip ShotHat() { return Mono(Metal(0.6, 7000, 11)); }

Clip ShotTom() {
    Canvas c = Canvas::Once(2, 1.2);
    c.Add(Struck(kHighTom, 3), 0, 0.5, 0.2);
    c.Add(Struck(kLowTom, 4), kStep, 0.9, -0.1);
    Clip clip = c.Take();
    Room(clip, 0.9, 0.15);
    return clip;
}

Clip ShotCrash() {
    Canvas c = Canvas::Once(2, 3);
    c.Add(Metal(2.8, 3600, 21), 0, 0.8, -0.4);
    c.Add(Metal(2.6, 4100, 22), 0, 0.8, 0.4);
    Clip clip = c.Take();
    Room(clip, 1.5, 0.2);
    return clip;
}

Clip ShotBell() {
    Canvas c = Canvas::Once(2, 4);
    c.Add(Bell(NoteHz(62), 3.6, 0.7), 0, 0.6, -0.1);
    c.Add(Bell(NoteHz(74), 2.8, 0.4), 0, 0.3, 0.2);
    Clip clip = c.Take();
    Room(clip, 2.4, 0.25);
    return clip;
}

Clip ShotChord() {
    Canvas c = Canvas::Once(2, 2.5);
    const Harmony& minor = Chords().front();
    for (std::size_t n = 0; n < minor.notes.size(); ++n) {
        c.Add(Stab(NoteHz(minor.notes[n]), 0.35), 0, 0.4, -0.45 + 0.3 * static_cast<double>(n));
    }
    c.Add(Stab(NoteHz(minor.root), 0.35), 0, 0.4);
    Clip clip = c.Take();
    Chorus(clip, 0.6, 0.4);
    Room(clip, 2.2, 0.3);
    return clip;
}

Clip ShotZap() {
    Signal voice(FramesOf(0.6));
    Phase phase;
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double time = static_cast<double>(i) / kRate;
        voice[i] = Triangle(phase, 90 + 3600 * Decay(time, 0.45)) * Decay(time, 0.6) * Attack(time, 0.001);
    }
    return Mono(voice);
}

Clip ShotSwell() {
    constexpr double kLength = 2;  // a bar, so that it ends on the next one
    Canvas c = Canvas::Once(2, kLength);
    for (const std::uint32_t side : {0u, 1u}) {
        Signal voice(FramesOf(kLength));
        Noise noise(31 + side);
        TwoPole filter;
        for (std::size_t i = 0; i < voice.size(); ++i) {
            const double at = static_cast<double>(i) / static_cast<double>(voice.size());
            voice[i] = filter.Band(noise.Next(), 300 * std::exp2(4.5 * at), 1.5) * at * at;
        }
        c.Add(voice, 0, 0.6, side == 0 ? -1 : 1);
    }
    return c.Take();
}

}  // namespace marvolin::samples
