#include "persistence/undo/undo_thinned.h"

#include "audio/thinning.h"
#include "persistence/undo/row_restore.h"

namespace marvolin {

namespace {

bool Plays(const LoopTrackRun& run) { return run.Loaded != False ? run.Playing != False : run.InHand.Playing; }

}  // namespace

void TakeAlongThinned(const Session& s, UndoRecord& step, const UndoSnapshot& now) {
    const bool asLeft = now.Rest.ThinList == step.OrderAfter;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const RowState& is = now.Rows[row];
        step.Thinned[row] = step.Thinned[row] && asLeft && CanBeThinned(s, row);
        if (!step.Thinned[row] || is.InHand.Playing) continue;
        step.RowsChanged[row] |= kSoundingPart | LevelOfFade(step.Rows[row], is);
    }
}

void KeepLevelOfThinned(Session& s, const UndoRecord& step, const UndoSnapshot& now) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        const RowState& is = now.Rows[row];
        if (!step.Thinned[row] || !is.InHand.Playing || Plays(s.Run[row])) continue;
        RestoreSettings(s, row, step.Rows[row], LevelOfFade(step.Rows[row], is));
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
