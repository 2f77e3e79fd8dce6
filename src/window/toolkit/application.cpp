#include "window/toolkit/application.h"

#include <QScopedValueRollback>
#include <QThread>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "core/errors.h"
#include "window/descriptions/accessible.h"
#include "window/toolkit/drop_ring.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

/// Rings the control that has accepted a drag, until the drag leaves it or ends.
void FollowDrag(QObject& receiver, const QEvent& event) {
    if (event.type() == QEvent::DragLeave || event.type() == QEvent::Drop) return DropRing::Of(*qApp).Hide();
    if (event.type() != QEvent::DragEnter || !receiver.isWidgetType()) return;
    if (event.isAccepted()) {
        DropRing::Of(*qApp).Show(static_cast<QWidget&>(receiver));
    } else {
        DropRing::Of(*qApp).Hide();
    }
}

}  // namespace

Application::Application(int& argc, char** argv, CardTime& time) : QApplication(argc, argv), time_(time) {
    // The toolkit takes the numbers and the order of texts of the player's language over into the C library. Scripts
    // would then print 0,5, and comparing two texts would take far longer than their time.
    std::setlocale(LC_NUMERIC, "C");
    std::setlocale(LC_COLLATE, "C");
    setApplicationName("marvolin");
    setApplicationVersion(MARVOLIN_VERSION);
    theme::Apply(*this);
    InstallAccessibility();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        const bool done = Deliver(receiver, event);
        FollowDrag(*receiver, *event);
        return done;
    } catch (const RuntimeError& e) {
        std::fprintf(stderr, "marvolin: %s (#%u); the program ends\n", e.what(), e.Number());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "marvolin: %s; the program ends\n", e.what());
    }
    std::_Exit(EXIT_FAILURE);
}

bool Application::Deliver(QObject* receiver, QEvent* event) {
    // The toolkit has threads of its own, whose events come here too.
    if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
    const int level = thread()->loopLevel();
    if (level <= level_) return QApplication::notify(receiver, event);
    const QScopedValueRollback<int> delivering(level_, level);
    const CallGroup group(time_);
    return QApplication::notify(receiver, event);
}

}  // namespace marvolin
