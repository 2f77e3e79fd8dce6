#pragma once

#include "core/session.h"

namespace marvolin {

/// The pointer on a ball of the map (0..3 LoopTracks, 4 the listener). `x`, `y` in twips from the ball's own left and
/// top. A left drag moves the ball, a right drag turns the listener. Returns true when a right press begins the fade
/// drag of a LoopTrack's ball, a drag and drop with the tag `kFadeTag`. The press of a second button ends the gesture
/// of the first before it begins its own.
bool PosGesture(Session& s, Phase phase, int ball, std::int16_t button, double x, double y);
/// A key moves a ball by `x`, `y` twips, heard at once. The script gets what the release of a drag sends.
void MapStep(Session& s, int ball, double x, double y);

}  // namespace marvolin
