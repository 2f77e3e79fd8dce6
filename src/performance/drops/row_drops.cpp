#include "performance/drops/row_drops.h"

#include <algorithm>
#include <array>

#include "audio/sample_loading.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_views.h"
#include "core/undo/undo_step.h"
#include "parameters/fades.h"
#include "sequencing/patterns.h"
#include "sequencing/timing.h"

namespace marvolin {

namespace {

/// Text of the step that copies `what` from `CurrentLoop` to a row.
std::string CopyText(const Session& s, std::string_view what, Row row) {
    return "Copy of the " + std::string(what) + " of " + RowLetter(s.CurrentLoop) + " to " + RowLetter(row);
}

bool IsRow(Row row) { return row >= 0 && row <= kSelectionRow; }

}  // namespace

bool AnyIsControlled(const Session& s) {
    constexpr std::array<Row, kLoopTracks> kAll{0, 1, 2, 3};
    return std::any_of(kAll.begin(), kAll.end(), [&](Row row) { return IsControlled(s, row); });
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
    const UndoStep step(s, CopyText(s, "timing", row));
    TimingCopy(s, s.CurrentLoop, row, source.Index);
    PatternsRefresh(s);
}

void DropAllTiming(Session& s, Row row, const DragSource&) {
    const UndoStep step(s, CopyText(s, "timing", row));
    TimingCopy(s, s.CurrentLoop, row, kAllTiming);
    PatternsRefresh(s);
}

void DropPattern(Session& s, Row row, const DragSource& source) {
    if (source.Index < 0 || source.Index >= kPatternRows) return;
    const UndoStep step(s, CopyText(s, "pattern", row));
    PatternCopy(s, s.CurrentLoop, row, source.Index);
    PatternsRefresh(s);
}

void DropPatterns(Session& s, Row row, const DragSource&) {
    const UndoStep step(s, CopyText(s, "patterns", row));
    PatternCopyAll(s, s.CurrentLoop, row);
    PatternsRefresh(s);
}

void DropSequence(Session& s, Row row, const DragSource&) {
    const UndoStep step(s, CopyText(s, "sequence", row));
    PatternCopyAll(s, s.CurrentLoop, row);
    TimingCopy(s, s.CurrentLoop, row, kAllTiming);
    PatternsRefresh(s);
}

void DropLoopTrack(Session& s, Row row, const DragSource& source) {
    if (row == kSelectionRow || source.Index == row || !IsRow(source.Index)) return;
    if (s.Run[source.Index].Loaded == False) return;
    LoadSample(
        s,
        {.Path = s.Set[source.Index].FileName, .Target = row, .Play = s.PlayOnLoad, .Origin = SampleOrigin::LoopTrack});
}

}  // namespace marvolin
