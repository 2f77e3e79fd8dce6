#pragma once
/// \file
/// Clips on their way to a LoopTrack and to a file. Both go through the routines of the session files.

#include "core/drag_source.h"
#include "core/files/record_stream.h"
#include "core/session.h"

namespace marvolin {

/// Puts a clip on LoopTrack `dest` by the elements that `Components` allow, and starts it with `playItNow` when a
/// sample came with it. Row 4, and a clip that is not there, do nothing.
void CopyIt(Session& s, Row dest, std::int16_t clipIndex, bool playItNow);
/// The chosen clip dropped on LoopTrack `dest`. A left drag (tag "1") copies all elements and plays; any other copies
/// by `Components`.
void DropClip(Session& s, Row dest, const DragSource& source);

/// The number of clips, then their records.
void WriteClipBoard(const Session& s, RecordWriter& file);
/// Reads clips, and with `loadIt` adds them to those that are there, up to the limit.
void ReadClipBoard(Session& s, RecordReader& file, bool loadIt);

}  // namespace marvolin
