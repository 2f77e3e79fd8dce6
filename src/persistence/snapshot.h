#pragma once
/// \file
/// Snapshots: sessions saved by one click under numbered names.

#include <string>

#include "core/session.h"

namespace marvolin {

/// File name of the next snapshot in the current folder: `SessionName` (or "Snapshot"), a blank, and the lowest number
/// from 001 on that no file has. Separators in `SessionName` become "-".
std::string SnapshotName(const Session& s);

/// `SnapShot` is released: saves the session under the next snapshot name, with the elements chosen for saving, and
/// shows the name in the status line.
void SnapShot_MouseUp(Session& s);

}  // namespace marvolin
