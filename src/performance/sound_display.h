#pragma once
/// \file
/// The strip `SndDisp` of rows 0..4: a jump of the volume along its top, a fade along its bottom.

#include "core/session.h"

namespace marvolin {

/// The needles of a `SndDisp`.
enum Needle : std::int16_t {
    kNoNeedle = -1,
    kLevelNeedle = 0,   ///< along the top: the volume
    kTargetNeedle = 1,  ///< along the bottom: the target of a fade
};

/// `needle` was let go at `value`, which is limited to 0..500. With `kNoNeedle` nothing happens. The level jumps there;
/// the target starts a fade, or goes back to the level when it is less than 6 away from it.
void SndDisp_Change(Session& s, Row row, std::int16_t needle, std::int16_t value);
/// `needle` is dragged to `value`: the level is heard at once, the target only shown until it is let go.
void SndDisp_Moving(Session& s, Row row, std::int16_t needle, std::int16_t value);
/// A press: the row's ball is highlighted on the map, and the right button toggles the row's fade.
void SndDisp_MouseDown(Session& s, Row row, std::int16_t button);

}  // namespace marvolin
