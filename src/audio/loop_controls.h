#pragma once

#include "core/session.h"

namespace marvolin {

/// Sets the enabled state of the row's controls: only `PanKnob` ever follows the argument, and only with 3D off.
void EnableLoopControls(Session& s, Row row, bool enabled);
/// True when `PanKnob` of the row is enabled.
bool PanKnobEnabled(const Session& s, Row row);

}  // namespace marvolin
