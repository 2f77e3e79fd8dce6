#pragma once
/// \file
/// The editor on `Bands`: six lanes, one a band, over four columns, one a LoopTrack.

#include "core/session.h"

namespace marvolin {

/// A run of rows; `First` > `Last` is none.
struct BandRun {
    Row First = 5;
    Row Last = 3;
    bool Empty() const { return First > Last; }
    friend bool operator==(const BandRun&, const BandRun&) = default;
};

/// The run that the player has drawn in `band`; empty if none. The band of all four rows that the table starts with
/// counts as none until it is drawn.
BandRun DrawnBand(const Session& s, Row band);

/// Sets the run of `band`, within rows 0..3, or empties it. Rows that belong to another band leave it; that band keeps
/// the longer remaining part of its run, the lower rows on a tie. A row without a band has `InBand` off and `Band` 0.
void SetBand(Session& s, Row band, BandRun run);

/// A press, move or release in `lane` 0..5 over `column`; a column outside 0..3 counts as the nearest.
/// A drag makes the band the run of columns that it passes. A click on an end of the run takes that LoopTrack out, a
/// click outside the run (or in an empty lane) extends the band to there, a click between the ends does nothing.
void Bands_Gesture(Session& s, Row lane, int column, Phase phase);
/// The pointer was lost during a drag or a click: a drag stays as it is, and a click does nothing.
void Bands_PointerLost(Session& s);
/// A double click empties the lane.
void Bands_DblClick(Session& s, Row lane);

}  // namespace marvolin
