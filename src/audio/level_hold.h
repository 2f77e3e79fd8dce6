#pragma once
/// \file
/// What a meter shows of the levels.

#include <array>

#include "core/card_output.h"

namespace marvolin {

/// A meter of two channels with a light. The levels shown rise at once, stay for `kHold` and then fall; the light stays
/// on for `kLight` after the sum was cut off.
class LevelHold {
public:
    static constexpr double kHold = 1.0;    ///< seconds
    static constexpr double kFall = 20.0;   ///< decibels a second
    static constexpr double kLowest = -60;  ///< decibels below full scale; softer shows nothing
    static constexpr double kLight = 2.0;   ///< seconds

    /// Takes the levels of the last `seconds`.
    void Add(const OutputLevels& levels, double seconds);

    /// Decibels below full scale that are shown, `kLowest`..0; left, right.
    double Shown(int channel) const { return channels_[static_cast<std::size_t>(channel)].Shown; }
    bool Light() const { return light_ > 0; }

private:
    struct Channel {
        double Shown = kLowest;
        double Hold = 0;  // seconds left
    };
    std::array<Channel, 2> channels_;
    double light_ = 0;  // seconds left
};

}  // namespace marvolin
