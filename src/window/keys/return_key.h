#pragma once

class QKeyEvent;
class QWidget;

namespace marvolin {

/// Return presses a button of the toolkit as Space does, where its row of the table names that key. True when it has
/// taken the key. A button of a dialogue knows Return itself.
bool PressByReturn(QWidget& focus, const QKeyEvent& key);

}  // namespace marvolin
