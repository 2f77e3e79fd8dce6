#include "window/keys/program_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "window/keys/return_key.h"
#include "window/keys/window_key.h"

namespace marvolin {

ProgramKeys::ProgramKeys(Session& session) : drag_(session) { qApp->installEventFilter(this); }

ProgramKeys::~ProgramKeys() { qApp->removeEventFilter(this); }

bool ProgramKeys::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::DragEnter) drag_.MouseDrags();
    if (event->type() != QEvent::KeyPress || !object->isWidgetType()) return false;
    auto& focus = *static_cast<QWidget*>(object);
    const auto& key = *static_cast<const QKeyEvent*>(event);
    return GoToWindowByKey(key) || PressByReturn(focus, key) || drag_.TakeKey(focus, key);
}

}  // namespace marvolin
