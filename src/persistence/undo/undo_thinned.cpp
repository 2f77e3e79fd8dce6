#include "persistence/undo/undo_thinned.h"

#include "persistence/undo/row_restore.h"

namespace marvolin {

namespace {

bool Plays(const LoopTrackRun& run) { return run.Loaded != False ? run.Playing != False : run.InHand.Playing; }

}  // namespace

void TakeAlongThinned(UndoRecord& step, const UndoSnapshot& now) {
    const bool asLeft = now.Rest.ThinList == step.OrderAfter;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const RowState& is = now.Rows[row];
        const bool holdsSample = is.Loaded != False || !is.InHand.FileName.empty();
        step.Thinned[row] = step.Thinned[row] && asLeft && holdsSample;
        const bool startsAgain = step.Thinned[row] && !is.InHand.Playing;
        step.FadeThinned[row] = step.Thinned[row] && (step.FadeThinned[row] || (startsAgain && Fades(step.Rows[row])));
        if (startsAgain) step.RowsChanged[row] |= kSoundingPart;
        if (startsAgain && step.FadeThinned[row]) step.RowsChanged[row] |= kFadedParts;
    }
}

void RestoreLevelOfThinned(Session& s, const UndoRecord& step, const UndoSnapshot& now, const RowStates& other) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!step.FadeThinned[row] || !now.Rows[row].InHand.Playing || Plays(s.Run[row])) continue;
        RestoreSettings(s, row, other[row], kFadedParts);
    }
}

Table<bool, kUndoRows> ThinnedBy(const Session& s, const UndoRecord& step, const UndoSnapshot& now,
                                 const UndoGoal& goal) {
    Table<bool, kUndoRows> thinned;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const bool played = now.Rows[row].InHand.Playing;
        const bool plays = Plays(s.Run[row]);
        const bool stopped = played && goal.Rows[row].InHand.Playing && !plays;
        thinned[row] = stopped || (step.Thinned[row] && !played && plays);
    }
    return thinned;
}

}  // namespace marvolin
