#pragma once

#include <functional>

#include "window/controls/control.h"

namespace marvolin {

/// `FindSample`: asks where the missing samples are. Shown on a row whose sample is missing.
class FindButton : public Control {
public:
    FindButton(Session& session, QWidget* parent, Row row);
    std::function<void()> OnClick;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
