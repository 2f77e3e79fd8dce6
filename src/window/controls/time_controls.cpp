#include "window/controls/time_controls.h"

#include <QPainter>

#include "core/loops/loop_views.h"
#include "sequencing/timing.h"

namespace marvolin {

TimeDigitControl::TimeDigitControl(Session& session, QWidget* parent, int digit)
    : Control(session, parent, "TimeDigit", digit) {}

void TimeDigitControl::Gesture(Phase phase, std::int16_t, QPointF twips) {
    TimeDigit_Gesture(s, index, phase, twips.y());
    if (phase == Phase::Move && Held()) described.ShowHint(0, true);  // it tells the tempo that is reached
}

void TimeDigitControl::Step(int units) {
    TimeDigit_Step(s, index, units);
    described.ShowHint(0, false);
}

void TimeDigitControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::FaceState face = Face();
    face.Down = false;
    theme::DrawFace(p, rect(), face, Held() ? theme::kLifted : theme::kSunk, Held() ? theme::kAccent : theme::kFrame,
                    4);
    p.setFont(theme::Digits(20));
    p.setPen(Held() ? theme::kAccent : theme::kText);
    const std::string& text = s.TimeText[static_cast<std::size_t>(index / kDigitsAGroup)];
    p.drawText(rect(), Qt::AlignCenter, QString(QChar(TimeDigitChar(text, index % kDigitsAGroup))));
}

PercentReadOutControl::PercentReadOutControl(Session& session, QWidget* parent, int element)
    : Control(session, parent, "PercentReadOut", element) {}

void PercentReadOutControl::DoubleClick(std::int16_t, QPointF) { PercentReadOut_DblClick(s, index); }

void PercentReadOutControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    if (underMouse() || hasFocus()) theme::DrawFace(p, rect(), Face(), theme::kPanel, theme::kFrame, 4);
    p.setFont(theme::Sans(13));
    p.setPen(theme::kAccent);
    const QString text = QString::fromStdString(s.PercentText[static_cast<std::size_t>(index)]);
    p.drawText(rect().adjusted(2, 0, -4, 0), Qt::AlignVCenter | Qt::AlignRight,
               p.fontMetrics().elidedText(text, Qt::ElideRight, width() - 6));
}

CloneTimeControl::CloneTimeControl(Session& session, QWidget* parent, int element)
    : Control(session, parent, drags::kCloneTime, element) {
    setCursor(Qt::OpenHandCursor);
}

void CloneTimeControl::Gesture(Phase phase, std::int16_t, QPointF) {
    if (phase == Phase::Down) ArmDrag({drags::kCloneTime, index, ""});
}

void CloneTimeControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(underMouse() ? theme::kText : theme::kQuiet);
    for (int dot = 0; dot < 6; ++dot)
        p.drawEllipse(QPointF(3.5 + (dot % 2) * 4, height() / 2.0 - 4 + (dot / 2) * 4), 1, 1);
    p.setFont(theme::Sans(12));
    p.setPen(underMouse() ? theme::kText : theme::kQuiet);
    p.drawText(rect().adjusted(15, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, Caption());
    if (hasFocus()) theme::DrawFocus(p, rect(), 4);
}

}  // namespace marvolin
