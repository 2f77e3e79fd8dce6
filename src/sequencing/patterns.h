#pragma once
/// \file
/// Drawing, erasing and copying of patterns.

#include "core/session.h"

namespace marvolin {

/// Fills `PatternRange`-wide defaults into all rows, the digits' weights and the idle state of the pattern view.
void InitPatternTables(Session& s);

/// A press, move or release on graph `patternRow`. `x`, `y` in twips within the graph, `width`, `height` its size.
/// A right press starts a drag, which is the window's.
void PatternGraph_Gesture(Session& s, int patternRow, Phase phase, std::int16_t button, double x, double y,
                          double width, double height);
/// A drop of `Eraser` on graph `patternRow`.
void EraserDrop(Session& s, int patternRow);
/// `NSteps`: a drag sets the number of steps 1..32. `y` in twips.
void NSteps_Gesture(Session& s, Phase phase, double y);

/// Copies a pattern row, spread included, to the controlled rows (`from` 4), to the band of `to`, or to `to`.
void PatternCopy(Session& s, Row from, Row to, int patternRow);
/// Copies all three rows, and `NSteps` to `to` alone.
void PatternCopyAll(Session& s, Row from, Row to);

}  // namespace marvolin
