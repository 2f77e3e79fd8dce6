#pragma once
/// \file
/// What an exchange leads to: the step put upon what is there.

#include "persistence/undo/undo_record.h"

namespace marvolin {

/// The instrument as it shall be after the exchange, and what of it really differs from what is there.
struct UndoGoal {
    RowStates Rows;
    Table<RowParts, kUndoRows> Changed;
    InstrumentState Rest;
    InstrumentParts RestChanged = 0;
};

/// `now` is what is there. With `allAnew` rows that come back whole do so also where nothing differs.
UndoGoal GoalOf(const UndoRecord& step, const UndoSnapshot& now, bool allAnew);

}  // namespace marvolin
