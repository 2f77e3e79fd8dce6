#include "persistence/undo/undo_goal.h"

#include <string>

#include "audio/thinning.h"

namespace marvolin {

namespace {

// What played then, and was stopped by the hand since, does not come back into the order: silent, it would count as one
// of those that sound, and the next start would stop another one too early. A row that was silent there already, by its
// flag or as a One shot that had ended, does come back.
void LeaveOutStopped(std::string& order, const UndoRecord& step, const UndoSnapshot& now, const UndoGoal& goal) {
    std::erase_if(order, [&](char letter) {
        const Row row = ThinnedRow(letter);
        const bool stopped = step.Rows[row].InHand.Playing && !goal.Rows[row].InHand.Playing;
        return stopped && now.Rest.ThinList.find(letter) == std::string::npos;
    });
}

}  // namespace

UndoGoal GoalOf(const UndoRecord& step, const UndoSnapshot& now, bool allAnew) {
    UndoGoal goal{.Rows = now.Rows, .Changed = {}, .Rest = now.Rest};
    for (Row row = 0; row < kUndoRows; ++row) {
        const RowParts changed = step.RowsChanged[row];
        CopyParts(goal.Rows[row], step.Rows[row], changed);
        const bool anew = allAnew && changed == kAllRowParts;
        goal.Changed[row] = anew ? changed : changed & DifferentParts(now.Rows[row], goal.Rows[row]);
    }
    CopyParts(goal.Rest, step.Rest, step.RestChanged);
    LeaveOutStopped(goal.Rest.ThinList, step, now, goal);
    goal.RestChanged = step.RestChanged & DifferentParts(now.Rest, goal.Rest);
    return goal;
}

}  // namespace marvolin
