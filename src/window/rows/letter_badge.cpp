#include "window/rows/letter_badge.h"

#include <QPainter>

#include "performance/drops/dropper.h"

namespace marvolin {

LetterBadge::LetterBadge(Session& session, QWidget* parent, Row row) : Control(session, parent, drags::kLetr, row) {
    TakeDropsFor(row);
}

void LetterBadge::Gesture(Phase phase, std::int16_t button, QPointF) {
    if (phase != Phase::Down) return;
    if (const auto source = Letr_MouseDown(index, button)) ArmDrag(*source);
}

void LetterBadge::DoubleClick(std::int16_t, QPointF) {
    Letr_DblClick(s, index);
    update();
}

void LetterBadge::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor ground = theme::RowColour(index);
    const QRectF badge = QRectF(rect()).adjusted(2, 2, -2, -2);
    const QColor edge = theme::RowEdge(index);
    p.setPen(edge == ground ? QPen(Qt::NoPen) : QPen(edge, 1));
    p.setBrush(underMouse() ? ground.lighter(112) : ground);
    p.drawRoundedRect(badge, 5, 5);
    p.setPen(theme::InkOn(ground));
    p.setFont(theme::Sans(18, QFont::Bold));
    p.drawText(badge, Qt::AlignCenter, QString(QChar(RowLetter(index))));
    if (index < kLoopTracks && s.Set[index].Thinnable == False) {
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(Qt::white, 1.6));
        p.drawRoundedRect(QRectF(rect()).adjusted(0.8, 0.8, -0.8, -0.8), 6, 6);
        p.setBrush(Qt::white);
        p.setPen(QPen(theme::kWindow, 1));
        p.drawEllipse(QPointF(width() - 4.5, 4.5), 3.5, 3.5);
    }
    if (hasFocus()) theme::DrawFocus(p, rect(), 6);
}

}  // namespace marvolin
