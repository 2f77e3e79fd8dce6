#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `PlayStop`: its upper part plays all LoopTracks, its lower part stops them. With Shift the lower part silences
/// everything, or brings it back; it is lit while everything is silent.
class PlayStopControl : public Control, public HasParts {
public:
    PlayStopControl(Session& session, QWidget* parent);
    /// A `PlayStopZone`.
    int PartAt(QPointF place) const override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    void Activate() override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool shift_ = false;  // was down at the press
};

}  // namespace marvolin
