#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// The name of a pattern row, and the values at the top, middle and bottom of its graph.
class ScaleLabels : public QWidget {
public:
    ScaleLabels(QWidget* parent, int patternRow);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const int patternRow_;
};

/// `CurrentLoop`: the letter of the LoopTrack that the page shows.
class CurrentBadge : public Control {
public:
    CurrentBadge(Session& session, QWidget* parent);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;
};

/// The point between seconds and tenths.
class DecimalPoint : public QWidget {
public:
    explicit DecimalPoint(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
