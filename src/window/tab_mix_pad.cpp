#include "window/tab_mix_pad.h"

#include <QPainter>

#include "window/theme.h"

namespace marvolin {

TabMixPad::TabMixPad(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    setObjectName("MixPadPage");
    setEnabled(false);
    setToolTip("The mix pad is not available yet");
}

void TabMixPad::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF ground(16, 10, 274, 274);
    p.setPen(QPen(theme::kLine, 1, Qt::DashLine));
    p.setBrush(theme::kWindow);
    p.drawRoundedRect(ground, 6, 6);
    p.setPen(theme::kQuiet);
    p.setFont(theme::Sans(13));
    p.drawText(ground, Qt::AlignCenter, "The mix pad\nis not available yet");
}

}  // namespace marvolin
