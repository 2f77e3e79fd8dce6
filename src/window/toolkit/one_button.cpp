#include "window/toolkit/one_button.h"

#include <QApplication>
#include <QMouseEvent>

namespace marvolin {

OneButton::OneButton(Qt::MouseButton holder)
    : began_(holder == Qt::NoButton ? QGuiApplication::mouseButtons() : Qt::MouseButtons(holder)) {
    // Of several filters the last one comes first.
    QMetaObject::invokeMethod(
        this, [this] { qApp->installEventFilter(this); }, Qt::QueuedConnection);
}

bool OneButton::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) return true;
    if (event->type() != QEvent::MouseButtonRelease || began_ == Qt::NoButton) return false;
    return !began_.testFlag(static_cast<const QMouseEvent*>(event)->button());
}

}  // namespace marvolin
