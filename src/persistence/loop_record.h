#pragma once
/// \file
/// The settings of a LoopTrack in a file, as sessions and clips hold them.

#include <cstddef>

#include "core/files/record_stream.h"
#include "core/loops/loop_track.h"

namespace marvolin {

/// Bytes of the shortest record: that of an empty `FileName`.
inline constexpr std::size_t kSmallestLoopRecord = 255;

/// A LoopTrack as it stands in a session file.
struct SavedLoop {
    std::int16_t Index = 0;  ///< the slot it came from
    LoopTrackSet Set;
    Boolean WasPlaying = False;
};
/// Bytes of the shortest block of a LoopTrack.
inline constexpr std::size_t kSmallestLoopBlock = kSmallestLoopRecord + 4;

/// Writes the record from `FileName` to `Channel`, every field as it stands.
void WriteLoopTrackSet(RecordWriter& file, const LoopTrackSet& set);
/// Reads such a record; no field is limited.
LoopTrackSet ReadLoopTrackSet(RecordReader& file);
/// Reads a block of "LoopsV1".
SavedLoop ReadSavedLoop(RecordReader& file);

}  // namespace marvolin
