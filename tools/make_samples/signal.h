#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <vector>

namespace marvolin::samples {

inline constexpr int kRate = 44100;                    ///< Frames per second of everything made here.
inline constexpr double kBeat = 0.5;                   ///< Seconds of a beat at 120 bpm.
inline constexpr double kStep = kBeat / 4;             ///< Seconds of a sixteenth.
inline constexpr int kLoopSteps = 32;                  ///< Sixteenths of the two bars of a loop.
inline constexpr std::size_t kLoopFrames = 4 * kRate;  ///< Frames of every loop: two bars, 4 seconds.
inline constexpr double kTwoPi = 2 * std::numbers::pi;

/// One channel of sound; full scale is -1..1, which may be exceeded until the sound is finished.
using Signal = std::vector<double>;

/// A sound, finished or not: one channel (mono) or two (left, right) of equal length.
struct Clip {
    std::vector<Signal> channels;
    bool loops = false;  ///< The last frame is followed by the first.

    std::size_t Frames() const { return channels.empty() ? 0 : channels.front().size(); }
};

/// Frames of a time in seconds, rounded to the nearest.
inline std::size_t FramesOf(double seconds) { return static_cast<std::size_t>(std::lround(seconds * kRate)); }

/// Frequency of a note in Hz; 69 is the A of 440 Hz, 38 the D two octaves below middle D.
inline double NoteHz(double note) { return 440.0 * std::exp2((note - 69.0) / 12.0); }

}  // namespace marvolin::samples
