#pragma once
/// \file
/// The button `DropDown` and the list it opens: the samples that a LoopTrack has held.

#include <optional>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

/// The fixed entries of `HistoryList`; the samples follow them.
enum HistoryEntry : std::int16_t { kHistoryClose = 0, kHistoryEmpty = 1, kHistoryReverse = 2, kHistorySamples = 3 };

/// Height of the grip along the top of `DropDown`, by which it is dragged, in pixels.
inline constexpr double kDropDownGrip = 8;

/// True when a press at `y` (twips from the button's top) starts a drag: on the grip. Below it a click opens
/// the list.
bool DropDownDragsAt(Session& s, double y);
/// A press on `DropDown` of `row`: the source of the drag that it starts, if it starts one.
std::optional<DragSource> DropDown_MouseDown(Session& s, Row row, double y);
/// A release at `y`: opens the list of `row` when it was a click.
void DropDown_MouseUp(Session& s, Row row, double y);

/// A press on an entry of the list: "<Close>" hides it, any other starts a drag.
std::optional<DragSource> HistoryList_MouseDown(Session& s, std::int16_t entry);
/// Runs the chosen entry on `LoopDropTarget`, which is the row that opened the list when the entry is let go on the
/// list itself. Hides the list.
void HistoryList_DragDrop(Session& s);
/// "HistoryList" dropped on LoopTrack `row` (0..4): its chosen entry acts there, and the row's ball is highlighted.
void DropHistory(Session& s, Row row, const DragSource& source);
/// Hides the list and does nothing else.
void HistoryList_LostFocus(Session& s);

/// Whether a dropped sample is played: the box `ClickPlay` of a bin, or else `PlayOnLoad`.
bool DropPlays(const Session& s, std::int16_t bin);

}  // namespace marvolin
