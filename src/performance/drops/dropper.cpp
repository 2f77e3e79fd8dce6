#include "performance/drops/dropper.h"

#include <charconv>

#include "audio/play_modes.h"
#include "audio/thinning.h"
#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr std::string_view kDropperTag = "Dropper~~";

/// The row that started a dropper drag which ends on `row`; -1 when it is none, or ends on row 4.
Row DropperFrom(Row row, const DragSource& source) {
    const clsDropperManager dropper;
    if (!dropper.IsDropping(source) || row == kSelectionRow) return -1;
    const Row from = dropper.DroppingTo(source);
    return from >= 0 && from <= kSelectionRow ? from : Row{-1};
}

std::string DropperText(Row from, Row row) {
    return std::string("Dropper from ") + RowLetter(row) + " to " + RowLetter(from);
}

}  // namespace

bool clsDropperManager::IsDropping(const DragSource& source) const { return StartsWith(source.Tag, kDropperTag); }

std::int16_t clsDropperManager::DroppingTo(const DragSource& source) const {
    if (!IsDropping(source)) return -1;
    std::int16_t row = -1;
    const char* end = source.Tag.data() + source.Tag.size();
    std::from_chars(source.Tag.data() + kDropperTag.size(), end, row);
    return row;
}

std::string clsDropperManager::DropTo(Row row) const { return std::string(kDropperTag) + std::to_string(row); }

std::optional<DragSource> Letr_MouseDown(Row row, std::int16_t button) {
    if (button == kLeftButton) return DragSource{drags::kLetr, row, clsDropperManager().DropTo(row)};
    if (button == kRightButton) return DragSource{drags::kLetr, row, kFadeTag};
    return std::nullopt;
}

void Letr_DblClick(Session& s, Row row) {
    if (row == kSelectionRow) return;
    LoopSetThinnable(s, row, s.Set[row].Thinnable == False);
    s.World.Screen.ShowCaption(row);
}

bool DropperReaches(Row row, const DragSource& source) {
    const Row from = DropperFrom(row, source);
    return from >= 0 && from != row;
}

bool DropDropperOnDisplay(Session& s, Row row, const DragSource& source) {
    const Row from = DropperFrom(row, source);
    if (from < 0) return false;
    if (from == row) return true;
    const UndoStep step(s, DropperText(from, row));
    LoopVolChangeGang(s, from, s.Set[row].Vol, UpdateDisplay::Yes);
    return true;
}

bool DropDropperOnLetter(Session& s, Row row, const DragSource& source) {
    const Row from = DropperFrom(row, source);
    if (from < 0) return false;
    // Its own settings are no change, also when it has a band that would follow.
    if (from == row) return true;
    const UndoStep step(s, DropperText(from, row));
    LoopVolChangeGang(s, from, s.Set[row].Vol, UpdateDisplay::Yes);
    LoopPanChangeGang(s, from, s.Set[row].Pan);
    LoopHzChangeGang(s, from, s.Set[row].Hz);
    LoopSetPlayModeRows(s, from, s.Set[row].PlayMode);
    return true;
}

}  // namespace marvolin
