#pragma once

#include "instrument/loop_drops.h"
#include "window/controls/control.h"

namespace marvolin {

/// `Letr`: the letter of a row on a badge in its colour. A ring and a pin mark a LoopTrack that is not thinnable.
class LetterBadge : public Control {
public:
    LetterBadge(Session& session, QWidget* parent, Row row);

protected:
    void Drop(const DragSource& source) override { Letr_DragDrop(s, index, source); }
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Activate() override { DoubleClick(kLeftButton, {}); }
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
