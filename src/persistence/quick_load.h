#pragma once
/// \file
/// The list of the sessions in the current folder.

#include <cstddef>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// First row of the list.
inline constexpr std::string_view kQuickLoadClose = "<Close>";

/// Rebuilds the list from `CurrentFolder`: its sessions in the order of their names, as `NameBefore` has it. Disables
/// it when the folder does not exist.
void UpdateQuickLoad(Session& s);
/// `QuickLoadPop` is released with `button`: opens the list.
void QuickLoadPop_MouseUp(Session& s, std::int16_t button);
/// The player chose a row of the list. In a list opened with the left button its file is loaded at once, otherwise the
/// Save/Open dialogue opens on it. The list is hidden either way; "<Close>", the first row, does nothing else.
void QuickLoad_Click(Session& s, std::size_t row);
/// Hides the list.
void QuickLoad_LostFocus(Session& s);

}  // namespace marvolin
