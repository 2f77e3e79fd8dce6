#pragma once
/// \file
/// Rows that the limit of LoopTracks stops when a step is taken back or done again, though they should have played on.

#include "persistence/undo/undo_goal.h"
#include "persistence/undo/undo_record.h"

namespace marvolin {

/// Before an exchange: what the limit stopped at the last one plays again with this one, and its fade goes on from
/// where it was. What the hand has started or stopped since is left to it, and so is a level that no such fade has
/// moved.
void TakeAlongThinned(UndoRecord& step, const UndoSnapshot& now);
/// After it: a row whose fade went on at the last exchange, and that the limit has stopped again, gets the level back
/// at which it stood still before. `other` are the rows as they were on the other side of the exchange.
void RestoreLevelOfThinned(Session& s, const UndoRecord& step, const UndoSnapshot& now, const RowStates& other);
/// Rows that should have played on and do not, and those that play again after they did not for that reason.
Table<bool, kUndoRows> ThinnedBy(const Session& s, const UndoRecord& step, const UndoSnapshot& now,
                                 const UndoGoal& goal);

}  // namespace marvolin
