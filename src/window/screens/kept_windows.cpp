#include "window/screens/kept_windows.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <array>

#include "window/screens/fitting.h"

namespace marvolin {

namespace {

constexpr std::array kKeptWindows{kMainWindow, "frmBrowse", "frmSave", "frmScripts", "frmHelp"};

}  // namespace

bool IsKept(const QWidget& window) {
    return window.isWindow() && std::ranges::find(kKeptWindows, window.objectName()) != kKeptWindows.end();
}

bool IsMain(const QWidget& window) { return window.objectName() == kMainWindow; }

bool IsFixed(const QWidget& window) { return window.minimumSize() == window.maximumSize(); }

QSize FrameAround(const QWidget& window) { return FrameOf(window).size() - window.size(); }

const QWidget* TopmostMain() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        const bool topmost = window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        if (IsMain(*window) && topmost && window->isVisible() && !window->isMinimized()) return window;
    }
    return nullptr;
}

}  // namespace marvolin
