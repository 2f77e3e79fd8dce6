#include "window/rows/channel_flag.h"

#include <QPainter>

#include "parameters/wires.h"

namespace marvolin {

void DrawWire(QPainter& p, const QRectF& rect, int picture) {
    p.setRenderHint(QPainter::Antialiasing);
    const bool off = (picture & kDisconnected) != 0;
    const double half = rect.width() / 2;
    const QColor white = off ? QColor(0x8b, 0x92, 0x9c) : QColor(0xf4, 0xf5, 0xf7);
    const QColor black(0x0a, 0x0b, 0x0d);
    p.setPen(QPen(QColor(0x6c, 0x74, 0x80), 1));
    p.setBrush((picture & kLeftColour) != 0 ? black : white);
    p.drawRoundedRect(QRectF(rect.left() + 0.5, rect.top() + 0.5, half - 1, rect.height() - 1), 2.5, 2.5);
    p.setBrush((picture & kRightColour) != 0 ? black : white);
    p.drawRoundedRect(QRectF(rect.left() + half + 0.5, rect.top() + 0.5, half - 1, rect.height() - 1), 2.5, 2.5);
    if (!off) return;
    const QPointF from = rect.bottomLeft() + QPointF(5, -4);
    const QPointF to = rect.topRight() + QPointF(-5, 4);
    p.setPen(QPen(theme::kWindow, 5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(from, to);
    p.setPen(QPen(theme::kRed, 2.6, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(from, to);
}

ChannelFlagControl::ChannelFlagControl(Session& session, QWidget* parent, Row row)
    : Control(session, parent, "ChannelFlag", row) {
    TakeDropsFor(row);
}

void ChannelFlagControl::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    if (phase == Phase::Move && !Held()) return;
    ChannelFlag_Gesture(s, index, phase, button, twips.x(), twips.y(), width() * kTwipsPerPixel);
}

void ChannelFlagControl::PointerLost(std::int16_t, QPointF) { ChannelFlag_PointerLost(s, index); }

void ChannelFlagControl::Step(int units) { ChannelFlag_Step(s, index, units); }

void ChannelFlagControl::Activate() { Gesture(Phase::Down, kRightButton, {}); }

void ChannelFlagControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(underMouse() ? theme::kQuiet : theme::kFrame, 1));
    p.setBrush(theme::kSunk);
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    const int channel = s.Set[index].Channel < 1 ? 1 : s.Set[index].Channel;
    DrawWire(p, QRectF(rect()).adjusted(3, 3, -3, -3), channel - 1);
    if (hasFocus()) theme::DrawFocus(p, rect(), 5);
}

}  // namespace marvolin
