#pragma once
/// \file
/// The LoopTracks that a bin loads into.

#include <array>
#include <string>

#include "core/session.h"

namespace marvolin {

/// Rows of `FileDestination` after the four LoopTracks.
enum Destination : std::int16_t {
    kGangDestination = 4,
    kDragDestination = 5,  ///< a click does not load; the sample can only be dragged
    // Commands, never a state.
    kAllDrag = 6,
    kAllDistribute = 7,
    kAllGang = 8,
};
inline constexpr std::int16_t kDestinations = 9;

/// Texts of the nine rows: the LoopTracks by letter and sample, then the others.
std::array<std::string, kDestinations> DestinationTexts(const Session& s);

/// Selects a row of a bin's list without running its click, and recolours the bin.
void SetFileDestination(Session& s, int bin, std::int16_t index);
/// The player chose row `index` of the list of `bin`: rows 6, 7 and 8 set all bins, any other the bin itself.
/// A row outside the list is ignored.
void ChooseDestination(Session& s, int bin, std::int16_t index);

/// Background of a bin's list.
Colour BinColour(const Session& s, int bin);

}  // namespace marvolin
