#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `Play` of rows 0..4, with a picture each for stopped, playing and paused.
class PlayButton : public Control {
public:
    PlayButton(Session& session, QWidget* parent, Row row);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
