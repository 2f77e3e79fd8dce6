#include "window/toolkit/scroll_watch.h"

#include <QWheelEvent>

namespace marvolin {

ScrollWatch::ScrollWatch(QCoreApplication& application) : QObject(&application) {
    application.installEventFilter(this);
}

ScrollWatch& ScrollWatch::Of(QCoreApplication& application) {
    for (QObject* child : application.children()) {
        if (auto* watch = dynamic_cast<ScrollWatch*>(child)) return *watch;
    }
    return *new ScrollWatch(application);  // the application owns it
}

// The widget gets a notch first, and then, when it ignores it, the widget below, with the same time.
bool ScrollWatch::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::Wheel || !object->isWidgetType()) return false;
    const quint64 time = static_cast<const QWheelEvent*>(event)->timestamp();
    if (began_ == nullptr || time < last_ || time - last_ > kPause) began_ = static_cast<QWidget*>(object);
    last_ = time;
    return false;
}

}  // namespace marvolin
