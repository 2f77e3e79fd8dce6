#pragma once

#include <cstdint>

#include "signal.h"

namespace marvolin::samples {

/// A drum head struck by a mallet: a sine whose pitch falls from `topHz` to `hz`, with a click.
struct DrumHead {
    double hz;
    double topHz;
    double fall;     ///< Seconds in which the pitch falls by 60 dB.
    double seconds;  ///< Time to -60 dB.
    double click;    ///< 0..1
};

inline constexpr DrumHead kKick{48, 210, 0.12, 0.55, 0.35};
inline constexpr DrumHead kDeepKick{41, 160, 0.20, 1.10, 0.2};
inline constexpr DrumHead kLowTom{92, 150, 0.35, 0.70, 0.12};
inline constexpr DrumHead kHighTom{147, 225, 0.30, 0.55, 0.12};
inline constexpr DrumHead kLowConga{175, 205, 0.06, 0.38, 0.22};
inline constexpr DrumHead kHighConga{262, 300, 0.05, 0.28, 0.28};

/// Each function below returns the whole sound of a stroke, down to silence. `seed` makes strokes differ slightly, like
/// strokes of a hand.
Signal Struck(const DrumHead& head, std::uint32_t seed);

/// A snare: two tones of the head under the rattle of the wires. `seconds` is the time of the wires.
Signal Snare(double seconds, std::uint32_t seed);

/// A hat or cymbal: six metal tones and noise above `cutHz`.
Signal Metal(double seconds, double cutHz, std::uint32_t seed);

/// Hands: four short bursts of noise and their tail.
Signal Clap(std::uint32_t seed);

/// A stick on the rim.
Signal Rim();

/// A shaker or brush: noise that swells and falls.
Signal Shaker(double seconds, std::uint32_t seed);

}  // namespace marvolin::samples
