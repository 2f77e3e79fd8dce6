#include "window/popups/history_list.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "performance/drops/palette.h"
#include "window/descriptions/described.h"
#include "window/popups/popup_list.h"
#include "window/toolkit/drag.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kHistoryWidth = 230;
constexpr int kMostEntries = 14;
constexpr int kHistoryGap = 2;  // pixels between the button and the list

}  // namespace

HistoryList::HistoryList(Session& session, QWidget* parent) : QListWidget(parent), s(session) {
    Describe(s, *this, drags::kHistoryList);
    setFont(theme::Sans(13));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    hide();
}

void HistoryList::Open(const QRect& button) {
    pressed_.reset();
    clear();
    for (const std::string& entry : s.HistoryEntries) addItem(QString::fromStdString(entry));
    const int wanted = std::min(count(), kMostEntries) * sizeHintForRow(0) + 10;
    const int under = parentWidget()->height() - button.bottom() - kHistoryGap;
    const int over = button.top() - kHistoryGap;
    // Where neither side has room, as in Mini, the larger one takes what fits, and the list scrolls.
    const bool below = wanted <= under || (wanted > over && under >= over);
    const int height = std::min(wanted, below ? under : over);
    if (!isVisible()) before_ = QApplication::focusWidget();
    setGeometry(button.left(), below ? button.bottom() + kHistoryGap : over - height, kHistoryWidth, height);
    raise();
    show();
    setFocus();
}

void HistoryList::mousePressEvent(QMouseEvent* event) {
    QListWidget::mousePressEvent(event);
    origin_ = event->pos();
    const int entry = row(itemAt(origin_));
    pressed_ = HistoryList_MouseDown(s, static_cast<std::int16_t>(entry));
    if (!isVisible()) second_.Follows(*event);  // the entry that closes it
}

void HistoryList::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed_ || (event->pos() - origin_).manhattanLength() < QApplication::startDragDistance()) return;
    const DragSource source = *pressed_;
    pressed_.reset();
    dragging_ = true;
    RunDrag(*this, s, source);
    dragging_ = false;
}

// A click counts as a drop on the list itself.
void HistoryList::mouseReleaseEvent(QMouseEvent* event) {
    if (pressed_) HistoryList_DragDrop(s);
    pressed_.reset();
    if (!isVisible()) second_.Follows(*event);
}

void HistoryList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return HistoryList_LostFocus(s);
    if (!IsChoosingKey(*event)) return QListWidget::keyPressEvent(event);
    if (HistoryList_MouseDown(s, static_cast<std::int16_t>(currentRow()))) HistoryList_DragDrop(s);
}

std::optional<DragSource> HistoryList::Carried(std::int16_t) {
    if (currentRow() <= 0) return std::nullopt;  // the first entry closes the list
    const auto source = HistoryList_MouseDown(s, static_cast<std::int16_t>(currentRow()));
    HistoryList_LostFocus(s);
    return source;
}

// Who came by key goes on where the list was opened.
void HistoryList::hideEvent(QHideEvent* event) {
    if (before_ != nullptr && hasFocus()) before_->setFocus();
    QListWidget::hideEvent(event);
}

void HistoryList::focusOutEvent(QFocusEvent* event) {
    QListWidget::focusOutEvent(event);
    if (!dragging_ && isVisible()) HistoryList_LostFocus(s);
}

}  // namespace marvolin
