#include "window/help/help_asker.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include "core/help.h"
#include "window/descriptions/described.h"
#include "window/descriptions/parts.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/drop_ring.h"

namespace marvolin {

namespace {

/// The widget that an event of `object` is for: `object` itself, or the form of a window of the desktop.
QWidget* FormOf(QObject& object) {
    if (auto* widget = qobject_cast<QWidget*>(&object)) return widget;
    for (QWidget* form : QApplication::topLevelWidgets()) {
        if (form->windowHandle() == &object) return form;
    }
    return nullptr;
}

/// Shows what the question mark asks about here.
void RingAround(QWidget& pointed) {
    for (QWidget* at = &pointed; at != nullptr; at = at->parentWidget()) {
        if (DescribedOf(*at) != nullptr) return DropRing::Of(*qApp).Show(*at);
    }
    DropRing::Of(*qApp).Hide();
}

}  // namespace

HelpAsker::HelpAsker(Session& session) : s(session) { qApp->installEventFilter(this); }

HelpAsker::~HelpAsker() { qApp->removeEventFilter(this); }

std::int32_t HelpAsker::TopicAt(const QWidget* widget, QPoint place) {
    for (const QWidget* at = widget; at != nullptr; at = at->parentWidget()) {
        const Described* described = DescribedOf(*at);
        if (described == nullptr) continue;
        const bool bar = described->Row().Role == QAccessible::StatusBar;
        const auto* parts = dynamic_cast<const HasParts*>(at);
        if (bar && parts != nullptr && parts->PartAt(at->mapFrom(widget, place)) == kHelpPanel) return kHelpContents;
        return described->Row().Topic;
    }
    return kHelpContents;
}

bool HelpAsker::TakeDrag(QObject& object, QDropEvent& event, bool dropped) {
    const auto source = FromMimeData(*event.mimeData());
    QWidget* form = source && IsHelpDrag(*source) ? FormOf(object) : nullptr;
    if (form == nullptr) return false;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    const QPoint place = event.position().toPoint();
    QWidget* control = form->childAt(place);
    if (control == nullptr) control = form;
    if (!dropped) {
        RingAround(*control);
        return true;
    }
    DropRing::Of(*qApp).Hide();
    IsHelpDrop(s, *source, TopicAt(control, control->mapFrom(form, place)));
    return true;
}

bool HelpAsker::TakeKey(QWidget& focus, const QKeyEvent& event) {
    if (event.key() != Qt::Key_F1 || event.modifiers() != Qt::NoModifier) return false;
    QPoint place(-1, -1);
    const QWidget* asked = Pointed(focus, place);
    if (asked == nullptr) asked = &focus;
    if (event.isAutoRepeat()) return true;
    const std::int32_t topic = TopicAt(asked, place);
    // Help would open behind an open list, which has the keys.
    if (QWidget* list = QApplication::activePopupWidget()) list->close();
    ShowHelp(s, kHelpDragName, topic);
    return true;
}

/// What the pointer is on, with the place in it; null when Tab has moved the focus since the pointer has moved, and
/// when the pointer is not in the window that has the keys.
const QWidget* HelpAsker::Pointed(const QWidget& focus, QPoint& place) const {
    const QWidget* form = pointed_ == nullptr ? nullptr : FormOf(*pointed_);
    if (form == nullptr || !form->isVisible() || form != focus.window()) return nullptr;
    const QWidget* child = form->childAt(place_);
    if (child == nullptr) child = form;
    place = child->mapFrom(form, place_);
    return child;
}

void HelpAsker::Watch(QObject& object, const QEvent& event) {
    const bool window = object.isWindowType();
    if (window && event.type() == QEvent::MouseMove) {
        pointed_ = &object;
        place_ = static_cast<const QMouseEvent&>(event).position().toPoint();
    } else if (window && event.type() == QEvent::Leave && pointed_ == &object) {
        pointed_.clear();
    } else if (!window && event.type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) pointed_.clear();
    }
}

bool HelpAsker::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseMove:
        case QEvent::FocusIn:
        case QEvent::Leave:
            Watch(*object, *event);
            return false;
        case QEvent::DragEnter:
        case QEvent::DragMove:
            return TakeDrag(*object, *static_cast<QDropEvent*>(event), false);
        case QEvent::Drop:
            return TakeDrag(*object, *static_cast<QDropEvent*>(event), true);
        case QEvent::KeyPress:
            return object->isWidgetType() &&
                   TakeKey(*static_cast<QWidget*>(object), *static_cast<const QKeyEvent*>(event));
        default:
            return false;
    }
}

}  // namespace marvolin
