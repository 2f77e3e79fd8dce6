#pragma once
/// \file
/// The strip `SndDisp` of rows 0..4: a jump of the volume along its top, a fade along its bottom.

#include <string_view>

#include "core/session.h"

namespace marvolin {

inline constexpr std::string_view kSndDispHint =
    "clk/drg along top: Vol Jump; clk/drg along bottom: Vol Fade; rtclk Fade";

/// The needles of a `SndDisp`.
enum Needle : std::int16_t {
    kNoNeedle = -1,
    kLevelNeedle = 0,   ///< along the top: the volume
    kTargetNeedle = 1,  ///< along the bottom: the target of a fade
};

/// The hand let go of `needle` at `value`, limited to 0..500. Without a needle in the hand nothing happens.
/// The level jumps there; the target starts a fade, or goes back to the level when it is less than 6 from it.
void SndDisp_Change(Session& s, Row row, std::int16_t needle, std::int16_t value);
/// The hand moves `needle`: the level is heard as it goes, the target waits until it is let go.
void SndDisp_Moving(Session& s, Row row, std::int16_t needle, std::int16_t value);
/// A press: the row's ball comes to the front of the map, and the right button toggles its fade.
void SndDisp_MouseDown(Session& s, Row row, std::int16_t button);

}  // namespace marvolin
