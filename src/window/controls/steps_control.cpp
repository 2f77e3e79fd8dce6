#include "window/controls/steps_control.h"

#include <QPainter>

#include "sequencing/patterns.h"

namespace marvolin {

StepsControl::StepsControl(Session& session, QWidget* parent) : Control(session, parent, "NSteps") {}

void StepsControl::Gesture(Phase phase, std::int16_t, QPointF twips) { NSteps_Gesture(s, phase, twips.y()); }

void StepsControl::Step(int units) {
    NSteps_Step(s, units);
    described.ShowHint(0, false);
}

void StepsControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setFont(theme::Sans(20, QFont::DemiBold));
    p.setPen(theme::kText);
    p.drawText(rect().adjusted(0, 2, 0, -12), Qt::AlignCenter, QString::number(s.StepsShown));
    p.setFont(theme::Sans(10));
    p.setPen(theme::kQuiet);
    p.drawText(rect().adjusted(0, 0, 0, -3), Qt::AlignHCenter | Qt::AlignBottom, Caption());
}

EraserControl::EraserControl(Session& session, QWidget* parent) : Control(session, parent, drags::kEraser) {
    setCursor(Qt::OpenHandCursor);
}

void EraserControl::Gesture(Phase phase, std::int16_t, QPointF) {
    if (phase == Phase::Down) ArmDrag({drags::kEraser, 0, ""});
}

void EraserControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    const QPointF c = QRectF(rect()).center();
    p.translate(c + QPointF(0, -5));
    p.rotate(-35);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xf0, 0x8f, 0x9a));
    p.drawRoundedRect(QRectF(-11, -5.5, 11, 11), 2, 2);
    p.setBrush(theme::kText);
    p.drawRect(QRectF(-3, -5.5, 14, 11));
    p.resetTransform();
    p.setFont(theme::Sans(10));
    p.setPen(theme::kQuiet);
    p.drawText(rect().adjusted(0, 0, 0, -3), Qt::AlignHCenter | Qt::AlignBottom, Caption());
}

FrameControl::FrameControl(Session& session, QWidget* parent, const char* name)
    : Control(session, parent, name), name_(name) {
    setAttribute(Qt::WA_Hover, false);
}

void FrameControl::Gesture(Phase phase, std::int16_t, QPointF) {
    if (phase == Phase::Down) ArmDrag({name_, 0, ""});
}

void FrameControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(theme::kLine, 1));
    p.setBrush(QColor(0x22, 0x25, 0x2a));
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    p.setFont(theme::Sans(12, QFont::DemiBold));
    p.setPen(theme::kQuiet);
    p.drawText(QRect(12, 5, width() - 24, 18), Qt::AlignVCenter | Qt::AlignLeft, Caption());
    if (hasFocus()) theme::DrawFocus(p, rect(), 6);
}

}  // namespace marvolin
