#pragma once
/// \file
/// A LoopTrack's pattern and step clock set back to their start. Loading, transport, patterns and start-up all do so.

#include "core/session.h"

namespace marvolin {

/// Fills pattern row `patternRow` of LoopTrack `row` with its default and its spread with the minimum of the range, and
/// sets the LoopTrack to four steps.
void PatternReset(Session& s, Row row, int patternRow);

/// Clears fade, step, step timing, `PlayRequest` and `MapError` of a row and shows its step again.
void ResetLoopClock(Session& s, Row row);

}  // namespace marvolin
