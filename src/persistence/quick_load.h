#pragma once
/// \file
/// The list of the sessions in the current folder.

#include <string_view>

#include "core/session.h"

namespace marvolin {

inline constexpr std::string_view kQuickLoadClose = "<Close>";

/// Rebuilds the list from `CurrentFolder`: its sessions in the order of the directory. Disabled when the folder is
/// gone.
void UpdateQuickLoad(Session& s);
/// `QuickLoadPop` let go with `button`: opens the list.
void QuickLoadPop_MouseUp(Session& s, std::int16_t button);
/// A row of the list was chosen: opened with the left button it loads at once, else the Save/Open dialogue opens on it.
/// The list is hidden either way; "<Close>" does no more.
void QuickLoad_Click(Session& s, std::string_view text);
void QuickLoad_LostFocus(Session& s);

}  // namespace marvolin
