#pragma once

#include "instrument/loop_drops.h"
#include "window/controls/control.h"

namespace marvolin {

/// `Letr`: the letter of a row on a badge in its colour. A LoopTrack that is not thinnable wears a ring and a pin.
class LetterBadge : public Control {
public:
    LetterBadge(Session& session, QWidget* parent, Row row);

protected:
    void Drop(const DragSource& source) override { Letr_DragDrop(s, row_, source); }
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Activate() override { DoubleClick(kLeftButton, {}); }
    std::string_view Hint(QPointF) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    const Row row_;
};

}  // namespace marvolin
