#include "performance/dropper.h"

#include <array>
#include <charconv>

#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "audio/thinning.h"
#include "browser/bin_gestures.h"
#include "browser/clipboard.h"
#include "core/help.h"
#include "core/loop_views.h"
#include "core/paths.h"
#include "core/routines.h"
#include "parameters/fades.h"
#include "parameters/position.h"
#include "parameters/setters.h"
#include "performance/palette.h"
#include "sequencing/patterns.h"
#include "sequencing/timing.h"

namespace marvolin {

namespace {

constexpr std::string_view kDropperTag = "Dropper~~";

bool IsRow(Row row) { return row >= 0 && row <= kSelectionRow; }

/// The row that started a dropper drag which ends on `row`; -1 when it is none, or ends on row 4.
Row DropperFrom(Row row, const DragSource& source) {
    const clsDropperManager dropper;
    if (!dropper.IsDropping(source) || row == kSelectionRow) return -1;
    const Row from = dropper.DroppingTo(source);
    return IsRow(from) ? from : Row{-1};
}

void DropHistory(Session& s, Row row, const DragSource&) {
    s.LoopDropTarget = row;
    HistoryList_DragDrop(s);
    if (row != kSelectionRow) PosSetHighlight(s, row);
}

void DropFade(Session& s, Row row, const DragSource& source) {
    if (source.Tag != kFadeTag || !IsRow(source.Index)) return;
    const Row from = source.Index;
    if (from == row) {
        LoopSetFadeGang(s, row, FadeCommand::Toggle, kOwnBand);
        return;
    }
    const bool silent = s.Set[from].Vol == 0;
    LoopSetFadeGang(s, from, silent ? FadeCommand::Up : FadeCommand::Down, kOwnBand);
    LoopSetFadeGang(s, row, silent ? FadeCommand::Down : FadeCommand::Up, kOwnBand);
}

void DropTimingElement(Session& s, Row row, const DragSource& source) {
    TimingCopy(s, s.CurrentLoop, row, source.Index);
    PatternsRefresh(s);
}

void DropAllTiming(Session& s, Row row, const DragSource&) {
    TimingCopy(s, s.CurrentLoop, row, kAllTiming);
    PatternsRefresh(s);
}

void DropPattern(Session& s, Row row, const DragSource& source) {
    if (source.Index < 0 || source.Index >= kPatternRows) return;
    PatternCopy(s, s.CurrentLoop, row, source.Index);
    PatternsRefresh(s);
}

void DropPatterns(Session& s, Row row, const DragSource&) {
    PatternCopyAll(s, s.CurrentLoop, row);
    PatternsRefresh(s);
}

// The tab stands for all of a LoopTrack's sequence.
void DropSequence(Session& s, Row row, const DragSource&) {
    PatternCopyAll(s, s.CurrentLoop, row);
    TimingCopy(s, s.CurrentLoop, row, kAllTiming);
    PatternsRefresh(s);
}

void DropFromBin(Session& s, Row row, const DragSource& source) {
    if (source.Index < 0 || static_cast<std::size_t>(source.Index) >= s.Bins.size()) return;
    const std::optional<BinSample> sample = SampleAt(s, source.Index, s.Bins[source.Index].Selected);
    if (!sample) return;
    LoopLoadRows(s, sample->Folder, sample->Name, row, DropPlays(s, source.Index));
}

void DropSample(Session& s, Row row, const DragSource& source) {
    if (row == kSelectionRow || source.Index == row || !IsRow(source.Index)) return;
    if (s.Run[source.Index].Loaded == False) return;
    const std::string path = s.Set[source.Index].FileName;
    std::string folder;
    std::string name;
    SplitPath(path, folder, name);
    LoopLoadRows(s, folder, SampleName(path), row, s.PlayOnLoad);
}

struct DropHandler {
    std::string_view Name;  ///< of the dragged control
    void (*Drop)(Session& s, Row row, const DragSource& source);
};

constexpr std::array<DropHandler, 10> kDropHandlers{{{"HistoryList", DropHistory},
                                                     {"Letr", DropFade},
                                                     {"PosBall", DropFade},
                                                     {"CloneTime", DropTimingElement},
                                                     {"AllTiming", DropAllTiming},
                                                     {"PatternGraph", DropPattern},
                                                     {"Patterns", DropPatterns},
                                                     {"TabControl", DropSequence},
                                                     {"PickFile", DropFromBin},
                                                     {"DropDown", DropSample}}};

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

std::optional<DragSource> Letr_MouseDown(Session&, Row row, std::int16_t button) {
    if (button == kLeftButton) return DragSource{"Letr", row, clsDropperManager().DropTo(row)};
    if (button == kRightButton) return DragSource{"Letr", row, std::string(kFadeTag)};
    return std::nullopt;
}

void Letr_DblClick(Session& s, Row row) {
    if (row == kSelectionRow) return;
    LoopSetThinnable(s, row, s.Set[row].Thinnable == False);
    s.World.Screen.ShowCaption(row);
}

void Letr_DragDrop(Session& s, Row row, const DragSource& source) {
    if (IsHelpDrop(s, source, kLoopTrackTopic)) return;
    const Row from = DropperFrom(row, source);
    if (from < 0) {
        LoopDragDrop(s, row, source);
        return;
    }
    LoopVolChangeGang(s, from, s.Set[row].Vol, UpdateDisplay::Yes);
    LoopPanChangeGang(s, from, s.Set[row].Pan);
    LoopHzChangeGang(s, from, s.Set[row].Hz);
    LoopSetPlayModeRows(s, from, s.Set[row].PlayMode);
}

void LoopDragDrop(Session& s, Row row, const DragSource& source) {
    if (IsHelpDrop(s, source, kLoopTrackTopic)) return;
    if (source.Name == "ClipBoardList") {
        DropClip(s, row, source);
        return;
    }
    if (const Row from = DropperFrom(row, source); from >= 0) {
        LoopVolChangeGang(s, from, s.Set[row].Vol, UpdateDisplay::Yes);
        return;
    }
    for (const DropHandler& handler : kDropHandlers) {
        if (handler.Name == source.Name) handler.Drop(s, row, source);
    }
}

}  // namespace marvolin
