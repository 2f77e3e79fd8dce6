#include "audio/level_hold.h"

#include <algorithm>
#include <cmath>

namespace marvolin {

namespace {

constexpr double kFullScale = 32768;

double Decibels(int peak) {
    if (peak <= 0) return LevelHold::kLowest;
    return std::max(LevelHold::kLowest, 20 * std::log10(static_cast<double>(peak) / kFullScale));
}

}  // namespace

void LevelHold::Add(const OutputLevels& levels, double seconds) {
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        Channel& channel = channels_[i];
        const double level = Decibels(levels.Peak[i]);
        const double falls = std::max(0.0, seconds - channel.Hold);
        channel.Hold = std::max(0.0, channel.Hold - seconds);
        channel.Shown = std::max(kLowest, channel.Shown - kFall * falls);
        if (level < channel.Shown) continue;
        channel.Shown = level;
        channel.Hold = level > kLowest ? kHold : 0;
    }
    light_ = levels.CutOff ? kLight : std::max(0.0, light_ - seconds);
}

}  // namespace marvolin
