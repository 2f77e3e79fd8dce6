#pragma once
/// \file
/// The windows of the program whose places are kept.

#include <QSize>

class QWidget;

namespace marvolin {

inline constexpr const char* kMainWindow = "frmMain";

/// Whether it is the main window, the browser, Save/Open, the window of scripts or Help.
bool IsKept(const QWidget& window);
bool IsMain(const QWidget& window);
/// Whether the player cannot resize it.
bool IsFixed(const QWidget& window);
/// What its frame adds to its size, as far as the window manager has told it.
QSize FrameAround(const QWidget& window);
/// The main window where it is in front of all others; null where it is not.
const QWidget* TopmostMain();

}  // namespace marvolin
