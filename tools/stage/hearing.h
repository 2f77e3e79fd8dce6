#pragma once

#include <cstdint>
#include <vector>

#include "sound_file.h"

namespace marvolin::stage {

/// Levels are hundredths of a decibel below full scale, times are milliseconds. Silence is kSilence.
inline constexpr int kSilence = -10000;

/// Loudness (root mean square) of a part of one side, in hundredths of a decibel; kSilence when it has no frames.
int Level(const std::vector<std::int16_t>& side, std::size_t from, std::size_t to);

/// Loudness of one pure tone within a part of one side. Other sounds, some ten Hz away from it, do not count.
int ToneLevel(const std::vector<std::int16_t>& side, std::size_t from, std::size_t to, double hz);

/// A stretch of time in ms, the end not included.
struct Stretch {
    std::int64_t from = 0;
    std::int64_t to = 0;
    friend bool operator==(const Stretch&, const Stretch&) = default;
};

/// Where the sound is louder than `threshold` on either side, measured in windows of 10 ms. Silences shorter than `gap`
/// ms are ignored.
std::vector<Stretch> Sounding(const Captured& sound, int threshold, int gap);

/// Where a sound starts: times in ms at which the level rises by at least `rise` within 20 ms and passes `threshold`.
/// Onsets are at least `apart` ms apart.
std::vector<std::int64_t> Onsets(const Captured& sound, int threshold, int rise, int apart);

/// Frames at which a click starts: the first that is louder than `threshold` (0..32767) on either side after at least
/// `quiet` frames that are not.
std::vector<std::int64_t> Clicks(const Captured& sound, int threshold, std::int64_t quiet);

/// The distances between neighbouring clicks. Microseconds.
struct Distances {
    std::int64_t Count = 0;
    std::int64_t Mean = 0;
    std::int64_t Deviation = 0;  ///< standard deviation
    std::int64_t Shortest = 0;
    std::int64_t Longest = 0;
};
/// All 0 for fewer than two clicks.
Distances DistancesOf(const std::vector<std::int64_t>& clicks);

}  // namespace marvolin::stage
