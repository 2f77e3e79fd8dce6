#pragma once
/// \file
/// Files dropped on the main window from a file manager.

#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// The first session file or package among `paths`, "" when there is none: a file that is there and whose name ends in
/// ".mvn", in any letter case, or in ".mvp", in this spelling alone.
std::string SetAmong(const std::vector<std::string>& paths);

/// Why a drop of these paths would do nothing, for the status line; "" when it does something: a set opens anywhere on
/// the window, a sample loads on a row. `row` is 0..4, -1 beside the rows.
std::string WhyDropIsRefused(const Session& s, Row row, const std::vector<std::string>& paths);

/// Files dropped on `row` (0..4), or beside the rows (-1). A set among them opens as QuickLoad's left click opens one,
/// with the elements that are chosen for opening, and nothing else of the drop is looked at. Without a set they are
/// samples for the row (`DropFilesOnRow`). Messages are those of `LoadSession` and of the loads.
void DropFiles(Session& s, Row row, const std::vector<std::string>& paths);

}  // namespace marvolin
