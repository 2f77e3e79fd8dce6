#include "window/controls/select_flag.h"

#include <QPainter>

#include "performance/selection.h"

namespace marvolin {

SelectFlag::SelectFlag(Session& session, QWidget* parent, Row row)
    : Control(session, parent, "Selected", row, QString("LoopTrack %1 is selected").arg(QChar(RowLetter(row)))),
      row_(row) {}

std::string_view SelectFlag::Hint(QPointF) const { return kSelectedHint; }

// The drag passes over the flags of the other rows, which are found below the pointer.
void SelectFlag::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    switch (phase) {
        case Phase::Down:
            return Selected_MouseDown(s, row_, button);
        case Phase::Move: {
            if (!Held()) return;
            const QPoint place = mapTo(window(), (twips / kTwipsPerPixel).toPoint());
            const auto* passed = dynamic_cast<SelectFlag*>(window()->childAt(place));
            if (passed != nullptr) Selected_DragOver(s, passed->row_);
            return;
        }
        case Phase::Up:
            return Selected_DragEnd(s);
    }
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
