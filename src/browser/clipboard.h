#pragma once
/// \file
/// The clipboard: a growing store of whole LoopTrack settings.

#include <array>
#include <string_view>

#include "core/drag_source.h"
#include "core/record_stream.h"
#include "core/session.h"

namespace marvolin {

/// Captions of `Components`.
inline constexpr std::array<std::string_view, 7> kComponentTexts{"Sample",   "Vol",      "Pitch", "Pan",
                                                                 "Patterns", "Position", "Wire"};
inline constexpr std::string_view kTrashHint = "drop Clip here to Trash it";
inline constexpr std::string_view kClipBoardHint = "drg Copy to LoopTrack; rtdrg Copy by Element";

/// Empties store and list.
void InitClipBoard(Session& s);

/// Adds `ClipStaging` as a new clip. With 2001 clips: "Too many LoopTracks on ClipBoard."; without memory: "Out of
/// memory for ClipBoard". Nothing is added then, and the result is false.
bool AddNewClip(Session& s);
/// Removes one clip; the texts of the others stay. A clip that is not there is ignored.
void DeleteClip(Session& s, std::int16_t clipIndex);
/// Puts a clip on LoopTrack `dest` by the elements that `Components` allow, and starts it with `playItNow` when a
/// sample came with it. Row 4, and a clip that is not there, do nothing.
void CopyIt(Session& s, Row dest, std::int16_t clipIndex, bool playItNow);
/// The chosen clip dropped on LoopTrack `dest`. A left drag (tag "1") copies all elements and plays; any other copies
/// by `Components`.
void DropClip(Session& s, Row dest, const DragSource& source);

/// A press on a row of `ClipBoardList`: what the drag begins with; `clip` becomes the chosen one.
DragSource ClipBoardList_MouseDown(Session& s, std::int16_t clip, std::int16_t button);
/// A drop on `ClipBoardList`: from `DropDown` of a LoopTrack its settings, from row 4 those of each selected one, if
/// loaded.
void ClipBoardList_DragDrop(Session& s, const DragSource& source);
/// A drop of a clip on `Trash` removes it.
void Trash_DragDrop(Session& s, const DragSource& source);
/// Asks, then empties the clipboard.
void ClearClip_Click(Session& s);

/// The number of clips, then their records.
void WriteClipBoard(const Session& s, RecordWriter& file);
/// Reads clips, and with `loadIt` adds them to those that are there, up to the limit.
void ReadClipBoard(Session& s, RecordReader& file, bool loadIt);

}  // namespace marvolin
