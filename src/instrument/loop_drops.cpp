#include "instrument/loop_drops.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "browser/bin_gestures.h"
#include "browser/clipboard.h"
#include "core/help.h"
#include "performance/drops/dropper.h"
#include "performance/drops/palette.h"
#include "performance/drops/row_drops.h"
#include "persistence/clips.h"

namespace marvolin {

namespace {

struct DropHandler {
    std::string_view Name;  ///< of the dragged control
    void (*Drop)(Session& s, Row row, const DragSource& source);
    bool (*Acts)(const Session& s, Row row, const DragSource& source);  ///< whether the drop does anything
};

// An entry of the palette; a LoopTrack without a sample has nothing to reverse. Emptying sets its patterns and timing
// back also without one.
bool ActsFromPalette(const Session& s, Row row, const DragSource&) {
    if (s.HistoryChoice == kHistoryReverse) return row != kSelectionRow && s.Run[row].Loaded != False;
    return row != kSelectionRow || AnyIsControlled(s);
}

// Z on itself fades what it controls.
bool Fades(const Session& s, Row row, const DragSource& source) {
    if (row == kSelectionRow && source.Index == kSelectionRow && !AnyIsControlled(s)) return false;
    return source.Tag == kFadeTag && source.Index >= 0 && source.Index <= kSelectionRow;
}

// A pattern is not copied onto the LoopTrack that it comes from.
bool CopiesPattern(const Session& s, Row row, const DragSource&) {
    return row == kSelectionRow ? AnyIsControlled(s) : row != s.CurrentLoop;
}

// The timing of a LoopTrack in a band goes to the others of the band.
bool CopiesTiming(const Session& s, Row row, const DragSource& source) {
    return CopiesPattern(s, row, source) || (row != kSelectionRow && s.Run[row].InBand != False);
}

bool LoadsFromBin(const Session& s, Row row, const DragSource& source) {
    if (row == kSelectionRow && !AnyIsControlled(s)) return false;
    return source.Index >= 0 && source.Index < kBins &&
           !SampleAt(s, source.Index, s.Bins[source.Index].Selected).empty();
}

bool LoadsLoopTrack(const Session& s, Row row, const DragSource& source) {
    return row != kSelectionRow && source.Index != row && source.Index >= 0 && source.Index < kLoopTracks &&
           s.Run[source.Index].Loaded != False;
}

constexpr std::array<DropHandler, 10> kDropHandlers{{{drags::kHistoryList, DropHistory, ActsFromPalette},
                                                     {drags::kLetr, DropFade, Fades},
                                                     {drags::kPosBall, DropFade, Fades},
                                                     {drags::kCloneTime, DropTimingElement, CopiesTiming},
                                                     {drags::kAllTiming, DropAllTiming, CopiesTiming},
                                                     {drags::kPatternGraph, DropPattern, CopiesPattern},
                                                     {drags::kPatterns, DropPatterns, CopiesPattern},
                                                     {drags::kTabControl, DropSequence, CopiesTiming},
                                                     {drags::kPickFile, DropFromBin, LoadsFromBin},
                                                     {drags::kDropDown, DropLoopTrack, LoadsLoopTrack}}};

const DropHandler* HandlerOf(const DragSource& source) {
    const auto* handler = std::find_if(kDropHandlers.begin(), kDropHandlers.end(),
                                       [&](const DropHandler& each) { return each.Name == source.Name; });
    return handler == kDropHandlers.end() ? nullptr : handler;
}

}  // namespace

bool LoopTakesDrop(const Session& s, Row row, const DragSource& source) {
    if (IsHelpDrag(source)) return true;
    if (source.Name == drags::kClipBoardList) return row != kSelectionRow && HasClip(s, s.Clips.Selected);
    if (clsDropperManager().IsDropping(source)) return DropperReaches(row, source);
    const DropHandler* handler = HandlerOf(source);
    return handler != nullptr && handler->Acts(s, row, source);
}

void Letr_DragDrop(Session& s, Row row, const DragSource& source) {
    if (IsHelpDrop(s, source, kLoopTrackTopic)) return;
    if (!DropDropperOnLetter(s, row, source)) LoopDragDrop(s, row, source);
}

void LoopDragDrop(Session& s, Row row, const DragSource& source) {
    if (IsHelpDrop(s, source, kLoopTrackTopic)) return;
    if (source.Name == drags::kClipBoardList) return DropClip(s, row, source);
    if (DropDropperOnDisplay(s, row, source)) return;
    if (const DropHandler* handler = HandlerOf(source)) handler->Drop(s, row, source);
}

}  // namespace marvolin
