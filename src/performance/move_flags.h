#pragma once

namespace marvolin {

/// How a ball of pad or map moves.
struct MoveFlags {
    bool Absolute = false;  ///< the position is the ball's new place; otherwise it is a distance from where it stands
    bool Apply = true;      ///< the sound follows at once
    bool Quiet = false;  ///< of the twist: shows no levels. On the map passed along, read by nothing; the pad has none
};

}  // namespace marvolin
