#include "performance/selection/bands.h"

#include <algorithm>

#include "core/routines.h"
#include "core/undo/undo_step.h"

namespace marvolin {

namespace {

constexpr Row kNoLane = -1;
constexpr std::string_view kBandStep = "Change of the bands";

bool IsMember(const Session& s, Row band, Row row) { return s.Run[row].InBand != False && s.Run[row].Band == band; }

/// Writes the table and `InBand`, `Band` of the rows. No row of the run may belong to another band.
void WriteBand(Session& s, Row band, BandRun run) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        const bool inside = row >= run.First && row <= run.Last;
        if (!inside && !IsMember(s, band, row)) continue;
        s.Run[row].InBand = ToBoolean(inside);
        s.Run[row].Band = inside ? band : Row{0};
    }
    if (run.Empty()) run = BandRun{};
    s.BandTable[band].First = run.First;
    s.BandTable[band].Last = run.Last;
}

/// The longer part of `run` that remains without `taken`.
BandRun LongerRest(BandRun run, BandRun taken) {
    if (taken.Last < run.First || taken.First > run.Last) return run;
    const int below = taken.First - run.First;
    const int above = run.Last - taken.Last;
    if (below <= 0 && above <= 0) return {};
    if (below >= above) return {run.First, static_cast<Row>(taken.First - 1)};
    return {static_cast<Row>(taken.Last + 1), run.Last};
}

void ClickLane(Session& s, Row lane, Row column) {
    BandRun run = DrawnBand(s, lane);
    if (run.Empty()) {
        run = {column, column};
    } else if (column < run.First) {
        run.First = column;
    } else if (column > run.Last) {
        run.Last = column;
    } else if (column == run.First) {
        ++run.First;
    } else if (column == run.Last) {
        --run.Last;
    } else {
        return;
    }
    SetBand(s, lane, run);
}

}  // namespace

BandRun DrawnBand(const Session& s, Row band) {
    const BandRun run{s.BandTable[band].First, s.BandTable[band].Last};
    return !run.Empty() && IsMember(s, band, run.First) ? run : BandRun{};
}

void SetBand(Session& s, Row band, BandRun run) {
    for (Row other = 0; other < kBands && !run.Empty(); ++other) {
        const BandRun drawn = DrawnBand(s, other);
        if (other == band || drawn.Empty()) continue;
        const BandRun rest = LongerRest(drawn, run);
        if (rest != drawn) WriteBand(s, other, rest);
    }
    WriteBand(s, band, run);
    s.World.Screen.ShowBands();
}

void Bands_Gesture(Session& s, Row lane, int column, Phase phase) {
    BandDrag& drag = s.BandDrag;
    const Row place = static_cast<Row>(std::clamp(column, 0, kLoopTracks - 1));
    switch (phase) {
        case Phase::Down:
            BeginUndoDrag(s, kBandStep, UndoScope::Selection);
            drag = {lane, place, place};
            return;
        case Phase::Move: {
            if (drag.Lane == kNoLane || (place >= drag.First && place <= drag.Last)) return;
            drag.First = std::min(drag.First, place);
            drag.Last = std::max(drag.Last, place);
            SetBand(s, drag.Lane, {drag.First, drag.Last});
            return;
        }
        case Phase::Up: {
            const BandDrag ended = drag;
            drag = {};
            // A drag that stayed in one column is a click.
            if (ended.Lane != kNoLane && ended.First == ended.Last) ClickLane(s, ended.Lane, ended.First);
            EndUndoDrag(s);
            return;
        }
    }
}

void Bands_PointerLost(Session& s) {
    s.BandDrag = {};
    EndUndoDrag(s);
}

void Bands_DblClick(Session& s, Row lane) {
    s.BandDrag = {};
    EndUndoDrag(s);
    const UndoStep step(s, kBandStep, UndoScope::Selection);
    SetBand(s, lane, {});
}

}  // namespace marvolin
