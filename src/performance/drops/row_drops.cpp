#include "performance/drops/row_drops.h"

#include <algorithm>
#include <array>

#include "audio/sample_loading.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_views.h"
#include "parameters/fades.h"
#include "sequencing/patterns.h"
#include "sequencing/timing.h"

namespace marvolin {

namespace {

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

void DropSequence(Session& s, Row row, const DragSource&) {
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
