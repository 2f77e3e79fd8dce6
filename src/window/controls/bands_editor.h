#pragma once

#include "performance/selection/bands.h"
#include "window/controls/control.h"

namespace marvolin {

/// `Bands`: six lanes, one for each band in its colour, and four columns, one for each LoopTrack.
class BandsEditor : public Control {
public:
    BandsEditor(Session& session, QWidget* parent);
    std::string CursorWords() const override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t button, QPointF twips) override;
    void DoubleClick(std::int16_t button, QPointF twips) override;
    void Activate() override;
    void DoubleActivate() override { Bands_DblClick(s, keyLane_); }
    /// Arrows choose lane and column; with Shift left and right draw; Delete empties the lane.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Row LaneAt(QPointF twips) const;
    void GoTo(int lane, int column, bool draws);
    void DrawCursor(QPainter& p) const;

    Row lane_ = 0;  // lane of the press
    // Where the keys are, and the column at which they began to draw.
    Row keyLane_ = 0;
    Row keyColumn_ = 0;
    Row keyFrom_ = 0;
};

}  // namespace marvolin
