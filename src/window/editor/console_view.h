#pragma once

#include <QPlainTextEdit>
#include <QTimer>

#include "core/session.h"
#include "scripting/script_console.h"

namespace marvolin {

/// The lines of the console, the newest at the bottom. It stays there unless the player has scrolled up.
class ConsoleView : public QPlainTextEdit {
public:
    ConsoleView(Session& session, const ScriptConsole& console, QWidget* parent);
    /// Shows the lines that have come since the last time; once the view can be seen.
    void Refresh();
    /// The same, but not before `Pause` is over.
    void RefreshInTime();

    QTimer Pause;  ///< runs after lines were shown; at its end the next are

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Append(QTextCursor& end, const ConsoleLine& line);

    const ScriptConsole& console_;
    std::uint64_t shown_ = 0;  // of all lines that have come
    bool filled_ = false;      // there is a line, which may be empty
};

}  // namespace marvolin
