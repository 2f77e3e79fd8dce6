#pragma once

#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Tag of the drag that a right press on a LoopTrack's ball starts: the fade drag.
inline constexpr std::string_view kFadeDragTag = "4";

/// The pointer on a ball of the map (0..3 LoopTracks, 4 the listener). `x`, `y` in twips from the ball's own left and
/// top. A left drag moves the ball, a right drag turns the listener. Returns true when the window is to start a drag
/// and drop of the ball, with the tag `kFadeDragTag`.
bool PosGesture(Session& s, Phase phase, int ball, std::int16_t button, double x, double y);

}  // namespace marvolin
