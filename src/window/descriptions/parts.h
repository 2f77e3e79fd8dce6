#pragma once
/// \file
/// The parts of controls that say something else from part to part.

#include <array>
#include <string>

namespace marvolin {

/// Of `DropDown`: the grip along its top, by which it is dragged, and the rest, which opens the list.
enum DropDownPart : int { kOpeningPart = 0, kGripPart = 1 };

/// Of `StatusBar1`, in either window: the panel with the question mark, and the others.
enum StatusBarPart : int { kTextPanels = 0, kHelpPanel = 1 };

inline constexpr char kHelpPanelHint[] = "drg Question Mark to Control for Help";
inline constexpr char kHelpPanelTip[] = "Drag and drop onto a control to get help on it";

/// Of `TabControl` while "Ptrn" is open: its captions, and the margins of that page.
inline constexpr char kSequenceHint[] = "rtdrg Copy All Patterns & Timing Elements";

// `PlayStop` counts its parts as `PlayStopZone`, and `PickFile` its rows of samples, -1 beside them.

/// The text of a list, first of `texts`, or of one of its entries: while a drop-down list is open, its part is the
/// entry under the pointer, counted from 1. For a part that is none the text of the list.
template <std::size_t N>
std::string OfEntry(const std::array<const char*, N>& texts, int part) {
    return texts[part >= 0 && static_cast<std::size_t>(part) < N ? static_cast<std::size_t>(part) : 0];
}

/// Of `PickFile`: a row that was double clicked where samples are only dragged.
inline constexpr int kDragOnlyPart = -2;

}  // namespace marvolin
