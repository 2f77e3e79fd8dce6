#include "window/controls/limiter.h"

#include <QPainter>

#include "audio/limiter.h"
#include "audio/thinning.h"
#include "window/controls/hints.h"

namespace marvolin {

LimiterControl::LimiterControl(Session& session, QWidget* parent)
    : Control(session, parent, "Limiter", -1, "How many LoopTracks may sound; 4 is no limit") {}

std::string_view LimiterControl::Hint(QPointF) const { return hints::kLimiter; }

void LimiterControl::Gesture(Phase phase, std::int16_t, QPointF twips) { Limiter_Gesture(s, phase, twips.y()); }

// A step is the drag that makes one step.
void LimiterControl::Step(int units) {
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
