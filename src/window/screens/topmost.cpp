#include "window/screens/topmost.h"

#include <QWidget>
#include <QWindow>

namespace marvolin {

void SetTopmost(QWidget& window, bool topmost) {
    // setWindowFlag would make another native window; this only lets the widget know what its window has.
    window.overrideWindowFlags(window.windowFlags().setFlag(Qt::WindowStaysOnTopHint, topmost));
    if (QWindow* native = window.windowHandle()) native->setFlag(Qt::WindowStaysOnTopHint, topmost);
}

}  // namespace marvolin
