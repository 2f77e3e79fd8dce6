#include "window/controls/pick_dir.h"

#include <QPainter>

#include "browser/bin_gestures.h"

namespace marvolin {

PickDir::PickDir(Session& session, QWidget* parent, int bin) : FolderTarget(session, parent, drags::kPickDir, bin) {}

void PickDir::Refresh() {
    described.RefreshTip();
    update();
}

void PickDir::Gesture(Phase phase, std::int16_t, QPointF twips) {
    if (phase == Phase::Down) ArmDrag({drags::kPickDir, index, ""});
    if (phase == Phase::Up && QRectF(rect()).contains(twips / kTwipsPerPixel)) PickDir_Click(s, index);
}

void PickDir::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    p.setPen(QPen(theme::kQuiet, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    const double y = height() / 2.0;
    p.drawPolyline(QPolygonF{QPointF(10, y - 5), QPointF(15, y - 5), QPointF(17, y - 3), QPointF(25, y - 3),
                             QPointF(25, y + 6), QPointF(10, y + 6), QPointF(10, y - 5)});
    p.setFont(theme::Sans(13, QFont::DemiBold));
    p.setPen(theme::kText);
    p.drawText(rect().adjusted(33, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft,
               QString::fromStdString(s.Bins[index].Caption));
}

}  // namespace marvolin
