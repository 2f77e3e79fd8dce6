#include "window/surfaces/pad_surface.h"

#include <QPainter>

#include "performance/ball_hand.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "window/rows/channel_flag.h"

namespace marvolin {

namespace {

QColor FieldColour(const Session& s) {
    const Colour back = s.PadTable[s.PadTypeIndex].BackColor;
    return {back.Red, back.Green, back.Blue};
}

/// The face of the ball shows the pad type to those who do not see its colour: arrows for pitch and pan, a wedge for
/// volume.
void DrawBallFace(QPainter& p, const QPointF& c, int face) {
    p.setPen(QPen(Qt::white, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    switch (face) {
        case 1:
        case 2:  // pitch: an arrow up, with one bar or two
            p.drawLine(c + QPointF(0, 4), c + QPointF(0, -4));
            p.drawPolyline(QPolygonF{c + QPointF(-3, -1), c + QPointF(0, -4), c + QPointF(3, -1)});
            p.drawLine(c + QPointF(-2.5, 4), c + QPointF(2.5, 4));
            if (face == 2) p.drawLine(c + QPointF(-2.5, 1.6), c + QPointF(2.5, 1.6));
            break;
        case 4:  // pan: left and right
            p.drawLine(c + QPointF(-4.5, 0), c + QPointF(4.5, 0));
            p.drawPolyline(QPolygonF{c + QPointF(-2, -2.6), c + QPointF(-4.5, 0), c + QPointF(-2, 2.6)});
            p.drawPolyline(QPolygonF{c + QPointF(2, -2.6), c + QPointF(4.5, 0), c + QPointF(2, 2.6)});
            break;
        default:  // volume: a wedge
            p.setBrush(Qt::white);
            p.setPen(Qt::NoPen);
            p.drawPolygon(QPolygonF{c + QPointF(-4.5, 3), c + QPointF(4.5, 3), c + QPointF(4.5, -3.5)});
            break;
    }
}

}  // namespace

PadBall::PadBall(Session& session, QWidget* parent) : marvolin::Ball(session, parent, "PadBall", kPadBall) {}

void PadBall::Step(int units) { BallStep(s, kPadBall, 0, -units); }

void PadBall::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF ball = BallFace();
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 50));
    p.drawEllipse(ball.adjusted(-2, -1, 2, 3));
    p.setPen(QPen(Qt::white, 2));
    p.setBrush(isEnabled() ? theme::kWindow : QColor(0x6c, 0x74, 0x80));
    p.drawEllipse(ball.adjusted(-1, -1, 1, 1));
    DrawBallFace(p, ball.center(), PadBallFace(s));
    if (hasFocus()) theme::DrawRoundFocus(p, ball.center(), ball.width() / 2 + 1.5);
}

PadSurface::PadSurface(Session& session, QWidget* parent)
    : BallSurface(session, parent, "Pad"), Ball(new PadBall(session, this)) {}

QString PadSurface::FieldMark() const {
    return QString("%1 %2").arg(FieldColour(s).name()).arg(s.PadTable[s.PadTypeIndex].Function);
}

void PadSurface::PaintField(QPainter& p) const {
    p.setRenderHint(QPainter::Antialiasing);
    const QColor field = FieldColour(s);
    p.setPen(Qt::NoPen);
    p.setBrush(field);
    p.drawRoundedRect(Field(), 6, 6);

    const QColor line = field.darker(135);
    const QPointF c = Field().center();
    const double half = kSide / 2.0 - kInset;
    p.setPen(QPen(line, 1));
    p.drawLine(c - QPointF(half, 0), c + QPointF(half, 0));
    p.drawLine(c - QPointF(0, half), c + QPointF(0, half));
    p.setPen(QPen(line, 1.2, Qt::DashLine));
    p.setBrush(Qt::NoBrush);
    // The fade begins at arcs around the corners, through the centre or through the middles of the sides.
    p.setClipRect(QRectF(kInset, kInset, 2 * half, 2 * half));
    const std::int16_t function = s.PadTable[s.PadTypeIndex].Function;
    const double radius = function == kFadeAfterSideCentre ? half : half * std::sqrt(2.0);
    if (function == kFadeAfterCentre || function == kFadeAfterSideCentre) {
        for (int corner = 0; corner < 4; ++corner) {
            const QPointF at = c + QPointF(corner % 2 == 0 ? -half : half, corner < 2 ? -half : half);
            p.drawEllipse(at, radius, radius);
        }
    } else {
        p.drawLine(c - QPointF(half, half), c + QPointF(half, half));
        p.drawLine(c + QPointF(-half, half), c + QPointF(half, -half));
    }
    p.setClipping(false);

    // Channels 1 to 4 are at the top left, top right, bottom right and bottom left.
    const double near = kFrame + 14;
    const double far = kSide - near - 30;
    const double low = kSide - near - 18;
    DrawWire(p, QRectF(near, near, 30, 18), 0);
    DrawWire(p, QRectF(far, near, 30, 18), 1);
    DrawWire(p, QRectF(far, low, 30, 18), 2);
    DrawWire(p, QRectF(near, low, 30, 18), 3);
}

}  // namespace marvolin
