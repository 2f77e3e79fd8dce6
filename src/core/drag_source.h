#pragma once
/// \file
/// What a drop knows about the control that is dragged onto another.

#include <string>
#include <string_view>

#include "core/types.h"

namespace marvolin {

/// Name of the dragged question mark. A drop of it asks for help and does nothing else.
inline constexpr std::string_view kHelpDragName = "ForHelp~~";

/// Names of the controls that can be dragged, by which a drop tells what it carries.
namespace drags {
inline constexpr char kAllTiming[] = "AllTiming";
inline constexpr char kClipBoardList[] = "ClipBoardList";
inline constexpr char kCloneTime[] = "CloneTime";
inline constexpr char kDropDown[] = "DropDown";
inline constexpr char kEraser[] = "Eraser";
inline constexpr char kHistoryList[] = "HistoryList";
inline constexpr char kLetr[] = "Letr";
inline constexpr char kPatternGraph[] = "PatternGraph";
inline constexpr char kPatterns[] = "Patterns";
inline constexpr char kPickDir[] = "PickDir";
inline constexpr char kPickFile[] = "PickFile";
inline constexpr char kPosBall[] = "PosBall";
inline constexpr char kStatusBar[] = "StatusBar1";
inline constexpr char kTabControl[] = "TabControl";
}  // namespace drags

/// Tag of a fade drag, which a right press on a `Letr` or a `PosBall` begins.
inline constexpr char kFadeTag[] = "4";

/// Name of the dragged control, its index in its array, and its tag.
struct DragSource {
    std::string Name;
    Row Index = 0;
    std::string Tag;
    friend bool operator==(const DragSource&, const DragSource&) = default;
};

/// Whether `source` is the dragged question mark.
inline bool IsHelpDrag(const DragSource& source) { return source.Tag == kHelpDragName || source.Name == kHelpDragName; }

}  // namespace marvolin
