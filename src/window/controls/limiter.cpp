#include "window/controls/limiter.h"

#include <QPainter>

#include "audio/limiter.h"
#include "audio/thinning.h"

namespace marvolin {

LimiterControl::LimiterControl(Session& session, QWidget* parent) : Control(session, parent, "Limiter") {}

void LimiterControl::Gesture(Phase phase, std::int16_t, QPointF twips) { Limiter_Gesture(s, phase, twips.y()); }

void LimiterControl::Step(int units) {
    Limiter_Step(s, units);
    described.ShowHint(0, false);
}

void LimiterControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setFont(theme::Sans(16, QFont::Bold));
    p.setPen(s.Limit < kNoLimit ? theme::kAccent : theme::kText);
    p.drawText(rect(), Qt::AlignCenter, QString::number(s.Limit));
}

}  // namespace marvolin
