#pragma once
/// \file
/// Emptying LoopTracks.

#include "core/session.h"

namespace marvolin {

/// Takes the sample out of the row; its settings stay.
void LoopUnload(Session& s, Row row);
/// The row back to its empty defaults; row 4 is left alone.
void LoopClear(Session& s, Row row);
/// `LoopClear`; row 4 walks the controlled rows.
void LoopClearRows(Session& s, Row row);

}  // namespace marvolin
