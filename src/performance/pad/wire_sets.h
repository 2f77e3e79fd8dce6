#pragma once
/// \file
/// The wire sets: one choice wires all four LoopTracks.

#include <array>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Entries of the list `SetChannel`, captioned "Wire sets:".
inline constexpr std::array<std::string_view, 9> kWireSets{"Groups of 4",    "Groups of 3",    "Groups of 2",
                                                           "Alternate by 4", "Alternate by 3", "Alternate by 2",
                                                           "Groups of 8",    "All to 1",       "All to 0"};

/// Wires LoopTracks A to D by the text of an entry; blanks around it are ignored. "All to 0" does the same as "All to
/// 1", since a wire is at least 1. An unknown text changes no wire. The sound of all LoopTracks is sent again in any
/// case.
void WireSet(Session& s, std::string_view text);

/// The player chose `entry` 0..8 of `SetChannel`. Raises `SubscriptError` for any other.
void SetChannel_Click(Session& s, std::int16_t entry);

}  // namespace marvolin
