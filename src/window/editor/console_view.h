#pragma once

#include <QPlainTextEdit>

#include "core/session.h"
#include "scripting/script_console.h"

namespace marvolin {

/// The lines of the console, the newest at the bottom. It stays there unless the player has scrolled up.
class ConsoleView : public QPlainTextEdit {
public:
    ConsoleView(Session& session, const ScriptConsole& console, QWidget* parent);
    /// Shows the lines that have come since the last time.
    void Refresh();

private:
    void Append(const ConsoleLine& line);

    const ScriptConsole& console_;
    std::uint64_t shown_ = 0;  // of all lines that have come
};

}  // namespace marvolin
