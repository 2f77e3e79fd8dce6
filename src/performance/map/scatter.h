#pragma once
/// \file
/// The position macros: the LoopTracks are scattered over the map once, or wander.

#include <array>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Entries of the list `PosMacros`.
inline constexpr std::array<std::string_view, 5> kPosMacros{"Off", "Scatter Abs", "Scatter Rel", "Wander",
                                                            "Wander Jump"};

/// Moves a LoopTrack to a random place. Both axes use the half width for their range.
void ScatterAbsoluteSound(Session& s, int ball);
/// The same for LoopTracks 0..3, in this order.
void ScatterAbsolute(Session& s);
/// Moves a LoopTrack by a small random step, at most a fiftieth of `MapRange` on each axis. A step beyond the right or
/// lower edge goes the other way.
void ScatterRelSound(Session& s, int ball);
/// The same for LoopTracks 0..3, in this order.
void ScatterRel(Session& s);

/// The player chose `entry` of `PosMacros`. The two scatterings act once; the same choice again does nothing. Any other
/// entry restarts the time to the next wander step, also when it was chosen before.
void PosMacros_Click(Session& s, std::int16_t entry);

/// The wander step of the fade tick: a small step every 100 ms, or a jump every 500 ms, each time of the next
/// LoopTrack.
void WanderStep(Session& s, std::int32_t milliseconds);

/// The tick of `FadeTimer`: the fades, then the wander step. A tick within a tick does nothing.
void FadeTimer_Timer(Session& s, std::int32_t milliseconds);

}  // namespace marvolin
