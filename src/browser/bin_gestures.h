#pragma once
/// \file
/// The hand on the bins, their folder buttons and the folder tree.

#include <optional>
#include <string>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

/// Folder and file of a row of a bin: that of the shortcut's target when it is a shortcut.
struct BinSample {
    std::string Folder;
    std::string Name;  ///< without its extension
};
/// The sample of a row; none for a row that is not there.
std::optional<BinSample> SampleAt(const Session& s, int bin, int row);

/// True while the pointer at `x` (0..`width`) would begin a drag: anywhere in a bin whose samples are only dragged, and
/// in the right third of any other.
bool BinDragsAt(const Session& s, int bin, double x, double width);

/// A press on the list of a bin; `row` is -1 where there is none. Returns what a drag begins with, if one begins.
/// A press on an empty list is a click on its folder button.
std::optional<DragSource> PickFile_MouseDown(Session& s, int bin, std::int16_t button, int row, double x, double width);
/// A release on a row that began no drag: left loads it into the bin's destination, right plays or stops that.
void PickFile_MouseUp(Session& s, int bin, std::int16_t button, int row);

/// Opens the folder tree on the bin's folder.
void PickDir_Click(Session& s, int bin);
/// A drop on a folder button: the folder of another button is copied; anything else is ignored.
void PickDir_DragDrop(Session& s, int bin, const DragSource& source);
/// A folder of the tree dropped on a folder button becomes the bin's.
void PickDir_DropFolder(Session& s, int bin, const std::string& folder);
/// Right click on the tree hides it.
void FolderTree_MouseUp(Session& s, std::int16_t button);

}  // namespace marvolin
