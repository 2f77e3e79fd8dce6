#pragma once
/// \file
/// LoopTracks at volume 0: how the player gets them back is said in the status line.

#include <array>
#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// Which LoopTracks play.
std::array<bool, kLoopTracks> PlayingRows(const Session& s);

/// Says which of the LoopTracks that play now, and did not when `before` was taken, stand at volume 0, and how they
/// come back: "B plays at volume 0: Shift+B fades B in". Says nothing when there are none, nor of one that fades.
void TellSilentStarts(Session& s, const std::array<bool, kLoopTracks>& before);

/// "B, C & D".
std::string LettersOf(const std::vector<Row>& rows);
/// "Shift+B fades B in".
std::string HowItFadesIn(Row row);

}  // namespace marvolin
