#include "sequencing/patterns.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "core/loops/grouping.h"
#include "core/loops/loop_resets.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr double kStepsShare = 1 - kRandomColumnShare;
constexpr std::int16_t kNoPatternRow = -1;
constexpr double kTwipsAStep = 20;  // of a drag on `NSteps` that make one step

using ValueText = std::string (*)(std::int16_t);
constexpr std::array<ValueText, kPatternRows> kValueTexts{Vol2Text, Hz2Text, Pan2Text};

/// Value at a height of the graph. `Min` is not added: the lowest point is 0, then limited to the range.
double ValueAt(int patternRow, double y, double height) {
    const PatternLimits& range = kPatternRange[static_cast<std::size_t>(patternRow)];
    return ClampVar((height - y) / height * std::abs(range.Max - range.Min), range.Min, range.Max);
}

/// Number of the step column at `x`, from 1; 0 and less left of the steps.
int ColumnAt(double x, double width, int columns) {
    constexpr double kFar = 9999;  // columns: as far as any desktop is wide
    const double column = Int((x - kRandomColumnShare * width) / (kStepsShare * width / columns)) + 1;
    return static_cast<int>(ClampVar(column, -kFar, kFar));
}

void ShowValue(Session& s, int patternRow, double value, const std::string& prefix) {
    ShowReadout(s, prefix + kValueTexts[static_cast<std::size_t>(patternRow)](ToI2(value)));
}

int SlotOf(int column) { return column == 0 ? kPatternOffset : column - 1; }

void ShowNSteps(Session& s, double steps) {
    s.StepsShown = static_cast<std::int16_t>(ClampVar(steps, 1, kPatternSteps));
    s.World.Screen.ShowSteps();
}

void StoreNSteps(Session& s) {
    s.Set[s.CurrentLoop].NSteps = static_cast<std::int16_t>(s.StepsShown - 1);
    PatternsRefresh(s);
}

/// Draws the column from which the pointer comes at the height that it had there, and those between it and the new one
/// at the height of the straight line in their middle.
void DrawPassed(Session& s, int patternRow, const GraphEvent& event) {
    const int columns = s.GraphColumns[static_cast<std::size_t>(patternRow)];
    if (columns < 1) return;
    const double width = event.Size.Width;
    const int one = ColumnAt(event.From.X, width, columns);
    const int other = ColumnAt(event.At.X, width, columns);
    if (one == other) return;
    if (one >= 1 && one <= columns) {
        PatternStore(s, patternRow, one, ValueAt(patternRow, event.From.Y, event.Size.Height));
    }
    const int last = std::min(std::max(one, other) - 1, columns);
    for (int column = std::max(std::min(one, other) + 1, 1); column <= last; ++column) {
        const double middle = (kRandomColumnShare + (column - 0.5) * kStepsShare / columns) * width;
        const double share = (middle - event.From.X) / (event.At.X - event.From.X);
        const double y = event.From.Y + share * (event.At.Y - event.From.Y);
        PatternStore(s, patternRow, column, ValueAt(patternRow, y, event.Size.Height));
    }
}

/// Draws from the previous place of the pointer to where it is now.
void Draw(Session& s, int patternRow, const GraphEvent& event) {
    if (event.Size.Width <= 0 || event.Size.Height <= 0) return;
    if (s.PatternDrawRow == patternRow && event.Button == kLeftButton) DrawPassed(s, patternRow, event);
    PatternEdit(s, patternRow, event.Button, event.At, event.Size);
}

void EndDrawing(Session& s) {
    s.PatternDrawRow = s.PatternRandomRow = kNoPatternRow;
    EndUndoDrag(s);
}

/// Text of a step that draws or erases the pattern of `CurrentLoop`.
std::string StepText(const Session& s, const char* what, int patternRow) {
    static constexpr std::array<const char*, kPatternRows> kNames{"Vol", "Freq", "Pan"};
    return std::string(what) + " of the " + kNames.at(static_cast<std::size_t>(patternRow)) + " pattern of " +
           RowLetter(s.CurrentLoop);
}

}  // namespace

void InitPatternTables(Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        for (int patternRow = 0; patternRow < kPatternRows; ++patternRow) PatternReset(s, row, patternRow);
    }
    EndDrawing(s);
    s.CurrentLoop = 0;
    s.StepsShown = static_cast<std::int16_t>(s.Set[s.CurrentLoop].NSteps + 1);
    s.World.Screen.ShowSteps();
    for (int patternRow = 0; patternRow < kPatternRows; ++patternRow) PatternRefresh(s, patternRow);
}

void PatternGraph_Gesture(Session& s, int patternRow, const GraphEvent& event) {
    switch (event.What) {
        case Phase::Down:
            EndDrawing(s);
            if (event.Button != kLeftButton) return;
            BeginUndoDrag(s, StepText(s, "Drawing", patternRow), UndoScope::Patterns);
            (event.At.X <= kRandomColumnShare * event.Size.Width ? s.PatternRandomRow : s.PatternDrawRow) =
                static_cast<std::int16_t>(patternRow);
            return;
        case Phase::Move:
            if (event.Button == kNoButton) return EndDrawing(s);
            Draw(s, patternRow, event);
            return;
        case Phase::Up:
            Draw(s, patternRow, event);
            (s.PatternDrawRow != kNoPatternRow ? s.PatternDrawRow : s.PatternRandomRow) = kNoPatternRow;
            EndUndoDrag(s);
            return;
    }
}

void PatternEdit(Session& s, int patternRow, std::int16_t button, GraphPlace at, GraphSize size) {
    if (size.Width <= 0 || size.Height <= 0) return;
    const double value = ValueAt(patternRow, at.Y, size.Height);
    if (s.PatternDrawRow == patternRow && button == kLeftButton) {
        const int columns = s.GraphColumns[static_cast<std::size_t>(patternRow)];
        if (columns < 1) return;
        const int column = ColumnAt(at.X, size.Width, columns);
        if (column >= 1 && column <= columns + 1) PatternStore(s, patternRow, column, value);
        ShowValue(s, patternRow, value, "Step: " + NumberText(column) + " ");
    } else if (s.PatternRandomRow == patternRow) {
        PatternStore(s, patternRow, 0, value);
        ShowValue(s, patternRow, value, "Random: ");
    }
}

void PatternStore(Session& s, int patternRow, int column, double value) {
    // A file may hold more steps than a pattern has slots; the graph then has as many columns.
    if (column < 0 || column > kPatternOffset + 1) return;
    const int slot = SlotOf(column);
    s.Set[s.CurrentLoop].Pattern[patternRow][slot] = ToI2(value);
    // The slot after the last step of a full pattern is the spread, which the random column shows.
    const int shown = slot == kPatternOffset ? 0 : column;
    if (shown > s.GraphColumns[static_cast<std::size_t>(patternRow)]) return;
    s.World.Screen.ShowPatternColumn(patternRow, shown);
}

void PatternShow(Session& s, int patternRow, int column) {
    if (column < 0 || column > kPatternOffset + 1) return;
    const std::string prefix = column == 0 ? "Random: " : "Step: " + NumberText(column) + " ";
    ShowValue(s, patternRow, s.Set[s.CurrentLoop].Pattern[patternRow][SlotOf(column)], prefix);
}

void PatternStep(Session& s, int patternRow, int column, int units) {
    if (column < 0 || column > kPatternOffset + 1) return;
    const UndoStep undo(s, StepText(s, "Drawing", patternRow), UndoScope::Patterns, UndoKind::Run);
    const PatternLimits& range = kPatternRange[static_cast<std::size_t>(patternRow)];
    const double value = s.Set[s.CurrentLoop].Pattern[patternRow][SlotOf(column)] + static_cast<double>(units);
    PatternStore(s, patternRow, column, ClampVar(value, range.Min, range.Max));
    PatternShow(s, patternRow, column);
}

void PatternStepReset(Session& s, int patternRow, int column) {
    if (column < 0 || column > kPatternOffset + 1) return;
    const UndoStep undo(s, StepText(s, "Drawing", patternRow), UndoScope::Patterns, UndoKind::Run);
    const PatternLimits& range = kPatternRange[static_cast<std::size_t>(patternRow)];
    PatternStore(s, patternRow, column, SlotOf(column) == kPatternOffset ? range.Min : range.Default);
    PatternShow(s, patternRow, column);
}

void EraserDrop(Session& s, int patternRow) {
    const UndoStep undo(s, StepText(s, "Erasing", patternRow), UndoScope::Patterns);
    PatternReset(s, s.CurrentLoop, patternRow);
    PatternRefresh(s, patternRow);
}

void NSteps_Gesture(Session& s, Phase phase, double y) {
    switch (phase) {
        case Phase::Down:
            s.Drag.Dragging = True;
            s.Drag.DragStartValue = s.StepsShown;
            s.Drag.DragOrigin = static_cast<float>(y);
            return;
        case Phase::Move: {
            if (s.Drag.Dragging == False) return;
            const double steps = Int(s.Drag.DragStartValue - Int(y - s.Drag.DragOrigin) * (1 / kTwipsAStep));
            ShowNSteps(s, steps);
            return;
        }
        case Phase::Up:
            if (s.Drag.Dragging == False) return;
            s.Drag.Dragging = False;
            StoreNSteps(s);
            return;
    }
}

void NSteps_Step(Session& s, int units) {
    if (s.Drag.Dragging != False) return;
    ShowNSteps(s, static_cast<double>(s.StepsShown) + units);
    StoreNSteps(s);
}

void PatternCopy(Session& s, Row from, Row to, int patternRow) {
    const PatternBlock block = s.Set[from].Pattern[patternRow];
    const auto put = [&](Row row) { s.Set[row].Pattern[patternRow] = block; };
    if (from == kSelectionRow || to == kSelectionRow) {
        ForControlled(s, put);
    } else if (from == to) {
        return;
    } else if (s.Run[to].InBand == False) {
        put(to);
    } else {
        ForBand(s, s.Run[to].Band, put);
    }
}

void PatternCopyAll(Session& s, Row from, Row to) {
    for (int patternRow = 0; patternRow < kPatternRows; ++patternRow) PatternCopy(s, from, to, patternRow);
    // The members of a band or a selection keep their own number of steps.
    s.Set[to].NSteps = s.Set[from].NSteps;
}

}  // namespace marvolin
