#pragma once
/// \file
/// The clipboard: a growing store of whole LoopTrack settings.

#include <array>
#include <cstddef>
#include <string_view>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

inline constexpr std::int16_t kMostClips = 2001;  ///< on the clipboard

/// Captions of `Components`.
inline constexpr std::array<std::string_view, 7> kComponentTexts{"Sample",   "Vol",      "Pitch", "Pan",
                                                                 "Patterns", "Position", "Wire"};

/// Empties store and list.
void InitClipBoard(Session& s);

/// Reports in a box that the clipboard is full: "Too many LoopTracks on ClipBoard."
void ReportFullClipBoard(Session& s);
/// Adds `ClipStaging` as a new clip. With 2001 clips: "Too many LoopTracks on ClipBoard."; without memory: "Out of
/// memory for ClipBoard". Nothing is added then, and the result is false.
bool AddNewClip(Session& s);
/// `AddNewClip` for many in a row: `others` is the number of clips of the same sample that are there already, and the
/// list is not shown again.
bool AddStagedClip(Session& s, std::ptrdiff_t others);
/// True when there is such a clip.
bool HasClip(const Session& s, std::int16_t clip);
/// Removes one clip; the texts of the others stay. A clip that is not there is ignored.
void DeleteClip(Session& s, std::int16_t clipIndex);
/// A press on a row of `ClipBoardList`: chooses `clip` and returns the source of the drag.
DragSource ClipBoardList_MouseDown(Session& s, std::int16_t clip, std::int16_t button);
/// Whether a drop of `source` on `ClipBoardList` adds a clip.
bool ClipBoardTakesDrop(const Session& s, const DragSource& source);
/// A drop on `ClipBoardList`: "DropDown" of a loaded LoopTrack adds its settings, that of row 4 those of each selected
/// LoopTrack that is loaded.
void ClipBoardList_DragDrop(Session& s, const DragSource& source);
/// Whether a drop of `source` on `Trash` removes a clip.
bool TrashTakesDrop(const Session& s, const DragSource& source);
/// A drop of a clip on `Trash` removes it.
void Trash_DragDrop(Session& s, const DragSource& source);
/// Asks, then empties the clipboard.
void ClearClip_Click(Session& s);

}  // namespace marvolin
