#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `FadeFactor`: the gauge of the fade speed, 20..2000.
class FadeFactorControl : public Control {
public:
    FadeFactorControl(Session& session, QWidget* parent);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void TurnByKey(int units, bool fine) override;
    void TurnTo(double value) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
