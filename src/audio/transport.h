#pragma once
/// \file
/// Starting and stopping a LoopTrack at its buffer.

#include "core/session.h"

namespace marvolin {

/// Position (bytes) at which the row starts in its play mode: in Drum mode `BeatStartBytes`, at most 32 bytes before
/// the end of the sample; else 0.
std::int32_t StartPosition(const Session& s, Row row);

/// Sets a loaded row's buffer to its start position, and plays it with the looping of its mode when it is silent. True
/// when it was silent. Errors of the service, and 91 for a row without a buffer, rise.
bool StartOrJump(Session& s, Row row);

/// Starts the row at its start position, or jumps back to it when it already sounds. Rows without a sample and row 4
/// are left alone. Errors of the service are shown as "playing loop"; the flags then stay as they were.
void LoopPlay(Session& s, Row row, bool request);
/// Stops the row and sends its plain values. Acts only on rows 0..3 that are loaded. Errors: "stopping loop".
void LoopStop(Session& s, Row row);
/// Sets `Playing` of row 4 when any controlled row plays, and clears it otherwise.
void LoopRefreshAny(Session& s);

/// `LoopPlay` for rows 0..3, whatever the selection.
void PlayAll(Session& s);
/// `LoopStop` for rows 0..3.
void StopAll(Session& s);

}  // namespace marvolin
