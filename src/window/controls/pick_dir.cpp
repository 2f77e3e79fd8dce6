#include "window/controls/pick_dir.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>

#include "browser/bin_gestures.h"

namespace marvolin {

PickDir::PickDir(Session& session, QWidget* parent, int bin) : Control(session, parent, drags::kPickDir, bin) {
    setAcceptDrops(true);
}

void PickDir::Refresh() {
    described.RefreshTip();
    update();
}

void PickDir::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const QPointF at = twips / kTwipsPerPixel;
    if (phase == Phase::Down) {
        press_ = at;
        pressed_ = true;
    } else if (phase == Phase::Up) {
        if (pressed_ && QRectF(rect()).contains(at)) PickDir_Click(s, index);
        pressed_ = false;
    } else if (pressed_ && button != kNoButton &&
               (at - press_).manhattanLength() >= QApplication::startDragDistance()) {
        pressed_ = false;
        BeginDrag({drags::kPickDir, index, ""});
    }
}

void PickDir::Drop(const DragSource& source) { PickDir_DragDrop(s, index, source); }

void PickDir::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    if (IsDragSource(*event->mimeData())) return Control::dropEvent(event);
    for (const std::string& path : FilePaths(*event->mimeData())) {
        if (QFileInfo(QString::fromStdString(path)).isDir()) return PickDir_DropFolder(s, index, path);
    }
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
