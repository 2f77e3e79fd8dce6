#pragma once

#include "parameters/knob_gesture.h"
#include "window/controls/control.h"

namespace marvolin {

/// `VolKnob`, `PanKnob` or `HzKnob` of a row, or the volume of the master. It draws one of 64 pictures.
class KnobControl : public Control {
public:
    KnobControl(Session& session, QWidget* parent, Knob knob, Row row);
    /// Repaints only when the number of the picture has changed.
    void Refresh() override;
    QSize sizeHint() const override { return {48, 50}; }

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void CoarseStep(int units) override { Step(10 * units); }
    void Activate() override { Knob_DblClick(s, knob_, index); }
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QPointF Centre() const;
    /// What a turn changes.
    QRect Dial() const;
    void DrawDial(QPainter& p) const;

    const Knob knob_;
    int shown_ = -1;  // number of the picture on the screen
};

}  // namespace marvolin
