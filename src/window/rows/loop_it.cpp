#include "window/rows/loop_it.h"

#include <QPainter>
#include <algorithm>

#include "audio/play_gestures.h"

namespace marvolin {

namespace {

// Each picture fills a field of 24 by 24 around the origin.

void DrawOneShot(QPainter& p) {
    p.drawLine(QPointF(-9, 0), QPointF(4, 0));
    p.drawPolyline(QPolygonF({{-0.5, -4.5}, {4, 0}, {-0.5, 4.5}}));
    p.drawLine(QPointF(8.5, -7), QPointF(8.5, 7));
}

void DrawLoop(QPainter& p) {
    p.drawArc(QRectF(-8, -8, 16, 16), 60 * 16, 290 * 16);
    p.drawPolyline(QPolygonF({{-1.2, -9.6}, {4.4, -6.9}, {1.6, -1.4}}));
}

void DrawTrack(QPainter& p) {
    constexpr double kPlaces[][2] = {{-7, 3}, {0, -3}, {7, 5}};
    for (const auto& [x, y] : kPlaces) {
        p.drawLine(QPointF(x, -9), QPointF(x, 9));
        p.save();
        p.setBrush(p.pen().color());
        p.drawEllipse(QPointF(x, y), 2.2, 2.2);
        p.restore();
    }
}

void DrawDrum(QPainter& p) {
    constexpr double kBars[][2] = {{-8, 8}, {-2.7, 17}, {2.7, 5}, {8, 12}};
    QPen pen = p.pen();
    pen.setWidthF(3);
    pen.setCapStyle(Qt::FlatCap);
    p.setPen(pen);
    for (const auto& [x, height] : kBars) p.drawLine(QPointF(x, 9), QPointF(x, 9 - height));
}

void DrawMode(QPainter& p, std::int16_t mode) {
    switch (mode) {
        case kOneShot:
            return DrawOneShot(p);
        case kLoop:
            return DrawLoop(p);
        case kTrack:
            return DrawTrack(p);
        case kDrum:
            return DrawDrum(p);
        default:
            return;
    }
}

}  // namespace

LoopItControl::LoopItControl(Session& session, QWidget* parent, Row row) : Control(session, parent, "LoopIt", row) {
    if (row != kMasterRow) TakeDropsFor(row);
}

// The hint names the mode, so it follows a change while the pointer is here.
void LoopItControl::Refresh() {
    Control::Refresh();
    if (underMouse() || Held()) described.ShowHint(0, Held());
}

void LoopItControl::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    LoopIt_Gesture(s, index, phase, button, twips.y());
}

void LoopItControl::DoubleClick(std::int16_t, QPointF) { LoopIt_DblClick(s, index); }

void LoopItControl::Step(int units) {
    LoopIt_Step(s, index, units);
    described.ShowHint(0, false);
}

void LoopItControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.translate(QRectF(rect()).center());
    const double scale = std::min(width(), height()) / 36.0;
    p.scale(scale, scale);
    p.setPen(QPen(theme::kText, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    DrawMode(p, LoopItMode(s, index));
}

}  // namespace marvolin
