#pragma once
/// \file
/// The types and curves of the mix pad, and their lists.

#include <array>
#include <string_view>

#include "core/session.h"
#include "performance/pad/mix_pad.h"

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
    {{kFadeDiagonal, "Fde Dgnl"}, {kFadeAfterCentre, "Fde aftr Centr"}, {kFadeAfterSideCentre, "Fde aftr Side Centr"}}};

/// `TwistIcon` of a pad type without a twist.
inline constexpr std::int16_t kNoTwistIcon = 4;

/// Shows the lists of the pad. The entries of `PadFunction` are `kPadCurves`: there is nothing to fill.
void PadListInit(Session& s);
/// Sets all pad types to their start values, chooses "Vol" and puts `TwistBall` in the middle. `PadGeometryInit` must
/// have run.
void PadTablesInit(Session& s);

/// The player (or a session file) chose `entry` 0..3 of `PadType`. The ball of the old type goes to the centre first,
/// and `TwistBall` to 0; the new type's levels do not change until the ball moves.
void PadType_Click(Session& s, std::int16_t entry);
/// The player chose the curve `function` 1..3 (`PadCurveKey`) for the current type. The ball goes to the centre, also
/// when the choice is the same as before.
void PadFunction_Click(Session& s, std::int16_t function);

/// Shows `TwistBall` with the face of `padType`, always the current type: `PadTwistFace` says which, or that it is
/// hidden.
void PadTwistShow(Session& s, std::int16_t padType);
/// Face 1.. of `TwistBall` under a type; 0 when it is hidden.
int PadTwistFace(const Session& s, std::int16_t padType);
/// Face 1..4 of `PadBall` under the current type.
int PadBallFace(const Session& s);

}  // namespace marvolin
