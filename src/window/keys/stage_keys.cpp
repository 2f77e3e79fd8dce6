#include "window/keys/stage_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "audio/recording.h"
#include "window/controls/record_button.h"

namespace marvolin {

StageKeys::StageKeys(Session& session) : s(session) { qApp->installEventFilter(this); }

StageKeys::~StageKeys() { qApp->removeEventFilter(this); }

// The widgets alone: the window of the desktop gets each key first, and passes it on to one of them.
bool StageKeys::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !object->isWidgetType()) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool record = key.key() == Qt::Key_F8;
    if ((!record && key.key() != Qt::Key_F12) || key.modifiers() != Qt::NoModifier) return false;
    if (!key.isAutoRepeat()) record ? RecordButton::Toggle(s) : ToggleSilence(s);
    return true;
}

}  // namespace marvolin
