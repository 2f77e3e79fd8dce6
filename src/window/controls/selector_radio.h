#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// One button of `SelectorRadio`: 0 for the selection, 1..6 for the bands 0..5. Lit while it is in control.
class SelectorRadioButton : public Control {
public:
    SelectorRadioButton(Session& session, QWidget* parent, int button);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
