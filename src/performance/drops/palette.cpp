#include "performance/drops/palette.h"

#include "audio/loop_clearing.h"
#include "audio/reverse.h"
#include "audio/sample_loading.h"
#include "core/files/paths.h"
#include "core/undo/undo_step.h"
#include "parameters/position.h"

namespace marvolin {

namespace {

void CloseList(Session& s) { s.World.Screen.ShowHistoryList(false); }

/// Path of the sample at an entry of the open list; "" when the entry is none.
std::string SampleAtEntry(const Session& s, std::int16_t entry) {
    const std::vector<std::string>& history = s.History[s.HistoryRow];
    const auto item = static_cast<std::size_t>(entry - kHistorySamples);
    return entry >= kHistorySamples && item < history.size() ? history[item] : "";
}

}  // namespace

bool DropDownDragsAt(Session& s, double y) { return y <= kDropDownGrip * s.World.Desk.TwipsPerPixelY(); }

std::optional<DragSource> DropDown_MouseDown(Session& s, Row row, double y) {
    if (!DropDownDragsAt(s, y)) return std::nullopt;
    return DragSource{drags::kDropDown, row, ""};
}

void DropDown_MouseUp(Session& s, Row row, double y) {
    if (DropDownDragsAt(s, y)) return;
    s.HistoryEntries = {"<Close>", "<Empty Looptrack>", "<Reverse Looptrack>"};
    for (const std::string& path : s.History[row]) s.HistoryEntries.push_back(SampleName(path));
    s.HistoryRow = row;
    s.HistoryChoice = -1;
    s.LoopDropTarget = row;
    s.World.Screen.ShowHistoryList(true);
}

std::optional<DragSource> HistoryList_MouseDown(Session& s, std::int16_t entry) {
    s.HistoryChoice = entry;
    if (entry == kHistoryClose) {
        CloseList(s);
        return std::nullopt;
    }
    if (entry < 0) return std::nullopt;
    return DragSource{drags::kHistoryList, s.HistoryRow, ""};
}

void HistoryList_DragDrop(Session& s) {
    const Row target = s.LoopDropTarget;
    if (s.HistoryChoice == kHistoryEmpty) {
        LoopClearRows(s, target);
    } else if (s.HistoryChoice == kHistoryReverse) {
        const UndoStep step(s, std::string("Reverse of ") + RowLetter(target));
        LoopReverse(s, target);
    } else if (const std::string path = SampleAtEntry(s, s.HistoryChoice); !path.empty()) {
        LoadSample(s,
                   {.Path = path, .Target = target, .Play = DropPlays(s, s.DragBin), .Origin = SampleOrigin::Palette});
    }
    CloseList(s);
}

void DropHistory(Session& s, Row row, const DragSource&) {
    s.LoopDropTarget = row;
    HistoryList_DragDrop(s);
    if (row != kSelectionRow) PosSetHighlight(s, row);
}

void HistoryList_LostFocus(Session& s) { CloseList(s); }

bool DropPlays(const Session& s, std::int16_t bin) { return s.Bins[bin].ClickPlay == 1 || s.PlayOnLoad; }

}  // namespace marvolin
