#include "window/rows/thumb.h"

#include <QPainter>
#include <array>

#include "performance/selection/selection.h"

namespace marvolin {

namespace {

constexpr std::array<double, 9> kStrokes{4, 9, 15, 7, 18, 12, 20, 9, 5};  // heights, pixels

}  // namespace

ThumbControl::ThumbControl(Session& session, QWidget* parent, Row row) : Control(session, parent, "Thumb", row) {}

void ThumbControl::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const bool inside = QRectF(rect()).contains(twips / kTwipsPerPixel);
    if (phase == Phase::Up && button == kLeftButton && inside) Thumb_Click(s, index);
}

void ThumbControl::DoubleClick(std::int16_t button, QPointF) {
    if (button == kLeftButton) Thumb_DblClick(s, index);
}

void ThumbControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const bool current = s.CurrentLoop == index;
    const QColor colour = theme::RowColour(index);
    const QColor edge = theme::RowEdge(index);
    const bool dark = edge != colour;
    theme::DrawFace(p, rect(), Face(), current ? theme::kLifted : theme::kRaised);
    if (current) {
        p.setPen(QPen(edge, 2));
        p.setBrush(Qt::NoBrush);
        const double inset = hasFocus() ? 6 : 1;  // within the ring of the focus
        p.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 6, 6);
    }
    const QPointF c = QRectF(rect()).center();
    for (int pass = dark ? 0 : 1; pass < 2; ++pass) {
        p.setPen(QPen(pass == 0 ? edge : colour, pass == 0 ? 3.4 : 2, Qt::SolidLine, Qt::FlatCap));
        double x = c.x() - 12;
        for (const double height : kStrokes) {
            const double half = height / 2 + (pass == 0 ? 0.7 : 0);
            p.drawLine(QPointF(x, c.y() - half), QPointF(x, c.y() + half));
            x += 3;
        }
    }
    if (!hasFocus()) return;
    // Dark where the ring of the current LoopTrack is without the focus: both rings are light.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(theme::kSunk, 2));
    p.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
    theme::DrawFocus(p, QRectF(rect()).adjusted(2, 2, -2, -2), 5);
}

}  // namespace marvolin
