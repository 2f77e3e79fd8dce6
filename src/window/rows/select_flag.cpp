#include "window/rows/select_flag.h"

#include <QPainter>

#include "performance/selection/selection.h"

namespace marvolin {

namespace {

constexpr int kStride = 8;  // pixels; a flag is wider and taller

}  // namespace

SelectFlag::SelectFlag(Session& session, QWidget* parent, Row row) : Control(session, parent, "Selected", row) {}

void SelectFlag::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    switch (phase) {
        case Phase::Down:
            passed_ = mapTo(window(), (twips / kTwipsPerPixel).toPoint());
            return Selected_MouseDown(s, index, button);
        case Phase::Move:
            if (Held()) Pass(twips);
            return;
        case Phase::Up:
            Pass(twips);
            return Selected_DragEnd(s);
    }
}

// The drag finds the flags of the other rows under the pointer. From one move to the next it may jump over a flag: the
// flags on the way count too.
void SelectFlag::Pass(QPointF twips) {
    const QPoint place = mapTo(window(), (twips / kTwipsPerPixel).toPoint());
    const QPoint way = place - passed_;
    const int steps = way.manhattanLength() / kStride + 1;
    for (int step = 1; step <= steps; ++step) {
        const auto* passed = dynamic_cast<SelectFlag*>(window()->childAt(passed_ + way * step / steps));
        if (passed != nullptr) Selected_DragOver(s, passed->index);
    }
    passed_ = place;
}

void SelectFlag::Activate() { SelectToggle(s, index); }

void SelectFlag::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const bool on = s.Set[index].Selected != False;
    const QColor colour = theme::RowColour(index);
    const QPointF c = QRectF(rect()).center();
    const QRectF box(c.x() - 8.5, c.y() - 8.5, 17, 17);
    p.setPen(QPen(on ? theme::RowEdge(index) : theme::kOff, 1.4));
    p.setBrush(on ? colour : theme::kSunk);
    p.drawRoundedRect(box, 4, 4);
    if (on) {
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(theme::InkOn(colour), 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPolyline(QPolygonF({c + QPointF(-4.2, 0.2), c + QPointF(-1.2, 3.4), c + QPointF(4.4, -3.6)}));
    }
    if (hasFocus()) theme::DrawFocus(p, rect(), 6);
}

}  // namespace marvolin
