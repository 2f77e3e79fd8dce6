#pragma once
/// \file
/// Gestures on the bins, their folder buttons and the folder tree.

#include <optional>
#include <string>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

/// Whole path of the sample of a row, that of the target when the row is a shortcut; "" for a row that is not there.
std::string SampleAt(const Session& s, int bin, int row);

/// True when a press at `x` (0..`width`) starts a drag: anywhere in a bin whose samples are only dragged, and in the
/// right third of any other.
bool BinDragsAt(const Session& s, int bin, double x, double width);

/// A press on the list of a bin, on `row` or (-1) beside all rows. Returns the source of the drag that it starts, if it
/// starts one. A press on an empty list is a click on its folder button.
std::optional<DragSource> PickFile_MouseDown(Session& s, int bin, std::int16_t button, int row, double x, double width);
/// A release on a row when no drag was started: the left button loads the sample into the bin's destination, the right
/// one plays or stops the destination.
void PickFile_MouseUp(Session& s, int bin, std::int16_t button, int row);

/// "PickFile" dropped on LoopTrack `row` (0..4): the selected sample of the source's bin loads there.
void DropFromBin(Session& s, Row row, const DragSource& source);

/// Opens the folder tree on the bin's folder.
void PickDir_Click(Session& s, int bin);
/// Whether a drop of `source` on the folder button of `bin` does anything: that of another folder button.
bool PickDirTakesDrop(int bin, const DragSource& source);
/// A drop on a folder button: the folder of another button is copied; anything else is ignored.
void PickDir_DragDrop(Session& s, int bin, const DragSource& source);
/// A folder of the tree dropped on a folder button becomes the bin's.
void PickDir_DropFolder(Session& s, int bin, const std::string& folder);
/// Right click on the tree hides it.
void FolderTree_MouseUp(Session& s, std::int16_t button);

}  // namespace marvolin
