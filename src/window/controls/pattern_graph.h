#pragma once

#include <algorithm>

#include "window/controls/control.h"
#include "window/descriptions/inner_parts.h"

namespace marvolin {

/// Colour of a pattern row's graph.
QColor PatternColour(int patternRow);

/// `PatternGraph`: one pattern row of `CurrentLoop`, a random column and the columns of the steps.
class PatternGraphControl : public Control, public HasInnerParts {
public:
    PatternGraphControl(Session& session, QWidget* parent, int patternRow);
    /// Repaints one column: 0 the random column, 1 the first step.
    void RefreshColumn(int column);
    QRectF ColumnPlace(int column) const;
    std::optional<DragSource> Carried(std::int16_t) override { return DragSource{drags::kPatternGraph, index, ""}; }
    std::string CursorWords() const override;
    /// The steps, then the random column.
    int InnerCount() const override { return Columns() + 1; }
    InnerPart Inner(int part) const override;
    void SetInner(int part, double value) override;
    void ChooseInner(int part) override { GoTo(ColumnOf(part)); }

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t button, QPointF twips) override;
    bool TakesDrop(const DragSource& source) const override;
    void Drop(const DragSource& source) override;
    /// Left and right, Home and End choose a column, the others turn its value; Delete resets the step, Shift
    /// and Delete erases the pattern.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// A file may lay out more columns than a pattern has steps; the keys go to the steps.
    int Columns() const { return std::clamp<int>(s.GraphColumns[static_cast<std::size_t>(index)], 1, kPatternSteps); }
    int ColumnOf(int part) const { return part < Columns() ? part + 1 : 0; }
    double ValueOf(int column) const;
    void GoTo(int column);
    void DrawColumn(QPainter& p, int column) const;
    void DrawCursor(QPainter& p) const;
    double HeightOf(double value) const;
    QPointF passed_;  // the previous place of the pointer, twips
    int cursor_ = 1;  // the column that the keys turn
};

/// `StepReadOut`: marks the current step of `CurrentLoop` above the graphs, in line with their columns.
class StepReadOutControl : public Control {
public:
    StepReadOutControl(Session& session, QWidget* parent);
    /// Moves the marker; repaints only its old and its new place.
    void Refresh() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF MarkerPlace() const;
    QRectF shown_;  // the marker as it was painted last
};

}  // namespace marvolin
