#pragma once
/// \file
/// The settings of a LoopTrack in a file, in sessions and clips alike.

#include "core/files/record_stream.h"
#include "core/loops/loop_track.h"

namespace marvolin {

/// A LoopTrack as a session file holds it.
struct SavedLoop {
    std::int16_t Index = 0;  ///< the slot from which it was saved
    LoopTrackSet Set;
    Boolean WasPlaying = False;
};

/// Writes the record from `FileName` to `Channel`, every field unchanged.
void WriteLoopTrackSet(RecordWriter& file, const LoopTrackSet& set);
/// Reads such a record. No field is limited to its range.
LoopTrackSet ReadLoopTrackSet(RecordReader& file);
/// Reads a block of "LoopsV1".
SavedLoop ReadSavedLoop(RecordReader& file);

}  // namespace marvolin
