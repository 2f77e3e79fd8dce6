#include "instrument/loop_drops.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "browser/bin_gestures.h"
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
};

constexpr std::array<DropHandler, 10> kDropHandlers{{{drags::kHistoryList, DropHistory},
                                                     {drags::kLetr, DropFade},
                                                     {drags::kPosBall, DropFade},
                                                     {drags::kCloneTime, DropTimingElement},
                                                     {drags::kAllTiming, DropAllTiming},
                                                     {drags::kPatternGraph, DropPattern},
                                                     {drags::kPatterns, DropPatterns},
                                                     {drags::kTabControl, DropSequence},
                                                     {drags::kPickFile, DropFromBin},
                                                     {drags::kDropDown, DropLoopTrack}}};

}  // namespace

void Letr_DragDrop(Session& s, Row row, const DragSource& source) {
    if (IsHelpDrop(s, source, kLoopTrackTopic)) return;
    if (!DropDropperOnLetter(s, row, source)) LoopDragDrop(s, row, source);
}

void LoopDragDrop(Session& s, Row row, const DragSource& source) {
    if (IsHelpDrop(s, source, kLoopTrackTopic)) return;
    if (source.Name == drags::kClipBoardList) return DropClip(s, row, source);
    if (DropDropperOnDisplay(s, row, source)) return;
    const auto* handler = std::find_if(kDropHandlers.begin(), kDropHandlers.end(),
                                       [&](const DropHandler& each) { return each.Name == source.Name; });
    if (handler != kDropHandlers.end()) handler->Drop(s, row, source);
}

}  // namespace marvolin
