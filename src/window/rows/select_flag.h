#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `Selected`: the flag that says whether a LoopTrack belongs to the selection.
class SelectFlag : public Control {
public:
    SelectFlag(Session& session, QWidget* parent, Row row);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override;
    std::string_view Hint(QPointF) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Pass(QPointF twips);

    const Row row_;
    QPoint last_;  // where the drag was last, in the window
};

}  // namespace marvolin
