#pragma once

#include "parameters/knob_gesture.h"
#include "window/controls/control.h"

namespace marvolin {

/// `VolKnob`, `PanKnob` or `HzKnob` of a row, or the master's volume: one of 64 pictures, drawn.
class KnobControl : public Control {
public:
    KnobControl(Session& session, QWidget* parent, Knob knob, Row row);
    /// Repaints only when the picture is another one.
    void Refresh() override;
    QSize sizeHint() const override { return {48, 50}; }

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Step(int units) override { KnobStep(s, knob_, row_, units); }
    void Activate() override { Knob_DblClick(s, knob_, row_); }
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    const Knob knob_;
    const Row row_;
    int shown_ = -1;  // number of the picture on the screen
};

}  // namespace marvolin
