#pragma once
/// \file
/// What starts and stops a LoopTrack at its buffer, and the list that thins the sounding ones.

#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Text of a play mode for the hints.
std::string_view PlayModeText(std::int16_t mode);
/// Looping flag with which a mode plays: 1 for Loop and Track, else 0.
std::int32_t LoopPlayFlags(std::int16_t mode);
/// Where a start in the row's mode begins: in Drum mode `BeatStartBytes`, at most 32 bytes before the end; else 0.
std::int32_t StartPosition(const Session& s, Row row);

/// Starts the row at its start position, or jumps back to it when it already sounds. Rows without a sample and row 4
/// are left alone. Errors of the service are shown as "playing loop"; the flags then stay as they were.
void LoopPlay(Session& s, Row row, bool request);
/// Stops the row and sends its plain values. Acts only for rows 0..3 that are loaded. Errors: "stopping loop".
void LoopStop(Session& s, Row row);
/// Makes `Playing` of row 4 tell whether any controlled row plays.
void LoopRefreshAny(Session& s);

/// Sets the mode of one row, changing the looping of a sounding one or restarting it. Errors: "changing looping".
void LoopSetPlayMode(Session& s, Row row, std::int16_t mode, bool refresh);
/// The same for the controlled rows (row 4), the row's band, or the row.
void LoopSetPlayModeRows(Session& s, Row row, std::int16_t mode);

/// What the player's play buttons command.
enum class PlayCommand : std::uint8_t { Stop = 0, Play = 1, Pause = 2, Resume = 3 };
/// Carries out a play button's command on the controlled rows (row 4), the row's band, or the row.
/// Errors of the service rise to the gesture.
void LoopPlayCommand(Session& s, Row row, PlayCommand command);

/// `LoopPlay` for rows 0..3, whatever the selection.
void PlayAll(Session& s);
/// `LoopStop` for rows 0..3.
void StopAll(Session& s);
/// Stops the row if it plays, plays it otherwise; row 4: the first controlled row decides for all of them.
void TogglePlay(Session& s, Row row);

/// Lets the row take part in thinning, or not.
void LoopSetThinnable(Session& s, Row row, bool thinnable);
/// Enters a starting row in `ThinList`, and stops the oldest one when the limit is passed.
void ThinAdd(Session& s, Row row);
/// Takes the row out of `ThinList`.
void ThinRemove(Session& s, Row row);

}  // namespace marvolin
