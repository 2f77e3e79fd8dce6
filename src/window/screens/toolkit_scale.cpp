#include "window/screens/toolkit_scale.h"

#include <dlfcn.h>

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace marvolin {

namespace {

using SetFactor = void (*)(double);

/// The toolkit reads `QT_SCALE_FACTOR` once, and has a function behind it that its headers do not show.
SetFactor FactorSetter() {
    return reinterpret_cast<SetFactor>(::dlsym(RTLD_DEFAULT, "_ZN15QHighDpiScaling15setGlobalFactorEd"));
}

double FactorOfTheDesktop() {
    const double factor = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
    return factor > 0 ? factor : 1;
}

/// Access to what the toolkit keeps for its own widgets.
struct NativeWindow : QWidget {
    using QWidget::destroy;
};

bool IsPassing(const QWidget& window) { return window.windowType() == Qt::Popup || window.windowType() == Qt::ToolTip; }

}  // namespace

bool CanScale() { return FactorSetter() != nullptr; }

bool ScaleToolkit(double factor) {
    const SetFactor set = FactorSetter();
    if (set == nullptr) return false;
    set(FactorOfTheDesktop() * factor);
    return true;
}

void ReopenWindows(const std::function<void()>& between) {
    const bool quits = QGuiApplication::quitOnLastWindowClosed();
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QWidget* active = QApplication::activeWindow();
    QWidgetList open;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        if (!IsPassing(*window)) open.append(window);
        window->hide();
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowHandle() != nullptr) (window->*&NativeWindow::destroy)(true, true);
    }
    between();
    for (QWidget* window : open) window->show();
    if (active != nullptr && open.contains(active)) {
        active->raise();
        active->activateWindow();
    }
    QGuiApplication::setQuitOnLastWindowClosed(quits);
}

}  // namespace marvolin
