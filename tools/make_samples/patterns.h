#pragma once

#include <string_view>
#include <vector>

#include "signal.h"

namespace marvolin::samples {

/// A stroke of a drum or a note of a part, in sixteenths from the start of the loop.
struct Event {
    double seconds = 0;
    double strength = 0;  ///< 0..1
    double note = 0;      ///< As NoteHz; 0 for a drum.
    double length = 0;    ///< Seconds that the note is held.
    int step = 0;
};

/// The strokes of a drum line. Each character is a sixteenth: 'X' accent, 'x' plain, 'o' ghost, anything else a rest;
/// blanks are ignored. `swing` (0..1) delays every second sixteenth by up to a third of a sixteenth: 0 is straight, 1 a
/// full triplet feel. A line shorter than the loop is repeated up to two bars.
std::vector<Event> Strokes(std::string_view line, double swing = 0);

/// A written note: at the sixteenth `step`, held for `steps` sixteenths.
struct Written {
    int step;
    double steps;
    double note;
    double strength;
};

/// Written notes as events, with the swing of Strokes.
std::vector<Event> Notes(const std::vector<Written>& part, double swing = 0);

/// Harmony that all parts share: D minor for a bar, B flat for two beats, C for two.
struct Harmony {
    int step;                   ///< The sixteenth at which it begins.
    int steps;                  ///< Its length in sixteenths.
    double root;                ///< Bass note.
    std::vector<double> notes;  ///< A voicing around middle C.
};
const std::vector<Harmony>& Chords();

}  // namespace marvolin::samples
