#include "window/screens/toolkit_scale.h"

#include <dlfcn.h>

#include <QApplication>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <utility>
#include <vector>

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

constexpr const char* kReopening = "marvolinReopening";  // a property of the application

using Owners = std::vector<std::pair<QWidget*, QWidget*>>;

/// The open windows that stay in front of another one, with that one.
Owners OwnersOf(const QWidgetList& open) {
    Owners owners;
    for (QWidget* window : open) {
        const QWindow* native = window->windowHandle();
        const QWindow* owner = native == nullptr ? nullptr : native->transientParent();
        const auto found = std::ranges::find_if(
            open, [&](const QWidget* other) { return owner != nullptr && other->windowHandle() == owner; });
        if (found != open.end()) owners.emplace_back(window, *found);
    }
    return owners;
}

void SetOwners(const Owners& owners) {
    for (const auto& [window, owner] : owners) {
        // Makes the native windows.
        owner->winId();
        window->winId();
        window->windowHandle()->setTransientParent(owner->windowHandle());
    }
}

/// Shows `window` without the keyboard.
void ShowBehind(QWidget& window) {
    const bool was = window.testAttribute(Qt::WA_ShowWithoutActivating);
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
    window.setAttribute(Qt::WA_ShowWithoutActivating, was);
}

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
    }
    const Owners owners = OwnersOf(open);
    qApp->setProperty(kReopening, true);
    for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowHandle() != nullptr) (window->*&NativeWindow::destroy)(true, true);
    }
    between();
    SetOwners(owners);
    for (QWidget* window : open) ShowBehind(*window);
    qApp->setProperty(kReopening, false);
    for (QWidget* window : open) {
        if (window->objectName() == "frmMain") window->raise();
    }
    if (active != nullptr && open.contains(active)) {
        active->raise();
        active->activateWindow();
    }
    QGuiApplication::setQuitOnLastWindowClosed(quits);
}

bool IsReopening() { return qApp->property(kReopening).toBool(); }

}  // namespace marvolin
