#include "window/screens/fitting.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <array>
#include <utility>

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

QRect PlacedClear(const QRect& frame, const QRect& cover, const QRect& area, int least) {
    if (!frame.intersects(cover)) return frame;
    const int under = cover.top() + cover.height();
    const int beside = cover.left() + cover.width();
    const QPoint corner = MovedInto(frame, area).topLeft();
    const std::array places{QPoint(corner.x(), under), QPoint(corner.x(), cover.top() - frame.height()),
                            QPoint(beside, corner.y()), QPoint(cover.left() - frame.width(), corner.y())};
    QRect best;
    for (const QPoint& place : places) {
        const QRect there(place, frame.size());
        const auto way = [&](const QRect& to) { return (to.topLeft() - frame.topLeft()).manhattanLength(); };
        if (area.contains(there) && (best.isNull() || way(there) < way(best))) best = there;
    }
    if (!best.isNull()) return best;
    const int above = cover.top() - area.top();
    const int below = area.top() + area.height() - under;
    if (std::max(above, below) < least) return frame;
    return {corner.x(), below >= above ? under : area.top(), frame.width(), std::max(above, below)};
}

std::vector<ScreenArea> DesktopScreens() {
    std::vector<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        areas.push_back({screen->geometry(), screen->availableGeometry()});
    }
    return areas;
}

std::function<std::vector<ScreenArea>()> NeverEmpty(std::function<std::vector<ScreenArea>()> ask) {
    const QRect usual(0, 0, 1920, 1080);
    return [ask = std::move(ask), known = std::vector<ScreenArea>{{usual, usual}}]() mutable {
        std::vector<ScreenArea> screens = ask();
        if (!screens.empty()) known = std::move(screens);
        return known;
    };
}

bool IsSamePlace(QPoint one, QPoint other) {
    constexpr int kRounding = 2;  // pixels
    const QPoint way = one - other;
    return std::max(std::abs(way.x()), std::abs(way.y())) <= kRounding;
}

QRect FrameOf(const QWidget& window) {
    const QWindow* native = window.windowHandle();
    return native == nullptr ? window.frameGeometry() : window.geometry().marginsAdded(native->frameMargins());
}

QRect FreeAreaOf(const QWidget& window) { return window.screen()->availableGeometry(); }

}  // namespace marvolin
