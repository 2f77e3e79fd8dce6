#pragma once
/// \file
/// The tabs of the main window.

#include "core/session.h"

namespace marvolin {

/// Opens a tab of `TabControl` (a `marvolin::Tab`) and refreshes what it shows. A number outside 0..3 is ignored.
void SetTab(Session& s, std::int16_t tab);
/// Opens a sub-tab of the options, by its number from 0.
void OptionSubTabs_Click(Session& s, std::int16_t tab);
/// Refreshes what the open tab shows.
void TabControl_Changed(Session& s);

}  // namespace marvolin
