#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `Selected`: the flag of a LoopTrack that belongs to the selection.
class SelectFlag : public Control {
public:
    SelectFlag(Session& session, QWidget* parent, Row row);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override;
    void DoubleActivate() override { Activate(); }
    void paintEvent(QPaintEvent* event) override;

private:
    void Pass(QPointF twips);

    QPoint passed_;  // the last place of the drag, in the window
};

}  // namespace marvolin
