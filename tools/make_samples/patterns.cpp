#include "patterns.h"

namespace marvolin::samples {
namespace {

double StepSeconds(int step, double swing) {
    const double late = step % 2 == 1 ? swing * kStep / 3 : 0;
    return step * kStep + late;
}

double StrengthOf(char mark) {
    switch (mark) {
        case 'X':
            return 1.0;
        case 'x':
            return 0.72;
        case 'o':
            return 0.3;
        default:
            return 0;
    }
}

}  // namespace

std::vector<Event> Strokes(std::string_view line, double swing) {
    std::vector<double> marks;
    for (const char mark : line) {
        if (mark != ' ') marks.push_back(StrengthOf(mark));
    }
    std::vector<Event> events;
    for (int step = 0; step < kLoopSteps && !marks.empty(); ++step) {
        const double strength = marks[static_cast<std::size_t>(step) % marks.size()];
        if (strength > 0) events.push_back({StepSeconds(step, swing), strength, 0, kStep, step});
    }
    return events;
}

std::vector<Event> Notes(const std::vector<Written>& part, double swing) {
    std::vector<Event> events;
    events.reserve(part.size());
    for (const Written& w : part) {
        events.push_back({StepSeconds(w.step, swing), w.strength, w.note, w.steps * kStep, w.step});
    }
    return events;
}

const std::vector<Harmony>& Chords() {
    static const std::vector<Harmony> chords = {
        {0, 16, 38, {53, 57, 60, 64}},  // D minor ninth without its root: F A C E
        {16, 8, 34, {53, 57, 58, 62}},  // B flat with its seventh: F A Bb D
        {24, 8, 36, {52, 55, 60, 62}},  // C with its ninth: E G C D
    };
    return chords;
}

}  // namespace marvolin::samples
