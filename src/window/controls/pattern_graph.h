#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// Colour of a pattern row's graph.
QColor PatternColour(int patternRow);

/// `PatternGraph`: the random column and the step columns of one pattern row of `CurrentLoop`.
class PatternGraphControl : public Control {
public:
    PatternGraphControl(Session& session, QWidget* parent, int patternRow);
    /// Repaints one column: 0 the random one, from 1 the steps.
    void RefreshColumn(int column);
    QRectF ColumnPlace(int column) const;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Drop(const DragSource& source) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void DrawColumn(QPainter& p, int column) const;
    double HeightOf(double value) const;
};

/// `StepReadOut`: marks the step of `CurrentLoop` above the graphs, in line with their columns.
class StepReadOutControl : public Control {
public:
    StepReadOutControl(Session& session, QWidget* parent);
    /// Moves the marker; repaints its old and its new place alone.
    void Refresh() override;

protected:
    void Activate() override {}
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF MarkerPlace() const;
    QRectF shown_;  // where the marker stands on the screen
};

}  // namespace marvolin
