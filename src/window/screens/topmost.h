#pragma once

class QWidget;

namespace marvolin {

/// Asks the window manager to keep `window` in front of those of other programs, or no longer. The native window stays
/// the same. A manager that cannot, or none, is not an error.
void SetTopmost(QWidget& window, bool topmost);

}  // namespace marvolin
