#include <functional>
#include <string_view>

#include "canvas.h"
#include "drums.h"
#include "effects.h"
#include "parts.h"
#include "patterns.h"

namespace marvolin::samples {
namespace {

using Stroke = std::function<Signal(std::uint32_t seed)>;

/// Adds a line of strokes; each stroke has its own seed, and ghosts come slightly late.
void Lay(Canvas& canvas, std::string_view line, double swing, const Stroke& stroke, double gain, double pan = 0) {
    for (const Event& e : Strokes(line, swing)) {
        const double late = e.strength < 0.5 ? 0.004 : 0;
        canvas.Add(stroke(static_cast<std::uint32_t>(e.step + 1)), e.seconds + late, gain * e.strength, pan);
    }
}

Signal PlainKick(std::uint32_t seed) { return Struck(kKick, seed); }
Signal PlainSnare(std::uint32_t seed) { return Snare(0.22, seed); }
Signal TightSnare(std::uint32_t seed) { return Snare(0.14, seed); }
Signal ClosedHat(std::uint32_t seed) { return Metal(0.07, 7800, seed); }
Signal OpenHat(std::uint32_t seed) { return Metal(0.34, 7200, seed); }
Signal Ride(std::uint32_t seed) { return Metal(0.8, 5200, seed); }

Clip Roomy(Canvas& canvas, double seconds, double mix) {
    Clip clip = canvas.Take();
    Room(clip, seconds, mix);
    Drive(clip, 1.4);
    return clip;
}

}  // namespace

Clip BeatStraight() {
    Canvas c = Canvas::Loop(2);
    Lay(c, "X...x...X...x... X...x...X...x.x.", 0, PlainKick, 1.0);
    Lay(c, "....X.......X... ....X.......X..o", 0, PlainSnare, 0.75, 0.05);
    Lay(c, "x.o.x.o.x.o.x.oo", 0, ClosedHat, 0.5, 0.25);
    Lay(c, "..x...x...x...x.", 0, OpenHat, 0.3, 0.25);
    return Roomy(c, 0.5, 0.12);
}

Clip BeatSwing() {
    Canvas c = Canvas::Loop(2);
    Lay(c, "X......x..X..... X..x...x..X....o", 0.85, PlainKick, 1.0);
    Lay(c, "....X..o.o..X..o ....X..o.o.oX.o.", 0.85, TightSnare, 0.8, -0.05);
    Lay(c, "x.oxx.ox x.oxx.ox", 0.85, ClosedHat, 0.5, 0.3);
    Lay(c, "................ ..............x.", 0.85, OpenHat, 0.4, 0.3);
    return Roomy(c, 0.6, 0.14);
}

Clip BeatBroken() {
    Canvas c = Canvas::Loop(2);
    Lay(c, "X.x.......x..... X.x.......x..x..", 0.25, PlainKick, 1.0);
    Lay(c, "....X..o.o..X..o .o..X..o.o....X.", 0.25, PlainSnare, 0.85);
    Lay(c, "x.x.x.x.x.x.x.x. x.x.x.x.x.xox.x.", 0.25, Ride, 0.22, -0.35);
    Lay(c, "..o...o...o...o.", 0.25, ClosedHat, 0.5, 0.3);
    return Roomy(c, 0.7, 0.18);
}

Clip BeatHalfTime() {
    Canvas c = Canvas::Loop(2);
    Lay(
        c, "X.........x..... X.....x...x.....", 0, [](std::uint32_t s) { return Struck(kDeepKick, s); }, 1.0);
    Lay(
        c, "........X....... ........X.....o.", 0, [](std::uint32_t s) { return Snare(0.34, s); }, 0.85);
    Lay(c, "........x....... ........x.......", 0, Clap, 0.5, 0.1);
    Lay(c, "x.o.x.o.x.o.xoxo x.o.x.o.x.ooooxo", 0, ClosedHat, 0.45, -0.25);
    return Roomy(c, 1.2, 0.2);
}

Clip HatsShuffle() {
    Canvas c = Canvas::Loop(2);
    Lay(c, "xoxoXoxoxoxoXoxx xoxoXoxoxoxoX.xo", 1, ClosedHat, 0.7, 0.15);
    Lay(c, "......X......... ......X.....x...", 1, OpenHat, 0.5, 0.15);
    Lay(
        c, "o.x.o.x.o.x.o.x.", 1, [](std::uint32_t s) { return Shaker(0.1, s); }, 0.6, -0.3);
    Clip clip = c.Take();
    Room(clip, 0.4, 0.1);
    return clip;
}

Clip Congas() {
    Canvas c = Canvas::Loop(2);
    Lay(
        c, "..x...x.o.x...xx ..x...x.o.x..xx.", 0.3, [](std::uint32_t s) { return Struck(kHighConga, s); }, 0.7, 0.3);
    Lay(
        c, "X..o.......X.... X..o....x..X....", 0.3, [](std::uint32_t s) { return Struck(kLowConga, s); }, 0.9, -0.3);
    Lay(
        c, "....x.......x... ....x.......x.o.", 0.3, [](std::uint32_t) { return Rim(); }, 0.4, 0.1);
    Lay(
        c, "o.xoo.xo", 0.3, [](std::uint32_t s) { return Shaker(0.09, s); }, 0.3, 0.45);
    return Roomy(c, 0.9, 0.18);
}

}  // namespace marvolin::samples
