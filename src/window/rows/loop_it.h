#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `LoopIt`: the picture of a row's play mode. Number 5 is the large one of the pattern tab, for `CurrentLoop`.
class LoopItControl : public Control {
public:
    LoopItControl(Session& session, QWidget* parent, Row row);
    void Refresh() override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    bool TakesRightClick() const override { return true; }
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
