#pragma once

#include "signal.h"

namespace marvolin::samples {

/// Every effect runs over a loop until it has settled and keeps the last pass, so that the loop point cannot be heard;
/// over a sound that is played once it runs a single time. All are stereo-aware and keep the length.

/// Widens a mono or stereo clip by two moving delays; the result is stereo. `depth` 0..1, `mix` 0..1.
void Chorus(Clip& clip, double depth, double mix);

/// A room: eight crossed delay lines. `seconds` is the time to -60 dB (0.2..6), `mix` the share of the room
/// (0..1). A mono clip stays mono.
void Room(Clip& clip, double seconds, double mix);

/// Echoes `steps` sixteenths apart that go from side to side on a stereo clip. `feedback` 0..0.8.
void Echo(Clip& clip, double steps, double feedback, double mix);

/// A low pass whose cutoff moves from `lowHz` to `highHz` and back once in a loop, along a cosine.
void SlowSweep(Clip& clip, double lowHz, double highHz, double resonance);

/// Cuts everything below `hz`, 12 dB an octave.
void CutLow(Clip& clip, double hz);

/// Bends loud peaks as a driven amplifier does; `drive` 1 (hardly) to 6 (hard).
void Drive(Clip& clip, double drive);

}  // namespace marvolin::samples
