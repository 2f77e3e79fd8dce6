#pragma once
/// \file
/// What a drop knows about the control that is dragged onto another.

#include <string>
#include <string_view>

#include "core/types.h"

namespace marvolin {

/// Name of the dragged question mark. A drop of it asks for help and does nothing else.
inline constexpr std::string_view kHelpDragName = "ForHelp~~";

/// Tag of a fade drag: a drop fades the two LoopTracks against each other.
inline constexpr std::string_view kFadeTag = "4";

/// Name of the dragged control, its index in its array, and its tag.
struct DragSource {
    std::string Name;
    Row Index = 0;
    std::string Tag;
    friend bool operator==(const DragSource&, const DragSource&) = default;
};

}  // namespace marvolin
