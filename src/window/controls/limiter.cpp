#include "window/controls/limiter.h"

#include <QPainter>

#include "audio/limiter.h"
#include "audio/thinning.h"

namespace marvolin {

LimiterControl::LimiterControl(Session& session, QWidget* parent) : Control(session, parent, "Limiter") {}

void LimiterControl::Gesture(Phase phase, std::int16_t, QPointF twips) { Limiter_Gesture(s, phase, twips.y()); }

// Drags as far as `units` steps take.
void LimiterControl::Step(int units) {
    described.ShowHint(0, false);
    Limiter_Gesture(s, Phase::Down, 0);
    Limiter_Gesture(s, Phase::Move, -units * kTwipsALimit);
    Limiter_Gesture(s, Phase::Up, -units * kTwipsALimit);
}

void LimiterControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setFont(theme::Sans(16, QFont::Bold));
    p.setPen(s.Limit < kNoLimit ? theme::kAccent : theme::kText);
    p.drawText(rect(), Qt::AlignCenter, QString::number(s.Limit));
}

}  // namespace marvolin
