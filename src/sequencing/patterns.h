#pragma once
/// \file
/// Drawing, erasing and copying of patterns.

#include "core/session.h"

namespace marvolin {

/// Share of a graph's width, from its left, that the random column takes.
inline constexpr double kRandomColumnShare = 0.05;

/// Resets the three pattern rows of rows 0..3, lays out the graphs for them and ends any drawing.
void InitPatternTables(Session& s);

/// The size of a graph, twips.
struct GraphSize {
    double Width = 0;
    double Height = 0;
};

/// A place on a graph, twips from its left and top.
struct GraphPlace {
    double X = 0;
    double Y = 0;
};

/// What the pointer does on a graph.
struct GraphEvent {
    Phase What = Phase::Move;
    std::int16_t Button = kNoButton;  ///< of a press or release; in a move all that are held
    GraphPlace At;                    ///< where it happens
    GraphPlace From;                  ///< of a move or release: where the pointer was before
    GraphSize Size;                   ///< of the graph
};

/// A press, move or release on graph `patternRow`. A left press begins to draw, its release ends it. The press of
/// another button ends it too, and draws nothing; so does a move without a button, whose release was lost. Columns that
/// the pointer jumps over from one event to the next are drawn on the straight line between the two places.
void PatternGraph_Gesture(Session& s, int patternRow, const GraphEvent& event);
/// Draws at a place of graph `patternRow`, if its steps or its random column are being drawn: stores the value in the
/// record of `CurrentLoop` and shows it beside the hint. Left of the first step, or more than a column to the right of
/// the last one, the value is only shown.
void PatternEdit(Session& s, int patternRow, std::int16_t button, GraphPlace at, GraphSize size);
/// Stores the value of a graph's column in the record of `CurrentLoop`. Column 0 is the random one, column n (1..33)
/// the slot of step n; the 33rd slot is the row's spread. Any other column is ignored.
void PatternStore(Session& s, int patternRow, int column, double value);

/// A key on a graph, which has no height of the pointer: the value of `column` as in `PatternStore`, `units` up or down
/// within the range of the pattern, stored and shown beside the hint.
void PatternStep(Session& s, int patternRow, int column, int units);
/// Shows the value of `column` beside the hint.
void PatternShow(Session& s, int patternRow, int column);

/// Puts the value of `column` back to that of an empty pattern and shows it beside the hint. Any column beyond
/// `PatternStore`'s is ignored.
void PatternStepReset(Session& s, int patternRow, int column);

/// A drop of `Eraser` on graph `patternRow`. Only this graph is laid out and shown again.
void EraserDrop(Session& s, int patternRow);
/// `NSteps`: a drag sets the number of steps 1..32; the release stores it in the record. `y` in twips.
void NSteps_Gesture(Session& s, Phase phase, double y);
/// A notch of the wheel or an arrow key: `units` steps more, within 1..32, stored at once. Nothing during a drag.
void NSteps_Step(Session& s, int units);

/// Copies a pattern row, spread included, to the controlled rows (`from` or `to` 4), to the band of `to`, or to `to`.
void PatternCopy(Session& s, Row from, Row to, int patternRow);
/// Copies all three rows, and `NSteps` to `to` alone.
void PatternCopyAll(Session& s, Row from, Row to);

}  // namespace marvolin
