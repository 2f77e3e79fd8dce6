#include "window/keys/window_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>

namespace marvolin {

namespace {

bool IsWindowToWorkIn(const QWidget& window) {
    const Qt::WindowType type = window.windowType();
    return window.isVisible() && !window.isMinimized() && (type == Qt::Window || type == Qt::Dialog) &&
           !window.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus);
}

/// Activates the window `way` places behind the active one, in the order of their names.
void GoToWindow(int way) {
    if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr) return;
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) { return !IsWindowToWorkIn(*window); });
    if (windows.empty()) return;
    std::sort(windows.begin(), windows.end(),
              [](const QWidget* a, const QWidget* b) { return a->objectName() < b->objectName(); });
    const auto count = windows.size();
    const auto here = std::max<qsizetype>(0, windows.indexOf(QApplication::activeWindow()));
    QWidget* next = windows[(here + way + count) % count];
    next->raise();
    next->activateWindow();
}

}  // namespace

bool GoToWindowByKey(const QKeyEvent& key) {
    if (key.key() != Qt::Key_F6) return false;
    GoToWindow(key.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
    return true;
}

}  // namespace marvolin
