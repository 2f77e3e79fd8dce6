#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `Limiter`: how many LoopTracks may sound.
class LimiterControl : public Control {
public:
    LimiterControl(Session& session, QWidget* parent);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
