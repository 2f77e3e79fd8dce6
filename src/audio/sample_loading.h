#pragma once
/// \file
/// Samples in LoopTracks: loading, duplicating, clearing.

#include <string>

#include "core/session.h"

namespace marvolin {

/// Puts the sample `folder`/`fileName` into `row`. Every way of loading ends here.
/// Says "No File Name!!" or "File Doesn't Exist !!" and changes nothing; a file that the service refuses leaves the row
/// empty; a failure while setting up says "Error setting up loaded loop" in the status line. Rows 4 and 5 are left alone.
void LoopLoad(Session& s, Row row, const std::string& folder, const std::string& fileName);

/// A player's gesture: loads `name` + ".WAV" into the row, its band, or for row 4 the controlled rows, and plays them
/// when `playAfter`. Any other row does nothing. A file on disk whose extension is spelled otherwise is found.
void LoopLoadRows(Session& s, const std::string& folder, const std::string& name, Row row, bool playAfter);

/// Takes the sample out of the row; its settings stay.
void LoopUnload(Session& s, Row row);
/// The row back to its empty defaults; row 4 is left alone.
void LoopClear(Session& s, Row row);
/// `LoopClear`; row 4 walks the controlled rows.
void LoopClearRows(Session& s, Row row);

/// Sets the enabled state of the row's controls: only `PanKnob` ever follows the argument, and only with 3D off.
void EnableLoopControls(Session& s, Row row, bool enabled);
/// True when `PanKnob` of the row is enabled.
bool PanKnobEnabled(const Session& s, Row row);

/// Text shown for the row: the name of its sample, "" when empty.
std::string LoopFileName(const Session& s, Row row);

/// Sets `BeatStart`, limited in place to the sample, and `BeatStartBytes`. The only way to set it.
void LoopSetBeatStart(Session& s, Row row, std::int32_t& hundredths);

/// Reverses the sample of the row in memory, for all rows that share it. Failures: "reversing sound".
void LoopReverse(Session& s, Row row);

}  // namespace marvolin
