#include <array>

#include "canvas.h"
#include "effects.h"
#include "envelopes.h"
#include "keys.h"
#include "oscillators.h"
#include "parts.h"
#include "patterns.h"
#include "strings.h"

namespace marvolin::samples {

Clip ToneBellArp() {
    constexpr std::array<double, 16> kLine = {74, 81, 77, 84, 81, 77, 88, 81, 74, 77, 82, 86, 79, 76, 84, 79};
    Canvas c = Canvas::Loop(2);
    for (std::size_t i = 0; i < kLine.size(); ++i) {
        const double touch = i % 4 == 0 ? 0.8 : 0.5;
        c.Add(Bell(NoteHz(kLine[i]), 1.8, touch), static_cast<double>(2 * i) * kStep, 0.3 + 0.2 * touch,
              i % 2 == 0 ? -0.4 : 0.4);
    }
    Clip clip = c.Take();
    Echo(clip, 3, 0.3, 0.25);
    Room(clip, 2.0, 0.22);
    return clip;
}

Clip TonePluckArp() {
    Canvas c = Canvas::Loop(2);
    constexpr std::array<std::size_t, 8> kOrder = {0, 2, 1, 3, 2, 1, 3, 2};
    for (const Harmony& h : Chords()) {
        for (int step = h.step; step < h.step + h.steps; ++step) {
            if (step % 8 == 7) continue;
            const std::size_t place = static_cast<std::size_t>(step) % kOrder.size();
            const double note = h.notes[kOrder[place]] + (step % 4 == 3 ? 12 : 0);
            const double gain = step % 4 == 0 ? 0.75 : 0.5;
            c.Add(Plucked(NoteHz(note), 1.4, step % 4 == 0 ? 0.8 : 0.5, 0.5, static_cast<std::uint32_t>(step + 20)),
                  step * kStep, gain, place % 2 == 0 ? -0.3 : 0.35);
        }
    }
    Clip clip = c.Take();
    Echo(clip, 3, 0.3, 0.22);
    Room(clip, 1.2, 0.15);
    return clip;
}

Clip ToneGlass() {
    Canvas c = Canvas::Loop(2);
    int place = 0;
    for (const double note : {62.0, 69.0, 74.0, 77.0, 81.0}) {
        for (const int side : {-1, 1}) {
            Signal voice(kLoopFrames);
            Phase tone(0.13 * ++place);
            Phase over(0.29 * place);
            // Whole turns in four seconds, the sides a quarter of a Hz apart: the tone beats and loops without a seam.
            const double hz = std::round(NoteHz(note) * 4) / 4 + 0.25 * side;
            for (std::size_t i = 0; i < voice.size(); ++i) {
                const double time = static_cast<double>(i) / kRate;
                const double swell = 0.6 + 0.4 * std::sin(kTwoPi * (0.25 * (1 + place % 3) * time + 0.17 * place));
                voice[i] = swell * (Sine(tone, hz) + 0.12 * Sine(over, 3 * hz));
            }
            c.Add(voice, 0, 0.1, 0.7 * side);
        }
    }
    Clip clip = c.Take();
    Room(clip, 3.0, 0.4);
    return clip;
}

Clip ToneLead() {
    const std::vector<Event> line = Notes({{0, 2.5, 69, 0.8},
                                           {3, 1.5, 72, 0.6},
                                           {5, 2.5, 74, 0.9},
                                           {8, 3.5, 72, 0.7},
                                           {12, 1.5, 69, 0.6},
                                           {14, 1.5, 67, 0.6},
                                           {16, 4.5, 65, 0.8},
                                           {21, 1.5, 67, 0.6},
                                           {23, 0.8, 69, 0.5},
                                           {24, 2.5, 67, 0.8},
                                           {27, 1.5, 64, 0.6},
                                           {29, 2.2, 62, 0.7}},
                                          0.3);
    Canvas c = Canvas::Loop(1);
    double before = 62;
    for (const Event& e : line) {
        c.Add(Lead(NoteHz(e.note), NoteHz(before), e.length, e.strength), e.seconds, 0.5 * (0.5 + 0.5 * e.strength));
        before = e.note;
    }
    Clip clip = c.Take();
    Echo(clip, 3, 0.35, 0.25);
    Room(clip, 1.4, 0.15);
    return clip;
}

Clip ToneMarimba() {
    const std::vector<Event> line =
        Notes({{0, 1, 62, 0.9},   {2, 1, 69, 0.6},  {3, 1, 65, 0.5},  {5, 1, 69, 0.7},  {6, 1, 74, 0.8},
               {8, 1, 62, 0.8},   {10, 1, 69, 0.6}, {11, 1, 72, 0.7}, {13, 1, 69, 0.5}, {14, 1, 65, 0.6},
               {16, 1, 58, 0.9},  {18, 1, 65, 0.6}, {19, 1, 62, 0.5}, {21, 1, 65, 0.7}, {22, 1, 70, 0.8},
               {24, 1, 60, 0.85}, {26, 1, 67, 0.6}, {27, 1, 64, 0.6}, {29, 1, 67, 0.7}, {30, 1, 72, 0.7}},
              0.2);
    Canvas c = Canvas::Loop(2);
    for (const Event& e : line) c.Add(Marimba(NoteHz(e.note), e.strength), e.seconds, e.strength, (e.note - 66) / 20);
    Clip clip = c.Take();
    Room(clip, 1.0, 0.15);
    return clip;
}

}  // namespace marvolin::samples
