#pragma once
/// \file
/// Which rows a command acts on.

#include "core/session.h"

namespace marvolin {

/// The only test of membership in the controlled set: false for row 4; otherwise true for a selected row while the
/// selection is controlled, and for a row in a controlled band.
inline bool IsControlled(const Session& s, Row row) {
    if (row == kSelectionRow) return false;
    return (s.Set[row].Selected != False && s.SelectionControlled) || s.BandTable[s.Run[row].Band].Controlled != False;
}

/// Runs `act(row)` for each of rows 0..3 that is controlled, in rising order.
template <typename Act>
void ForControlled(Session& s, Act act) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (IsControlled(s, row)) act(row);
    }
}

/// Runs `act(row)` from `First` to `Last` of a row of `BandTable`, in rising order. Does nothing for an empty band.
template <typename Act>
void ForBand(Session& s, std::int16_t band, Act act) {
    const Band run = s.BandTable[band];
    for (Row row = run.First; row <= run.Last; ++row) act(row);
}

/// The grouping of the gang setters. Row 4, once `GangReady`, stands for the controlled rows and then itself; a row
/// that is operated as a member of a band stands for the whole band; any other row for itself.
template <typename Act>
void ForGang(Session& s, Row row, Act act) {
    if (row == kSelectionRow && s.GangReady) {
        ForControlled(s, act);
        act(kSelectionRow);
    } else if (s.Run[row].InBand == False) {
        act(row);
    } else {
        ForBand(s, s.Run[row].Band, act);
    }
}

}  // namespace marvolin
