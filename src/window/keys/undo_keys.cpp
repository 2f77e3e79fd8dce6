#include "window/keys/undo_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "persistence/undo/undo_commands.h"
#include "window/keys/typing.h"

namespace marvolin {

namespace {

constexpr Qt::KeyboardModifiers kOtherKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool IsUndoWindow(const QWidget& widget) {
    const QString name = WindowBehind(widget).objectName();
    return name == "frmMain" || name == "frmBrowse";
}

}  // namespace

UndoKeys::UndoKeys(Session& session) : s(session) { qApp->installEventFilter(this); }

UndoKeys::~UndoKeys() { qApp->removeEventFilter(this); }

bool UndoKeys::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto* widget = dynamic_cast<QWidget*>(object);
    if (widget == nullptr || key->key() != Qt::Key_Backspace || (key->modifiers() & kOtherKeys) != 0) return false;
    if (IsTyping() || !IsUndoWindow(*widget)) return false;
    event->accept();
    if (event->type() != QEvent::KeyPress || key->isAutoRepeat()) return true;
    if (key->modifiers().testFlag(Qt::ShiftModifier)) {
        Redo_Click(s);
    } else {
        Undo_Click(s);
    }
    return true;
}

}  // namespace marvolin
