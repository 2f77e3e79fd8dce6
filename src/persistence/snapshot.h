#pragma once

#include <string>

#include "core/session.h"

namespace marvolin {

/// Name of the next snapshot in the current folder: `SessionName` (or "Snapshot"), a blank, and the lowest number from
/// 001 on that no file has. Separators in the name become "-".
std::string SnapshotName(const Session& s);

/// `SnapShot` let go: saves the session under the next snapshot name with the elements of the next save, and says the
/// name in the status line.
void SnapShot_MouseUp(Session& s);

}  // namespace marvolin
