#include "window/toolkit/drop_refusal.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <utility>

#include "core/routines.h"
#include "window/toolkit/former_status.h"

namespace marvolin {

DropRefusal::DropRefusal(QWidget& window, Session& session) : QObject(&window), s(session) {
    qApp->installEventFilter(this);
}

DropRefusal& DropRefusal::Of(QWidget& window, Session& session) {
    for (QObject* child : window.children()) {
        if (auto* refusal = dynamic_cast<DropRefusal*>(child)) return *refusal;
    }
    return *new DropRefusal(window, session);  // the window owns it
}

void DropRefusal::Tell(const std::string& text) {
    if (s.StatusText != told_ || told_.empty()) {
        TakeHintsAway();
        before_ = s.StatusText;
    }
    told_ = text;
    ShowStatus(s, text);
}

// A control sees the moves and the drop of a drag only after it has taken its entry; a window sees it leave.
bool DropRefusal::eventFilter(QObject* object, QEvent* event) {
    const bool taken = event->type() == QEvent::DragMove || event->type() == QEvent::Drop;
    const bool left = event->type() == QEvent::DragLeave && object->isWindowType();
    if (told_.empty() || !(left || (taken && object->isWidgetType()))) return false;
    if (std::exchange(told_, {}) == s.StatusText) ShowStatus(s, before_);
    return false;
}

}  // namespace marvolin
