#include "persistence/undo/undo_goal.h"

#include <string>

#include "audio/thinning.h"

namespace marvolin {

namespace {

constexpr RowParts kHeardParts = kSamplePart | kSoundingPart | kThinnablePart;

bool Has(const std::string& order, char letter) { return order.find(letter) != std::string::npos; }

// What the hand has not started since the order was `after`: a start puts a row at the end.
std::string NotStartedSince(const std::string& after, const std::string& now) {
    std::string letters;
    std::size_t from = 0;
    for (const char letter : now) {
        const std::size_t place = after.find(letter, from);
        if (place == std::string::npos) break;
        letters += letter;
        from = place + 1;
    }
    return letters;
}

// The order of thinning: what the step did to it is undone, what the hand has done since stays. So a row that was
// stopped since does not come back into it: silent, it would count as one of those that sound, and the next start would
// stop another one too early. One that was started since is the youngest, unless the step starts it again as it was.
// What has only come back in place of what the limit stops gives way first.
std::string OrderOf(const UndoRecord& step, const UndoSnapshot& there, const UndoGoal& goal) {
    const std::string& now = there.Rest.ThinList;
    const std::string& before = (step.RestChanged & kThinListPart) != 0 ? step.Rest.ThinList : step.OrderAfter;
    const std::string stayed = NotStartedSince(step.OrderAfter, now);
    const auto comesBack = [&](char letter) {
        const Row row = ThinnedRow(letter);
        const RowParts different = DifferentParts(there.Rows[row], goal.Rows[row]);
        return (step.RowsChanged[row] & different & kHeardParts) != 0;
    };
    std::string order;
    for (const char letter : now) {
        const Row row = ThinnedRow(letter);
        if (step.Thinned[row] && goal.Rows[row].InHand.Playing) order += letter;
    }
    for (const char letter : before) {
        if (Has(order, letter)) continue;
        const Row row = ThinnedRow(letter);
        // One that played there and is not started again has been left to the hand.
        const bool silenced = step.Rows[row].InHand.Playing && !goal.Rows[row].InHand.Playing;
        const bool leftByStep = !Has(step.OrderAfter, letter) && !Has(now, letter);
        if (Has(stayed, letter) || (!silenced && (leftByStep || comesBack(letter)))) order += letter;
    }
    for (const char letter : now) {
        const bool staysSilent = comesBack(letter) && !goal.Rows[ThinnedRow(letter)].InHand.Playing;
        if (!Has(stayed, letter) && !Has(order, letter) && !staysSilent) order += letter;
    }
    return order;
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
    goal.Rest.ThinList = OrderOf(step, now, goal);
    goal.RestChanged = step.RestChanged & DifferentParts(now.Rest, goal.Rest);
    return goal;
}

}  // namespace marvolin
