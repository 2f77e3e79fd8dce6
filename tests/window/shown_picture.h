#pragma once
/// \file
/// What of a window is on the screen, beside what would be painted now.

#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace marvolin::test {

/// What the screen shows of the window, as it was last painted.
inline QImage ShownPicture(QWidget& window) {
    return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

/// Whether a paint of the whole window would change nothing: nothing that has changed waits for its repaint.
inline bool IsShownAsPainted(QWidget& window) {
    return ShownPicture(window) == window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

}  // namespace marvolin::test
