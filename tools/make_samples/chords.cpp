#include <array>

#include "canvas.h"
#include "effects.h"
#include "envelopes.h"
#include "filters.h"
#include "keys.h"
#include "oscillators.h"
#include "parts.h"
#include "patterns.h"

namespace marvolin::samples {
namespace {

/// Adds every note of every chord of the harmony with `voice`, spread over the two sides.
template <class Voice>
void LayChords(Canvas& c, double extra, double gain, const Voice& voice) {
    for (const Harmony& h : Chords()) {
        for (std::size_t n = 0; n < h.notes.size(); ++n) {
            const double pan = -0.5 + static_cast<double>(n) / static_cast<double>(h.notes.size() - 1);
            c.Add(voice(h.notes[n], h.steps * kStep + extra), h.step * kStep, gain, pan);
        }
    }
}

}  // namespace

Clip ChordsWash() {
    Canvas c = Canvas::Loop(2);
    LayChords(c, 0.5, 0.25, [](double note, double length) { return SawChoir(NoteHz(note), length, 0.35, 0.5); });
    Clip clip = c.Take();
    SlowSweep(clip, 420, 2600, 1.1);
    Chorus(clip, 0.8, 0.6);
    Room(clip, 2.4, 0.35);
    CutLow(clip, 110);
    return clip;
}

Clip ChordsStabs() {
    Canvas c = Canvas::Loop(2);
    constexpr std::array<int, 10> kSteps = {2, 6, 10, 13, 18, 22, 24, 26, 29, 30};
    for (const int step : kSteps) {
        for (const Harmony& h : Chords()) {
            if (step < h.step || step >= h.step + h.steps) continue;
            for (std::size_t n = 0; n < h.notes.size(); ++n) {
                c.Add(Stab(NoteHz(h.notes[n]), 0.17), step * kStep, 0.3, -0.3 + 0.2 * static_cast<double>(n));
            }
        }
    }
    Clip clip = c.Take();
    Echo(clip, 3, 0.35, 0.3);
    Room(clip, 1.1, 0.16);
    CutLow(clip, 140);
    return clip;
}

Clip ChordsElectricPiano() {
    Canvas c = Canvas::Loop(2);
    for (const Harmony& h : Chords()) {
        for (std::size_t n = 0; n < h.notes.size(); ++n) {
            const double spread = 0.012 * static_cast<double>(n);
            c.Add(TinePiano(NoteHz(h.notes[n]), h.steps * kStep * 0.92, 0.7), h.step * kStep + spread, 0.3);
            if (h.steps == 16) c.Add(TinePiano(NoteHz(h.notes[n]), 0.3, 0.45), (h.step + 10) * kStep + spread, 0.22);
        }
        c.Add(TinePiano(NoteHz(h.root), h.steps * kStep * 0.92, 0.5), h.step * kStep, 0.3);
    }
    Clip clip = c.Take();
    Chorus(clip, 0.5, 0.4);
    Room(clip, 1.3, 0.18);
    return clip;
}

Clip ChordsOrgan() {
    constexpr std::array<double, 6> kBars = {0.5, 1.0, 0.6, 0.35, 0.2, 0.12};
    constexpr std::array<double, 6> kHarmonics = {0.5, 1, 1.5, 2, 3, 4};
    Canvas c = Canvas::Loop(2);
    for (const double note : {50.0, 57.0, 62.0, 65.0}) {
        Signal voice(kLoopFrames);
        std::array<Phase, kBars.size()> phases;
        for (std::size_t i = 0; i < voice.size(); ++i) {
            for (std::size_t h = 0; h < kBars.size(); ++h) {
                // Whole turns in four seconds, so that the drone loops without a seam.
                const double hz = std::round(NoteHz(note) * kHarmonics[h] * 4) / 4;
                voice[i] += kBars[h] * Sine(phases[h], hz);
            }
        }
        c.Add(voice, 0, 0.12, note == 57 ? -0.3 : note == 62 ? 0.3 : 0);
    }
    Clip clip = c.Take();
    Chorus(clip, 1, 0.5);
    SlowSweep(clip, 900, 3000, 0.8);
    Room(clip, 1.6, 0.2);
    return clip;
}

Clip ChordsStrings() {
    Canvas c = Canvas::Loop(2);
    LayChords(c, 0.3, 0.22, [](double note, double length) { return SawChoir(NoteHz(note + 12), length, 0.18, 0.3); });
    LayChords(c, 0.3, 0.12, [](double note, double length) { return SawChoir(NoteHz(note), length, 0.25, 0.3); });
    Clip clip = c.Take();
    SlowSweep(clip, 1500, 4200, 0.7);
    Room(clip, 2.8, 0.4);
    CutLow(clip, 180);
    return clip;
}

}  // namespace marvolin::samples
