#include "window/popups/second_press.h"

#include <QApplication>
#include <QStyleHints>

namespace marvolin {

SecondPress::SecondPress(QObject& list) : QObject(&list) {}

SecondPress::~SecondPress() { qApp->removeEventFilter(this); }

void SecondPress::Follows(const QMouseEvent& click) {
    button_ = click.button();
    place_ = click.globalPosition().toPoint();
    time_ = click.timestamp();
    held_ = false;
    qApp->installEventFilter(this);
}

void SecondPress::Stop() {
    held_ = false;
    qApp->removeEventFilter(this);
}

bool SecondPress::IsSecond(const QMouseEvent& press) const {
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const int away = (press.globalPosition().toPoint() - place_).manhattanLength();
    return press.button() == button_ && away <= hints.mouseDoubleClickDistance() &&
           press.timestamp() - time_ < static_cast<quint64>(hints.mouseDoubleClickInterval());
}

bool SecondPress::eventFilter(QObject* object, QEvent* event) {
    // A window sees each event once, before the widgets do.
    if (!object->isWindowType()) return false;
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) {
        held_ = IsSecond(static_cast<const QMouseEvent&>(*event));
        if (held_) return true;
        Stop();
        return false;
    }
    if (type != QEvent::MouseButtonRelease || !held_) return false;
    if (static_cast<const QMouseEvent*>(event)->button() != button_) return false;
    Stop();
    return true;
}

}  // namespace marvolin
