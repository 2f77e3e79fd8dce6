#pragma once
/// \file
/// The position macros: scattering the LoopTracks over the map once, or letting them wander.

#include <array>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Entries of the list `PosMacros`.
inline constexpr std::array<std::string_view, 5> kPosMacros{"Off", "Scatter Abs", "Scatter Rel", "Wander",
                                                            "Wander Jump"};

/// A LoopTrack to a random place of the map. Both axes draw on the half width.
void ScatterAbsoluteSound(Session& s, int ball);
/// The same for LoopTracks 0..3, in this order.
void ScatterAbsolute(Session& s);
/// A LoopTrack by a small random step, a fiftieth of `MapRange` at most. A step beyond the right or lower edge is
/// turned round.
void ScatterRelSound(Session& s, int ball);
/// The same for LoopTracks 0..3, in this order.
void ScatterRel(Session& s);

/// The player chose `entry` of `PosMacros`. The two scatterings act once; the same choice again does nothing.
void PosMacros_Click(Session& s, std::int16_t entry);

/// The wandering part of the fade tick: each 100 ms a small step, or each 500 ms a jump, of one LoopTrack after
/// another.
void WanderStep(Session& s, std::int32_t milliseconds);

/// The tick of `FadeTimer`: the fades, then the wander step.
void FadeTimer_Timer(Session& s, std::int32_t milliseconds);

}  // namespace marvolin
