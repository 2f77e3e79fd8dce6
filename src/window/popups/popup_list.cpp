#include "window/popups/popup_list.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

#include "window/descriptions/described.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kMostPopupRows = 14;
constexpr int kLeastWidth = 150;  // pixels

}  // namespace

bool HideOnPressBeside(QWidget& popup, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonPress) return false;
    if (popup.rect().contains(static_cast<const QMouseEvent&>(event).position().toPoint())) return false;
    popup.hide();
    return true;
}

bool IsChoosingKey(const QKeyEvent& key) {
    if (key.isAutoRepeat()) return false;  // a key that is held has opened the list and must not close it
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Space;
}

PopupList::PopupList(Session& session, QWidget* parent, std::string_view name) : QListWidget(parent) {
    Describe(session, *this, name);
    setWindowFlags(Qt::Popup);
    setFont(theme::Sans(13));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
}

void PopupList::Open(const QStringList& rows, const QRect& at, int mostWidth) {
    pressed_ = false;
    clear();
    addItems(rows);
    setCurrentRow(0);
    // Its own native window may be left from another screen.
    const QRect area = parentWidget()->screen()->availableGeometry();
    const int wide = qMin(qBound(kLeastWidth, sizeHintForColumn(0) + 40, mostWidth), area.width() - 1);
    const int high = qMin(count(), kMostPopupRows) * sizeHintForRow(0) + 12;
    resize(wide, high);
    const int top = at.bottom() + high > area.bottom() ? at.top() - high : at.bottom() + 1;
    move(qBound(area.left(), at.left(), area.right() - wide), qMax(area.top(), top));
    show();
    setFocus();
}

bool PopupList::event(QEvent* event) { return HideOnPressBeside(*this, *event) || QListWidget::event(event); }

void PopupList::mousePressEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->position().toPoint());
    pressed_ = pressed.isValid();
    if (pressed_) setCurrentRow(pressed.row());
}

void PopupList::mouseMoveEvent(QMouseEvent* event) {
    const QModelIndex under = indexAt(event->position().toPoint());
    if (under.isValid()) setCurrentRow(under.row());
}

void PopupList::mouseReleaseEvent(QMouseEvent* event) {
    // The release of the click that opened the list chooses nothing.
    const bool chosen = pressed_;
    pressed_ = false;
    const QModelIndex released = indexAt(event->position().toPoint());
    if (!chosen || !released.isValid() || !OnChoose) return;
    second_.Follows(*event);
    OnChoose(released.row());
}

void PopupList::keyPressEvent(QKeyEvent* event) {
    if (IsChoosingKey(*event)) {
        if (OnChoose && currentItem() != nullptr) OnChoose(currentRow());
        return;
    }
    if (event->key() == Qt::Key_Escape) return hide();
    QListWidget::keyPressEvent(event);
}

void PopupList::hideEvent(QHideEvent* event) {
    QListWidget::hideEvent(event);
    if (OnHide) OnHide();
}

}  // namespace marvolin
