#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `TimeDigit`: one digit of a time, 0..14.
class TimeDigitControl : public Control {
public:
    TimeDigitControl(Session& session, QWidget* parent, int digit);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void paintEvent(QPaintEvent* event) override;
};

/// `PercentReadOut`: a time as a percentage.
class PercentReadOutControl : public Control {
public:
    PercentReadOutControl(Session& session, QWidget* parent, int element);

protected:
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Activate() override { DoubleClick(kLeftButton, {}); }
    void paintEvent(QPaintEvent* event) override;
};

/// `CloneTime`: the label of a time. A drag of it copies the time to another LoopTrack.
class CloneTimeControl : public Control {
public:
    CloneTimeControl(Session& session, QWidget* parent, int element);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
