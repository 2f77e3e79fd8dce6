#include "window/rows/select_flag.h"

#include <QPainter>

#include "performance/selection/selection.h"

namespace marvolin {

namespace {

constexpr int kStride = 8;  // pixels, less than a flag is wide and tall

}  // namespace

SelectFlag::SelectFlag(Session& session, QWidget* parent, Row row)
    : Control(session, parent, "Selected", row, QString("LoopTrack %1 is selected").arg(QChar(RowLetter(row)))),
      row_(row) {}

std::string_view SelectFlag::Hint(QPointF) const { return kSelectedHint; }

void SelectFlag::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    switch (phase) {
        case Phase::Down:
            last_ = mapTo(window(), (twips / kTwipsPerPixel).toPoint());
            return Selected_MouseDown(s, row_, button);
        case Phase::Move:
            if (Held()) Pass(twips);
            return;
        case Phase::Up:
            Pass(twips);
            return Selected_DragEnd(s);
    }
}

// The drag passes over the flags of the other rows, which are found below the pointer. A fast hand leaps over more than
// a flag from one move to the next: those on the way count as well.
void SelectFlag::Pass(QPointF twips) {
    const QPoint place = mapTo(window(), (twips / kTwipsPerPixel).toPoint());
    const QPoint way = place - last_;
    const int steps = way.manhattanLength() / kStride + 1;
    for (int step = 1; step <= steps; ++step) {
        const auto* passed = dynamic_cast<SelectFlag*>(window()->childAt(last_ + way * step / steps));
        if (passed != nullptr) Selected_DragOver(s, passed->row_);
    }
    last_ = place;
}

void SelectFlag::Activate() { SelectToggle(s, row_); }

void SelectFlag::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const bool on = s.Set[row_].Selected != False;
    const QColor colour = theme::RowColour(row_);
    const QPointF c = QRectF(rect()).center();
    const QRectF box(c.x() - 8.5, c.y() - 8.5, 17, 17);
    p.setPen(QPen(on ? (theme::Contrast(colour, theme::kPanel) < 3 ? QColor(0xb9, 0xc4, 0xe6) : colour)
                     : QColor(0x7d, 0x85, 0x90),
                  1.4));
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
