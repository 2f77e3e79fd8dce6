#pragma once

#include "signal.h"

namespace marvolin::samples {

inline constexpr double kPeak = 0.7079;    ///< The loudest frame of a sound that is played once: -3 dBFS.
inline constexpr double kLoopPeak = 0.35;  ///< No frame of a loop is louder: four of them sound together.

/// Root mean square of all frames of all channels.
double Loudness(const Clip& clip);

/// The largest magnitude of any frame.
double Peak(const Clip& clip);

/// Prepares a sound for its file: removes the constant part, brings a loop to `loudness` (peaks above kLoopPeak are
/// bent, not clipped) and a sound played once to kPeak, and lets the latter end in silence.
void Finish(Clip& clip, double loudness);

}  // namespace marvolin::samples
