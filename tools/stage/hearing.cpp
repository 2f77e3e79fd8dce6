#include "hearing.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace marvolin::stage {
namespace {

constexpr std::size_t kFramesPerMs10 = 441;
constexpr double kFullScale = 32768;

/// Levels of both sides taken together (the louder) in steps of `hop` frames.
std::vector<int> Levels(const Captured& sound, std::size_t hop) {
    std::vector<int> levels;
    for (std::size_t at = 0; at + hop <= sound.Frames(); at += hop) {
        levels.push_back(std::max(Level(sound.left, at, at + hop), Level(sound.right, at, at + hop)));
    }
    return levels;
}

}  // namespace

int Level(const std::vector<std::int16_t>& side, std::size_t from, std::size_t to) {
    to = std::min(to, side.size());
    if (from >= to) return kSilence;
    double sum = 0;
    for (std::size_t i = from; i < to; ++i) sum += static_cast<double>(side[i]) * side[i];
    const double mean = std::sqrt(sum / static_cast<double>(to - from)) / kFullScale;
    if (mean < 1e-5) return kSilence;
    return static_cast<int>(std::lround(2000 * std::log10(mean)));
}

int ToneLevel(const std::vector<std::int16_t>& side, std::size_t from, std::size_t to, double hz) {
    to = std::min(to, side.size());
    if (from >= to) return kSilence;
    const double count = static_cast<double>(to - from);
    const double turn = 2 * std::numbers::pi * hz / 44100;
    std::complex<double> sum;
    for (std::size_t i = from; i < to; ++i) {
        const double n = static_cast<double>(i - from);
        // Faded in and out: hard ends would contain other tones.
        const double fade = 1 - std::cos(2 * std::numbers::pi * n / count);
        sum += std::polar(fade * side[i], -turn * n);
    }
    const double mean = std::abs(sum) * std::numbers::sqrt2 / count / kFullScale;
    if (mean < 1e-5) return kSilence;
    return static_cast<int>(std::lround(2000 * std::log10(mean)));
}

std::vector<Stretch> Sounding(const Captured& sound, int threshold, int gap) {
    std::vector<Stretch> stretches;
    const std::vector<int> levels = Levels(sound, kFramesPerMs10);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (levels[i] < threshold) continue;
        const auto at = static_cast<std::int64_t>(i) * 10;
        if (!stretches.empty() && at - stretches.back().to < gap) {
            stretches.back().to = at + 10;
        } else {
            stretches.push_back({at, at + 10});
        }
    }
    return stretches;
}

std::vector<std::int64_t> Onsets(const Captured& sound, int threshold, int rise, int apart) {
    constexpr std::size_t kHop = kFramesPerMs10 / 2;
    std::vector<std::int64_t> onsets;
    const std::vector<int> levels = Levels(sound, kHop);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const int before =
            i >= 4 ? *std::min_element(levels.begin() + static_cast<long>(i) - 4, levels.begin() + static_cast<long>(i))
                   : kSilence;
        if (levels[i] < threshold || levels[i] - before < rise) continue;
        const auto at = static_cast<std::int64_t>(i * kHop * 1000 / 44100);
        if (onsets.empty() || at - onsets.back() >= apart) onsets.push_back(at);
    }
    return onsets;
}

std::vector<std::int64_t> Clicks(const Captured& sound, int threshold, std::int64_t quiet) {
    std::vector<std::int64_t> clicks;
    std::int64_t since = quiet;
    for (std::size_t i = 0; i < sound.Frames(); ++i) {
        if (std::max(std::abs(sound.left[i]), std::abs(sound.right[i])) <= threshold) {
            ++since;
            continue;
        }
        if (since >= quiet) clicks.push_back(static_cast<std::int64_t>(i));
        since = 0;
    }
    return clicks;
}

Distances DistancesOf(const std::vector<std::int64_t>& clicks) {
    if (clicks.size() < 2) return {};
    constexpr double kMicroseconds = 1e6 / 44100;
    const auto count = static_cast<double>(clicks.size() - 1);
    const double mean = static_cast<double>(clicks.back() - clicks.front()) / count;
    double squares = 0;
    double shortest = mean;
    double longest = mean;
    for (std::size_t i = 1; i < clicks.size(); ++i) {
        const auto distance = static_cast<double>(clicks[i] - clicks[i - 1]);
        squares += (distance - mean) * (distance - mean);
        shortest = std::min(shortest, distance);
        longest = std::max(longest, distance);
    }
    const auto whole = [&](double frames) { return std::llround(frames * kMicroseconds); };
    return {static_cast<std::int64_t>(clicks.size() - 1), whole(mean), whole(std::sqrt(squares / count)),
            whole(shortest), whole(longest)};
}

}  // namespace marvolin::stage
