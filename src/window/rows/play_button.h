#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `Play` of rows 0..4, with a picture each for stopped, playing and paused.
class PlayButton : public Control {
public:
    PlayButton(Session& session, QWidget* parent, Row row);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t button, QPointF twips) override;
    void Activate() override;
    bool TakesRightClick() const override { return true; }
    void paintEvent(QPaintEvent* event) override;

private:
    bool pauses_ = false;  // the press that holds the button has paused the row
};

}  // namespace marvolin
