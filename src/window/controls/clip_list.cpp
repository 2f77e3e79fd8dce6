#include "window/controls/clip_list.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "browser/clipboard.h"
#include "window/toolkit/drag.h"

namespace marvolin {

ClipList::ClipList(Session& session, QWidget* parent) : QListWidget(parent), s(session) {
    Describe(s, *this, drags::kClipBoardList);
    setAcceptDrops(true);
    setFont(theme::Sans(13));
    setUniformItemSizes(true);
    Refresh();
}

void ClipList::Refresh() {
    const int chosen = currentRow();
    const auto rows = static_cast<int>(s.Clips.List.size());
    while (count() > rows) delete takeItem(count() - 1);
    for (int row = 0; row < rows; ++row) {
        const QString text = QString::fromStdString(s.Clips.List[static_cast<std::size_t>(row)]);
        if (row >= count()) {
            addItem(text);
        } else if (item(row)->text() != text) {
            item(row)->setText(text);
        }
    }
    setCurrentRow(qMin(chosen, rows - 1));
    viewport()->update();
}

std::optional<DragSource> ClipList::Carried(std::int16_t button) {
    if (currentRow() < 0) return std::nullopt;
    return ClipBoardList_MouseDown(s, static_cast<std::int16_t>(currentRow()), button);
}

void ClipList::mousePressEvent(QMouseEvent* event) {
    button_ = kNoButton;
    const QListWidgetItem* pressed = itemAt(event->position().toPoint());
    if (pressed == nullptr) return;
    button_ = ButtonNumber(event->button());
    press_ = event->position().toPoint();
    setCurrentItem(const_cast<QListWidgetItem*>(pressed));
}

void ClipList::mouseReleaseEvent(QMouseEvent* event) {
    if (ButtonNumber(event->button()) == button_) button_ = kNoButton;
}

// Selects nothing, unlike the toolkit's own list: the pointer drags the clip that was pressed.
void ClipList::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) button_ = kNoButton;  // its release was lost
    if (button_ == kNoButton || currentRow() < 0) return;
    if ((event->position().toPoint() - press_).manhattanLength() < QApplication::startDragDistance()) return;
    const DragSource source =
        ClipBoardList_MouseDown(s, static_cast<std::int16_t>(currentRow()), std::exchange(button_, kNoButton));
    RunDrag(*this, s, source);
}

void ClipList::dragEnterEvent(QDragEnterEvent* event) {
    const auto source = FromMimeData(*event->mimeData());
    event->setAccepted(source && ClipBoardTakesDrop(s, *source));
}

// The toolkit's list would refuse the places between its entries.
void ClipList::dragMoveEvent(QDragMoveEvent* event) { event->acceptProposedAction(); }

void ClipList::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    if (const auto source = FromMimeData(*event->mimeData())) ClipBoardList_DragDrop(s, *source);
}

void ClipList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && currentRow() >= 0) {
        DeleteClip(s, static_cast<std::int16_t>(currentRow()));
        return;
    }
    QListWidget::keyPressEvent(event);
}

void ClipList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() > 0) return;
    QPainter p(viewport());
    p.setFont(theme::Sans(13));
    p.setPen(theme::kQuiet);
    p.drawText(viewport()->rect().adjusted(20, 0, -20, 0), Qt::AlignCenter | Qt::TextWordWrap,
               "Drag LoopTracks here by the dotted grip of their names.");
}

Trash::Trash(Session& session, QWidget* parent) : Control(session, parent, "Trash") { setAcceptDrops(true); }

bool Trash::TakesDrop(const DragSource& source) const { return TrashTakesDrop(s, source); }

void Trash::Drop(const DragSource& source) { Trash_DragDrop(s, source); }

void Trash::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face(), theme::kPanel);
    p.setPen(QPen(theme::kQuiet, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    const QPointF c = QRectF(rect()).center() - QPointF(0, 6);
    p.drawLine(c + QPointF(-11, -9), c + QPointF(11, -9));
    p.drawLine(c + QPointF(-3, -12), c + QPointF(3, -12));
    p.drawPolyline(QPolygonF{c + QPointF(-8, -9), c + QPointF(-6.5, 12), c + QPointF(6.5, 12), c + QPointF(8, -9)});
    for (double x : {-3.0, 0.0, 3.0}) p.drawLine(c + QPointF(x, -4), c + QPointF(x * 0.9, 8));
    p.setFont(theme::Sans(11));
    p.drawText(rect().adjusted(0, 0, 0, -5), Qt::AlignHCenter | Qt::AlignBottom, Caption());
}

}  // namespace marvolin
