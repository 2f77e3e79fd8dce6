#include "window/surfaces/twist_line.h"

#include <QPainter>

#include "performance/ball_hand.h"
#include "performance/pad/pad_tables.h"
#include "performance/pad/pad_twist.h"
#include "window/rows/channel_flag.h"
#include "window/surfaces/surface.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

constexpr int kEnd = 31;   // pixels at either end, for the wires
constexpr int kLine = 18;  // from the top to the line
constexpr int kTwistHeight = 54;

/// The face tells what the ball moves: arrows to the sides for pan, an arrow up for pitch. Under the pitches, where it
/// moves volume or pitch, the face is a turn.
void DrawTwistFace(QPainter& p, const QPointF& c, int face) {
    p.setPen(QPen(Qt::white, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    switch (face) {
        case 1:
            p.drawLine(c + QPointF(-4.5, 0), c + QPointF(4.5, 0));
            p.drawPolyline(QPolygonF{c + QPointF(-2, -2.6), c + QPointF(-4.5, 0), c + QPointF(-2, 2.6)});
            p.drawPolyline(QPolygonF{c + QPointF(2, -2.6), c + QPointF(4.5, 0), c + QPointF(2, 2.6)});
            break;
        case 2:
            p.drawLine(c + QPointF(0, 4), c + QPointF(0, -4));
            p.drawPolyline(QPolygonF{c + QPointF(-3, -1), c + QPointF(0, -4), c + QPointF(3, -1)});
            break;
        default:
            p.drawArc(QRectF(c.x() - 4, c.y() - 3.5, 8, 8), 20 * 16, 250 * 16);
            p.drawPolyline(QPolygonF{c + QPointF(1.2, -1), c + QPointF(4, -1), c + QPointF(4, -4)});
            break;
    }
}

}  // namespace

TwistBall::TwistBall(Session& session, QWidget* parent) : Ball(session, parent, "TwistBall", kTwistBall) {}

void TwistBall::Refresh() {
    Ball::Refresh();
    move(x() + kEnd, kLine - kMargin - kSize / 2);
    setVisible(PadTwistTarget(s) >= 0);
    update();
}

void TwistBall::Step(int units) { BallStep(s, kTwistBall, units, 0); }

void TwistBall::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF ball = BallFace();
    p.setPen(QPen(Qt::white, 2));
    p.setBrush(isEnabled() ? theme::kWindow : QColor(0x6c, 0x74, 0x80));
    p.drawEllipse(ball.adjusted(-1, -1, 1, 1));
    DrawTwistFace(p, ball.center(), PadTwistFace(s, s.PadTypeIndex));
    if (hasFocus()) theme::DrawRoundFocus(p, ball.center(), ball.width() / 2 + 1.5);
}

TwistLine::TwistLine(Session& session, QWidget* parent)
    : QWidget(parent), s(session), ball_(new TwistBall(session, this)) {
    resize(BallSurface::kSide + 2 * kEnd, kTwistHeight);
    Describe(s, *this, "TwistIndicator");
}

void TwistLine::Refresh() {
    ball_->Refresh();
    update();
}

void TwistLine::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(theme::kFrame, 3, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(kEnd + BallSurface::kInset, kLine), QPointF(width() - kEnd - BallSurface::kInset, kLine));
    p.setPen(QPen(theme::kFrame, 1.5));
    p.drawLine(QPointF(width() / 2.0, kLine - 6), QPointF(width() / 2.0, kLine + 6));
    DrawWire(p, QRectF(0, kLine - 16, 26, 14), 0);
    DrawWire(p, QRectF(0, kLine + 2, 26, 14), 3);
    DrawWire(p, QRectF(width() - 27, kLine - 16, 26, 14), 1);
    DrawWire(p, QRectF(width() - 27, kLine + 2, 26, 14), 2);
    p.setFont(theme::Sans(11));
    p.setPen(theme::kQuiet);
    const std::int16_t target = PadTwistTarget(s);
    QString words = "Twist";
    if (target >= 0) words += ": " + ToQString(kPadTypeTexts.at(static_cast<std::size_t>(target)));
    p.drawText(QRectF(0, kLine + 14, width(), 18), Qt::AlignCenter, words);
}

}  // namespace marvolin
