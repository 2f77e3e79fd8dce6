#include "window/rows/find_button.h"

#include <QPainter>

namespace marvolin {

FindButton::FindButton(Session& session, QWidget* parent, Row row) : Control(session, parent, "FindSample", row) {}

void FindButton::Gesture(Phase phase, std::int16_t, QPointF twips) {
    if (phase == Phase::Up && QRectF(rect()).contains(twips / kTwipsPerPixel) && OnClick) OnClick();
}

void FindButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setFont(theme::Sans(12, QFont::DemiBold));
    p.setPen(theme::kText);
    p.drawText(rect(), Qt::AlignCenter, "Find");
}

}  // namespace marvolin
