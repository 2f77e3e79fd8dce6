#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `NSteps`: the number of steps of `CurrentLoop`, 1..32.
class StepsControl : public Control {
public:
    StepsControl(Session& session, QWidget* parent);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void paintEvent(QPaintEvent* event) override;
};

/// `Eraser`: a drop on a graph resets its pattern.
class EraserControl : public Control {
public:
    EraserControl(Session& session, QWidget* parent);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;
};

/// `Patterns` or `AllTiming`: a frame around controls. A drag of it copies all of them.
class FrameControl : public Control {
public:
    /// `name` is the name in the table and the name that the drag carries.
    FrameControl(Session& session, QWidget* parent, const char* name);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const char* const name_;
};

}  // namespace marvolin
