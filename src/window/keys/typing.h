#pragma once
/// \file
/// Whether keys are text, and which window they belong to.

#include <QWidget>

namespace marvolin {

/// True while the focus is where text is written.
bool IsTyping();
/// The window that a widget belongs to: that of an open list is the one it was opened from.
const QWidget& WindowBehind(const QWidget& widget);

}  // namespace marvolin
