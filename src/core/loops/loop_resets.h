#pragma once
/// \file
/// A LoopTrack's pattern and step clock set back to their start. Loading, transport, patterns and start-up all do so.

#include "core/session.h"

namespace marvolin {

/// Fills a pattern row with its default, its spread with the range's minimum, and sets the row back to four steps.
void PatternReset(Session& s, Row row, int patternRow);

/// Clears fade, step and step timing of a row and shows its step again.
void ResetLoopClock(Session& s, Row row);

}  // namespace marvolin
