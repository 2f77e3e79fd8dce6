#pragma once
/// \file
/// What the play buttons command.

#include "core/session.h"

namespace marvolin {

/// The commands of the player's play buttons.
enum class PlayCommand : std::uint8_t { Stop = 0, Play = 1, Pause = 2, Resume = 3 };

/// Carries out a command on the controlled rows (row 4), the row's band, or the row. Errors of the service rise to the
/// gesture.
void LoopPlayCommand(Session& s, Row row, PlayCommand command);

/// Stops the row if it plays, plays it otherwise; row 4: the first controlled row decides for all of them.
void TogglePlay(Session& s, Row row);

}  // namespace marvolin
