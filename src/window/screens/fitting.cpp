#include "window/screens/fitting.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace marvolin {

namespace {

/// Where a stretch of `length` that begins at `begin` begins when it is moved into `low`..`high` (exclusive).
int MovedBegin(int begin, int length, int low, int high) { return std::max(low, std::min(begin, high - length)); }

}  // namespace

QRect MovedInto(const QRect& frame, const QRect& area) {
    return {MovedBegin(frame.left(), frame.width(), area.left(), area.left() + area.width()),
            MovedBegin(frame.top(), frame.height(), area.top(), area.top() + area.height()), frame.width(),
            frame.height()};
}

QRect MovedUpInto(const QRect& frame, const QRect& area) {
    const int top = MovedBegin(frame.top(), frame.height(), area.top(), area.top() + area.height());
    return {frame.left(), std::min(frame.top(), top), frame.width(), frame.height()};
}

const ScreenArea* ScreenOf(const QRect& frame, const std::vector<ScreenArea>& screens) {
    const ScreenArea* found = nullptr;
    int most = 0;
    for (const ScreenArea& screen : screens) {
        const QRect shown = frame.intersected(screen.Free);
        const int pixels = shown.width() * shown.height();
        if (shown.isEmpty() || pixels <= most) continue;
        most = pixels;
        found = &screen;
    }
    return found;
}

QRect PlaceBeside(const QRect& main, const QRect& area, QSize wanted, int least) {
    const int left = main.left() - area.left();
    const int right = area.left() + area.width() - (main.left() + main.width());
    if (std::max(left, right) < least) return {};
    const bool atLeft = left >= std::min(wanted.width(), right);
    const int width = std::min(wanted.width(), atLeft ? left : right);
    const int corner = atLeft ? area.left() : area.left() + area.width() - width;
    return MovedInto({corner, main.top(), width, wanted.height()}, area);
}

QRect FrameOf(const QWidget& window) {
    const QWindow* native = window.windowHandle();
    return native == nullptr ? window.frameGeometry() : window.geometry().marginsAdded(native->frameMargins());
}

QRect FreeAreaOf(const QWidget& window) { return window.screen()->availableGeometry(); }

}  // namespace marvolin
