#include "window/popups/select_list.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

#include "performance/selection/selection.h"
#include "window/popups/popup_list.h"
#include "window/toolkit/theme.h"

namespace marvolin {

SelectList::SelectList(Session& session, QWidget* parent) : QListWidget(parent), s(session) {
    Described& described = Describe(s, *this, "SlctGroup");
    connect(this, &QListWidget::currentRowChanged, this, [&described](int row) { described.ShowHint(row + 1, false); });
    setWindowFlags(Qt::Popup);
    setFont(theme::Sans(13));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const SelectRule& rule : kSelectRules) {
        addItem(QString::fromUtf8(rule.Text.data(), static_cast<qsizetype>(rule.Text.size())));
    }
    setFixedSize(130, count() * sizeHintForRow(0) + 10);
    connect(this, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) { Choose(item); });
}

void SelectList::Open(QPoint place) {
    // Its own native window may be left from another screen.
    const QRect area = parentWidget()->screen()->availableGeometry();
    move(qBound(area.left(), place.x(), area.right() - width()),
         qBound(area.top(), place.y(), area.bottom() - height()));
    show();
    setFocus();
    setCurrentItem(nullptr);  // taking the focus has selected the first entry
}

bool SelectList::event(QEvent* event) { return HideOnPressBeside(*this, *event) || QListWidget::event(event); }

int SelectList::PartAt(QPointF place) const { return indexAt(place.toPoint()).row() + 1; }

void SelectList::Choose(const QListWidgetItem* item) {
    if (item != nullptr) SlctGroup_Click(s, item->text().toStdString());
}

void SelectList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (!isVisible()) second_.Follows(*event);
}

void SelectList::hideEvent(QHideEvent* event) {
    QListWidget::hideEvent(event);
    SlctGroup_LostFocus(s);
}

void SelectList::keyPressEvent(QKeyEvent* event) {
    if (IsChoosingKey(*event)) return Choose(currentItem());
    if (event->key() == Qt::Key_Escape) return hide();
    QListWidget::keyPressEvent(event);
}

}  // namespace marvolin
