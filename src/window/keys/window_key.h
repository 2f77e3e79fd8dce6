#pragma once

class QKeyEvent;

namespace marvolin {

/// F6 goes to the next window of the program in the order of their names, Shift+F6 to the one before. True when the key
/// was one of them. A minimised window is passed by; while a list or a question is open nothing is gone to.
bool GoToWindowByKey(const QKeyEvent& key);

}  // namespace marvolin
