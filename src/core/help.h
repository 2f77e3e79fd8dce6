#pragma once
/// \file
/// Context help: a question mark dragged onto a control, and whatever else asks for a page of Help.

#include <cstdint>
#include <string_view>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

/// Title of the help viewer's window.
inline constexpr std::string_view kHelpTitle = "Marvolin Help";

/// The help file, in the program's folder: the list of all pages. The pages lie beside it.
inline constexpr std::string_view kHelpFile = "Help/marvolin.chm";

/// Topic of the first page, from which every other is reached.
inline constexpr std::int32_t kHelpContents = 10000;

/// When a help file is set and `name` is `kHelpDragName`: opens the help viewer on `topic` and sets `HelpShown`. True
/// when the viewer was opened. A failure is shown as "Error trying to open help file, " and its description.
bool ShowHelp(Session& s, std::string_view name, std::int32_t topic);

/// The first test of every drop: true when the question mark was dropped. It then shows the help of `topic`, and the
/// drop does nothing more.
bool IsHelpDrop(Session& s, const DragSource& source, std::int32_t topic);

/// Closes the help viewer, if it is open.
void CloseHelp(Session& s);

}  // namespace marvolin
