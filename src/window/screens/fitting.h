#pragma once
/// \file
/// Where windows lie on the screens. All rectangles are pixels of the window, frames included.

#include <QRect>
#include <functional>
#include <vector>

class QWidget;

namespace marvolin {

/// A screen of the desktop.
struct ScreenArea {
    QRect Whole;
    QRect Free;  ///< without the desktop's panels
};

/// `frame` moved by as little as possible so that it lies in `area`. One that is too large keeps its top left corner in
/// the area, where its title bar is.
QRect MovedInto(const QRect& frame, const QRect& area);
/// `frame` moved up by as little as possible so that it ends in `area`, but not above it.
QRect MovedUpInto(const QRect& frame, const QRect& area);
/// The screen that shows most of `frame`; null when none shows any of it.
const ScreenArea* ScreenOf(const QRect& frame, const std::vector<ScreenArea>& screens);
/// The place beside `main` for a window that wants the size `wanted`, its top aligned with that of `main`: at the left
/// edge of `area`, or else at the right one. It gets narrower, but not below `least`. A null rectangle where neither
/// side has room.
QRect PlaceBeside(const QRect& main, const QRect& area, QSize wanted, int least);
/// `frame` moved within `area` as little as possible so that it is clear of `cover`. One for which there is no room
/// gets lower, but not below `least`; without that room it stays where it is.
QRect PlacedClear(const QRect& frame, const QRect& cover, const QRect& area, int least);
/// The screens of the desktop, the first one first. None while the desktop has none.
std::vector<ScreenArea> DesktopScreens();
/// Asks `ask`, and answers what it told last when it tells no screen: a desktop may have none for a moment.
std::function<std::vector<ScreenArea>()> NeverEmpty(std::function<std::vector<ScreenArea>()> ask);
/// Whether the places are within two pixels of each other: below 100 % they are rounded.
bool IsSamePlace(QPoint one, QPoint other);
/// The window with its frame, as far as the window manager has told it. The widget's own frame may be an old one.
QRect FrameOf(const QWidget& window);
/// The part of the window's screen that panels leave free.
QRect FreeAreaOf(const QWidget& window);

}  // namespace marvolin
