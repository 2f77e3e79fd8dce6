#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// The name of a pattern row and the values at top, middle and bottom of its graph, to the left of it.
class ScaleLabels : public QWidget {
public:
    ScaleLabels(QWidget* parent, int patternRow);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const int patternRow_;
};

/// The letter of the LoopTrack that the page shows.
class CurrentBadge : public Control {
public:
    CurrentBadge(Session& session, QWidget* parent);

protected:
    void Activate() override {}
    void paintEvent(QPaintEvent* event) override;
};

/// The point between the seconds and their tenths.
class DecimalPoint : public QWidget {
public:
    explicit DecimalPoint(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
