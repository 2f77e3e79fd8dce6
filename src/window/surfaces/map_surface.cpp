#include "window/surfaces/map_surface.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "core/routines.h"
#include "parameters/position.h"
#include "performance/map/listener.h"

namespace marvolin {

namespace {

constexpr double kDegreesAFrame = 5;

}  // namespace

PosBall::PosBall(Session& session, QWidget* parent, int ball) : Ball(session, parent, drags::kPosBall, ball) {
    if (ball != kListenerBall) TakeDropsFor(static_cast<Row>(ball));
}

void PosBall::PaintLoopTrack(QPainter& p) const {
    const bool lit = s.BallHighlighted[index];
    const QRectF ball = BallFace().adjusted(-1, -1, 1, 1);
    QColor colour = theme::RowColour(index);
    if (!isEnabled()) colour = theme::kRaised;
    p.setPen(QPen(lit ? QColor(Qt::white) : isEnabled() ? theme::RowEdge(index) : theme::kOff, lit ? 2.4 : 1));
    p.setBrush(colour);
    p.drawEllipse(ball);
    if (hasFocus()) theme::DrawRoundFocus(p, ball.center(), ball.width() / 2 + 0.5);
    p.setFont(theme::Sans(11, QFont::Bold));
    p.setPen(isEnabled() ? theme::InkOn(colour) : theme::kQuiet);
    p.drawText(ball, Qt::AlignCenter, QString(QChar('A' + index)));
}

void PosBall::PaintListener(QPainter& p) const {
    p.translate(BallFace().center());
    p.rotate(kDegreesAFrame * ListenerFrame(s.ListenerAngle));
    const QColor skin = isEnabled() ? theme::kText : QColor(0x6c, 0x74, 0x80);
    p.setPen(QPen(theme::kWindow, 1));
    p.setBrush(skin);
    QPainterPath nose;
    nose.moveTo(-3, -7);
    nose.lineTo(0, -12);
    nose.lineTo(3, -7);
    nose.closeSubpath();
    p.drawPath(nose);
    p.drawRoundedRect(QRectF(-10.5, -3, 4, 7), 2, 2);
    p.drawRoundedRect(QRectF(6.5, -3, 4, 7), 2, 2);
    p.setPen(QPen(theme::kWindow, 1));
    p.drawEllipse(QPointF(0, 0), 7.8, 7.8);
    if (hasFocus()) theme::DrawRoundFocus(p, QPointF(0, 0), 7.8);
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kAccent);
    p.drawEllipse(QPointF(0, -4), 1.8, 1.8);
}

void PosBall::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    if (index == kListenerBall) {
        PaintListener(p);
    } else {
        PaintLoopTrack(p);
    }
}

MapSurface::MapSurface(Session& session, QWidget* parent) : BallSurface(session, parent, "Map") {
    for (int ball = 0; ball <= kListenerBall; ++ball) {
        balls_[static_cast<std::size_t>(ball)] = new PosBall(s, this, ball);
    }
}

QString MapSurface::FieldMark() const { return QString::fromStdString(NumberText(Round(s.MapRange, 2))); }

void MapSurface::PaintField(QPainter& p) const {
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(theme::kFrame, 1));
    p.setBrush(theme::kSunk);
    p.drawRoundedRect(Field(), 6, 6);
    const QPointF c = Field().center();
    const double half = kSide / 2.0 - kInset;
    // Rings of equal distance, as many at every map size: the label gives the distance of the outer one.
    p.setBrush(Qt::NoBrush);
    for (int ring = 1; ring <= 4; ++ring) {
        p.setPen(QPen(ring == 4 ? QColor(0x4a, 0x50, 0x5a) : theme::kLine, 1, ring == 4 ? Qt::SolidLine : Qt::DotLine));
        p.drawEllipse(c, half * ring / 4, half * ring / 4);
    }
    p.setPen(QPen(theme::kLine, 1));
    p.drawLine(c - QPointF(half, 0), c + QPointF(half, 0));
    p.drawLine(c - QPointF(0, half), c + QPointF(0, half));
    p.setFont(theme::Sans(11));
    p.setPen(theme::kQuiet);
    p.drawText(QRectF(0, kSide - 23, kSide - 13, 16), Qt::AlignRight | Qt::AlignVCenter,
               QString("edge %1").arg(FieldMark()));
}

}  // namespace marvolin
