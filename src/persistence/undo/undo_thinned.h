#pragma once
/// \file
/// Rows that the limit of LoopTracks stops when a step is taken back or done again, though they should have played on.

#include "persistence/undo/undo_goal.h"
#include "persistence/undo/undo_record.h"

namespace marvolin {

/// Before an exchange: what the limit stopped at the last one plays again with this one, as loud as it was. What the
/// hand has started or stopped since is left to it.
void TakeAlongThinned(const Session& s, UndoRecord& step, const UndoSnapshot& now);
/// After it: a row that came back at the last exchange, and that the limit has stopped again, is as loud as it was when
/// it had been stopped before, though it may have faded meanwhile.
void KeepLevelOfThinned(Session& s, const UndoRecord& step, const UndoSnapshot& now);
/// Rows that should have played on and do not, and those that play again after they did not for that reason.
Table<bool, kUndoRows> ThinnedBy(const Session& s, const UndoRecord& step, const UndoSnapshot& now,
                                 const UndoGoal& goal);

}  // namespace marvolin
