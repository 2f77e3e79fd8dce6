#include "window/tab_map.h"

#include <QPainter>

#include "window/theme.h"

namespace marvolin {

TabMap::TabMap(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    setObjectName("MapPage");
    setEnabled(false);
    setToolTip("The sound map is not available yet");
}

void TabMap::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF ground(16, 10, 274, 274);
    p.setPen(QPen(theme::kLine, 1, Qt::DashLine));
    p.setBrush(theme::kWindow);
    p.drawRoundedRect(ground, 6, 6);
    p.setPen(theme::kQuiet);
    p.setFont(theme::Sans(13));
    p.drawText(ground, Qt::AlignCenter, "The sound map\nis not available yet");
}

}  // namespace marvolin
