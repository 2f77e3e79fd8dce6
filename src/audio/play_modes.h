#pragma once
/// \file
/// The four play modes of a LoopTrack.

#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Text of a play mode for the hints.
std::string_view PlayModeText(std::int16_t mode);
/// Looping flag with which a mode plays: 1 for Loop and Track, else 0.
std::int32_t LoopPlayFlags(std::int16_t mode);

/// Sets the mode of one row, changing the looping of a sounding one or restarting it. With `refresh` the timing
/// read-outs are shown again. Errors: "changing looping".
void LoopSetPlayMode(Session& s, Row row, std::int16_t mode, bool refresh);
/// The same for the controlled rows (row 4), the row's band, or the row.
void LoopSetPlayModeRows(Session& s, Row row, std::int16_t mode);

}  // namespace marvolin
