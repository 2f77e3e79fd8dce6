#pragma once
/// \file
/// The types and curves of the mix pad, and their lists.

#include <array>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Entries of the list `PadType`, by their number. The fifth pad type has no entry.
inline constexpr std::array<std::string_view, 4> kPadTypeTexts{"300 Pitch", "400 Pitch", "Vol", "Pan"};

/// An entry of the list `PadFunction`.
struct PadCurve {
    std::int16_t Function;  ///< key of the entry, and the value stored with a pad type
    std::string_view Text;
};
/// Entries of the list `PadFunction`.
inline constexpr std::array<PadCurve, 3> kPadCurves{
    {{1, "Fde Dgnl"}, {2, "Fde aftr Centr"}, {3, "Fde aftr Side Centr"}}};

/// `TwistIcon` of a pad type without a twist.
inline constexpr std::int16_t kNoTwistIcon = 4;

/// Shows the list of the curves.
void PadListInit(Session& s);
/// Sets all pad types to their start values, chooses "Vol" and puts `TwistBall` in the middle. Needs the geometry.
void PadTablesInit(Session& s);

/// The player (or a session file) chose `entry` 0..3 of `PadType`: the type that is left is recentred, the new one
/// keeps its levels until the ball moves.
void PadType_Click(Session& s, std::int16_t entry);
/// The player chose the curve `function` 1..3 for the current type. The ball is recentred, also by the same choice
/// again.
void PadFunction_Click(Session& s, std::int16_t function);

/// Gives `TwistBall` the face of the type (`PadTwistFace`), or hides it.
void PadTwistShow(Session& s, std::int16_t padType);
/// Face 1.. of `TwistBall` under a type; 0 when it is hidden.
int PadTwistFace(const Session& s, std::int16_t padType);
/// Face 1..4 of `PadBall` under the current type.
int PadBallFace(const Session& s);

}  // namespace marvolin
