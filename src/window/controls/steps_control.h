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
    void Activate() override {}
    void paintEvent(QPaintEvent* event) override;
};

/// `Eraser`: dragged onto a graph it resets the pattern.
class EraserControl : public Control {
public:
    EraserControl(Session& session, QWidget* parent);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override {}
    std::string_view Hint(QPointF) const override;
    void paintEvent(QPaintEvent* event) override;
};

/// `Patterns` or `AllTiming`: a frame around controls, dragged to copy all of them.
class FrameControl : public Control {
public:
    FrameControl(Session& session, QWidget* parent, const char* name, const QString& title, std::string_view hint);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override {}
    std::string_view Hint(QPointF) const override { return hint_; }
    void paintEvent(QPaintEvent* event) override;

private:
    const std::string_view hint_;
};

}  // namespace marvolin
