#include "window/keys/stage_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "audio/recording.h"
#include "window/controls/record_button.h"

namespace marvolin {

StageKeys::StageKeys(Session& session) : s(session) { qApp->installEventFilter(this); }

StageKeys::~StageKeys() { qApp->removeEventFilter(this); }

// A drag of the toolkit takes all keys by a filter of its own. Of several filters the last one comes first.
void StageKeys::ComeFirst() {
    QMetaObject::invokeMethod(
        this, [this] { qApp->installEventFilter(this); }, Qt::QueuedConnection);
}

// The window of the desktop gets each key first, and passes it on to a widget unless it is taken there.
bool StageKeys::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::DragEnter) ComeFirst();
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool record = key.key() == Qt::Key_F8;
    const Qt::KeyboardModifiers most = record ? Qt::NoModifier : Qt::ShiftModifier;
    if ((!record && key.key() != Qt::Key_F12) || (key.modifiers() & ~most) != 0) return false;
    if (!key.isAutoRepeat()) record ? RecordButton::Toggle(s) : ToggleSilence(s);
    return true;
}

}  // namespace marvolin
